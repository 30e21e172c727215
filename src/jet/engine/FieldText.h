#pragma once

#include <cstdint>
#include <string>

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/format/Version.h"

namespace jet {

// Texts as they lie in a file, in both directions. Inside the program every text is UTF-8.

struct TextStorage {
  format::TextForm form = format::TextForm::Unicode;
  std::uint16_t codePage = 0;  // CodePage only
  bool compressed = false;     // Unicode only: one byte a character where that is possible
};

// Damaged for half a character; Unsupported for characters of a code page other than 1252.
base::Result<std::string> decodeText(const TextStorage& storage, base::ByteSpan bytes);

// InvalidValue for a character that the code page lacks or that would be misread.
base::Result<base::Bytes> encodeText(const TextStorage& storage, std::string_view text);

}  // namespace jet
