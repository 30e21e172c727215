#include <gtest/gtest.h>

#include <algorithm>

#include "RealFiles.h"
#include "base/TextCodec.h"
#include "jet/Database.h"
#include "support/JetDump.h"

namespace {

using base::ErrorCode;

const jet::OpenOptions kAnyFile = {
    .readOnly = true, .acceptPassword = true, .acceptEncryption = true};

std::string pathOf(const std::string& name) {
  return (realfiles::folder() / name).string();
}

std::string testName(const testing::TestParamInfo<std::string>& info) {
  return realfiles::testName(info.param);
}

// The dump of one file was taken with another code page: it shows "?" or something else for the
// bytes 80 to 9F. Everything else has to be equal.
bool sameText(const std::string& expected, const std::string& actual) {
  const std::u32string a = base::toUtf32(expected), b = base::toUtf32(actual);
  const auto inGap = [](char32_t c) {
    const std::string byte = base::toWindows1252(base::fromUtf32(std::u32string(1, c)));
    return byte.size() == 1 && static_cast<unsigned char>(byte[0]) - 0x80u < 0x20u;
  };
  const auto same = [&](char32_t x, char32_t y) {
    return x == y || ((x == '?' || x == 0xFFFD) && inGap(y));
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

// The lines of a dump; a table's indexes, which have no order of their own, by name.
std::vector<std::string> lines(const std::string& dump) {
  std::vector<std::string> all = split(dump, '\n');
  const auto isIndex = [](const std::string& line) { return line.starts_with("-- index"); };
  for (auto it = all.begin(); it != all.end();) {
    const auto end = std::find_if_not(it, all.end(), isIndex);
    std::sort(it, end);
    it = std::find_if(end, all.end(), isIndex);
  }
  return all;
}

// Large single numbers may be written with one digit more than is needed.
bool sameLine(const std::string& expected, const std::string& actual) {
  if (sameText(expected, actual)) return true;
  const std::vector<std::string> a = split(expected, '\t'), b = split(actual, '\t');
  const auto same = [](const std::string& x, const std::string& y) {
    return sameText(x, y) || (x.find('E') != std::string::npos && std::stof(x) == std::stof(y));
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), same);
}

class RealFile : public testing::TestWithParam<std::string> {};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealFile);
INSTANTIATE_TEST_SUITE_P(Access, RealFile, testing::ValuesIn(realfiles::sound()), testName);

TEST_P(RealFile, ReadsAsTheIndependentProgramReadIt) {
  auto files = base::makeDiskFileSystem();
  auto database = jet::Database::open(*files, pathOf(GetParam()), kAnyFile);
  ASSERT_TRUE(database) << germanMessage(database.error());
  auto dump = support::dumpTables(*database);
  ASSERT_TRUE(dump) << germanMessage(dump.error());
  const std::string name = std::filesystem::path(GetParam()).filename().string();
  const std::string expected = realfiles::read(realfiles::folder() / "expected" / (name + ".txt"));
  // The first line tells the file's name and version.
  const std::vector<std::string> wanted = lines(expected.substr(expected.find('\n') + 1));
  const std::vector<std::string> got = lines(*dump);
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    ASSERT_LT(i, got.size()) << wanted[i];
    ASSERT_TRUE(sameLine(wanted[i], got[i])) << wanted[i] << "\n" << got[i];
  }
  EXPECT_EQ(wanted.size(), got.size());
  EXPECT_TRUE(database->warnings().empty());
}

TEST_P(RealFile, IsFoundSound) {
  auto files = base::makeDiskFileSystem();
  auto database = jet::Database::open(*files, pathOf(GetParam()), kAnyFile);
  ASSERT_TRUE(database) << germanMessage(database.error());
  // Access leaves pages behind that are neither used nor free, others texts of deleted rows.
  for (const jet::Finding& finding : database->check())
    EXPECT_TRUE(finding.warning) << germanMessage(finding.error);
}

struct DamagedFile {
  const char* name;
  ErrorCode code;
  std::optional<std::uint32_t> page;
};
std::string damagedName(const testing::TestParamInfo<DamagedFile>& info) {
  return realfiles::testName(info.param.name);
}
class RealDamage : public testing::TestWithParam<DamagedFile> {};
INSTANTIATE_TEST_SUITE_P(
    Access, RealDamage,
    testing::Values(DamagedFile{"j3-catalog-zero.mdb", ErrorCode::Damaged, 2},
                    DamagedFile{"j3-cut-100bytes.mdb", ErrorCode::Truncated, 0},
                    DamagedFile{"j3-cut-half.mdb", ErrorCode::Truncated, 18},
                    DamagedFile{"j3-cut-midpage.mdb", ErrorCode::Truncated, 31},
                    DamagedFile{"j3-rowoffset.mdb", ErrorCode::Damaged, 31},
                    DamagedFile{"j3-tdef-loop.mdb", ErrorCode::Damaged, 29},
                    DamagedFile{"j4-overflow-beyond.mdb", ErrorCode::Truncated, 0x7FFFFF},
                    DamagedFile{"j4-overflow-loop.mdb", ErrorCode::Damaged, 27}),
    damagedName);

// Opening and reading everything ends in one error that names the page, not in fewer rows.
TEST_P(RealDamage, IsReportedWithItsPage) {
  if (!realfiles::present()) GTEST_SKIP() << "no Access files at hand";
  auto files = base::makeDiskFileSystem();
  const std::string path = pathOf(std::string("damaged/") + GetParam().name);
  const std::string before = realfiles::read(path);
  auto database = jet::Database::open(*files, path, kAnyFile);
  base::Result<std::string> dump;
  if (database) dump = support::dumpTables(*database);
  ASSERT_TRUE(!database || !dump);
  const base::Error error = database ? dump.error() : database.error();
  EXPECT_EQ(error.code, GetParam().code) << germanMessage(error);
  EXPECT_EQ(error.page, GetParam().page) << germanMessage(error);
  EXPECT_EQ(error.file, path);
  EXPECT_EQ(realfiles::read(path), before);
}

}  // namespace
