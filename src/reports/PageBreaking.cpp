#include "reports/PageBreaking.h"

#include <algorithm>

namespace reports {
namespace {

class PageBreaker {
 public:
  PageBreaker(const Grid& grid, int bodyHeight) : grid_(grid), bodyHeight_(bodyHeight) {
    for (int row = 0; row < std::min(grid.headRows, grid.rows()); ++row)
      if (isVisible(row)) {
        head_.push_back(row);
        headHeight_ += grid.row(row).height;
      }
    beginPage();
  }

  std::vector<std::vector<int>> pages() {
    for (int row = grid_.headRows; row < grid_.rows();) {
      const int end = unitEnd(row);
      place(row, end);
      row = end;
    }
    if (pages_.size() > 1 && isPageEmpty()) pages_.pop_back();
    return std::move(pages_);
  }

 private:
  bool isVisible(int row) const { return !grid_.row(row).hidden && grid_.row(row).height > 0; }
  bool isPageEmpty() const { return !hasBody_; }

  bool isBlank(int row) const {
    for (int column = 0; column < grid_.columns(); ++column)
      if (!grid_.text(row, column).empty() || grid_.cell(row, column).back != 0) return false;
    return true;
  }

  // The row behind those that merged cells join with this one.
  int unitEnd(int row) const {
    int last = row;
    for (int r = row; r <= last; ++r)
      for (int column = 0; column < grid_.columns(); ++column)
        last = std::max(last, std::min(grid_.mergedRange(r, column).bottom, grid_.rows() - 1));
    return last + 1;
  }

  int heightOf(int first, int end) const {
    int height = 0;
    for (int row = first; row < end; ++row)
      if (isVisible(row)) height += grid_.row(row).height;
    return height;
  }

  // The row behind the block that this row heads; the row itself if it heads none.
  int blockEnd(int row) const {
    int end = row;
    while (end + 1 < grid_.rows() && grid_.row(end + 1).headingRow == row) ++end;
    return end == row ? row : end + 1;
  }

  void place(int first, int end) {
    const int block = heightOf(first, blockEnd(first));
    const bool blockFitsOnNewPage = headHeight_ + block <= bodyHeight_;
    const bool tornBlock = used_ + block > bodyHeight_ && blockFitsOnNewPage;
    if (!isPageEmpty() && (tornBlock || used_ + heightOf(first, end) > bodyHeight_)) beginPage();

    if (isPageEmpty()) {
      if (end == first + 1 && isBlank(first)) return;
      const int heading = grid_.row(first).headingRow;
      if (heading >= 0 && isVisible(heading)) add(heading);
    }
    for (int row = first; row < end; ++row)
      if (isVisible(row)) add(row);
  }

  void beginPage() {
    if (!pages_.empty()) dropBlankRowsAtEnd(pages_.back());
    pages_.push_back(head_);
    used_ = headHeight_;
    hasBody_ = false;
  }

  void dropBlankRowsAtEnd(std::vector<int>& rows) const {
    while (rows.size() > head_.size() && isBlank(rows.back())) rows.pop_back();
  }

  void add(int row) {
    pages_.back().push_back(row);
    used_ += grid_.row(row).height;
    hasBody_ = true;
  }

  const Grid& grid_;
  const int bodyHeight_;
  std::vector<int> head_;
  int headHeight_ = 0;
  std::vector<std::vector<int>> pages_;
  int used_ = 0;
  bool hasBody_ = false;
};

}  // namespace

std::vector<std::vector<int>> breakIntoPages(const Grid& grid, int bodyHeight) {
  return PageBreaker(grid, bodyHeight).pages();
}

}  // namespace reports
