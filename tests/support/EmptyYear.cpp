#include "support/EmptyYear.h"

#include "jet/Creator.h"
#include "yearbook/Schema.h"

namespace support {

const base::Bytes& emptyYear() {
  static const base::Bytes bytes = jet::createDatabase(yearbook::templateTables()).value();
  return bytes;
}

}  // namespace support
