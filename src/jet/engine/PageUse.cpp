#include "jet/engine/PageUse.h"

#include <algorithm>

#include "jet/engine/Damage.h"

namespace jet {

PageUse::PageUse(const Pager& pager) : pager_(&pager), pages_(pager.pageCount()) {}

void PageUse::claim(std::uint32_t page, Kind kind, std::uint32_t owner, const std::string& table) {
  if (page >= pages_.size()) return report(page, table, "the page lies behind the end of the file");
  User& user = pages_[page];
  if (user.kind == Kind::Unused) {
    user = {kind, owner};
  } else if (user.kind != kind || user.owner != owner || kind != Kind::Maps) {
    report(page, table, "the page is used twice");
  }
}

void PageUse::claimRow(RowPointer row, const std::string& table, const char* twice) {
  if (rows_.insert(row).second) return;
  report(row.page, table, twice, row.slot);
}

void PageUse::add(base::Error error, const std::string& table, bool warning) {
  if (error.file.empty()) error.file = pager_->path();
  if (error.subject.empty()) error.subject = table;
  const auto same = [&](const Finding& known) { return known.error == error; };
  const bool known = std::any_of(findings_.begin(), findings_.end(), same);
  if (!known && !isFull()) findings_.push_back({std::move(error), warning, table});
}

}  // namespace jet
