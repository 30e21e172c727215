#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "base/Result.h"

namespace jet {

// What an error speaks of, for %1, %2 in its reason.
inline std::string argument(std::string text) {
  return text;
}
template <class Number>
requires std::is_integral_v<Number> std::string argument(Number number) {
  return std::to_string(number);
}

// An error with its reason, a fixed English text; what stands in it for %1, %2 are the arguments.
template <class... Arguments>
base::Failure refuse(base::ErrorCode code, const char* reason, const Arguments&... arguments) {
  base::Failure failure = base::fail(code, reason);
  failure.value().arguments = {argument(arguments)...};
  return failure;
}

// For errors of calls that do not know the page or the table: fills in what is missing.
inline base::Failure at(std::uint32_t page, base::Error error) {
  if (!error.page) error.page = page;
  return base::Failure(std::move(error));
}
inline base::Failure at(std::uint32_t page, base::Failure failure) {
  return at(page, std::move(failure.value()));
}
inline base::Failure about(const std::string& subject, base::Error error) {
  if (error.subject.empty()) error.subject = subject;
  return base::Failure(std::move(error));
}
inline base::Failure about(const std::string& subject, base::Failure failure) {
  return about(subject, std::move(failure.value()));
}

// A contradiction in the file, or only in an index, with the page that shows it.
template <class... Arguments>
base::Failure damaged(std::uint32_t page, const char* reason, const Arguments&... arguments) {
  return at(page, refuse(base::ErrorCode::Damaged, reason, arguments...));
}
template <class... Arguments>
base::Failure indexDamaged(std::uint32_t page, const char* reason, const Arguments&... arguments) {
  return at(page, refuse(base::ErrorCode::IndexDamaged, reason, arguments...));
}

}  // namespace jet
