#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/File.h"

// What the benchmarks share: Google Benchmark runs their works in turns, so that a busy machine
// slows all of them, and medians are compared, so that a single interruption does not count.
namespace bench {

struct Work {
  std::string name;
  std::function<bool()> run;         // false: it could not be done
  std::function<void()> after = {};  // follows each run and is not measured
};

// What the runs of one work came to.
struct Measured {
  double time = 0;    // the median, in milliseconds
  double spread = 0;  // of the single runs, as a part of their mean
};

// In the order given. Nothing when a work could not be done, which is said on the error output.
std::optional<std::vector<Measured>> compare(const std::vector<Work>& works, int repetitions);

// A line that `./run --messen` gathers: "ratio, one edit to two bare syncs: 1.13 (spread 4 %,
// wanted: 1.50)". The spread is the larger one of the two; nothing is wanted where it is 0.
void sayRatio(const std::string& what, const Measured& ours, const Measured& least,
              double wanted = 0);

// Every field of every row of a year's five tables: how many there are, 0 when it cannot be read.
std::size_t readYear(base::FileSystem& files, const std::string& path);

// The path of what lies beside the program; a missing file is named on the error output.
std::optional<std::string> beside(const char* program, const std::string& name);
// A path beside the program for a file that the benchmark makes: a temporary folder may lie in
// memory, where writing costs nothing.
std::string scratch(const char* program, const std::string& name);

}  // namespace bench
