#include <gmock/gmock.h>

#include "MainWindowFixture.h"
#include "base/GermanNumber.h"
#include "readings/ui/frmEingabeVerbrauch.h"
#include "readings/ui/frmEingabeVerbrauchAbW.h"
#include "readings/ui/frmEingabeVerbrauchNS.h"
#include "readings/ui/frmEingabeVerbrauchS.h"
#include "readings/ui/frmEingabeVerbrauchW.h"
#include "readings/ui/frmGrdGebMo.h"
#include "readings/ui/frmGrdGebMoAW.h"
#include "readings/ui/frmGrdGebMoG.h"
#include "readings/ui/frmGrdGebMoW.h"
#include "readings/ui/frmPreisJeKubikAbW.h"
#include "readings/ui/frmPreisJeKubikG.h"
#include "readings/ui/frmPreisJeKubikW.h"
#include "readings/ui/frmPreisJeKws.h"
#include "readings/ui/frmPreisJeKwsN.h"

using namespace Qt::Literals::StringLiterals;
using yearbook::Meter;
using yearbook::Utility;

namespace {

QString german(double value) {
  return QString::fromStdString(base::formatShort(value));
}

void press(QWidget* widget) {
  QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
}

// The household types its year into the empty one, window by window, with mouse and keyboard.
class WholeYear : public MainWindowFixture {
 protected:
  void openEmpty2025() {
    disk.put(kSample, support::emptyYear());
    prompts.answerInput(german(year.start[Meter::Day]));
    openWindow(kSample);
    EXPECT_EQ(prompts.take().text, u"Anfangszählerstand eingeben"_s);
  }

  template <class Window>
  void typeReadings(QPushButton* button, const yearbook::PerMonth<double>& readings,
                    int changed = 12, double newStart = 0) {
    if (changed < 12) prompts.answerInput(german(newStart));
    clickAndHandle(button, [&](QDialog* dialog) {
      auto* entry = qobject_cast<Window*>(dialog);
      ASSERT_TRUE(entry);
      entry->activateWindow();
      settle();
      if (changed < 12) press(entry->optWechsel(changed));
      entry->txtVerbrauch(0)->setFocus();
      for (const double reading : readings) {
        QTest::keyClicks(QApplication::focusWidget(), german(reading));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
      }
      press(entry->Command1);
      press(entry->Command2);
      EXPECT_FALSE(entry->isVisible());
    });
  }

  template <class Window>
  void typePrices(QPushButton* button, const std::vector<sample::PriceStep>& steps) {
    for (const sample::PriceStep& step : steps) {
      clickAndHandle(button, [&](QDialog* dialog) {
        auto* entry = qobject_cast<Window*>(dialog);
        ASSERT_TRUE(entry);
        for (int k = 0; k < 12; ++k)
          if (entry->Check1(k)->isChecked() != (k >= step.from)) press(entry->Check1(k));
        type(entry->newPrice, german(step.price));
        press(entry->Command1);
        EXPECT_FALSE(entry->isVisible());
      });
    }
  }

  template <class Window>
  void typeFee(QPushButton* button, double perMonth) {
    clickAndHandle(button, [&](QDialog* dialog) {
      auto* entry = qobject_cast<Window*>(dialog);
      ASSERT_TRUE(entry);
      for (widgets::NumberField* field : entry->txtVerbrauch) type(field, german(perMonth));
      press(entry->Command1);
      EXPECT_FALSE(entry->isVisible());
    });
  }

  void typeAdvances(const yearbook::MonthTable& months, double perMonth) {
    for (widgets::NumberField* field : months.advance) enter(field, german(perMonth));
  }

  void typeElectricity() {
    auto* page = window->Frame1;
    window->TabStrip->setCurrentWidget(page);
    enter(page->txtAnfStandSN, german(year.start[Meter::Night]));
    enter(page->txtMwStS, german(sample::kVat[Meter::Day]));
    enter(page->txtDatumStrom, QString::fromStdString(year.startDate));
    typePrices<frmPreisJeKws>(page->cmdPreisJeEinheitS, year.prices[Meter::Day]);
    typePrices<frmPreisJeKwsN>(page->cmdPreisJeEinheitSN, year.prices[Meter::Night]);
    typeReadings<frmEingabeVerbrauchS>(page->cmdEingabeVerbrauchS, year.readings[Meter::Day],
                                       year.changes[Meter::Day].position,
                                       year.changes[Meter::Day].newStart);
    typeReadings<frmEingabeVerbrauchNS>(page->cmdEingabeVerbrauchNS, year.readings[Meter::Night],
                                        year.changes[Meter::Night].position,
                                        year.changes[Meter::Night].newStart);
    typeFee<frmGrdGebMo>(page->cmdMonatlStrom, year.fees[Meter::Day]);
    typeAdvances(*page->months, year.advances[Utility::Electricity]);
  }

  void typeWater() {
    auto* page = window->Frame2;
    window->TabStrip->setCurrentWidget(page);
    enter(page->txtAnfStandW, german(year.start[Meter::Water]));
    enter(page->txtAnfStandAbW, german(year.start[Meter::WasteWater]));
    enter(page->txtMwStW, german(sample::kVat[Meter::Water]));
    enter(page->txtMwStAbW, german(sample::kVat[Meter::WasteWater]));
    typeReadings<frmEingabeVerbrauchW>(page->cmdEingabeVerbrauchW, year.readings[Meter::Water]);
    typeReadings<frmEingabeVerbrauchAbW>(page->cmdEingabeVerbrauchAbW,
                                         year.readings[Meter::WasteWater]);
    typePrices<frmPreisJeKubikW>(page->cmdPreisJeEinheitW, year.prices[Meter::Water]);
    typePrices<frmPreisJeKubikAbW>(page->cmdPreisJeEinheitAbW, year.prices[Meter::WasteWater]);
    typeFee<frmGrdGebMoW>(page->cmdWMonatl, year.fees[Meter::Water]);
    typeFee<frmGrdGebMoAW>(page->cmdWWMonatl, year.fees[Meter::WasteWater]);
    typeAdvances(*page->months, year.advances[Utility::Water]);
  }

  void typeGas() {
    auto* page = window->Frame3;
    window->TabStrip->setCurrentWidget(page);
    enter(page->txtAnfStandG, german(year.start[Meter::Gas]));
    enter(page->txtMwStG, german(sample::kVat[Meter::Gas]));
    typePrices<frmPreisJeKubikG>(page->cmdPreisJeEinheitG, year.prices[Meter::Gas]);
    typeReadings<frmEingabeVerbrauch>(page->cmdEingabeVerbrauchG, year.readings[Meter::Gas]);
    // The months are priced anew, each with its own price.
    enter(page->txtFaktor, german(year.gasFactor));
    typeFee<frmGrdGebMoG>(page->cmdMonatlGas, year.fees[Meter::Gas]);
    typeAdvances(*page->months, year.advances[Utility::Gas]);
  }

  QString overview(int row, int column) const {
    const auto* model = window->Frame4->grdDruck->model();
    return model->data(model->index(row, column)).toString();
  }
  std::string bytes(const std::string& name) const {
    const base::Bytes content = disk.get(kFolder + name);
    return {content.begin(), content.end()};
  }

  const sample::Year& year = sample::year2025();
};

}  // namespace

TEST_F(WholeYear, TypedThroughTheWindowsComesToTheHouseholdsBill) {
  openEmpty2025();
  typeElectricity();
  typeWater();
  typeGas();
  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"870,62"_s);
  EXPECT_EQ(window->Frame1->txtBetragNS->text(), u"360,65"_s);
  EXPECT_EQ(window->Frame2->txtBetragW->text(), u"267,75"_s);
  EXPECT_EQ(window->Frame2->txtBetragAbW->text(), u"362,95"_s);
  EXPECT_EQ(window->Frame3->txtBetragG->text(), u"1.388,00"_s);

  window->TabStrip->setCurrentWidget(window->Frame4);
  settle();
  struct Line {
    int row;
    const char16_t *electricity, *water, *gas;
  };
  const Line lines[] = {
      {16, u"1.231,27", u"630,70", u"1.388,00"}, {18, u"162,00", u"106,80", u"134,40"},
      {21, u"1.393,27", u"737,50", u"1.522,40"}, {23, u"264,72", u"26,22", u"289,26"},
      {26, u"1.657,99", u"763,72", u"1.811,66"}, {28, u"1.632,00", u"792,00", u"1.704,00"},
      {30, u"25,99", u"-28,28", u"107,66"}};
  for (const Line& line : lines) {
    EXPECT_EQ(overview(line.row, 1), QStringView(line.electricity)) << line.row;
    EXPECT_EQ(overview(line.row, 4), QStringView(line.water)) << line.row;
    EXPECT_EQ(overview(line.row, 7), QStringView(line.gas)) << line.row;
  }
}

TEST_F(WholeYear, TypedThroughTheWindowsLeavesTheSideFiles) {
  openEmpty2025();
  typeElectricity();
  typeWater();
  typeGas();
  EXPECT_EQ(bytes("Verbrauch2025_WechselStrom.dat"), "5,12\r\n");
  EXPECT_EQ(bytes("Verbrauch2025_WechselNachtstrom.dat"), "5,4\r\n");
  for (const char* meter : {"Wasser", "AbWasser", "Gas"})
    EXPECT_EQ(bytes(std::string("Verbrauch2025_Wechsel") + meter + ".dat"), "12,0\r\n");
  EXPECT_EQ(bytes("Verbrauch2025_GrdGebStrMon.dat"),
            "13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5\r\n");
  EXPECT_EQ(bytes("Verbrauch2025_GrdGebWMon.dat"),
            "8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9,8.9\r\n");
  EXPECT_EQ(bytes("Verbrauch2025_GrdGebAWMon.dat"), "0,0,0,0,0,0,0,0,0,0,0,0\r\n");
  EXPECT_EQ(bytes("Verbrauch2025_GrdGebGMon.dat"),
            "11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2,11.2\r\n");
  const auto again = stored();
  ASSERT_TRUE(again);
  EXPECT_EQ(again->values().startDate, "01.01.2025");
  EXPECT_EQ(again->adoVerbrM.number(6, yearbook::verbrMonat::day), 226);
}
