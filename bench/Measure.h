#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

// What the benchmarks share: Google Benchmark runs their works in turns, so that a busy machine
// slows all of them, and medians are compared, so that a single interruption does not count.
namespace bench {

struct Work {
  std::string name;
  std::function<bool()> run;  // false: it could not be done
};

// Each work's median time, in the order given and in one unit. Nothing when a work could not be
// done, which is said on the error output.
std::optional<std::vector<double>> compare(const std::vector<Work>& works, int repetitions);

// The path of what lies beside the program; a missing file is named on the error output.
std::optional<std::string> beside(const char* program, const std::string& name);
// A path beside the program for a file that the benchmark makes: a temporary folder may lie in
// memory, where writing costs nothing.
std::string scratch(const char* program, const std::string& name);

}  // namespace bench
