#include "jet/engine/Row.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using base::Bytes;
using jet::ColumnDef;
using jet::ColumnType;
using jet::RowContent;
using jet::RowView;
using jet::TableDef;

ColumnDef column(int number, ColumnType type, int length) {
  ColumnDef def;
  def.column.number = number;
  def.column.type = type;
  def.column.length = length;
  return def;
}

// Fixed, variable, fixed, variable ... and a boolean at the end.
TableDef sampleTable(std::size_t variable) {
  TableDef table;
  for (std::size_t i = 0; i < variable; ++i) {
    ColumnDef fixed = column(static_cast<int>(2 * i), ColumnType::Long, 4);
    fixed.column.fixedLength = true;
    fixed.fixedOffset = 4 * i;
    table.columns.push_back(fixed);
    ColumnDef text = column(static_cast<int>(2 * i + 1), ColumnType::Binary, 255);
    text.slot = i;
    table.columns.push_back(text);
  }
  table.columns.push_back(column(static_cast<int>(2 * variable), ColumnType::Boolean, 1));
  table.maxColumns = 2 * variable + 1;
  table.variableSlots = variable;
  table.fixedLength = 4 * variable;
  return table;
}

// A row of nine columns that Access wrote, taken apart and put together.
TEST(Row, OfJet3IsReadAsAccessWroteIt) {
  TableDef table;
  const struct {
    ColumnType type;
    int length;
    std::size_t offset;
  } fixed[] = {{ColumnType::Byte, 1, 0},      {ColumnType::Integer, 2, 1},
               {ColumnType::Long, 4, 3},      {ColumnType::Double, 8, 7},
               {ColumnType::DateTime, 8, 15}, {ColumnType::Currency, 8, 23}};
  for (int i = 0; i < 2; ++i) {
    table.columns.push_back(column(i, ColumnType::Text, 50));
    table.columns.back().slot = static_cast<std::size_t>(i);
  }
  for (const auto& one : fixed) {
    ColumnDef def = column(static_cast<int>(table.columns.size()), one.type, one.length);
    def.column.fixedLength = true;
    def.fixedOffset = one.offset;
    table.columns.push_back(def);
  }
  table.columns.push_back(column(8, ColumnType::Boolean, 1));
  table.maxColumns = 9;
  table.variableSlots = 2;
  table.fixedLength = 31;
  const Bytes bytes = {0x09, 0x02, 0xDE, 0x00, 0x55, 0x43, 0xDE, 0x13, 0x7B, 0x14, 0xAE,
                       0x47, 0xE1, 0xC8, 0x7B, 0x40, 0x00, 0x00, 0x00, 0x00, 0x40, 0xA7,
                       0xDA, 0x40, 0xB8, 0x88, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x61,
                       0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6A, 0x6B, 0x6C,
                       0x6D, 0x6E, 0x6F, 0x70, 0x30, 0x27, 0x20, 0x02, 0xFF, 0x01};
  auto row = RowView::parse(jet::format::kJet3, table, bytes);
  ASSERT_TRUE(row) << germanMessage(row.error());
  EXPECT_EQ(base::asText(*row->field(table.columns[0])), "abcdefg");
  EXPECT_EQ(base::asText(*row->field(table.columns[1])), "hijklmnop");
  EXPECT_EQ((*row->field(table.columns[4]))[3], 0x13);
  EXPECT_TRUE(row->bit(8));
  EXPECT_EQ(RowContent(jet::format::kJet3, table, *row).encode(), bytes);
}

class Rows : public testing::TestWithParam<const jet::format::Version*> {};
INSTANTIATE_TEST_SUITE_P(Jet, Rows, testing::Values(&jet::format::kJet3, &jet::format::kJet4),
                         [](const auto& version) {
                           return std::string(version.param->name).substr(0, 3) +
                                  std::to_string(version.param->number + 3);
                         });

// Rows of every length, in Jet 3 with and without a table of jumps.
TEST_P(Rows, ComeBackAsTheyWereWritten) {
  const TableDef table = sampleTable(12);
  std::mt19937 random(11);
  for (int round = 0; round < 400; ++round) {
    // A row of no columns is a short row: all Null.
    const std::size_t width = GetParam()->row.numberWidth;
    Bytes start(3 * width, 0);
    start[width] = static_cast<std::uint8_t>(width);  // the end of the data
    auto none = RowView::parse(*GetParam(), table, start);
    ASSERT_TRUE(none) << germanMessage(none.error());
    RowContent content(*GetParam(), table, *none);
    std::vector<std::optional<Bytes>> model;
    for (const ColumnDef& def : table.columns) {
      if (def.column.type == ColumnType::Boolean) {
        content.setBit(def.column.number, round % 2 == 0);
        continue;
      }
      const std::size_t longest = 1 + static_cast<std::size_t>(round) / 3;
      const std::size_t length = def.isFixed() ? 4 : random() % longest;
      std::optional<Bytes> value;
      if (random() % 5 != 0) value = Bytes(length, static_cast<std::uint8_t>(random()));
      content.setField(def, value ? std::optional<base::ByteSpan>(*value) : std::nullopt);
      model.push_back(value);
    }
    auto bytes = content.encode();
    ASSERT_TRUE(bytes) << germanMessage(bytes.error());
    auto row = RowView::parse(*GetParam(), table, *bytes);
    ASSERT_TRUE(row) << germanMessage(row.error()) << " length " << bytes->size();
    for (std::size_t i = 0; i < model.size(); ++i) {
      const auto field = row->field(table.columns[i]);
      ASSERT_EQ(field.has_value(), model[i].has_value());
      ASSERT_EQ((field ? Bytes(field->begin(), field->end()) : Bytes()),
                model[i].value_or(Bytes()));
    }
    EXPECT_EQ(row->bit(24), round % 2 == 0);
    EXPECT_EQ(RowContent(*GetParam(), table, *row).encode(), *bytes);
  }
}

TEST_P(Rows, AreNoLongerThanTheFormatAllows) {
  const TableDef table = sampleTable(20);
  const std::size_t width = GetParam()->row.numberWidth;
  Bytes start(3 * width, 0);
  start[width] = static_cast<std::uint8_t>(width);
  auto none = RowView::parse(*GetParam(), table, start);
  ASSERT_TRUE(none);
  RowContent content(*GetParam(), table, *none);
  const Bytes value(250, 1);
  for (const ColumnDef& def : table.columns)
    if (def.column.type == ColumnType::Binary) content.setField(def, value);
  EXPECT_EQ(content.encode().error().code, base::ErrorCode::InvalidValue);
}

// Whatever the bytes: an answer, and no field outside of the row.
TEST_P(Rows, OfAnyBytesStayInside) {
  const TableDef table = sampleTable(6);
  std::mt19937 random(3);
  for (int round = 0; round < 20000; ++round) {
    Bytes bytes(random() % 300);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % 24);
    auto row = RowView::parse(*GetParam(), table, bytes);
    if (!row) continue;
    for (const ColumnDef& def : table.columns) {
      if (def.column.type == ColumnType::Boolean) continue;
      if (const auto field = row->field(def); field && !field->empty()) {
        EXPECT_GE(field->data(), bytes.data());
        EXPECT_LE(field->data() + field->size(), bytes.data() + bytes.size());
      }
    }
  }
}

}  // namespace
