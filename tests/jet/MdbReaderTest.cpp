#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "jet/Database.h"
#include "jet/RealFiles.h"
#include "support/Command.h"
#include "support/TemporaryFolder.h"

// Our rows against those of mdb-reader, a reader for node: as sets, because it lists moved rows
// where they lie. Where node or the reader is missing, the tests skip.
namespace {

constexpr const char* kModules = KALVIRA_NODE_MODULES;
constexpr const char* kScript = KALVIRA_TEST_SOURCES "/jet/node/rows.mjs";

std::string hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes)
    for (const int digit : {static_cast<unsigned char>(byte) >> 4, byte & 15})
      text += "0123456789abcdef"[digit];
  return text;
}

// A value as the script prints it.
struct Shown {
  std::string operator()(jet::Null) const { return "-"; }
  std::string operator()(bool value) const { return value ? "btrue" : "bfalse"; }
  std::string operator()(std::int64_t value) const { return 'n' + std::to_string(value); }
  std::string operator()(float value) const { return (*this)(static_cast<double>(value)); }
  std::string operator()(double value) const {
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return 'n' + std::string(buffer.data(), end.ptr);
  }
  std::string operator()(base::Money value) const {
    const std::int64_t count = std::abs(value.tenThousandths());
    const std::string fraction = std::to_string(10000 + count % 10000).substr(1);
    return 't' +
           hex((value < base::Money() ? "-" : "") + std::to_string(count / 10000) + "." + fraction);
  }
  std::string operator()(jet::DateTime value) const {
    constexpr double kMilliseconds = 86400000;
    constexpr double kEpoch = 25569;  // 1970-01-01
    return (*this)(static_cast<std::int64_t>(std::llround((value.days - kEpoch) * kMilliseconds)))
        .replace(0, 1, "d");
  }
  std::string operator()(const std::string& value) const { return 't' + hex(value); }
  std::string operator()(const base::Bytes& value) const { return 'x' + hex(base::asText(value)); }
  std::string operator()(const jet::Guid&) const { return "?"; }
  std::string operator()(const jet::Decimal& value) const { return (*this)(value.toDouble()); }
};

std::vector<std::string> ourRows(jet::Database& database) {
  std::vector<std::string> lines;
  for (const std::string& name : database.tableNames()) {
    auto rows = database.openTable(name);
    EXPECT_TRUE(rows);
    std::vector<std::size_t> order(rows->columns().size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
      return rows->columns()[a].name < rows->columns()[b].name;
    });
    for (std::size_t row = 0; row < rows->count(); ++row) {
      std::string line = name;
      for (const std::size_t column : order)
        line += '\t' + std::visit(Shown(), *rows->value(row, column));
      lines.push_back(std::move(line));
    }
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

std::vector<std::string> theirRows(const std::string& path) {
  const auto read =
      support::run(std::string("node ") + kScript + " '" + kModules + "' '" + path + "'");
  EXPECT_EQ(read.exitCode, 0) << read.output;
  std::vector<std::string> lines;
  std::istringstream stream(read.output);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  std::sort(lines.begin(), lines.end());
  return lines;
}

class MdbReader : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const bool installed = std::filesystem::is_directory(std::filesystem::path(kModules) /
                                                         "node_modules" / "mdb-reader");
    if (!support::isInstalled("node") || !installed)
      GTEST_SKIP() << "node or its mdb-reader is missing";
    if (!realfiles::present()) GTEST_SKIP() << "The folder with real Access files is missing";
    std::filesystem::copy_file(realfiles::folder() / GetParam(), path_);
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  }

  support::TemporaryFolder folder_;
  const std::string path_ = folder_ / "copy.mdb";
  const std::unique_ptr<base::FileSystem> files_ = base::makeDiskFileSystem();
};

TEST_P(MdbReader, SeesTheRowsThatWeSeeBeforeAndAfterEdits) {
  {
    auto database = jet::Database::open(*files_, path_);
    ASSERT_TRUE(database);
    EXPECT_EQ(ourRows(*database), theirRows(path_));

    // Longer and longer texts in the first text or memo column: rows grow, move and come home.
    const std::string name = database->tableNames().front();
    auto rows = database->openTable(name);
    ASSERT_TRUE(rows);
    const auto& columns = rows->columns();
    const auto text = std::find_if(columns.begin(), columns.end(), [](const jet::Column& column) {
      return column.type == jet::ColumnType::Text || column.type == jet::ColumnType::Memo;
    });
    ASSERT_NE(text, columns.end());
    const auto column = static_cast<std::size_t>(text - columns.begin());
    ASSERT_TRUE(database->begin());
    for (std::size_t row = 0; row < rows->count(); ++row)
      ASSERT_TRUE(rows->set(row, column, std::string("ä") + std::to_string(row)));
    // Rows come and go, and a table of ours comes.
    for (std::size_t row = rows->count(); row-- > 0;) EXPECT_TRUE(row % 3 != 0 || rows->erase(row));
    std::vector<jet::Value> values(columns.size());
    values[column] = std::string("Zähler");
    base::ignore(rows->insert(values), "a key may have to be given");
    jet::NewTable fresh{"Neu", {{"Nr", jet::ColumnType::Long, 0, true}}, {}, {}};
    fresh.columns.push_back({"Text", jet::ColumnType::Memo});
    for (std::size_t row = 0; row < 30; ++row)
      fresh.rows.push_back({jet::Null(), std::string(row * 200, 'm')});
    ASSERT_TRUE(database->createTable(fresh));
    ASSERT_TRUE(database->commit());
  }
  auto database = jet::Database::open(*files_, path_, {.readOnly = true});
  ASSERT_TRUE(database);
  EXPECT_EQ(ourRows(*database), theirRows(path_));
}

INSTANTIATE_TEST_SUITE_P(RealFiles, MdbReader,
                         testing::Values("year/plain.kwd", "year/filled.kwd", "year/relocated.kwd",
                                         "year/memo.kwd", "jet3/testV1997.mdb",
                                         "jet3/compIndexTestV1997.mdb", "jet4/indexTestV2003.mdb"),
                         [](const auto& file) { return realfiles::testName(file.param); });

}  // namespace
