#include "base/Result.h"

namespace base {

Failure fail(ErrorCode code, std::string detail, std::string file) {
  Error error;
  error.code = code;
  error.detail = std::move(detail);
  error.file = std::move(file);
  return Failure(std::move(error));
}

std::string germanMessage(const Error& error) {
  if (error.file.empty()) return germanReason(error);
  // Folders end with the separator.
  const bool folder = error.file.back() == '/' || error.file.back() == '\\';
  return (folder ? "Ordner: " : "Datei: ") + error.file + "\n" + germanReason(error);
}

}  // namespace base
