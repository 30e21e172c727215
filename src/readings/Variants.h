#pragma once

#include <optional>
#include <string_view>

#include "readings/PriceRule.h"
#include "yearbook/FieldRules.h"
#include "yearbook/YearSession.h"

// What the entry windows of one kind differ in: five meters, five unit prices, four base fees.
// Texts are UTF-8, as the windows show them.
namespace readings {

using yearbook::Field;
using yearbook::FieldValues;
using yearbook::RecordSource;
using yearbook::Utility;
using yearbook::YearSession;

// --- meters --------------------------------------------------------------------------------------
struct MeterVariant {
  std::string_view window;
  std::string_view caption;
  std::string_view header;  // the three columns, apart by blanks
  std::string_view takeOver;
  std::string_view sideFile;  // of the meter change, behind the name of the year

  Utility utility;
  RecordSource YearSession::*rows;
  const Field* reading;
  const Field* consumption;
  const Field* amount;
  const Field* price;
  const Field* monthAmount;  // set to 0 with the row until the summary follows; or none
  std::optional<double> FieldValues::*startReading;
  PriceRule rule;
  yearbook::EntryKind units;  // whole kWh or m³
  bool pressCounts;           // a mouse button pressed on a change option counts as a change
};

inline constexpr MeterVariant kDayMeter{
    "frmEingabeVerbrauchS",
    "Eingabe Zählerstand Strom",
    "Eingabe Zählerstand Strom in kWs                    Zählerwechsel                    "
    "         Verbrauch",
    "&Eingaben übernehmen",
    "_WechselStrom.dat",
    Utility::Electricity,
    &YearSession::adoStrom,
    &yearbook::strom::dayReading,
    &yearbook::strom::dayConsumption,
    &yearbook::strom::dayAmount,
    &yearbook::strom::dayPrice,
    &yearbook::strom::monthAmount,
    &FieldValues::startDay,
    PriceRule::CentPerUnit,
    yearbook::EntryKind::WholeKwh,
    true};

inline constexpr MeterVariant kNightMeter{
    "frmEingabeVerbrauchNS",
    "Eingabe Zählerstand Nacht - Strom",
    "Eingabe Zählerstand Nachtstrom in kWs           Zählerwechsel                             "
    "Verbrauch",
    "&Eingaben übernehmen",
    "_WechselNachtstrom.dat",
    Utility::Electricity,
    &YearSession::adoStrom,
    &yearbook::strom::nightReading,
    &yearbook::strom::nightConsumption,
    &yearbook::strom::nightAmount,
    &yearbook::strom::nightPrice,
    &yearbook::strom::monthAmount,
    &FieldValues::startNight,
    PriceRule::CentPerUnit,
    yearbook::EntryKind::WholeKwh,
    false};

inline constexpr MeterVariant kGasMeter{
    "frmEingabeVerbrauch",
    "Eingabe Zählerstand Gas",
    "Eingabe Zählerstand Gas in m³                    Zählerwechsel                             "
    "Verbrauch",
    "&Eingaben / Änderungen übernehmen",
    "_WechselGas.dat",
    Utility::Gas,
    &YearSession::adoGas,
    &yearbook::gas::reading,
    &yearbook::gas::consumption,
    &yearbook::gas::amount,
    &yearbook::gas::price,
    nullptr,
    &FieldValues::startGas,
    PriceRule::CentPerKwh,
    yearbook::EntryKind::WholeCubicMetres,
    false};

inline constexpr MeterVariant kWaterMeter{
    "frmEingabeVerbrauchW",
    "Eingabe Zählerstand Wasser",
    "Eingabe Zählerstand Wasser in m³                    Zählerwechsel                    "
    "         Verbrauch",
    "&Eingaben übernehmen",
    "_WechselWasser.dat",
    Utility::Water,
    &YearSession::adoWasser,
    &yearbook::wasser::reading,
    &yearbook::wasser::consumption,
    &yearbook::wasser::amount,
    &yearbook::wasser::price,
    nullptr,
    &FieldValues::startWater,
    PriceRule::EuroPerUnit,
    yearbook::EntryKind::WholeCubicMetres,
    false};

inline constexpr MeterVariant kWasteWaterMeter{
    "frmEingabeVerbrauchAbW",
    "Eingabe Zählerstand Abwasser",
    "Eingabe Zählerstand Abwasser in m³                    Zählerwechsel                    "
    "         Verbrauch",
    "&Eingaben übernehmen",
    "_WechselAbWasser.dat",
    Utility::Water,
    &YearSession::adoWasser,
    &yearbook::wasser::wasteReading,
    &yearbook::wasser::wasteConsumption,
    &yearbook::wasser::wasteAmount,
    &yearbook::wasser::wastePrice,
    nullptr,
    &FieldValues::startWasteWater,
    PriceRule::EuroPerUnit,
    yearbook::EntryKind::WholeCubicMetres,
    false};

// --- unit prices ---------------------------------------------------------------------------------
struct PriceVariant {
  std::string_view window;
  std::string_view caption;
  std::string_view frame;
  const char* newPriceName;    // name of the entry field
  const char* monthPriceName;  // name of the twelve fields
  std::string_view unit;
  std::string_view invert;
  const MeterVariant* meter;  // whose months are priced
};

inline constexpr PriceVariant kDayPrice{"frmPreisJeKws",
                                        "Eingabe Preis  je kWs Strom",
                                        "Eingabe Preis je Kilowattstunde Strom in Cent",
                                        "txtJeKwsTag",
                                        "txtJeEinheitT",
                                        "Cent",
                                        "&Markierung umkehren",
                                        &kDayMeter};
inline constexpr PriceVariant kNightPrice{"frmPreisJeKwsN",
                                          "Eingabe Preis je kWs Nachtstrom",
                                          "Eingabe Preis je Kilowattstunde Nacht - Strom",
                                          "txtJeKwsNacht",
                                          "txtJeEinheitN",
                                          "Cent",
                                          "&Markierung umkehren",
                                          &kNightMeter};
inline constexpr PriceVariant kGasPrice{"frmPreisJeKubikG",
                                        "Eingabe Preis  je kWh",
                                        "Eingabe Preis je kWh Gas",
                                        "txtJeKubik",
                                        "txtJeEinheit",
                                        "Cent",
                                        "&Markierung Monate umkehren",
                                        &kGasMeter};
inline constexpr PriceVariant kWaterPrice{"frmPreisJeKubikW",
                                          "Eingabe Preis  je Kubikmeter",
                                          "Eingabe Preis je Kubikmeter Wasser",
                                          "txtJeKubik",
                                          "txtJeEinheit",
                                          "Euro",
                                          "&Markierung umkehren",
                                          &kWaterMeter};
inline constexpr PriceVariant kWasteWaterPrice{"frmPreisJeKubikAbW",
                                               "Eingabe Preis  je Kubikmeter",
                                               "Eingabe Preis je Kubikmeter Abwasser",
                                               "txtJeKubik",
                                               "txtJeEinheit",
                                               "Euro",
                                               "&Markierung umkehren",
                                               &kWasteWaterMeter};

// --- base fees -----------------------------------------------------------------------------------
struct FeeVariant {
  std::string_view window;
  std::string_view caption;
  std::string_view sideFile;  // behind the name of the year and "_"
  const Field* yearFee;
};

inline constexpr FeeVariant kElectricityFee{"frmGrdGebMo", "Grundgebühr Strom monatlich",
                                            "GrdGebStrMon.dat",
                                            &yearbook::zstaende::baseFeeElectricity};
inline constexpr FeeVariant kWaterFee{"frmGrdGebMoW", "Grundgebühr Wasser monatlich",
                                      "GrdGebWMon.dat", &yearbook::zstaende::baseFeeWater};
inline constexpr FeeVariant kGasFee{"frmGrdGebMoG", "Grundgebühr Gas monatlich", "GrdGebGMon.dat",
                                    &yearbook::zstaende::baseFeeGas};
inline constexpr FeeVariant kWasteWaterFee{"frmGrdGebMoAW", "Grundgebühr Abwasser monatlich",
                                           "GrdGebAWMon.dat",
                                           &yearbook::zstaende::baseFeeWasteWater};

}  // namespace readings
