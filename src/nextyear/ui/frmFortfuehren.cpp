#include "nextyear/ui/frmFortfuehren.h"

#include <QGridLayout>
#include <QHeaderView>

#include "base/Paths.h"
#include "readings/ui/MeterLook.h"
#include "widgets/Rule.h"
#include "widgets/TonedCells.h"

using namespace Qt::Literals::StringLiterals;
using nextyear::Group;
using readings::MarkedLabel;
using readings::utf8;

namespace {

enum Column { kWhat, kFrom, kTo, kUnit, kSource, kColumns };

}  // namespace

frmFortfuehren::frmFortfuehren(const dialogs::Services& services, yearbook::YearSession& session,
                               nextyear::Plan plan, QWidget* parent)
    : EntryWindow("frmFortfuehren", "", services, session, parent), plan_(std::move(plan)) {
  setTexts();
  arrange();
  showLines();
  connect(cmdUebernehmen, &QPushButton::clicked, this, &frmFortfuehren::takeOver);
  connect(cmdHilfe, &QPushButton::clicked, this, [this] { showHelp(); });
  connect(optPassend, &QRadioButton::toggled, this, [this] {
    shown_ = choice();
    showLines();
  });
}

void frmFortfuehren::setTexts() {
  const QString from = utf8(plan_.from);
  const QString to = utf8(base::baseName(base::fileName(session_.path())));
  setWindowTitle(u"Aus %1 übernehmen – %2"_s.arg(from, to));
  lblTitel->setText(u"%1 beginnt, wo %2 endet"_s.arg(to, from));
  QFont big = lblTitel->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.25);
  lblTitel->setFont(big);
  lblUnveraendert->setText(
      u"%1 bleibt unverändert. Alles lässt sich danach noch ändern."_s.arg(from));
  lblUnveraendert->setMark(MarkedLabel::Mark::Quiet);
  trvAngaben->setAccessibleName(u"Was übernommen wird"_s);
  trvAngaben->setHeaderLabels({u"Angabe"_s, from, to, u"Einheit"_s, u"Woher"_s});
  lblAbschlaege->setText(u"Abschläge:"_s);
  optWieZuletzt->setText(u"wie &zuletzt"_s);
  optPassend->setText(u"&passend zum Verbrauch in "_s + QString(from).replace(u'&', u"&&"_s));
  optPassend->setEnabled(plan_.hasFittingAdvances());
  (optPassend->isEnabled() ? optPassend : optWieZuletzt)->setChecked(true);
  QStringList notes;
  for (const std::string& note : plan_.notes) notes << utf8(note);
  lblHinweis->setText(notes.join(u' '));
  lblHinweis->setMark(MarkedLabel::Mark::Doubt);
  lblHinweis->setWordWrap(true);
  lblHinweis->setVisible(!notes.isEmpty());
  cmdHilfe->setText(u"&Hilfe"_s);
  cmdUebernehmen->setText(u"Ü&bernehmen"_s);
  cmdUebernehmen->setToolTip(u"Was angehakt ist, in %1 speichern"_s.arg(to));
  cmdUebernehmen->setDefault(true);
  makeCloseButton(cmdSchliessen);
  shown_ = {{true, true, true, true, true},
            optPassend->isChecked() ? nextyear::Advances::AsConsumed : nextyear::Advances::AsLast};
}

void frmFortfuehren::arrange() {
  readings::giveRoom(trvAngaben);
  trvAngaben->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  trvAngaben->header()->setStretchLastSection(true);
  for (const int column : {kFrom, kTo})
    trvAngaben->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
  auto* advances = new QHBoxLayout;
  advances->setSpacing(12);
  advances->addWidget(lblAbschlaege);
  advances->addWidget(optWieZuletzt);
  advances->addWidget(optPassend);
  advances->addStretch();
  auto* window = new QVBoxLayout(this);
  window->setContentsMargins(16, 12, 16, 12);
  window->setSpacing(8);
  window->addWidget(lblTitel);
  window->addWidget(lblUnveraendert);
  window->addWidget(trvAngaben, 1);
  window->addWidget(lblHinweis);
  window->addLayout(advances);
  window->addWidget(widgets::makeRule(this));
  window->addLayout(readings::buttonRow({cmdHilfe}, {cmdUebernehmen, cmdSchliessen}));
  tameButtons();
  resize(860, 600);
}

void frmFortfuehren::showLines() {
  trvAngaben->clear();
  QTreeWidgetItem* heads[nextyear::kGroups.size()];
  for (const Group group : nextyear::kGroups) {
    auto* head = new QTreeWidgetItem(trvAngaben);
    heads[static_cast<std::size_t>(group)] = head;
    head->setText(kWhat, utf8(nameOf(group)));
    QFont bold = trvAngaben->font();
    bold.setBold(true);
    head->setFont(kWhat, bold);
    head->setFlags(head->flags() | Qt::ItemIsUserCheckable);
    head->setCheckState(kWhat, shown_.has(group) ? Qt::Checked : Qt::Unchecked);
  }
  for (const nextyear::Line& line : preview(plan_, shown_.advances))
    showLine(heads[static_cast<std::size_t>(line.group)], line);
  for (const Group group : nextyear::kGroups) {
    QTreeWidgetItem* head = heads[static_cast<std::size_t>(group)];
    head->setExpanded(group < Group::FeesAndTaxes);
    head->setHidden(head->childCount() == 0);
    const int count = head->childCount();
    head->setText(kSource, group == Group::Prices ? u"für alle zwölf Monate"_s
                           : head->isExpanded()   ? QString()
                           : count == 1           ? u"1 Angabe"_s
                                                  : u"%1 Angaben"_s.arg(count));
    makeQuiet(head, kSource);
  }
}

void frmFortfuehren::makeQuiet(QTreeWidgetItem* item, int column) {
  item->setData(column, widgets::kToneRole, int(widgets::Tone::Quiet));
}

void frmFortfuehren::showLine(QTreeWidgetItem* head, const nextyear::Line& line) {
  auto* item = new QTreeWidgetItem(head);
  const std::string* texts[kColumns] = {&line.name, &line.from, &line.to, &line.unit, &line.source};
  for (int column = 0; column < kColumns; ++column) item->setText(column, utf8(*texts[column]));
  for (const int column : {kFrom, kTo})
    item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
  for (const int column : {kFrom, kUnit, kSource}) makeQuiet(item, column);
  if (line.meter) item->setIcon(kWhat, readings::markOf(*line.meter, palette()));
  QFont bold = trvAngaben->font();
  bold.setBold(true);
  item->setFont(kTo, bold);
}

nextyear::Choice frmFortfuehren::choice() const {
  nextyear::Choice chosen;
  for (std::size_t i = 0; i < nextyear::kGroups.size(); ++i)
    chosen.groups[i] =
        trvAngaben->topLevelItem(static_cast<int>(i))->checkState(kWhat) == Qt::Checked;
  chosen.advances =
      optPassend->isChecked() ? nextyear::Advances::AsConsumed : nextyear::Advances::AsLast;
  return chosen;
}

void frmFortfuehren::takeOver() {
  if (told(carryOver(session_, plan_, choice()))) accept();
}
