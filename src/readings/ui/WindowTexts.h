#pragma once

#include <string_view>

#include "yearbook/Meter.h"

// What the entry windows of one kind differ in: five meters, five unit prices, four base fees.
// Texts are UTF-8.
namespace readings {

using yearbook::Meter;
using yearbook::PerMeter;

// --- meters --------------------------------------------------------------------------------------
struct ReadingTexts {
  std::string_view window;
  std::string_view caption;
  std::string_view header;  // the three columns, apart by blanks
  std::string_view takeOver;
};

inline constexpr PerMeter<ReadingTexts> kReadingTexts = {{{
    {"frmEingabeVerbrauchS", "Eingabe Zählerstand Strom",
     "Eingabe Zählerstand Strom in kWs                    Zählerwechsel                    "
     "         Verbrauch",
     "&Eingaben übernehmen"},
    {"frmEingabeVerbrauchNS", "Eingabe Zählerstand Nacht - Strom",
     "Eingabe Zählerstand Nachtstrom in kWs           Zählerwechsel                             "
     "Verbrauch",
     "&Eingaben übernehmen"},
    {"frmEingabeVerbrauchW", "Eingabe Zählerstand Wasser",
     "Eingabe Zählerstand Wasser in m³                    Zählerwechsel                    "
     "         Verbrauch",
     "&Eingaben übernehmen"},
    {"frmEingabeVerbrauchAbW", "Eingabe Zählerstand Abwasser",
     "Eingabe Zählerstand Abwasser in m³                    Zählerwechsel                    "
     "         Verbrauch",
     "&Eingaben übernehmen"},
    {"frmEingabeVerbrauch", "Eingabe Zählerstand Gas",
     "Eingabe Zählerstand Gas in m³                    Zählerwechsel                             "
     "Verbrauch",
     "&Eingaben / Änderungen übernehmen"},
}}};

// --- unit prices ---------------------------------------------------------------------------------
struct PriceTexts {
  std::string_view window;
  std::string_view caption;
  std::string_view frame;
  const char* newPriceName;    // name of the entry field
  const char* monthPriceName;  // name of the twelve fields
  std::string_view unit;
  std::string_view invert;
};

inline constexpr PerMeter<PriceTexts> kPriceTexts = {{{
    {"frmPreisJeKws", "Eingabe Preis  je kWs Strom",
     "Eingabe Preis je Kilowattstunde Strom in Cent", "txtJeKwsTag", "txtJeEinheitT", "Cent",
     "&Markierung umkehren"},
    {"frmPreisJeKwsN", "Eingabe Preis je kWs Nachtstrom",
     "Eingabe Preis je Kilowattstunde Nacht - Strom", "txtJeKwsNacht", "txtJeEinheitN", "Cent",
     "&Markierung umkehren"},
    {"frmPreisJeKubikW", "Eingabe Preis  je Kubikmeter", "Eingabe Preis je Kubikmeter Wasser",
     "txtJeKubik", "txtJeEinheit", "Euro", "&Markierung umkehren"},
    {"frmPreisJeKubikAbW", "Eingabe Preis  je Kubikmeter", "Eingabe Preis je Kubikmeter Abwasser",
     "txtJeKubik", "txtJeEinheit", "Euro", "&Markierung umkehren"},
    {"frmPreisJeKubikG", "Eingabe Preis  je kWh", "Eingabe Preis je kWh Gas", "txtJeKubik",
     "txtJeEinheit", "Cent", "&Markierung Monate umkehren"},
}}};

// --- base fees -----------------------------------------------------------------------------------
struct FeeTexts {
  std::string_view window;
  std::string_view caption;
};

// The night tariff has none.
inline constexpr PerMeter<FeeTexts> kFeeTexts = {{{
    {"frmGrdGebMo", "Grundgebühr Strom monatlich"},
    {},
    {"frmGrdGebMoW", "Grundgebühr Wasser monatlich"},
    {"frmGrdGebMoAW", "Grundgebühr Abwasser monatlich"},
    {"frmGrdGebMoG", "Grundgebühr Gas monatlich"},
}}};

}  // namespace readings
