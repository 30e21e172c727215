#include "Measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "base/Paths.h"

namespace bench {
namespace {

std::filesystem::path folderOf(const char* program) {
  return std::filesystem::absolute(base::toPath(program)).parent_path();
}

}  // namespace

double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

double millisecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

std::optional<std::vector<double>> compare(const std::vector<Work>& works, int rounds) {
  std::vector<std::vector<double>> times(works.size());
  for (int round = -1; round < rounds; ++round)
    for (std::size_t i = 0; i < works.size(); ++i) {
      bool done = false;
      const double time = millisecondsOf([&] { done = works[i].run(); });
      if (!done) {
        std::fprintf(stderr, "%s: could not be done\n", works[i].name.c_str());
        return std::nullopt;
      }
      if (round >= 0) times[i].push_back(time);
    }
  std::vector<double> medians;
  for (std::size_t i = 0; i < works.size(); ++i) {
    medians.push_back(median(times[i]));
    std::printf("%-40s %9.3f ms\n", works[i].name.c_str(), medians.back());
  }
  return medians;
}

std::optional<std::string> beside(const char* program, const std::string& name) {
  const std::filesystem::path path = folderOf(program) / base::toPath(name);
  std::error_code unreadable;
  if (std::filesystem::exists(path, unreadable)) return base::fromPath(path);
  std::fprintf(stderr, "%s is missing; the build target \"years\" makes it.\n",
               base::fromPath(path).c_str());
  return std::nullopt;
}

std::string scratch(const char* program, const std::string& name) {
  return base::fromPath(folderOf(program) / base::toPath(name));
}

}  // namespace bench
