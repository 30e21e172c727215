#pragma once

#include <cstdint>
#include <string>

#include "base/Result.h"

namespace jet {

// A contradiction in the file, with the page that shows it.
inline base::Failure damaged(std::uint32_t page, std::string detail) {
  base::Error error;
  error.code = base::ErrorCode::Damaged;
  error.detail = std::move(detail);
  error.page = page;
  return base::Failure(std::move(error));
}

// The same for errors of calls that do not know the page or the table: fills in what is missing.
inline base::Failure at(std::uint32_t page, base::Error error) {
  if (!error.page) error.page = page;
  return base::Failure(std::move(error));
}
inline base::Failure about(const std::string& subject, base::Error error) {
  if (error.subject.empty()) error.subject = subject;
  return base::Failure(std::move(error));
}

}  // namespace jet
