#include "charts/ui/frmDiagrVergleich.h"

#include <QGridLayout>
#include <filesystem>

#include "base/Paths.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;

namespace {

bool isSameFile(const std::string& a, const std::string& b) {
  if (a == b) return true;
  std::error_code unknown;
  return std::filesystem::equivalent(base::toPath(a), base::toPath(b), unknown) && !unknown;
}

}  // namespace

frmDiagrVergleich::frmDiagrVergleich(const dialogs::Services& services,
                                     const yearbook::YearSession& year, QWidget* parent)
    : ChartWindow("frmDiagrVergleich", u"Diagramme Jahresvergleich"_s, services, parent),
      year_(year) {
  const std::array captions = {u"Strom"_s, u"Gas"_s, u"Wasser"_s, u"Abwasser"_s, u"Nachtstrom"_s};
  QWidget* previous = lblChartType(5);
  for (int index = charts::kFirstComparison; index <= charts::kLastComparison; ++index) {
    const auto place = static_cast<std::size_t>(index - charts::kFirstComparison);
    auto* button = widgets::control<QRadioButton>(this, "Option1");
    button->setObjectName(u"Option1_"_s + QString::number(index));
    addSelection(button, captions.at(place));
    connect(button, &QRadioButton::clicked, this, [this, index] {
      index_ = index;
      draw();
    });
    setTabOrder(previous, button);
    previous = button;
    selections_.at(place) = button;
  }
  Option1(charts::kFirstComparison)->setChecked(true);

  cmdAnderesJahr->setText(u"Anderes Jahr öffnen"_s);
  cmdAnderesJahr->setAccessibleName(cmdAnderesJahr->text());
  cmdAnderesJahr->setToolTip(u"Wählt das Jahr, mit dem verglichen wird"_s);
  qobject_cast<QGridLayout*>(frDaten->layout())->addWidget(cmdAnderesJahr, 3, 0, 1, 2);
  setTabOrder({previous, cmdAnderesJahr, chkTextOnOff});
  connect(cmdAnderesJahr, &QPushButton::clicked, this, &frmDiagrVergleich::cmdAnderesJahrClick);
  mnuAnderesJahr->setObjectName(u"mnuAnderesJahr"_s);
  mnuAnderesJahr->setText(u"Anderes Jahr &öffnen"_s);
  mnuAnderesJahr->setShortcut(QKeySequence::Open);
  chartMenu()->insertAction(mnuSaveBmp, mnuAnderesJahr);
  chartMenu()->insertSeparator(mnuSaveBmp);
  connect(mnuAnderesJahr, &QAction::triggered, this, &frmDiagrVergleich::cmdAnderesJahrClick);
  draw();
}

void frmDiagrVergleich::cmdAnderesJahrClick() {
  enterDataFolder();
  const QString path =
      services_.prompts.openFile(this, u"*.kwd (Datenbank)|*.kwd"_s, u"Anderes Jahr öffnen"_s,
                                 QString::fromStdString(services_.paths.DataFolder));
  if (path.isEmpty()) return;
  // The open year is locked against a second opening, its own included.
  otherYear_ = isSameFile(path.toStdString(), services_.paths.YearDatabasePath)
                   ? openYear()
                   : charts::readYearFile(services_.files, path.toStdString());
  draw();
}

void frmDiagrVergleich::goOnWith(yearbook::Utility utility) {
  constexpr yearbook::PerUtility<int> kIndices = {{{1, 3, 2}}};
  firstIndex_ = kIndices[utility];
}

void frmDiagrVergleich::load() {
  cmdAnderesJahrClick();
  if (firstIndex_ != index_) Option1(firstIndex_)->click();
}

charts::YearData frmDiagrVergleich::openYear() const {
  charts::YearData year = charts::readYear(year_);
  if (!services_.paths.YearDatabaseName.empty())
    year.databaseName = services_.paths.YearDatabaseName;
  return year;
}

void frmDiagrVergleich::draw() {
  Chart2D1->setModel(charts::comparisonChart(openYear(), otherYear_, index_, shown()));
}

void frmDiagrVergleich::showEvent(QShowEvent* event) {
  ChartWindow::showEvent(event);
  if (asked_) return;
  asked_ = true;
  // Over the window, which shows the open year meanwhile.
  QMetaObject::invokeMethod(this, &frmDiagrVergleich::load, Qt::QueuedConnection);
}
