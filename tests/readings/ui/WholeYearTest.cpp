#include <gmock/gmock.h>

#include "OpenYear.h"
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
#include "reports/YearReport.h"

using namespace Qt::Literals::StringLiterals;
using base::formatMoney;

namespace {

QString german(double value) {
  return QString::fromStdString(base::formatShort(value));
}

// The household types its year into the empty one, window by window, with mouse and keyboard.
class WholeYear : public OpenYear {
 protected:
  template <class Window>
  void typeReadings(const yearbook::PerMonth<double>& readings, int changed, double newStart) {
    const auto window = show<Window>();
    if (changed < 12) {
      prompts.answerInput(german(newStart));
      click(window->optWechsel(changed));
    }
    window->txtVerbrauch(0)->setFocus();
    for (const double reading : readings) {
      QTest::keyClicks(QApplication::focusWidget(), german(reading));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    click(window->Command1);
    click(window->Command2);
    ASSERT_FALSE(window->isVisible());
  }

  template <class Window>
  void typePrices(const std::vector<sample::PriceStep>& steps) {
    for (const sample::PriceStep& step : steps) {
      const auto window = show<Window>();
      for (int k = 0; k < 12; ++k)
        if (window->Check1(k)->isChecked() != (k >= step.from)) click(window->Check1(k));
      type(window->newPrice, german(step.price));
      click(window->Command1);
      ASSERT_FALSE(window->isVisible());
    }
  }

  template <class Window>
  void typeFee(double perMonth) {
    const auto window = show<Window>();
    for (int k = 0; k < 12; ++k) type(window->txtVerbrauch(k), german(perMonth));
    click(window->Command1);
    ASSERT_FALSE(window->isVisible());
  }

  // What stands on the pages of the main window.
  void fillPages(const sample::Year& typed) {
    namespace z = yearbook::zstaende;
    const std::pair<const yearbook::Field*, double> settings[] = {
        {&z::startDay, typed.startDay},
        {&z::startNight, typed.startNight},
        {&z::startWasteWater, typed.startWasteWater},
        {&z::startGas, typed.startGas},
        {&z::gasFactor, typed.gasFactor},
        {&z::vatElectricity, typed.vatElectricity},
        {&z::vatWater, typed.vatWater},
        {&z::vatGas, typed.vatGas}};
    for (const auto& [field, value] : settings) ASSERT_TRUE(year->storeNumber(*field, value));
    ASSERT_TRUE(year->storeStartWater(typed.startWater));
    const double advances[] = {typed.advanceElectricity, typed.advanceWater, typed.advanceGas};
    for (const yearbook::Utility utility : yearbook::kUtilities)
      for (int k = 0; k < 12; ++k)
        ASSERT_TRUE(year->storeAdvance(
            utility, k, base::Money::roundHalfEven(advances[yearbook::at(utility)])));
  }
};

}  // namespace

TEST_F(WholeYear, TypedThroughTheWindowsComesToTheHouseholdsBill) {
  openEmpty();
  const sample::Year& typed = sample::year2025();
  fillPages(typed);
  typePrices<frmPreisJeKws>(typed.dayPrice);
  typePrices<frmPreisJeKwsN>(typed.nightPrice);
  typePrices<frmPreisJeKubikW>(typed.waterPrice);
  typePrices<frmPreisJeKubikAbW>(typed.wasteWaterPrice);
  typePrices<frmPreisJeKubikG>(typed.gasPrice);
  typeReadings<frmEingabeVerbrauchS>(typed.day, typed.changed, typed.newDay);
  typeReadings<frmEingabeVerbrauchNS>(typed.night, typed.changed, typed.newNight);
  typeReadings<frmEingabeVerbrauchW>(typed.water, 12, 0);
  typeReadings<frmEingabeVerbrauchAbW>(typed.water, 12, 0);
  typeReadings<frmEingabeVerbrauch>(typed.gas, 12, 0);
  typeFee<frmGrdGebMo>(typed.feeElectricity);
  typeFee<frmGrdGebMoW>(typed.feeWater);
  typeFee<frmGrdGebMoAW>(typed.feeWasteWater);
  typeFee<frmGrdGebMoG>(typed.feeGas);

  open();
  const auto& values = year->values();
  EXPECT_EQ(values.electricity.day.consumption, 2993);
  EXPECT_EQ(values.electricity.night.consumption, 1499);
  EXPECT_EQ(values.water.water.consumption, 119);
  EXPECT_EQ(values.gas.gas.consumption, 1408);
  EXPECT_EQ(formatMoney(values.electricity.day.amount), "870,62");
  EXPECT_EQ(formatMoney(values.electricity.night.amount), "360,65");
  EXPECT_EQ(formatMoney(values.water.water.amount), "267,75");
  EXPECT_EQ(formatMoney(values.water.wasteWater.amount), "362,95");
  EXPECT_EQ(formatMoney(values.gas.gas.amount), "1.388,00");
  const auto bill = reports::overviewTotals(reports::overviewInput(*year));
  EXPECT_EQ(formatMoney(bill.electricity.gross), "1.657,99");
  EXPECT_EQ(formatMoney(bill.water.gross), "763,72");
  EXPECT_EQ(formatMoney(bill.gas.gross), "1.811,66");
  EXPECT_EQ(formatMoney(bill.electricity.balance), "25,99");
  EXPECT_EQ(formatMoney(bill.water.balance), "-28,28");
  EXPECT_EQ(formatMoney(bill.gas.balance), "107,66");
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
}
