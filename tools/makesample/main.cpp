// Makes the sample household's two years, with their side files, from the empty year database.
#include <iostream>

#include "SampleYear.h"
#include "base/Paths.h"

namespace {

base::Result<void> run(const std::string& emptyYear, const std::string& folder) {
  const auto files = base::makeDiskFileSystem();
  const auto bytes = files->readText(emptyYear);
  if (!bytes) return base::Failure(bytes.error());
  if (!files->folderExists(folder))
    if (auto made = files->makeFolder(folder); !made) return made;
  return sample::makeBoth(*files, base::withSeparator(folder), base::asBytes(*bytes));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "makesample EMPTY-YEAR FOLDER\n";
    return 2;
  }
  const auto done = run(argv[1], argv[2]);
  if (done) return 0;
  std::cerr << base::germanMessage(done.error()) << '\n';
  return 1;
}
