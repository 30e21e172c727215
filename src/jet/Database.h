#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/File.h"
#include "jet/NewTable.h"

// A Jet database file (Access 97 to 2003): tables by name, rows by position, changes by
// transaction.
namespace jet {

struct Column {
  std::string name;
  ColumnType type = ColumnType::Long;
  int length = 0;  // bytes as declared; 0 for memo and OLE
  bool fixedLength = false;
  bool autoNumber = false;
  bool compressed = false;  // Unicode compression allowed
  int precision = 0;        // Numeric only
  int scale = 0;            // Numeric only
  int number = 0;           // column number: bit in the null mask
};

// A logical index as Access shows it.
struct Index {
  std::string name;
  std::vector<IndexColumn> columns;
  bool primary = false;
  bool unique = false;
  bool ignoreNulls = false;
  bool required = false;
  bool foreign = false;
};

struct OpenOptions {
  bool readOnly = false;          // never lock for writing, never complete a journal on disk
  bool acceptPassword = false;    // else PasswordProtected
  bool acceptEncryption = false;  // else Encrypted; pages with a page key are decoded
};

struct Finding {
  base::Error error;     // code Damaged or IndexDamaged, page and subject as far as they are known
  bool warning = false;  // harmless: lost pages, stale hints
  std::string table;     // whose index can be rebuilt, or whose part is damaged; may be empty
};

class Database;

// The rows of one table in natural order, by position 0 to count() - 1. Reads see the changes of
// the running transaction. A RecordSet is valid as long as its Database; that of a table whose
// making was rolled back must not be used any more.
class RecordSet {
 public:
  ~RecordSet();
  RecordSet(RecordSet&&) noexcept;
  RecordSet& operator=(RecordSet&&) noexcept;

  const std::string& tableName() const;
  const std::vector<Column>& columns() const;  // by column number
  const std::vector<Index>& indexes() const;
  // Letter case does not count. nullopt when there is no such column.
  std::optional<std::size_t> columnIndex(std::string_view name) const;

  std::size_t count() const;
  // Reads the positions anew.
  base::Result<void> refresh();
  base::Result<Value> value(std::size_t position, std::size_t column) const;
  // All columns of a row, one pass.
  base::Result<std::vector<Value>> row(std::size_t position) const;

  // Changes one field within the running transaction (Unsupported outside of one). The value must
  // be of the column's kind: a number that does not fit, a text that is too long or a character
  // that the file's code page lacks is InvalidValue. Numbers are converted between the number
  // types when they fit exactly or, for Single and Double, by rounding; "" and Null are different.
  // The rows' positions never change by an update.
  base::Result<void> set(std::size_t position, std::size_t column, const Value& value);
  // Adds a row: one value per column, Null in an AutoNumber column takes the next number. Returns
  // its position, which need not be the last; rows behind it move on by one. Errors as of set();
  // InvalidValue also for a key that a unique index has already or that a primary key lacks.
  base::Result<std::size_t> insert(std::vector<Value> values);
  // Rows behind it move up by one. Relationships between tables are not looked at.
  base::Result<void> erase(std::size_t position);

 private:
  friend class Database;
  struct State;
  template <class Change>
  auto change(const Change& change, const std::string& subject);
  explicit RecordSet(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

class Database {
 public:
  // Completes or discards a journal that a crash left, takes the lock, checks size, version, page
  // key and catalog. A file that can be read but not written (attribute, rights, medium) opens for
  // reading; readOnlyReason() tells why. A file that another process holds is InUse, and so is one
  // that Access has open for several users.
  static base::Result<Database> open(base::FileSystem& files, const std::string& path,
                                     OpenOptions options = {});
  // Whether a journal of another name holds a transaction of this file that a crash interrupted, as
  // when the file was given a new name afterwards. Renamed to "NAME-journal" it is completed by the
  // next opening. Never writes.
  static base::Result<bool> ownsJournal(base::FileSystem& files, const std::string& path,
                                        const std::string& journal);
  ~Database();
  Database(Database&&) noexcept;
  Database& operator=(Database&&) noexcept;

  const std::string& path() const;
  // "Jet 3" or "Jet 4".
  std::string formatName() const;
  std::optional<base::Error> readOnlyReason() const;
  // Why nothing can be stored at present, if so: readOnlyReason(), a folder without write
  // permission, or what the last commit ran into (no space, a medium that was taken out).
  std::optional<base::Error> writeObstacle() const;
  // Looks whether the obstacle is gone, and if so opens the file for writing; not within a
  // transaction. A file that is another one by then stays as it was opened.
  bool tryWriting();
  // Names of the user tables, sorted without regard to letter case.
  std::vector<std::string> tableNames() const;
  // MissingTable when there is none of that name (letter case does not count).
  base::Result<RecordSet> openTable(std::string_view name);

  // Makes a table with its indexes and rows and opens it; within a transaction. InvalidValue names
  // the table, column or value that cannot be.
  base::Result<RecordSet> createTable(const NewTable& table);

  // One user action = one transaction. Transactions do not nest.
  base::Result<void> begin();
  // Durable when it returns: journal, sync, pages in place, sync, journal dropped. After a failure
  // the transaction is rolled back and the file holds the old state. Where the disk has failed
  // altogether, needsReopen() is true and the next opening brings the file to it; if not even that
  // is sure, base::outcomeIsOpen() says so of the error. A file that has lost its name while it was
  // open is ChangedOnDisk; it can be written again when it has it back.
  base::Result<void> commit();
  void rollback();
  bool inTransaction() const;
  bool needsReopen() const;

  // The file as it is stored, without the running transaction: while it is open for writing nobody
  // else can read it.
  base::Result<base::Bytes> image() const;

  // Problems met while opening tables that leave the rows readable (IndexDamaged).
  std::vector<Finding> warnings() const;
  // Rebuilds every index of a table from its rows; within a transaction.
  base::Result<void> rebuildIndexes(std::string_view table);

  // Checks every page, row, long value, map and index. Never writes. Empty = sound.
  std::vector<Finding> check() const;

 private:
  friend class RecordSet;
  struct State;
  explicit Database(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace jet
