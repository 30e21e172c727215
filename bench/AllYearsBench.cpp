// All years of a folder, from its listing to the finished table, against opening and reading the
// same files and nothing else. A household keeps thirty of them, an office some hundreds.

#include <cstdio>
#include <filesystem>

#include "Measure.h"
#include "analysis/AllYears.h"
#include "base/Paths.h"

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 21;

// So many copies of a year, taken away at the end.
struct Folder {
  fs::path path;
  std::vector<std::string> years;

  Folder(const fs::path& beside, const fs::path& year, int count)
      : path(beside / ("all-years-" + std::to_string(count))) {
    fs::remove_all(path);
    fs::create_directory(path);
    for (int i = 0; i < count; ++i) {
      const fs::path copy = path / ("Haushalt " + std::to_string(i + 1) + ".kwd");
      fs::copy_file(year, copy);
      years.push_back(base::fromPath(copy));
    }
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code stays;
    fs::remove_all(path, stays);  // one that stays is replaced by the next run
  }
};

bool compare(const fs::path& year, int count, double wantedMilliseconds) {
  const Folder folder(year.parent_path().parent_path(), year, count);
  const auto files = base::makeDiskFileSystem();
  const auto read = [&] {
    for (const std::string& path : folder.years)
      if (bench::readYear(*files, path) == 0) return false;
    return true;
  };
  const auto table = [&] {
    const auto years = analysis::readFolder(*files, base::fromPath(folder.path));
    return years && years->years.size() == folder.years.size() &&
           analysis::tableOf(analysis::figuresOf(*years)).rows() > count;
  };
  const std::string name = std::to_string(count) + " years";
  const auto times =
      bench::compare({{name + " read", read}, {name + " as a table", table}}, kRounds);
  if (!times) return false;
  bench::sayRatio(name + " as a table to reading them", times->at(1), times->at(0));
  bench::sayRatio(name + " as a table to what may be noticed", times->at(1), {wantedMilliseconds},
                  1);
  return true;
}

}  // namespace

int main(int, char** argv) {
  const auto year = bench::beside(argv[0], "beispiel/Verbrauch2025.kwd");
  if (!year) return 1;
  return compare(base::toPath(*year), 30, 30) && compare(base::toPath(*year), 500, 400) ? 0 : 1;
}
