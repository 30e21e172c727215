#pragma once

#include "base/Bytes.h"
#include "base/Result.h"
#include "jet/Value.h"
#include "jet/engine/TableDef.h"

namespace jet {

// One value as it lies in a row, in both directions, for every type but Boolean (a bit of the null
// mask) and long values (LongValue).

// Bytes of a value; nullopt for types of varying length, and for Boolean.
std::optional<std::size_t> fixedSizeOf(ColumnType type);

// Bytes of a type that is not known come out as they are. Damaged when the length is wrong.
base::Result<Value> decodeField(const ColumnDef& column, base::ByteSpan bytes);

// The value is not Null. InvalidValue when it is of another kind, does not fit or is too long.
base::Result<base::Bytes> encodeField(const ColumnDef& column, const Value& value);

}  // namespace jet
