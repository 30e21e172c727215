#pragma once

#include "jet/Pager.h"
#include "jet/TableDef.h"

namespace jet {

// The bytes behind a memo or OLE field, whose row holds only a head (and short values). Every chain
// is bounded by the length that its head tells. Errors carry the page.
base::Result<base::Bytes> readLongValue(const Pager& pager, base::ByteSpan field);

}  // namespace jet
