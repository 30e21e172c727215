#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "base/Bytes.h"
#include "base/Result.h"

namespace jet {

// What every part of the engine speaks of.
using base::Bytes;
using base::ByteSpan;
using base::ErrorCode;
using base::Failure;
using base::Result;

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
Failure refuse(ErrorCode code, const char* reason, const Arguments&... arguments) {
  Failure failure = base::fail(code, reason);
  failure.value().arguments = {argument(arguments)...};
  return failure;
}

// For errors of calls that do not know the page or the table: fills in what is missing.
inline Failure at(std::uint32_t page, base::Error error) {
  if (!error.page) error.page = page;
  return Failure(std::move(error));
}
inline Failure at(std::uint32_t page, Failure failure) {
  return at(page, std::move(failure.value()));
}
inline Failure about(const std::string& subject, base::Error error) {
  if (error.subject.empty()) error.subject = subject;
  return Failure(std::move(error));
}
inline Failure about(const std::string& subject, Failure failure) {
  return about(subject, std::move(failure.value()));
}

// A contradiction in the file, or only in an index, with the page that shows it.
template <class... Arguments>
Failure damaged(std::uint32_t page, const char* reason, const Arguments&... arguments) {
  return at(page, refuse(ErrorCode::Damaged, reason, arguments...));
}
template <class... Arguments>
Failure indexDamaged(std::uint32_t page, const char* reason, const Arguments&... arguments) {
  return at(page, refuse(ErrorCode::IndexDamaged, reason, arguments...));
}

}  // namespace jet
