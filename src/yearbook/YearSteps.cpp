#include <algorithm>

#include "base/Paths.h"
#include "yearbook/SideFileSize.h"
#include "yearbook/YearSession.h"

// How the open year changes: transactions, the side files that go with them, and the way back.

namespace yearbook {

using base::Failure;
using base::Result;

namespace {

// What follows from others; nobody has typed it.
bool isDerived(const Field& field) {
  for (Meter meter : kMeters) {
    const MeterFacts& facts = factsOf(meter);
    for (const Field* derived :
         {facts.consumption, facts.amount, facts.chartCopy, factsOf(facts.utility).monthAmount})
      if (&field == derived) return true;
  }
  return false;
}

}  // namespace

Result<void> YearSession::checkOpen() const {
  if (!sidesPending_) return {};
  return base::fail(base::ErrorCode::IoError, "das Jahr muss neu geöffnet werden", path());
}

Result<void> YearSession::transact(const Change& change, const Edit& edit) {
  if (auto open = checkOpen(); !open) return open;
  auto sides = changesOf(change.sides);
  if (!sides) return Failure(sides.error());
  if (auto begun = database_.begin(); !begun) return begun;
  Step step;
  step.before = modes_;
  step.sides = std::move(*sides);
  if (change.summary) modes_.cleared[*change.summary] = false;
  auto done = edit(rows_);
  if (done) {
    auto cells = follow(change);
    if (cells) step.cells = std::move(*cells);
    done = cells ? store(step.cells, step.sides) : Failure(cells.error());
  }
  if (!done) {
    takeBack(step.before);
    return done;
  }
  modes_.emptied.insert(change.empties.begin(), change.empties.end());
  if (change.clears) modes_.cleared[*change.clears] = true;
  remember(change, std::move(step));
  showValues();
  return {};
}

// Everything as it was, after a failure.
void YearSession::takeBack(const Modes& modes) {
  if (database_.inTransaction()) database_.rollback();
  modes_ = modes;
  rows_.takeWritten();
  base::ignore(rows_.refresh(), "the edit's own error is the one to tell; kept rows stay readable");
  showValues();
}

void YearSession::remember(const Change& change, Step step) {
  if (change.name.empty()) {
    history_.extend(step.cells);
    return;
  }
  step.name = change.name;
  step.entry = change.entry;
  step.after = modes_;
  const auto typed = std::count_if(step.cells.begin(), step.cells.end(),
                                   [](const auto& cell) { return !isDerived(*cell.cell.field); });
  if (change.mass.value_or(typed > 1) && !step.cells.empty())
    step.notice = change.name + (change.before.empty() ? "" : " (" + change.before + ")") + ".";
  history_.add(std::move(step));
}

// Only what has been written is followed: a copy that an older file cannot hold does not keep the
// household from changing something else. Returns what has become of the cells in all.
Result<std::vector<CellChange>> YearSession::follow(const Change& change) {
  PerUtility<bool> amounts{};
  PerMeter<bool> consumptions{};
  std::vector<CellChange> written = rows_.takeWritten();
  for (const CellChange& write : written) {
    const Cell& cell = write.cell;
    modes_.emptied.erase(cell);
    for (Meter meter : kMeters) {
      const MeterFacts& facts = factsOf(meter);
      if (cell.field == facts.amount || cell.field == factsOf(facts.utility).monthAmount)
        amounts[facts.utility] = true;
      if (cell.field != facts.consumption) continue;
      consumptions[meter] = !change.chartTableWaits;
      // A change of several utilities names none of them.
      modes_.cleared[facts.utility] = false;
    }
  }
  for (Utility utility : kUtilities)
    if (amounts[utility])
      if (auto done = followMonthAmounts(rows_, utility, Follow::Stored); !done)
        return Failure(done.error());
  for (Meter meter : kMeters)
    if (consumptions[meter])
      if (auto done = followChartTable(rows_, meter, Follow::Stored); !done)
        return Failure(done.error());
  const std::vector<CellChange> followed = rows_.takeWritten();
  written.insert(written.end(), followed.begin(), followed.end());
  return netOf(written);
}

// --- the year and its side files ---

Result<std::vector<SideChange>> YearSession::changesOf(const std::vector<SideFile>& sides) const {
  std::vector<SideChange> changes;
  for (const SideFile& side : sides) {
    SideChange change{side.path, std::nullopt, side.content};
    if (side.content && side.content->size() > kLargestSideFile)
      return base::fail(
          base::ErrorCode::InvalidValue,
          "Die Datei wäre größer als " + std::to_string(kLargestSideFile >> 20) + " MB", side.path);
    if (auto content = files_.readText(side.path, kLargestSideFile))
      change.before = std::move(*content);
    else if (content.error().code != base::ErrorCode::NotFound)
      return Failure(content.error());
    if (change.before != change.after) changes.push_back(std::move(change));
  }
  return changes;
}

// Ends the running transaction.
Result<void> YearSession::store(const std::vector<CellChange>& cells,
                                const std::vector<SideChange>& sides) {
  if (sides.empty()) return database_.commit();
  const std::string folder(base::folderOf(sides.front().path));
  const bool together = folder == base::folderOf(path());
  if (cells.empty()) {
    database_.rollback();
    return storeSides(folder, sides);
  }
  if (together) return storeTogether(folder, sides);
  // One disk cannot vouch for another: the side files can at least be put back.
  if (auto stored = storeSides(folder, sides); !stored) return stored;
  auto done = database_.commit();
  if (done || database_.needsReopen()) return done;
  std::vector<SideChange> back;
  back.reserve(sides.size());
  for (const SideChange& side : sides) back.push_back({side.path, side.after, side.before});
  base::ignore(storeSides(folder, back), "the first failure is the one to tell");
  return done;
}

Result<base::JointChange> YearSession::stage(const std::string& folder,
                                             const std::vector<SideChange>& sides) const {
  auto joint = base::JointChange::begin(files_, folder);
  if (!joint) return joint;
  for (const SideChange& side : sides) {
    const std::string name(base::fileName(side.path));
    const auto staged =
        side.after ? joint->replace(name, base::asBytes(*side.after), path()) : joint->remove(name);
    if (!staged) return Failure(staged.error());
  }
  return joint;
}

Result<void> YearSession::storeSides(const std::string& folder,
                                     const std::vector<SideChange>& sides) {
  auto joint = stage(folder, sides);
  if (!joint) return Failure(joint.error());
  if (auto prepared = joint->prepare(); !prepared) {
    sidesPending_ = joint->isPending();
    return prepared;
  }
  auto done = joint->complete();
  sidesPending_ = joint->isPending();
  if (sidesPending_) return {};
  return done;
}

Result<void> YearSession::storeTogether(const std::string& folder,
                                        const std::vector<SideChange>& sides) {
  auto joint = stage(folder, sides);
  if (!joint) return Failure(joint.error());
  const auto image = database_.image();
  if (!image) return Failure(image.error());
  auto done = joint->prepare(std::string(base::fileName(path())), *image);
  if (done) done = database_.commit();
  if (!done) {
    // An intention that could not be withdrawn must not meet another change of the year.
    if (database_.needsReopen())
      joint->leaveToFinish();
    else
      sidesPending_ = !joint->withdraw();
    return done;
  }
  base::ignore(joint->complete(), "they count: what is left is done when the year is opened next");
  sidesPending_ = joint->isPending();
  return {};
}

// --- back and forth ---

Result<void> YearSession::undo() {
  if (!history_.last()) return {};
  auto done = replay(*history_.last(), true);
  if (done) history_.stepBack();
  return done;
}

Result<void> YearSession::redo() {
  if (!history_.next()) return {};
  auto done = replay(*history_.next(), false);
  if (done) history_.stepForward();
  return done;
}

// Every cell gets the very value that it had: nothing is worked out anew.
Result<void> YearSession::replay(const Step& step, bool back) {
  std::vector<SideFile> wanted;
  for (const SideChange& side : step.sides)
    wanted.push_back({side.path, back ? side.before : side.after});
  const auto sides = changesOf(wanted);
  if (!sides) return Failure(sides.error());
  for (std::size_t i = 0; i < step.sides.size(); ++i)
    if (i >= sides->size() ||
        (*sides)[i].before != (back ? step.sides[i].after : step.sides[i].before))
      return base::fail(base::ErrorCode::ChangedOnDisk, {}, step.sides[i].path);
  if (auto open = checkOpen(); !open) return open;
  if (auto begun = database_.begin(); !begun) return begun;
  Result<void> done;
  for (const CellChange& change : step.cells) {
    const Field& field = *change.cell.field;
    done = rows_.of(field).setRaw(change.cell.row, field, back ? change.before : change.after);
    if (!done) break;
  }
  if (done) done = store(netOf(rows_.takeWritten()), *sides);
  if (!done) {
    takeBack(modes_);
    return done;
  }
  modes_ = back ? step.before : step.after;
  showValues();
  return {};
}

}  // namespace yearbook
