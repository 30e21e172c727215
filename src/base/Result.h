#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <utility>
#include <vector>

// Errors as values. Below the windows nothing throws: a call that can fail returns Result<T>, and
// the caller hands it on, reports it to the user, or passes it over with ignore() and a reason.
namespace base {

enum class ErrorCode {
  NotFound,           // the file or folder is not there
  AlreadyExists,      // something of that name is there already
  AccessDenied,       // the system refuses (rights, read-only attribute)
  ReadOnly,           // opened for reading only, or on a read-only medium
  NoSpace,            // disk full or quota reached
  InUse,              // another program holds the file
  InvalidName,        // no file or folder can have this name or path
  IoError,            // any other failure of the device
  NotADatabase,       // the signature of a Jet file is missing
  NewerVersion,       // written by an Access newer than 2003
  Encrypted,          // pages are encoded with a key
  PasswordProtected,  // the database has a password
  Truncated,          // the file ends before something that it refers to, or in mid-page
  Damaged,            // contradicts the format; page tells where
  IndexDamaged,       // rows are sound, an index is not
  MissingTable,
  MissingColumn,
  WrongShape,     // the table has too few rows, or a column a type that cannot serve
  Unsupported,    // sound, but beyond what this program writes
  InvalidValue,   // the value does not fit the field
  ChangedOnDisk,  // the file was changed behind our back
  Cancelled,      // the user stopped it
};

// What went wrong and where. Texts are names (file, table, column) and the reason; the sentence for
// the user is made by germanMessage().
struct Error {
  ErrorCode code = ErrorCode::IoError;
  std::string file;     // full path, UTF-8
  std::string subject;  // table, "Table.Column", index or setting concerned
  std::string detail;   // the reason, without full stop; may be empty. The database
                        // engine has a fixed English text for each, in which %1 and
                        // %2 stand for the arguments
  std::vector<std::string> arguments;
  std::optional<std::uint32_t> page;  // page number inside a database
  int systemError = 0;                // errno or GetLastError(), 0 = none

  bool operator==(const Error&) const = default;
};

template <class T>
using Result = tl::expected<T, Error>;
using Failure = tl::unexpected<Error>;

inline Failure fail(Error error) {
  return Failure(std::move(error));
}
Failure fail(ErrorCode code, std::string detail, std::string file = {});

// The whole message for a person: names the file (and table, field, page) and the reason, in
// German. Several lines, "\n" between them.
std::string germanMessage(const Error& error);

// The reason alone ("Der Datenträger ist voll."), one sentence.
std::string germanReason(const Error& error);

// The error's detail alone, the engine's reasons in German.
std::string germanDetail(const Error& error);

// The error in one line for a log: "Damaged: Strom, page 42: row 3 has the wrong place 5 (/a.kwd)".
std::string describe(const Error& error);

// Passes over a failure on purpose. The reason stays in the source, where it can be searched for.
template <class T>
void ignore(const Result<T>&, const char* /*reason*/) {}

}  // namespace base
