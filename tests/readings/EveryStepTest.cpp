#include <gmock/gmock.h>

#include <random>

#include "SampleYear.h"
#include "app/YearFiles.h"
#include "base/Paths.h"
#include "readings/BaseFees.h"
#include "readings/MeterReading.h"
#include "readings/UnitPrices.h"
#include "support/CrashFileSystem.h"
#include "support/EmptyYear.h"
#include "support/FailingFileSystem.h"

// A household at work on a computer on which everything goes wrong: whatever it does, the year and
// its side files are as before or as after, never a mixture, never in silence.

using namespace readings;
using support::CrashFileSystem;
using support::FailingFileSystem;
using support::MemoryFileSystem;
using yearbook::kMonths;
using yearbook::Utility;
using Contents = MemoryFileSystem::Contents;

namespace {

constexpr char kFolder[] = "/daten/";
constexpr char kPath[] = "/daten/Haus 2025.kwd";
const base::FixedClock kClock(std::chrono::year(2025) / 9 / 3);

const Contents& household() {
  static const Contents contents = [] {
    MemoryFileSystem disk;
    disk.put(kPath, support::emptyYear());
    auto year = YearSession::open(disk, kPath, kFolder, kClock);
    EXPECT_TRUE(year);
    EXPECT_TRUE(sample::enter(**year, sample::year2025()));
    year->reset();
    return disk.contents();
  }();
  return contents;
}

// The sanitizers make each step ten times as long; they see enough of them in a fifth.
#ifdef __SANITIZE_ADDRESS__
constexpr int kShare = 5;
#else
constexpr int kShare = 1;
#endif

// All that the household has: every cell, and the side files as they lie on the disk.
struct State {
  std::vector<jet::Value> cells;
  Contents sides;
  bool operator==(const State&) const = default;
};

State stateOf(const YearSession& year, const Contents& disk) {
  State state;
  for (const yearbook::RecordSource* source :
       {&year.adoStrom, &year.adoWasser, &year.adoGas, &year.adoVerbrM, &year.adoZStaende})
    for (int row = 0; row < source->count(); ++row)
      for (const yearbook::Field* field : source->table().fields)
        state.cells.push_back(source->raw(row, *field));
  for (const auto& [path, content] : disk)
    if (base::hasExtension(path, ".dat")) state.sides[path] = content;
  return state;
}

// For how many calls a fault lasts: what is tried to mend it fails as well, or does not.
constexpr std::size_t kLasts[] = {1, 3, 8, 1000};

// As the program does when it starts: what an interruption has left first, then the year.
std::unique_ptr<YearSession> openAfterAll(base::FileSystem& files) {
  const auto finished = app::finishInterrupted(files, kFolder, "");
  EXPECT_TRUE(finished) << base::germanMessage(finished.error());
  auto year = YearSession::open(files, kPath, kFolder, kClock);
  EXPECT_TRUE(year) << base::germanMessage(year.error());
  return year ? std::move(*year) : nullptr;
}

using Action = std::function<base::Result<void>(YearSession&)>;

struct Choice {
  explicit Choice(std::mt19937& random) : random_(random) {}
  int upTo(int limit) const { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

 private:
  std::mt19937& random_;

 public:
  const Meter meter = yearbook::kMeters[static_cast<std::size_t>(upTo(5))];
  const Utility utility = yearbook::kUtilities[static_cast<std::size_t>(upTo(3))];
  const int month = upTo(kMonths);
  const double number = upTo(2000) / 4.0;
  const base::Money money = base::Money::roundHalfEven(number);
};

// Something that is typed into the main window.
Action randomEntry(std::mt19937& random) {
  const Choice chosen(random);
  const Meter meter = chosen.meter;
  const Utility utility = chosen.utility;
  const int month = chosen.month;
  const double number = chosen.number;
  const base::Money money = chosen.money;
  switch (chosen.upTo(8)) {
    case 0:
      return [=](YearSession& year) {
        return year.storePrice(month % 2 ? Meter::Day : Meter::Gas, number);
      };
    case 1:
      return [=](YearSession& year) { return year.storeAdvance(utility, month, money); };
    case 2:
      return [=](YearSession& year) { return year.storeGasFactor(number); };
    case 3:
      return [=](YearSession& year) {
        return year.storeRemark(utility, month, std::string(static_cast<std::size_t>(month), 'x'));
      };
    case 4:
      return [=](YearSession& year) { return year.storeVat(meter, number); };
    case 5:
      return [=](YearSession& year) { return year.storeStartReading(meter, std::floor(number)); };
    case 6:
      return [=](YearSession& year) {
        return meter == Meter::Night ? year.storeFreeKwh(number) : year.storeBaseFee(meter, money);
      };
    default:
      return [=](YearSession& year) {
        return month < 6 ? year.storeFlatRate(month % 2 == 0) : year.setNightShown(month % 2 == 0);
      };
  }
}

Action randomTakeOver(const Choice& chosen) {
  PerMonth<double> readings{};
  for (int k = 0; k <= chosen.month; ++k) readings[k] = 1000.0 * k + chosen.upTo(900);
  const MeterChange change{chosen.upTo(kMonths + 1), chosen.number};
  return [=, meter = chosen.meter](YearSession& year) {
    return takeOver(year, meter, readings, change);
  };
}

// Something that changes many values.
Action randomSweep(std::mt19937& random) {
  const Choice chosen(random);
  const Meter meter = chosen.meter;
  const Utility utility = chosen.utility;
  const int month = chosen.month;
  const double number = chosen.number;
  MonthTicks ticks{};
  for (int k = month; k < kMonths; ++k) ticks[k] = true;
  MonthlyFees fees{};
  fees[month] = number;
  switch (chosen.upTo(10)) {
    case 0:
      return [=](YearSession& year) { return deleteConsumptions(year, meter); };
    case 1:
      return [=](YearSession& year) { return deleteMeterChange(year, meter); };
    case 2:
      return [=](YearSession& year) { return storePrices(year, meter, ticks, number); };
    case 3:
      return [=](YearSession& year) { return year.clear(utility); };
    case 4:
      return [=](YearSession& year) { return year.shiftStartMonth(utility, month + 1); };
    case 5:
      return [=](YearSession& year) { return year.zeroAdvances(utility); };
    case 6:
      return [=](YearSession& year) {
        return storeYearFee(year, meter == Meter::Night ? Meter::Day : meter, fees);
      };
    default:
      return randomTakeOver(chosen);
  }
}

// Something that a household does, at random.
Action randomAction(std::mt19937& random) {
  return random() % 2 ? randomEntry(random) : randomSweep(random);
}

// One household, its disk, and what the steps so far must give back.
class Household {
 public:
  explicit Household(unsigned seed) : random_(seed), disk_(household()), files_(disk_) {
    year_ = openAfterAll(files_);
    states_ = {now()};
  }

  void step() {
    const unsigned kind = random_() % 10;
    if (kind < 2 && states_.size() > 1)
      back();
    else if (kind == 2 && year_->history().next())
      forward();
    else
      act(kind >= 7);
    ASSERT_EQ(year_->history().depth(), states_.size() - 1);
  }

  // All the way back, and there again.
  void backAndForth() {
    files_.disarm();
    while (states_.size() > 1 && !testing::Test::HasFailure()) back();
    EXPECT_EQ(now(), states_.front());
    while (year_->history().next() && !testing::Test::HasFailure()) forward();
  }

  int failures() const { return failures_; }
  int reopenings() const { return reopenings_; }

 private:
  State now() const { return stateOf(*year_, disk_.contents()); }

  // Runs it on a copy of the disk that has no faults.
  std::optional<State> outcome(const Action& action) const {
    MemoryFileSystem twin(disk_.contents());
    auto year = openAfterAll(twin);
    if (!action(*year)) return std::nullopt;
    return stateOf(*year, twin.contents());
  }

  void act(bool failing) {
    const Action action = randomAction(random_);
    // What is refused half-way leaves nothing behind, not even in the next step.
    if (random_() % 8 == 0) beRefused();
    // A copy does not remember what is shown as empty; what is stored is the same.
    reopenIfShownOtherwise();
    const auto after = failing ? outcome(action) : std::nullopt;
    year_->endEntry();
    const std::size_t depth = year_->history().depth();
    if (failing)
      files_.arm(
          {random_() % 60, false, base::ErrorCode::NoSpace, true, {}, kLasts[random_() % 4]});
    const bool done = action(*year_).has_value();
    files_.disarm();
    if (!failing && !done) return;  // refused, as too large an amount is
    if (!failing) {
      if (year_->history().depth() > depth)
        took(now());
      else
        EXPECT_EQ(now().sides, states_.back().sides);
      return;
    }
    failures_ += !done;
    settle(done, after);
  }

  void beRefused() {
    EXPECT_FALSE(year_->transact({"verweigert"}, [](yearbook::YearRows& rows) {
      base::ignore(rows.adoGas.setNumber(3, yearbook::gas::price, 77.5), "refused as a whole");
      return base::Result<void>(base::fail(base::ErrorCode::InvalidValue, "zu groß"));
    }));
  }

  void settle(bool done, const std::optional<State>& after) {
    const State before = states_.back();
    if (!year_->needsReopen()) {
      const State& expected = done && after ? *after : before;
      EXPECT_EQ(now(), expected);
      if (year_->history().depth() == states_.size()) took(expected);
      // What is shown is what is stored.
      if (random_() % 8 == 0) reopen(expected);
      return;
    }
    ++reopenings_;
    // Nothing else can be changed before.
    EXPECT_FALSE(year_->storeVat(Meter::Gas, 1.25));
    year_.reset();
    year_ = openAfterAll(files_);
    const State found = now();
    EXPECT_TRUE((after && found == *after) || (!done && found == before));
    states_ = {found};
    undone_.clear();
  }

  void took(const State& state) {
    states_.push_back(state);
    undone_.clear();
  }

  void reopen(const State& expected) {
    year_.reset();
    year_ = openAfterAll(files_);
    EXPECT_EQ(now(), expected);
    states_ = {now()};
    undone_.clear();
  }

  void reopenIfShownOtherwise() {
    for (const Utility utility : yearbook::kUtilities)
      if (year_->values().cleared[utility]) {
        reopen(states_.back());
        return;
      }
  }

  void back() {
    const auto done = year_->undo();
    ASSERT_TRUE(done) << base::germanMessage(done.error());
    undone_.push_back(states_.back());
    states_.pop_back();
    EXPECT_EQ(now(), states_.back());
  }

  void forward() {
    ASSERT_TRUE(year_->redo());
    states_.push_back(undone_.back());
    undone_.pop_back();
    EXPECT_EQ(now(), states_.back());
  }

  std::mt19937 random_;
  MemoryFileSystem disk_;
  FailingFileSystem files_;
  std::unique_ptr<YearSession> year_;
  std::vector<State> states_, undone_;
  int failures_ = 0;
  int reopenings_ = 0;
};

}  // namespace

TEST(EveryStep, GivesBackWhatWasThereOnADiskThatFails) {
  int failures = 0;
  int reopenings = 0;
  for (unsigned seed = 1; seed <= 20 / kShare; ++seed) {
    SCOPED_TRACE("household " + std::to_string(seed));
    Household household(seed);
    for (int i = 0; i < 1000 && !testing::Test::HasFailure(); ++i) household.step();
    if (!testing::Test::HasFailure()) household.backAndForth();
    failures += household.failures();
    reopenings += household.reopenings();
    if (testing::Test::HasFailure()) return;
  }
  // The disk failed often enough to say something.
  EXPECT_GT(failures, 1000 / kShare);
  EXPECT_GT(reopenings, 50 / kShare);
}

// Each call of each action in turn, once and for good.
TEST(EveryStep, IsWholeWhicheverCallFails) {
  std::mt19937 random(7);
  std::size_t calls = 0;
  for (int kind = 0; kind < 60 / kShare; ++kind) {
    const Action action = randomAction(random);
    MemoryFileSystem quiet(household());
    auto twin = openAfterAll(quiet);
    const State before = stateOf(*twin, quiet.contents());
    if (!action(*twin)) continue;
    const State after = stateOf(*twin, quiet.contents());
    for (const std::size_t lasts : kLasts) {
      bool struck = true;
      for (std::size_t call = 0; struck; ++call, ++calls) {
        SCOPED_TRACE("action " + std::to_string(kind) + ", call " + std::to_string(call));
        MemoryFileSystem disk(household());
        FailingFileSystem files(disk);
        auto year = openAfterAll(files);
        files.arm({call, false, base::ErrorCode::IoError, true, {}, lasts});
        const bool done = action(*year).has_value();
        struck = files.struck();
        files.disarm();
        const bool certain = !year->needsReopen();
        EXPECT_TRUE(!certain || stateOf(*year, disk.contents()) == (done ? after : before));
        year.reset();
        year = openAfterAll(files);
        const State found = stateOf(*year, disk.contents());
        EXPECT_TRUE(found == after || (!done && found == before));
        EXPECT_TRUE(!certain || found == (done ? after : before));
        for (const auto& [path, content] : disk.contents())
          EXPECT_TRUE(base::hasExtension(path, ".dat") || path == kPath) << path;
        if (testing::Test::HasFailure()) return;
      }
    }
  }
  EXPECT_GT(calls, 1000U / kShare);
}

// Killed at any moment, with any part of what was on its way lost.
TEST(EveryStep, IsWholeWheneverThePowerFails) {
  std::mt19937 random(11);
  int kills = 0;
  for (int household = 0; household < 20 / kShare; ++household) {
    CrashFileSystem disk(::household());
    auto year = openAfterAll(disk);
    std::vector<State> states = {stateOf(*year, ::household())};
    std::vector<std::size_t> ends = {disk.moments() - 1};
    const auto contents = [&] {
      Contents now;
      const auto names = disk.list(kFolder);
      for (const std::string& name : *names)
        if (const auto content = disk.readText(kFolder + name))
          now[kFolder + name] = {content->begin(), content->end()};
      return now;
    };
    for (int i = 0; i < 12; ++i) {
      const unsigned kind = random() % 8;
      const auto done = kind == 0   ? year->undo()
                        : kind == 1 ? year->redo()
                                    : randomAction(random)(*year);
      if (!done) continue;
      states.push_back(stateOf(*year, contents()));
      ends.push_back(disk.moments() - 1);
    }
    year.reset();
    for (int kill = 0; kill < 60; ++kill, ++kills) {
      const std::size_t moment = random() % disk.moments();
      std::mt19937 fates(random());
      MemoryFileSystem survivor(disk.survivor(
          moment, [&](std::size_t) { return static_cast<CrashFileSystem::Fate>(fates() % 4); },
          random() % (disk.pendingNames(moment) + 1), random()));
      auto again = openAfterAll(survivor);
      const State found = stateOf(*again, survivor.contents());
      // What had been told as done is there; what was under way may be.
      std::size_t last = 0;
      while (last + 1 < ends.size() && ends[last + 1] <= moment) ++last;
      const bool next = last + 1 < states.size() && found == states[last + 1];
      EXPECT_TRUE(next || found == states[last])
          << "household " << household << ", moment " << moment;
      if (testing::Test::HasFailure()) return;
    }
  }
  EXPECT_GE(kills, 1200 / kShare);
}
