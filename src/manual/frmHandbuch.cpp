#include "manual/frmHandbuch.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "dialogs/WindowPlace.h"
#include "widgets/Pictures.h"

using namespace Qt::Literals::StringLiterals;
using manual::Section;

namespace {

constexpr int kPlaceRole = Qt::UserRole;

QString placeOf(const Section& section) {
  return section.level == 1 ? section.page : section.page + u'#' + section.anchor;
}

}  // namespace

frmHandbuch::frmHandbuch(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmHandbuch"_s);
  setWindowTitle(u"Kalvira - Handbuch"_s);
  setWindowIcon(widgets::icon(u"hilfe"_s));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setAttribute(Qt::WA_DeleteOnClose);
  setTexts();
  arrange();
  connectControls();
  showContents();
  showPlace(manual::Manual::firstPage());
  resize(1000, 680);
  dialogs::keepPlace(*this);
}

void frmHandbuch::setTexts() {
  cmdZurueck->setText(u"&Zurück"_s);
  cmdZurueck->setToolTip(u"Vorige Seite (Alt+Links)"_s);
  cmdVor->setText(u"&Vor"_s);
  cmdVor->setToolTip(u"Nächste Seite (Alt+Rechts)"_s);
  lblSuche->setText(u"&Suchen"_s);
  lblSuche->setBuddy(txtSuche);
  txtSuche->setAccessibleName(u"Suchen"_s);
  txtSuche->setToolTip(u"Ein Wort oder mehrere (Strg+F)"_s);
  trvInhalt->setAccessibleName(u"Inhalt"_s);
  trvInhalt->header()->hide();
  txtSeite->setAccessibleName(u"Seite des Handbuchs"_s);
  lblTreffer->setWordWrap(true);
  lblTreffer->hide();
  cmdSchliessen->setText(u"S&chließen"_s);
  for (QPushButton* button : {cmdZurueck, cmdVor, cmdSchliessen}) {
    button->setAccessibleName(button->text().remove(u'&'));
    button->setAutoDefault(false);
    button->setMinimumWidth(88);
  }
}

void frmHandbuch::arrange() {
  auto* left = new QWidget;
  auto* column = new QVBoxLayout(left);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(8);
  auto* searching = new QHBoxLayout;
  searching->setSpacing(8);
  searching->addWidget(lblSuche);
  searching->addWidget(txtSuche, 1);
  column->addLayout(searching);
  column->addWidget(lblTreffer);
  column->addWidget(trvInhalt, 1);
  auto* halves = new QSplitter;
  halves->setChildrenCollapsible(false);
  halves->addWidget(left);
  halves->addWidget(txtSeite);
  halves->setStretchFactor(1, 1);
  halves->setSizes({260, 740});
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(cmdZurueck);
  buttons->addWidget(cmdVor);
  buttons->addStretch();
  buttons->addWidget(cmdSchliessen);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(12);
  rows->addWidget(halves, 1);
  rows->addLayout(buttons);
  setTabOrder(txtSuche, trvInhalt);
  setTabOrder(trvInhalt, txtSeite);
  setTabOrder(txtSeite, cmdZurueck);
  setTabOrder(cmdZurueck, cmdVor);
  setTabOrder(cmdVor, cmdSchliessen);
}

void frmHandbuch::connectControls() {
  connect(txtSuche, &QLineEdit::textChanged, this, &frmHandbuch::search);
  connect(trvInhalt, &QTreeWidget::currentItemChanged, this, &frmHandbuch::open);
  connect(trvInhalt, &QTreeWidget::itemActivated, this, &frmHandbuch::open);
  connect(trvInhalt, &QTreeWidget::itemClicked, this, &frmHandbuch::open);
  connect(txtSeite, &manual::PageView::shown, this, &frmHandbuch::followPage);
  connect(txtSeite, &QTextBrowser::backwardAvailable, cmdZurueck, &QWidget::setEnabled);
  connect(txtSeite, &QTextBrowser::forwardAvailable, cmdVor, &QWidget::setEnabled);
  connect(cmdZurueck, &QPushButton::clicked, txtSeite, &QTextBrowser::backward);
  connect(cmdVor, &QPushButton::clicked, txtSeite, &QTextBrowser::forward);
  connect(cmdSchliessen, &QPushButton::clicked, this, &QWidget::close);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, txtSuche, [this] {
    txtSuche->setFocus(Qt::ShortcutFocusReason);
    txtSuche->selectAll();
  });
  cmdZurueck->setEnabled(false);
  cmdVor->setEnabled(false);
}

void frmHandbuch::showPlace(const QString& place) {
  txtSeite->showPlace(place);
}

void frmHandbuch::showInFront() {
  show();
  raise();
  activateWindow();
}

QTreeWidgetItem* frmHandbuch::addLine(QTreeWidgetItem* parent, const Section& section) {
  auto* line = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(trvInhalt);
  line->setText(0, section.title);
  line->setToolTip(0, section.title);
  line->setData(0, kPlaceRole, placeOf(section));
  return line;
}

void frmHandbuch::showContents() {
  QTreeWidgetItem* page = nullptr;
  for (const Section& section : manual_.sections()) {
    if (!section.page.startsWith(u"handbuch/"_s)) continue;  // found by links and by searching
    if (section.level == 1)
      page = addLine(nullptr, section);
    else if (section.level == 2)
      addLine(page, section);
  }
}

void frmHandbuch::search(const QString& words) {
  const QSignalBlocker quiet(trvInhalt);
  trvInhalt->clear();
  txtSeite->mark(words);
  const bool searching = !words.trimmed().isEmpty();
  lblTreffer->setVisible(searching);
  if (!searching) {
    showContents();
    followPage(manual::placeAt(txtSeite->source()));
    return;
  }
  const auto found = manual_.find(words);
  for (const Section& section : found) {
    QTreeWidgetItem* line = addLine(nullptr, section);
    constexpr int kExcerpt = 300;
    line->setToolTip(0, section.text.left(kExcerpt));
    if (section.level == 1) continue;
    for (const Section& page : manual_.sections())
      if (page.level == 1 && page.page == section.page)
        line->setText(0, page.title + u": "_s + section.title);
  }
  lblTreffer->setText(found.empty()       ? u"Nichts gefunden."_s
                      : found.size() == 1 ? u"1 Stelle"_s
                                          : u"%1 Stellen"_s.arg(found.size()));
}

void frmHandbuch::open(const QTreeWidgetItem* line) {
  if (line != nullptr) showPlace(line->data(0, kPlaceRole).toString());
}

// The line of the page that is shown, wherever one came from.
void frmHandbuch::followPage(const QString& shown) {
  if (!txtSuche->text().trimmed().isEmpty()) return;
  const QSignalBlocker quiet(trvInhalt);
  for (int i = 0; i < trvInhalt->topLevelItemCount(); ++i) {
    QTreeWidgetItem* line = trvInhalt->topLevelItem(i);
    if (line->data(0, kPlaceRole).toString() != shown.section(u'#', 0, 0)) continue;
    line->setExpanded(true);
    trvInhalt->setCurrentItem(line);
    for (int k = 0; k < line->childCount(); ++k)
      if (line->child(k)->data(0, kPlaceRole).toString() == shown)
        trvInhalt->setCurrentItem(line->child(k));
  }
}

void frmHandbuch::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && focusWidget() == txtSuche && trvInhalt->topLevelItemCount() > 0) {
    trvInhalt->setCurrentItem(trvInhalt->topLevelItem(0));
    trvInhalt->setFocus();
    return;
  }
  QDialog::keyPressEvent(event);
}
