// Writes the empty year database that new years are copied from.
#include <iostream>

#include "base/File.h"
#include "jet/Creator.h"
#include "yearbook/Schema.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "maketemplate FILE\n";
    return 2;
  }
  const auto bytes = jet::createDatabase(yearbook::templateTables());
  auto written = bytes ? base::makeDiskFileSystem()->replaceFile(argv[1], *bytes)
                       : base::Result<void>(base::Failure(bytes.error()));
  if (written) return 0;
  std::cerr << base::germanMessage(written.error()) << '\n';
  return 1;
}
