#pragma once

#include <vector>

#include "base/Result.h"
#include "jet/Value.h"

namespace jet {

// The bytes by which an index orders its rows. Byte order of keys = order of the index.

// How texts are ordered; only these two orders are written. Other sort orders: Unsupported.
enum class TextOrder {
  General3,  // Jet 3, language 0x0409, code page 1252
  General4,  // Jet 4, language 0x0409, version 0
  Unknown,
};

struct KeyPart {
  ColumnType type;
  bool ascending;
  TextOrder textOrder;  // for Text and Memo
};

// Flag byte and value of one column; Null is a flag alone. Unsupported for a text beyond what the
// order's tables cover, an unknown order, or a type that cannot be indexed.
base::Result<base::Bytes> encodeKeyPart(const KeyPart& part, const Value& value);

// All columns of an index in turn.
base::Result<base::Bytes> encodeKey(const std::vector<KeyPart>& parts,
                                    const std::vector<Value>& values);

}  // namespace jet
