#include "jet/engine/IndexKey.h"

#include <gmock/gmock.h>

#include <cstdio>

namespace {

using jet::ColumnType;
using jet::TextOrder;
using jet::Value;

std::string hex(const base::Result<base::Bytes>& bytes) {
  if (!bytes) return "error: " + base::germanReason(bytes.error());
  std::string text;
  for (const unsigned byte : *bytes) {
    char digits[4];
    std::snprintf(digits, sizeof(digits), "%02X ", byte);
    text += digits;
  }
  if (!text.empty()) text.pop_back();
  return text;
}

std::string key(ColumnType type, const Value& value, bool ascending = true) {
  return hex(jet::encodeKeyPart({type, ascending, TextOrder::Unknown}, value));
}
std::string text(TextOrder order, const char* value, bool ascending = true) {
  return hex(jet::encodeKeyPart({ColumnType::Text, ascending, order}, std::string(value)));
}

TEST(IndexKey, NumbersOrderAsBytes) {
  EXPECT_EQ(key(ColumnType::Byte, std::int64_t{5}), "7F 05");
  EXPECT_EQ(key(ColumnType::Byte, std::int64_t{5}, false), "80 FA");
  EXPECT_EQ(key(ColumnType::Integer, std::int64_t{-2}), "7F 7F FE");
  EXPECT_EQ(key(ColumnType::Long, std::int64_t{0x0F000000}), "7F 8F 00 00 00");
  EXPECT_EQ(key(ColumnType::Long, std::int64_t{1}, false), "80 7F FF FF FE");
  EXPECT_EQ(key(ColumnType::Currency, base::Money::fromTenThousandths(35000)),
            "7F 80 00 00 00 00 00 88 B8");
  EXPECT_EQ(key(ColumnType::Double, 1.0), "7F BF F0 00 00 00 00 00 00");
  EXPECT_EQ(key(ColumnType::Double, -1.0), "7F 40 0F FF FF FF FF FF FF");
  EXPECT_EQ(key(ColumnType::Single, 1.0F, false), "80 40 7F FF FF");
  EXPECT_EQ(key(ColumnType::DateTime, jet::DateTime{2.0}), "7F C0 00 00 00 00 00 00 00");
  EXPECT_EQ(key(ColumnType::Numeric, jet::Decimal{true, 2, {0, 0, 0, 1}}),
            "7F 00 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FE");
  EXPECT_EQ(key(ColumnType::Numeric, jet::Decimal{false, 2, {0, 0, 0, 1}}, false),
            "80 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FE");
}

TEST(IndexKey, NullBooleanAndBinary) {
  EXPECT_EQ(key(ColumnType::Long, jet::Null()), "00");
  EXPECT_EQ(key(ColumnType::Long, jet::Null(), false), "FF");
  EXPECT_EQ(key(ColumnType::Boolean, true), "7F 00");
  EXPECT_EQ(key(ColumnType::Boolean, false), "7F FF");
  EXPECT_EQ(key(ColumnType::Boolean, jet::Null()), "7F FF");
  EXPECT_EQ(key(ColumnType::Binary, base::Bytes{1, 2, 3}), "7F 01 02 03 00 00 00 00 00 03");
  EXPECT_EQ(key(ColumnType::Binary, base::Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}, false),
            "80 FE FD FC FB FA F9 F8 F7 09 F6 FF FF FF FF FF FF FF FE");
  const jet::Guid guid{
      {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66, 8, 9, 10, 11, 12, 13, 14, 15}};
  EXPECT_EQ(key(ColumnType::Guid, guid),
            "7F 00 11 22 33 44 55 66 77 09 08 09 0A 0B 0C 0D 0E 0F 08");
}

TEST(IndexKey, TextsOfAccess2000) {
  const auto general = TextOrder::General4;
  EXPECT_EQ(text(general, "Mai"), "7F 60 4A 59 01 00");
  EXPECT_EQ(text(general, "mAI   "), "7F 60 4A 59 01 00");
  EXPECT_EQ(text(general, "Databases"), "7F 4F 4A 6D 4A 4C 4A 6B 51 6B 01 00");
  EXPECT_EQ(text(general, "ümlaut"), "7F 6F 60 5E 4A 6F 6D 01 13 00");
  EXPECT_EQ(text(general, "März"), "7F 60 4A 69 78 01 02 13 00");
  EXPECT_EQ(text(general, "ääkkösiä"), "7F 4A 4A 5C 5C 64 6B 59 4A 01 13 13 02 02 13 02 02 13 00");
  EXPECT_EQ(text(general, "a-b"), "7F 4A 4C 01 01 01 01 80 0B 06 82 00");
  EXPECT_EQ(text(general, "Mai", false), "80 9F B5 A6 FE FF 00");
  EXPECT_EQ(text(general, ""), "7F 01 00");
  EXPECT_THAT(text(general, "5 €"), testing::StartsWith("error"));
  EXPECT_EQ(text(general, std::string(300, 'a').c_str()),
            text(general, std::string(255, 'a').c_str()));
}

TEST(IndexKey, TextsOfAccess97) {
  const auto general = TextOrder::General3;
  EXPECT_EQ(text(general, "Mai"), "7F 6F 60 6A 00");
  EXPECT_EQ(text(general, "München"), "7F 6F 78 70 62 69 66 70 06 00");
  EXPECT_EQ(text(general, "Köln"), "7F 6C 72 6D 70 06 00");
  EXPECT_EQ(text(general, "Genève"), "7F 68 66 70 66 7A 66 02 23 00");
  EXPECT_EQ(text(general, "März"), "7F 6F 60 75 7E 06 00");
  EXPECT_THAT(text(general, "Plutzer Lebensmittelgroßmärkte AG"),
              testing::EndsWith("68 02 22 22 22 22 22 60"));
  EXPECT_EQ(text(general, "Mai", false), "80 90 9F 95 FF");
  EXPECT_THAT(text(general, "Ω"), testing::StartsWith("error"));
}

TEST(IndexKey, SeveralColumnsFollowEachOther) {
  const std::vector<jet::KeyPart> parts = {{ColumnType::Long, true, TextOrder::Unknown},
                                           {ColumnType::Text, false, TextOrder::General4}};
  EXPECT_EQ(hex(jet::encodeKey(parts, {std::int64_t{1}, jet::Null()})), "7F 80 00 00 01 FF");
  EXPECT_THAT(text(TextOrder::Unknown, "Mai"), testing::StartsWith("error"));
}

}  // namespace
