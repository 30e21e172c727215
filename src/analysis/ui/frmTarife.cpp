#include "analysis/ui/frmTarife.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QToolButton>
#include <QVBoxLayout>

#include "analysis/Charts.h"
#include "analysis/ui/frmAngebot.h"
#include "base/GermanNumber.h"
#include "charts/ui/ChartWidget.h"
#include "dialogs/Prompts.h"
#include "dialogs/Texts.h"
#include "widgets/Segment.h"

using namespace Qt::StringLiterals;
using analysis::Energy;

namespace {

enum BasisChoice { LastYear, Expected, Typed };

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

QToolButton* segment(QButtonGroup* group, int id, const QString& name, const QString& caption,
                     QBoxLayout* row) {
  auto* button = new QToolButton;
  button->setObjectName(name + u'_' + QString::number(id));
  button->setText(caption);
  button->setAccessibleName(caption);
  button->setCheckable(true);
  widgets::showChosen(button);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  group->addButton(button, id);
  row->addWidget(button);
  return button;
}

}  // namespace

frmTarife::frmTarife(const dialogs::Services& services, analysis::Year year,
                     const yearbook::YearSession* open, QWidget* parent)
    : ReportWindow(u"frmTarife"_s, u"Tarife vergleichen"_s, services, parent),
      year_(std::move(year)) {
  auto folder = analysis::readFolder(services_.files, services_.paths.DataFolder, open);
  if (folder) folder_ = std::move(*folder);
  auto offers = analysis::readOffers(services_.files, services_.paths.DataFolder);
  if (offers)
    file_ = std::move(*offers);
  else
    unreadable_ = offers.error();
  buildLayout();
  connectControls();
  chooseEnergy();
  openAs({1240, 680}, *lstAngebote);
}

QWidget* frmTarife::buildHead() {
  auto* head = new QWidget;
  auto* row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  const charts::Theme theme = charts::themeOf(palette());
  for (const Energy energy : analysis::kEnergies) {
    auto* button = segment(grpEnergie, static_cast<int>(energy), u"optEnergie"_s,
                           text(std::string(nameOf(energy))), row);
    button->setIcon(widgets::colorMark(
        palette(), charts::toQColor(theme.color(analysis::hueOf(meterOf(energy))))));
  }
  grpEnergie->button(0)->setChecked(true);
  auto* label = new QLabel(u"Verbr&auch"_s);
  label->setBuddy(cboVerbrauch);
  cboVerbrauch->setAccessibleName(u"Verbrauch"_s);
  cboVerbrauch->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  cboVerbrauch->setFocusPolicy(Qt::StrongFocus);
  txtVerbrauch->setAccessibleName(u"Verbrauch im Jahr in kWh"_s);
  txtVerbrauch->setAlignment(Qt::AlignRight);
  txtVerbrauch->setFixedWidth(88);
  row->addSpacing(22);
  row->addWidget(label);
  row->addSpacing(6);
  row->addWidget(cboVerbrauch);
  row->addSpacing(6);
  row->addWidget(txtVerbrauch);
  row->addSpacing(6);
  row->addWidget(lblVerbrauch);
  row->addStretch();
  return head;
}

QWidget* frmTarife::buildOfferButtons() {
  auto* buttons = new QWidget;
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  cmdNeu->setText(u"&Neues Angebot..."_s);
  cmdAendern->setText(u"Angeb&ot ändern..."_s);
  cmdLoeschen->setText(u"Angebot &löschen"_s);
  for (QPushButton* button : {cmdNeu, cmdAendern, cmdLoeschen}) {
    button->setAccessibleName(button->text().remove(u'&'));
    row->addWidget(button);
  }
  row->addStretch();
  lblHinweis->setText(u"Unterschied: Folgejahr gegen den bisherigen Vertrag, ohne Bonus"_s);
  analysis::makeQuiet(lblHinweis);
  row->addWidget(lblHinweis);
  return buttons;
}

QWidget* frmTarife::buildChartSwitch() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  auto* label = new QLabel(u"Diagramm"_s);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  row->addWidget(label);
  row->addSpacing(10);
  segment(grpDiagramm, 0, u"optDiagramm"_s, u"Unterschied"_s, row)->setChecked(true);
  segment(grpDiagramm, 1, u"optDiagramm"_s, u"Kosten"_s, row);
  row->addStretch();
  return line;
}

void frmTarife::buildLayout() {
  lstAngebote->setAccessibleName(u"Angebote"_s);
  lstAngebote->setRootIsDecorated(false);
  // The contract and two offers below heads in two lines, and a bar.
  lstAngebote->setMinimumHeight(7 * fontMetrics().height() + 24);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(16, 12, 16, 12);
  page->setSpacing(12);
  page->addWidget(buildHead());
  page->addWidget(lstAngebote, 2);
  page->addWidget(buildOfferButtons());
  page->addWidget(buildChartSwitch());
  page->addWidget(picKosten, 4);
  page->addLayout(buildButtons());
}

void frmTarife::connectControls() {
  connect(grpEnergie, &QButtonGroup::idClicked, this, &frmTarife::chooseEnergy);
  connect(grpDiagramm, &QButtonGroup::idClicked, this, &frmTarife::showChart);
  connect(cboVerbrauch, &QComboBox::activated, this, [this](int index) {
    if (index == Typed) txtVerbrauch->setFocus();
    compare();
  });
  connect(txtVerbrauch, &widgets::NumberField::valueChanged, this, &frmTarife::compare);
  connect(lstAngebote, &QTreeWidget::itemSelectionChanged, this, &frmTarife::showChart);
  connect(lstAngebote, &QTreeWidget::itemDoubleClicked, this, [this] {
    if (chosenOffer() >= 0) edit(chosenOffer());
  });
  connect(cmdNeu, &QPushButton::clicked, this, [this] { edit(-1); });
  connect(cmdAendern, &QPushButton::clicked, this, [this] { edit(chosenOffer()); });
  connect(cmdLoeschen, &QPushButton::clicked, this, &frmTarife::remove);
}

void frmTarife::chooseEnergy() {
  energy_ = static_cast<Energy>(grpEnergie->checkedId());
  bases_ = {analysis::lastCompleteYear(year_, folder_, energy_),
            analysis::forecastBasis(analysis::forecastOf(year_, folder_), energy_), std::nullopt};
  cboVerbrauch->clear();
  for (const int choice : {LastYear, Expected, Typed}) {
    const auto& basis = bases_[static_cast<std::size_t>(choice)];
    const QString none =
        choice == LastYear ? u"letztes ganzes Jahr: keines"_s : u"Prognose: noch keine"_s;
    cboVerbrauch->addItem(choice == Typed ? u"eigener Wert"_s : basis ? text(basis->text) : none);
    if (choice != Typed && !basis) cboVerbrauch->setItemData(choice, 0, Qt::UserRole - 1);
  }
  cboVerbrauch->setCurrentIndex(bases_[LastYear] ? LastYear : bases_[Expected] ? Expected : Typed);
  compare();
}

analysis::Basis frmTarife::chosenBasis() const {
  const int choice = cboVerbrauch->currentIndex();
  if (choice != Typed) return *bases_[static_cast<std::size_t>(choice)];
  return analysis::typedBasis(std::max(0.0, txtVerbrauch->valueOrZero()),
                              bases_[LastYear] ? bases_[LastYear] : bases_[Expected]);
}

void frmTarife::compare() {
  const analysis::Basis basis = chosenBasis();
  txtVerbrauch->setReadOnly(cboVerbrauch->currentIndex() != Typed);
  if (txtVerbrauch->isReadOnly()) txtVerbrauch->setValue(std::round(basis.total()));
  QString unit = u"kWh"_s;
  if (basis.nightKwh > 0)
    unit += u", davon nachts "_s + text(base::formatNumber(basis.nightKwh, 0));
  lblVerbrauch->setText(unit);
  comparison_ = analysis::compareOffers(year_, energy_, basis, file_.offers);
  showTable();
  showChart();
}

void frmTarife::showTable() {
  const int before = chosenOffer();
  const QSignalBlocker quiet(lstAngebote);
  const reports::Grid grid = analysis::tableOf(comparison_);
  lstAngebote->clear();
  analysis::showHeadings(lstAngebote, grid);
  int row = 1;
  const auto add = [&](int offer) {
    auto* item = new QTreeWidgetItem(lstAngebote);
    analysis::showRow(item, grid, row++);
    item->setData(0, Qt::UserRole, offer);
    return item;
  };
  const charts::Theme theme = charts::themeOf(palette());
  add(-1)->setIcon(
      0, widgets::colorMark(palette(),
                            charts::toQColor(theme.color(analysis::hueOf(meterOf(energy_))))));
  for (std::size_t i = 0; i < file_.offers.size(); ++i) {
    if (file_.offers[i].energy != energy_) continue;
    QTreeWidgetItem* item = add(static_cast<int>(i));
    if (static_cast<int>(i) == before) lstAngebote->setCurrentItem(item);
  }
  analysis::fitColumns(lstAngebote);
}

int frmTarife::chosenOffer() const {
  const auto chosen = lstAngebote->selectedItems();
  return chosen.isEmpty() ? -1 : chosen.front()->data(0, Qt::UserRole).toInt();
}

void frmTarife::showChart() {
  const int chosen = chosenOffer();
  for (QPushButton* button : {cmdAendern, cmdLoeschen}) button->setEnabled(chosen >= 0);
  // Among those of the comparison.
  int place = -1;
  for (int i = 0, seen = 0; i <= chosen; ++i)
    if (file_.offers[static_cast<std::size_t>(i)].energy == energy_) place = seen++;
  const bool differences = grpDiagramm->checkedId() == 0;
  picKosten->show(
      [this, place, differences](const analysis::Frame& frame) {
        return analysis::tariffLines(frame, comparison_, place, differences);
      },
      differences ? u"Diagramm: Unterschied zum bisherigen Vertrag"_s
                  : u"Diagramm: Kosten über dem Verbrauch"_s);
}

void frmTarife::edit(int index) {
  analysis::Offer offer;
  offer.energy = energy_;
  if (index >= 0) offer = file_.offers[static_cast<std::size_t>(index)];
  frmAngebot window(offer, services_, this);
  if (window.exec() != QDialog::Accepted) return;
  analysis::OfferFile changed = file_;
  if (index >= 0)
    changed.offers[static_cast<std::size_t>(index)] = window.offer();
  else
    changed.offers.push_back(window.offer());
  store(changed);
}

void frmTarife::remove() {
  const int index = chosenOffer();
  if (index < 0) return;
  const QString name = text(file_.offers[static_cast<std::size_t>(index)].name);
  if (!services_.prompts.confirm(this, u"Angebot \""_s + name + u"\" löschen?"_s, windowTitle()))
    return;
  analysis::OfferFile changed = file_;
  changed.offers.erase(changed.offers.begin() + index);
  lstAngebote->clearSelection();
  store(changed);
}

void frmTarife::store(const analysis::OfferFile& changed) {
  const auto stored =
      unreadable_ ? base::Result<void>(base::Failure(*unreadable_))
                  : analysis::writeOffers(services_.files, services_.paths.DataFolder, changed);
  if (stored)
    file_ = changed;
  else
    services_.prompts.tell(this, dialogs::notStoredText(stored.error()), windowTitle(),
                           dialogs::Icon::Warning);
  compare();
}

reports::Grid frmTarife::shownTable() const {
  return analysis::tableOf(comparison_);
}

reports::Grid frmTarife::csvTable() const {
  return analysis::csvTableOf({comparison_});
}
