#include "jet/PageUse.h"

#include <algorithm>

#include "jet/Damage.h"

namespace jet {

PageUse::PageUse(const Pager& pager) : pager_(&pager), pages_(pager.pageCount()) {}

void PageUse::claim(std::uint32_t page, Kind kind, std::uint32_t owner, const std::string& table) {
  if (page >= pages_.size()) return report(page, table, "Seite liegt hinter dem Ende der Datei");
  User& user = pages_[page];
  if (user.kind == Kind::Unused) {
    user = {kind, owner};
  } else if (user.kind != kind || user.owner != owner || kind != Kind::Maps) {
    report(page, table, "Seite wird zweimal verwendet");
  }
}

void PageUse::claimRow(RowPointer row, const std::string& table, const char* what) {
  if (rows_.insert(row).second) return;
  report(row.page, table,
         std::string(what) + " " + std::to_string(row.slot) + " wird zweimal verwendet");
}

void PageUse::report(base::Error error, const std::string& table) {
  if (error.file.empty()) error.file = pager_->path();
  if (error.subject.empty()) error.subject = table;
  add({std::move(error), false, table});
}

void PageUse::report(std::uint32_t page, const std::string& table, std::string detail) {
  base::Failure failure = damaged(page, std::move(detail));
  report(failure.value(), table);
}

void PageUse::warn(std::uint32_t page, const std::string& table, std::string detail) {
  base::Failure failure = damaged(page, std::move(detail));
  failure.value().file = pager_->path();
  failure.value().subject = table;
  add({std::move(failure.value()), true, table});
}

void PageUse::add(Finding finding) {
  const auto same = [&](const Finding& known) { return known.error == finding.error; };
  const bool known = std::any_of(findings_.begin(), findings_.end(), same);
  if (!known && !isFull()) findings_.push_back(std::move(finding));
}

}  // namespace jet
