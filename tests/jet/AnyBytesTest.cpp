#include <gtest/gtest.h>

#include <random>

#include "RealFiles.h"
#include "jet/Database.h"
#include "support/JetDump.h"
#include "support/MemoryFileSystem.h"

namespace {

using base::ErrorCode;

constexpr char kPath[] = "/any.mdb";

// Whatever the bytes are: an answer, not a crash; and what the file holds stays as it is.
void readEverything(const base::Bytes& bytes) {
  support::MemoryFileSystem disk;
  disk.put(kPath, bytes);
  auto database =
      jet::Database::open(disk, kPath, {.acceptPassword = true, .acceptEncryption = true});
  if (database) {
    for (const std::string& name : database->tableNames()) {
      auto dump = support::dumpTable(*database, name);
      EXPECT_TRUE(dump || !germanMessage(dump.error()).empty());
    }
    for (const jet::Finding& finding : database->check())
      EXPECT_FALSE(germanMessage(finding.error).empty());
  }
  EXPECT_EQ(disk.get(kPath), bytes);
}

// Edits and commits of a damaged file may fail, but not run wild.
void editEverything(const base::Bytes& bytes) {
  support::MemoryFileSystem disk;
  disk.put(kPath, bytes);
  auto database =
      jet::Database::open(disk, kPath, {.acceptPassword = true, .acceptEncryption = true});
  if (!database || !database->begin()) return;
  for (const std::string& name : database->tableNames()) {
    auto rows = database->openTable(name);
    for (std::size_t row = 0; rows && row < std::min<std::size_t>(rows->count(), 4); ++row)
      for (std::size_t column = 0; column < rows->columns().size(); ++column) {
        ignore(rows->set(row, column, std::string(200, 'y')), "most columns are no texts");
        ignore(rows->set(row, column, std::int64_t{row == 0}), "most columns are no numbers");
        ignore(rows->set(row, column, jet::Null()), "a key column must not be empty");
      }
    ignore(database->rebuildIndexes(name), "rows may be damaged");
  }
  ignore(database->commit(), "whether it is stored does not matter here");
}

class AnyBytes : public testing::TestWithParam<std::string> {};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(AnyBytes);

INSTANTIATE_TEST_SUITE_P(Access, AnyBytes, testing::ValuesIn(realfiles::sound()),
                         [](const auto& file) { return realfiles::testName(file.param); });

TEST_P(AnyBytes, EndInAnAnswer) {
  const std::string content = realfiles::read(realfiles::folder() / GetParam());
  const base::Bytes sound(content.begin(), content.end());
  const std::size_t pageSize = sound[0x14] == 0 ? 2048 : 4096;
  std::mt19937 random(20240131);
  const auto below = [&](std::size_t limit) { return std::size_t{random()} % limit; };
  for (int round = 0; round < 24; ++round) {
    base::Bytes bytes = sound;
    // Heads of pages and ends of rows tell most about the rest.
    for (std::size_t change = 0; change <= below(6); ++change) {
      const std::size_t page = 1 + below(bytes.size() / pageSize - 1);
      const std::size_t inHead = below(2) == 0 ? below(64) : below(pageSize);
      const std::size_t at = page * pageSize + (below(3) == 0 ? pageSize - 1 - inHead : inHead);
      static constexpr std::uint8_t kTelling[] = {0, 1, 2, 4, 0x7F, 0x80, 0xFF};
      bytes[at] = below(2) == 0 ? kTelling[below(std::size(kTelling))]
                                : static_cast<std::uint8_t>(random());
    }
    if (below(8) == 0) bytes.resize(below(bytes.size()));
    readEverything(bytes);
    editEverything(bytes);
  }
}

TEST(AnyFile, ThatIsNoDatabaseIsCalledSo) {
  support::MemoryFileSystem disk;
  const auto codeOf = [&](const std::string& content) {
    disk.put(kPath, base::asBytes(content));
    auto database = jet::Database::open(disk, kPath);
    return database ? ErrorCode::Cancelled : database.error().code;
  };
  const std::string start("\0\1\0\0Standard Jet DB\0", 20);
  EXPECT_EQ(codeOf(""), ErrorCode::NotADatabase);
  EXPECT_EQ(codeOf("Monat;Zähler\r\n"), ErrorCode::NotADatabase);
  EXPECT_EQ(codeOf(std::string(100000, '\0')), ErrorCode::NotADatabase);
  EXPECT_EQ(codeOf(start), ErrorCode::Truncated);
  EXPECT_EQ(codeOf(start + std::string("\2\0\0\0", 4) + std::string(9000, 'x')),
            ErrorCode::NewerVersion);
  EXPECT_EQ(codeOf(std::string("\0\1\0\0Standard ACE DB\0", 20) + std::string(9000, '\0')),
            ErrorCode::NewerVersion);
  EXPECT_EQ(jet::Database::open(disk, "/none.mdb").error().code, ErrorCode::NotFound);
}

TEST(AnyFile, WithAKeyOrAPasswordIsOpenedOnlyWhenAllowed) {
  if (!realfiles::present()) GTEST_SKIP() << "no Access files at hand";
  auto files = base::makeDiskFileSystem();
  const auto open = [&](const char* name, jet::OpenOptions options) {
    options.readOnly = true;
    return jet::Database::open(*files, (realfiles::folder() / name).string(), options);
  };
  EXPECT_EQ(open("jet3/db97-enc.mdb", {}).error().code, ErrorCode::Encrypted);
  EXPECT_EQ(open("jet4/db-enc.mdb", {.acceptPassword = true}).error().code, ErrorCode::Encrypted);
  EXPECT_EQ(open("jet4/V2003_with-password.mdb", {.acceptEncryption = true}).error().code,
            ErrorCode::PasswordProtected);
  EXPECT_TRUE(open("jet4/V2003_with-password.mdb", {.acceptPassword = true}));
  EXPECT_TRUE(open("jet4/adox_jet4.mdb", {}));
}

}  // namespace
