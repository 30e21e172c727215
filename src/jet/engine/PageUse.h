#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "jet/Database.h"
#include "jet/engine/Damage.h"
#include "jet/engine/Pager.h"
#include "jet/engine/RowPointer.h"

namespace jet {

// Who uses each page and each shared row, gathered while a file is checked: two users of one page
// are a contradiction. Collects the findings.
class PageUse {
 public:
  enum class Kind : std::uint8_t {
    Unused,
    Header,
    Definition,
    Rows,
    Index,
    LongValues,
    Maps,
    Bitmap
  };

  explicit PageUse(const Pager& pager);

  // Claims a page for an owner: the page of a table's definition, or 0. Pages of maps may have many
  // owners.
  void claim(std::uint32_t page, Kind kind, std::uint32_t owner, const std::string& table);
  // Claims a row on such a page (a map, or a part of a long text), which has one user.
  void claimRow(RowPointer row, const std::string& table, const char* twice);
  bool isClaimed(RowPointer row) const { return rows_.count(row) != 0; }
  bool isUsed(std::uint32_t page) const { return pages_[page].kind != Kind::Unused; }
  std::uint32_t pageCount() const { return static_cast<std::uint32_t>(pages_.size()); }

  void report(const base::Error& error, const std::string& table) { add(error, table, false); }
  template <class... Arguments>
  void report(std::uint32_t page, const std::string& table, const char* reason,
              const Arguments&... arguments) {
    add(damaged(page, reason, arguments...).value(), table, false);
  }
  // Harmless: nothing is lost, but another program would have written it otherwise.
  template <class... Arguments>
  void warn(std::uint32_t page, const std::string& table, const char* reason,
            const Arguments&... arguments) {
    add(damaged(page, reason, arguments...).value(), table, true);
  }
  // Some users could not be found out: pages without one say nothing.
  void markIncomplete() { incomplete_ = true; }
  bool isIncomplete() const { return incomplete_; }
  bool isFull() const { return findings_.size() >= kMaxFindings; }
  std::vector<Finding> take() { return std::move(findings_); }

 private:
  struct User {
    Kind kind = Kind::Unused;
    std::uint32_t owner = 0;
  };
  static constexpr std::size_t kMaxFindings = 500;
  void add(base::Error error, const std::string& table, bool warning);

  const Pager* pager_;
  std::vector<User> pages_;
  std::set<RowPointer> rows_;
  std::vector<Finding> findings_;
  bool incomplete_ = false;
};

}  // namespace jet
