#pragma once

#include "base/Bytes.h"

namespace support {

// The bytes of a new year database, made once.
const base::Bytes& emptyYear();

}  // namespace support
