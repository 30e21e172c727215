#include <gmock/gmock.h>

#include "base/File.h"
#include "support/CrashSweep.h"
#include "support/FailingFileSystem.h"
#include "support/MemoryFileSystem.h"

// A file that is replaced or copied over is the old or the new one, whatever fails and whenever the
// power goes.

namespace {

using base::Bytes;
using base::Result;
using support::MemoryFileSystem;

const std::string kSource = "/daten/Verbrauch.kwd";
const std::string kTarget = "/sicherung/Verbrauch.kwd";
const Bytes kOld(5000, 'a');
const Bytes kNew(9000, 'n');

struct Way {
  const char* name;
  Result<void> (*replace)(base::FileSystem&);
};

class Replacing : public testing::TestWithParam<Way> {
 protected:
  MemoryFileSystem::Contents start_{{kSource, kNew}, {kTarget, kOld}};
};

TEST_P(Replacing, SurvivesEveryFailingCall) {
  for (const bool forGood : {false, true}) {
    for (std::size_t call = 0;; ++call) {
      MemoryFileSystem disk(start_);
      support::FailingFileSystem failing(disk);
      failing.arm({call, forGood, base::ErrorCode::NoSpace, call % 2 == 0});
      const auto done = GetParam().replace(failing);
      if (!failing.struck()) {
        EXPECT_TRUE(done);
        break;
      }
      EXPECT_THAT(disk.get(kTarget), testing::AnyOf(kOld, kNew)) << call;
      EXPECT_EQ(disk.get(kSource), kNew);
      if (done) continue;  // a failure to look whether two files are one may pass
      EXPECT_THAT(base::germanMessage(done.error()), testing::HasSubstr("Verbrauch.kwd\n")) << call;
      if (!forGood) {
        EXPECT_EQ(disk.contents().size(), 2U) << call;
      }
    }
  }
}

TEST_P(Replacing, SurvivesEveryPowerCut) {
  support::CrashFileSystem disk(start_);
  ASSERT_TRUE(GetParam().replace(disk));
  const std::size_t points = support::sweepCrashes(disk, 20, [&](const support::CrashPoint& point) {
    const Bytes& left = point.contents.at(kTarget);
    ASSERT_TRUE(left == kOld || left == kNew) << point.label;
    if (point.moment + 1 == disk.moments()) {
      ASSERT_EQ(left, kNew) << point.label;
    }
  });
  EXPECT_GT(points, 20U);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, Replacing,
    testing::Values(
        Way{"Replace", [](base::FileSystem& files) { return files.replaceFile(kTarget, kNew); }},
        Way{"Copy", [](base::FileSystem& files) { return files.copyFile(kSource, kTarget); }}),
    [](const testing::TestParamInfo<Way>& way) { return way.param.name; });

}  // namespace
