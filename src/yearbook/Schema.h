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
  std::string_view name;  // as in the file; letter case does not count when it is looked up
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
inline constexpr Field month{"Monat", Field::Kind::Text, {}, 20};
inline constexpr Field dayReading{"ZTagStrom", Field::Kind::Number, "kWh"};
inline constexpr Field nightReading{"ZNachtStrom", Field::Kind::Number, "kWh"};
inline constexpr Field dayConsumption{"VTagStrom", Field::Kind::Number, "kWh"};
inline constexpr Field nightConsumption{"VNachtStrom", Field::Kind::Number, "kWh"};
inline constexpr Field dayPrice{"JeEinheitTagStrom", Field::Kind::Number, "Cent/kWh"};
inline constexpr Field nightPrice{"JeEinheitNachtStrom", Field::Kind::Number, "Cent/kWh"};
inline constexpr Field dayAmount{"PTagStrom", Field::Kind::Money, "Euro"};
inline constexpr Field nightAmount{"PNachtStrom", Field::Kind::Money, "Euro"};
inline constexpr Field monthAmount{"PGesammt", Field::Kind::Money, "Euro"};
inline constexpr Field advance{"AbschlagZahlings", Field::Kind::Money, "Euro"};
// Older column that no calculation reads; it moves with its row.
inline constexpr Field oldAdvance{"AbschlagZahling", Field::Kind::Money, "Euro"};
inline constexpr Field remark{"Anmerkungen", Field::Kind::Text, {}, 255};
}  // namespace strom

namespace wasser {
inline constexpr Field month{"Monat", Field::Kind::Text, {}, 20};
inline constexpr Field reading{"ZWasser", Field::Kind::Number, "m³"};
inline constexpr Field wasteReading{"ZAbwasser", Field::Kind::Number, "m³"};
inline constexpr Field consumption{"VWasser", Field::Kind::Number, "m³"};
inline constexpr Field wasteConsumption{"VAbwasser", Field::Kind::Number, "m³"};
inline constexpr Field price{"JeEinheitWasser", Field::Kind::Number, "Euro/m³"};
inline constexpr Field wastePrice{"JeEinheitAbwasser", Field::Kind::Number, "Euro/m³"};
inline constexpr Field amount{"PWasser", Field::Kind::Money, "Euro"};
inline constexpr Field wasteAmount{"PAbWasser", Field::Kind::Money, "Euro"};
inline constexpr Field monthAmount{"PGesammtW", Field::Kind::Money, "Euro"};
inline constexpr Field advance{"AbschlagZahlingW", Field::Kind::Money, "Euro"};
inline constexpr Field remark{"AnmerkungenW", Field::Kind::Text, {}, 255};
}  // namespace wasser

namespace gas {
inline constexpr Field month{"Monat", Field::Kind::Text, {}, 20};
inline constexpr Field reading{"ZGas", Field::Kind::Number, "m³"};
inline constexpr Field consumption{"VGas", Field::Kind::Number, "m³"};
inline constexpr Field price{"JeEinheitGas", Field::Kind::Number, "Cent/kWh"};
inline constexpr Field amount{"PGas", Field::Kind::Money, "Euro"};
inline constexpr Field advance{"AbschlagZahlingG", Field::Kind::Money, "Euro"};
inline constexpr Field remark{"AnmerkungenG", Field::Kind::Text, {}, 255};
}  // namespace gas

// Copy of the five consumptions for the charts.
namespace verbrMonat {
inline constexpr Field day{"VTagStrom", Field::Kind::Number, "kWh"};
inline constexpr Field night{"VNachtStrom", Field::Kind::Number, "kWh"};
inline constexpr Field water{"VWasser", Field::Kind::Number, "m³"};
inline constexpr Field wasteWater{"VAbwasser", Field::Kind::Number, "m³"};
inline constexpr Field gas{"VGas", Field::Kind::Number, "m³"};
}  // namespace verbrMonat

// One row: start readings and settings of the year.
namespace zstaende {
inline constexpr Field startDay{"AnfStandTagS", Field::Kind::Number, "kWh"};
inline constexpr Field startNight{"AnfStandNachtS", Field::Kind::Number, "kWh"};
inline constexpr Field baseFeeElectricity{"GrundGebS", Field::Kind::Money, "Euro"};
inline constexpr Field vatElectricity{"MwstStrom", Field::Kind::Number, "%"};
inline constexpr Field freeKwh{"FreiZ1", Field::Kind::Text, "kWh", 50};
inline constexpr Field startWater{"AnfStandWasser", Field::Kind::Number, "m³"};
inline constexpr Field startWasteWater{"AnfStandAbwasser", Field::Kind::Number, "m³"};
inline constexpr Field baseFeeWater{"GrundgebW", Field::Kind::Money, "Euro"};
inline constexpr Field baseFeeWasteWater{"GrundgebAbW", Field::Kind::Money, "Euro"};
inline constexpr Field vatWater{"MwStWasser", Field::Kind::Number, "%"};
inline constexpr Field vatWasteWater{"MwStAbwasser", Field::Kind::Number, "%"};
inline constexpr Field startGas{"AnfStandGas", Field::Kind::Number, "m³"};
inline constexpr Field gasFactor{"Faktor", Field::Kind::Number, "kWh/m³"};
inline constexpr Field baseFeeGas{"GrundgebG", Field::Kind::Money, "Euro"};
inline constexpr Field vatGas{"MwStGas", Field::Kind::Number, "%"};
inline constexpr Field nightDisplay{"FreiZ3", Field::Kind::Text, {}, 50};  // "on" or "off"
inline constexpr Field startDate{"FreiZ4", Field::Kind::Text, {}, 50};     // as typed
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
