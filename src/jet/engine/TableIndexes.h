#pragma once

#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "jet/engine/IndexTree.h"
#include "jet/engine/Table.h"

namespace jet {

// The indexes of a table as a whole: their keys from its rows, checked, kept right on a change, or
// made anew. Errors about an index carry its name.
class TableIndexes {
 public:
  TableIndexes(Pager& pager, Table& table) : pager_(&pager), table_(&table) {}

  // A row that comes, goes or changes.
  struct RowChange {
    using ValueOf = std::function<base::Result<Value>(std::size_t column)>;
    RowPointer row;
    ValueOf before;                     // empty: the row is new
    ValueOf after;                      // empty: the row goes
    std::optional<std::size_t> column;  // the only one that changes
  };
  // What it does to an index.
  struct KeyChange {
    std::size_t index = 0;
    std::optional<IndexEntry> removed;  // nullopt: the row had or gets no entry
    std::optional<IndexEntry> added;
    bool counts = false;  // the index has one more distinct key
  };
  // IndexDamaged when an index concerned is damaged; InvalidValue for a second equal value in a
  // unique index or an empty one in a primary key; Unsupported when the key cannot be made.
  base::Result<std::vector<KeyChange>> plan(const RowChange& change) const;
  base::Result<void> apply(const std::vector<KeyChange>& changes);

  // Compares each index with the rows and keeps the outcome in the table. Rows that cannot be read
  // end the check without an outcome: reading them tells.
  void verifyAll();
  // The trees alone decide: entries in order, each of a row of the table, each row with its entry.
  base::Result<void> verify(std::size_t index, std::vector<std::uint32_t>* pages = nullptr) const;

  // Makes every index anew from the rows.
  base::Result<void> rebuildAll();

 private:
  base::Result<std::optional<KeyChange>> planOne(std::size_t index, const RowChange& change) const;
  static base::Result<std::vector<Value>> keyValues(const IndexDef& index,
                                                    const RowChange::ValueOf& valueOf);
  // nullopt when the index leaves such rows out.
  base::Result<std::optional<IndexEntry>> entryOf(const IndexDef& index, RowPointer row,
                                                  const std::vector<Value>& values) const;
  // In order. withNull gets the keys with a Null, of which no two count as equal.
  base::Result<std::vector<IndexEntry>> entriesOfRows(
      const IndexDef& index, std::set<base::Bytes>* withNull = nullptr) const;
  base::Result<void> comparePointers(const IndexDef& index,
                                     const std::vector<IndexEntry>& entries) const;
  // Whether the key is new to the index.
  base::Result<bool> checkConstraints(const IndexDef& index, const std::vector<Value>& values,
                                      const std::optional<IndexEntry>& added) const;
  base::Result<void> countKey(std::size_t index);
  base::Result<void> rebuild(std::size_t index);
  std::vector<std::uint32_t> usablePages(std::size_t index) const;
  base::Failure named(const IndexDef& index, base::Error error) const;
  base::Failure named(const IndexDef& index, base::Failure failure) const {
    return named(index, std::move(failure.value()));
  }

  Pager* pager_;
  Table* table_;
};

}  // namespace jet
