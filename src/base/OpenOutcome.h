#pragma once

#include "base/Result.h"

namespace base {

// The detail of an error after which nobody knows whether a change is stored: the next opening
// shows it.
inline constexpr const char* kOutcomeOpen = "the outcome is open until the file is opened anew";

inline bool outcomeIsOpen(const Error& error) {
  return error.detail == kOutcomeOpen;
}

}  // namespace base
