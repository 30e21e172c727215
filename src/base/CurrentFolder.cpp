#include "base/CurrentFolder.h"

#include "base/Paths.h"

namespace base {

Result<void> makeCurrent(const std::string& folder) {
  std::error_code error;
  std::filesystem::current_path(toPath(folder), error);
  if (!error) return {};
  Error failure;
  failure.code =
      error == std::errc::no_such_file_or_directory ? ErrorCode::NotFound : ErrorCode::AccessDenied;
  failure.file = folder;
  failure.systemError = error.value();
  return fail(std::move(failure));
}

}  // namespace base
