#include "yearbook/StepHistory.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace yearbook {
namespace {

void append(std::vector<CellChange>& to, const std::vector<CellChange>& more) {
  to.insert(to.end(), more.begin(), more.end());
  to = netOf(to);
}

bool changesNothing(const Step& step) {
  return step.cells.empty() && step.sides.empty() && step.before.emptied == step.after.emptied &&
         step.before.flatRate == step.after.flatRate;
}

std::size_t sizeOfSides(const Step& step) {
  std::size_t size = 0;
  for (const SideChange& side : step.sides)
    for (const auto* content : {&side.before, &side.after})
      if (*content) size += (*content)->size();
  return size;
}

// Large side files would fill the memory: beyond this the oldest steps are forgotten. The last one
// always stays.
void forgetOldest(std::vector<Step>& steps) {
  constexpr std::size_t kMost = 64 << 20;
  std::size_t size = 0;
  auto first = steps.end();
  while (first != steps.begin()) {
    size += sizeOfSides(*(first - 1));
    if (size > kMost && first != steps.end()) break;
    --first;
  }
  steps.erase(steps.begin(), first);
}

}  // namespace

std::vector<CellChange> netOf(const std::vector<CellChange>& changes) {
  std::vector<CellChange> net;
  for (const CellChange& change : changes) {
    const auto known = std::find_if(
        net.begin(), net.end(), [&](const CellChange& other) { return other.cell == change.cell; });
    if (known == net.end())
      net.push_back(change);
    else
      known->after = change.after;
  }
  std::erase_if(net, [](const CellChange& change) { return change.before == change.after; });
  return net;
}

void StepHistory::add(Step step) {
  const bool continues = entryOpen_ && step.entry && !done_.empty() && undone_.empty() &&
                         done_.back().entry == step.entry;
  if (!continues && changesNothing(step)) return;
  undone_.clear();
  entryOpen_ = step.entry.has_value();
  if (!continues) {
    done_.push_back(std::move(step));
    forgetOldest(done_);
    return;
  }
  Step& last = done_.back();
  append(last.cells, step.cells);
  last.after = std::move(step.after);
  if (last.notice.empty()) last.notice = std::move(step.notice);
  if (!changesNothing(last)) return;
  done_.pop_back();
  entryOpen_ = false;  // the step before it is another one
}

void StepHistory::extend(const std::vector<CellChange>& cells) {
  if (!done_.empty()) append(done_.back().cells, cells);
}

void StepHistory::stepBack() {
  undone_.push_back(std::move(done_.back()));
  done_.pop_back();
  entryOpen_ = false;
}

void StepHistory::stepForward() {
  done_.push_back(std::move(undone_.back()));
  undone_.pop_back();
  entryOpen_ = false;
}

}  // namespace yearbook
