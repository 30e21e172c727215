// One edit, durably stored: against writing one page and a small header twice with two syncs (once
// to a journal, once in place), the least that any engine with a journal does.

#include <cstdio>

#include "Measure.h"
#include "base/Bytes.h"
#include "base/File.h"
#include "jet/Database.h"

namespace {

constexpr int kRounds = 301;

struct BareFiles {
  static constexpr std::size_t kPage = 4096;
  static constexpr std::size_t kHeader = 64;
  std::unique_ptr<base::File> journal, data;
  base::Bytes bytes = base::Bytes(kPage + kHeader, 7);

  bool writeTwice() {
    ++bytes[9];
    return journal->writeAt(0, bytes) && journal->sync() &&
           data->writeAt(20 * kPage, base::ByteSpan(bytes).first(kPage)) && data->sync();
  }
};

}  // namespace

int main(int, char** argv) {
  const auto year = bench::beside(argv[0], "beispiel/Verbrauch2025.kwd");
  if (!year) return 1;
  const auto files = base::makeDiskFileSystem();
  const std::string copy = bench::scratch(argv[0], "commit-bench.kwd");
  const std::string paths[] = {bench::scratch(argv[0], "commit-bench.a"),
                               bench::scratch(argv[0], "commit-bench.b")};
  auto journal = files->open(paths[0], base::OpenMode::Create);
  auto data = files->open(paths[1], base::OpenMode::Create);
  if (!journal || !data || !(*data)->resize(50 * BareFiles::kPage) ||
      !files->copyFile(*year, copy)) {
    std::fprintf(stderr, "%s cannot be written\n", copy.c_str());
    return 1;
  }
  std::optional<std::vector<bench::Measured>> times;
  {
    BareFiles bare{std::move(*journal), std::move(*data)};
    auto database = jet::Database::open(*files, copy);
    if (!database) return 1;
    auto rows = database->openTable("Strom");
    if (!rows) return 1;
    const auto column = rows->columnIndex("ZTagStrom");
    double value = 1;
    times = bench::compare({{"two bare syncs", [&] { return bare.writeTwice(); }},
                            {"one field stored",
                             [&] {
                               return database->begin() && rows->set(3, *column, value += 1) &&
                                      database->commit();
                             }}},
                           kRounds);
  }
  for (const std::string& path : {copy, paths[0], paths[1]})
    base::ignore(files->remove(path), "a copy that stays is overwritten by the next run");
  if (!times) return 1;
  bench::sayRatio("one field stored to two bare syncs", times->at(1), times->at(0), 1.5);
  return 0;
}
