#include "support/TemporaryFolder.h"

#include <filesystem>
#include <random>

#include "base/Paths.h"

namespace support {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  for (;;) {
    const auto folder = std::filesystem::temp_directory_path() /
                        ("kalvira-test-" + std::to_string(random()) + std::to_string(random()));
    if (!std::filesystem::create_directory(folder)) continue;
    path_ = base::withSeparator(base::fromPath(folder));
    return;
  }
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code failure;
  std::filesystem::remove_all(base::toPath(path_), failure);
}

std::string TemporaryFolder::operator/(const std::string& name) const {
  return path_ + base::fromPath(base::toPath(name).make_preferred());
}

}  // namespace support
