#include "charts/ui/frmDiagramm.h"

#include "charts/ChartSettings.h"

using namespace Qt::Literals::StringLiterals;

frmDiagramm::frmDiagramm(const dialogs::Services& services, const yearbook::YearSession& year,
                         const QString& mode, QWidget* parent)
    : ChartWindow("frmDiagramm", u"Diagramme Verbrauchsverwaltung"_s, services, parent),
      year_(year),
      selection_(charts::selectionOf(mode.toStdString())) {
  const std::array captions = {u""_s,          u"Strom"_s,    u"Gas"_s,
                               u"Wasser"_s,    u"Abwasser"_s, u"Wasser u. Abwasser"_s,
                               u"Nachtstrom"_s};
  for (int i = 0; i < Option1.size(); ++i) {
    if (i > 0) addSelection(Option1(i), captions.at(static_cast<std::size_t>(i)));
    connect(Option1(i), &QRadioButton::clicked, this, [this, i] { Option1Click(i); });
    setTabOrder(i == 0 ? static_cast<QWidget*>(lblChartType(5)) : Option1(i - 1), Option1(i));
  }
  setTabOrder(Option1(6), chkTextOnOff);
  Option1(0)->setParent(frDaten);
  Option1(0)->setAccessibleName(u"Keine Auswahl"_s);
  Option1(0)->hide();
  Option1(0)->setChecked(true);
  load();
}

void frmDiagramm::load() {
  enterDataFolder();
  const charts::ChartSettings settings =
      charts::readSettings(services_.files, services_.paths.DataFolder);
  selectType(settings.type);
  if (settings.threeD) opt3D->setChecked(true);
  const charts::YearData year = charts::readChartTable(year_);
  charts::ChartModel model = charts::monthlyChart(year, selection_);
  model.caption = charts::openingCaption(year, selection_);
  Chart2D1->setModel(std::move(model));
}

void frmDiagramm::draw() {
  Chart2D1->setModel(charts::monthlyChart(charts::readChartTable(year_), selection_, shown()));
}

void frmDiagramm::Option1Click(int index) {
  if (index == 0) return;
  selection_ = static_cast<charts::Selection>(index);
  draw();
}

void frmDiagramm::showEvent(QShowEvent* event) {
  ChartWindow::showEvent(event);
  draw();
}

void frmDiagramm::changeEvent(QEvent* event) {
  ChartWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) draw();
}

void frmDiagramm::done(int result) {
  enterDataFolder();
  charts::ChartSettings settings{selectedType(), 0, opt3D->isChecked()};
  for (int i = 0; i < Option1.size(); ++i)
    if (Option1(i)->isChecked()) {
      settings.selection = i;
      break;
    }
  base::ignore(charts::writeSettings(services_.files, services_.paths.DataFolder, settings),
               "the next chart then opens as a new one does");
  ChartWindow::done(result);
}
