#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "jet/Creator.h"

// The year database: its tables and fields, once. The empty template is made from this, every
// access goes through these names, and a foreign file is checked against them.
namespace yearbook {

inline constexpr int kMonths = 12;

struct Field {
  enum class Kind { Number, Money, Text };
  std::string_view name;   // as in the file; letter case does not count when it is looked up
  std::string_view words;  // what the household calls it
  Kind kind = Kind::Number;
  std::string_view unit = {};
  int length = 0;  // Text: characters in a new file
};

struct Table {
  std::string_view name;
  std::span<const Field* const> fields;
  int rows;  // as many must be there; further ones are left alone
};

namespace strom {
inline constexpr Field month{"Monat", "Monat", Field::Kind::Text, {}, 20};
inline constexpr Field dayReading{"ZTagStrom", "Zählerstand Strom", Field::Kind::Number, "kWh"};
inline constexpr Field nightReading{"ZNachtStrom", "Zählerstand Nachtstrom", Field::Kind::Number,
                                    "kWh"};
inline constexpr Field dayConsumption{"VTagStrom", "Verbrauch Strom", Field::Kind::Number, "kWh"};
inline constexpr Field nightConsumption{"VNachtStrom", "Verbrauch Nachtstrom", Field::Kind::Number,
                                        "kWh"};
inline constexpr Field dayPrice{"JeEinheitTagStrom", "Preis Strom", Field::Kind::Number,
                                "Cent/kWh"};
inline constexpr Field nightPrice{"JeEinheitNachtStrom", "Preis Nachtstrom", Field::Kind::Number,
                                  "Cent/kWh"};
inline constexpr Field dayAmount{"PTagStrom", "Betrag Strom", Field::Kind::Money, "Euro"};
inline constexpr Field nightAmount{"PNachtStrom", "Betrag Nachtstrom", Field::Kind::Money, "Euro"};
inline constexpr Field monthAmount{"PGesammt", "Monatsbetrag Strom", Field::Kind::Money, "Euro"};
inline constexpr Field advance{"AbschlagZahlings", "Abschlag Strom", Field::Kind::Money, "Euro"};
// Older column that no calculation reads; it moves with its row.
inline constexpr Field oldAdvance{"AbschlagZahling", "früherer Abschlag Strom", Field::Kind::Money,
                                  "Euro"};
inline constexpr Field remark{"Anmerkungen", "Anmerkung Strom", Field::Kind::Text, {}, 255};
}  // namespace strom

namespace wasser {
inline constexpr Field month{"Monat", "Monat", Field::Kind::Text, {}, 20};
inline constexpr Field reading{"ZWasser", "Zählerstand Wasser", Field::Kind::Number, "m³"};
inline constexpr Field wasteReading{"ZAbwasser", "Zählerstand Abwasser", Field::Kind::Number, "m³"};
inline constexpr Field consumption{"VWasser", "Verbrauch Wasser", Field::Kind::Number, "m³"};
inline constexpr Field wasteConsumption{"VAbwasser", "Verbrauch Abwasser", Field::Kind::Number,
                                        "m³"};
inline constexpr Field price{"JeEinheitWasser", "Preis Wasser", Field::Kind::Number, "Euro/m³"};
inline constexpr Field wastePrice{"JeEinheitAbwasser", "Preis Abwasser", Field::Kind::Number,
                                  "Euro/m³"};
inline constexpr Field amount{"PWasser", "Betrag Wasser", Field::Kind::Money, "Euro"};
inline constexpr Field wasteAmount{"PAbWasser", "Betrag Abwasser", Field::Kind::Money, "Euro"};
inline constexpr Field monthAmount{"PGesammtW", "Monatsbetrag Wasser", Field::Kind::Money, "Euro"};
inline constexpr Field advance{"AbschlagZahlingW", "Abschlag Wasser", Field::Kind::Money, "Euro"};
inline constexpr Field remark{"AnmerkungenW", "Anmerkung Wasser", Field::Kind::Text, {}, 255};
}  // namespace wasser

namespace gas {
inline constexpr Field month{"Monat", "Monat", Field::Kind::Text, {}, 20};
inline constexpr Field reading{"ZGas", "Zählerstand Gas", Field::Kind::Number, "m³"};
inline constexpr Field consumption{"VGas", "Verbrauch Gas", Field::Kind::Number, "m³"};
inline constexpr Field price{"JeEinheitGas", "Preis Gas", Field::Kind::Number, "Cent/kWh"};
inline constexpr Field amount{"PGas", "Betrag Gas", Field::Kind::Money, "Euro"};
inline constexpr Field advance{"AbschlagZahlingG", "Abschlag Gas", Field::Kind::Money, "Euro"};
inline constexpr Field remark{"AnmerkungenG", "Anmerkung Gas", Field::Kind::Text, {}, 255};
}  // namespace gas

// Copy of the five consumptions for the charts.
namespace verbrMonat {
inline constexpr Field day{"VTagStrom", "Verbrauch Strom im Diagramm", Field::Kind::Number, "kWh"};
inline constexpr Field night{"VNachtStrom", "Verbrauch Nachtstrom im Diagramm", Field::Kind::Number,
                             "kWh"};
inline constexpr Field water{"VWasser", "Verbrauch Wasser im Diagramm", Field::Kind::Number, "m³"};
inline constexpr Field wasteWater{"VAbwasser", "Verbrauch Abwasser im Diagramm",
                                  Field::Kind::Number, "m³"};
inline constexpr Field gas{"VGas", "Verbrauch Gas im Diagramm", Field::Kind::Number, "m³"};
}  // namespace verbrMonat

// One row: start readings and settings of the year.
namespace zstaende {
inline constexpr Field startDay{"AnfStandTagS", "Anfangszählerstand Strom", Field::Kind::Number,
                                "kWh"};
inline constexpr Field startNight{"AnfStandNachtS", "Anfangszählerstand Nachtstrom",
                                  Field::Kind::Number, "kWh"};
inline constexpr Field baseFeeElectricity{"GrundGebS", "Grundgebühr Strom", Field::Kind::Money,
                                          "Euro"};
inline constexpr Field vatElectricity{"MwstStrom", "MwSt Strom", Field::Kind::Number, "%"};
inline constexpr Field freeKwh{"FreiZ1", "Pauschale", Field::Kind::Text, "kWh", 50};
inline constexpr Field startWater{"AnfStandWasser", "Anfangszählerstand Wasser",
                                  Field::Kind::Number, "m³"};
inline constexpr Field startWasteWater{"AnfStandAbwasser", "Anfangszählerstand Abwasser",
                                       Field::Kind::Number, "m³"};
inline constexpr Field baseFeeWater{"GrundgebW", "Grundgebühr Wasser", Field::Kind::Money, "Euro"};
inline constexpr Field baseFeeWasteWater{"GrundgebAbW", "Grundgebühr Abwasser", Field::Kind::Money,
                                         "Euro"};
inline constexpr Field vatWater{"MwStWasser", "MwSt Wasser", Field::Kind::Number, "%"};
inline constexpr Field vatWasteWater{"MwStAbwasser", "MwSt Abwasser", Field::Kind::Number, "%"};
inline constexpr Field startGas{"AnfStandGas", "Anfangszählerstand Gas", Field::Kind::Number, "m³"};
inline constexpr Field gasFactor{"Faktor", "Faktor", Field::Kind::Number, "kWh/m³"};
inline constexpr Field baseFeeGas{"GrundgebG", "Grundgebühr Gas", Field::Kind::Money, "Euro"};
inline constexpr Field vatGas{"MwStGas", "MwSt Gas", Field::Kind::Number, "%"};
inline constexpr Field nightDisplay{
    "FreiZ3", "Anzeige Nachtstrom", Field::Kind::Text, {}, 50};  // "on" or "off"
inline constexpr Field startDate{"FreiZ4", "Start-Datum", Field::Kind::Text, {}, 50};  // as typed
}  // namespace zstaende

extern const Table kStrom;
extern const Table kWasser;
extern const Table kGas;
extern const Table kVerbrMonat;
extern const Table kZStaende;
std::span<const Table* const> allTables();

// The empty year: five tables, twelve month rows from January, one row of settings.
std::vector<jet::NewTable> templateTables();

}  // namespace yearbook
