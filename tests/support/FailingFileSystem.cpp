#include "support/FailingFileSystem.h"

#include <utility>

namespace support {

using base::Failure;
using base::Result;

namespace {

class FailingFile final : public base::File {
 public:
  FailingFile(std::unique_ptr<base::File> inner,
              std::shared_ptr<FailingFileSystem::Counter> counter)
      : inner_(std::move(inner)), counter_(std::move(counter)) {}

  const std::string& path() const override { return inner_->path(); }
  Result<std::uint64_t> size() const override {
    if (auto turn = counter_->next(path()); !turn) return Failure(turn.error());
    return inner_->size();
  }
  Result<void> readAt(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    if (auto turn = counter_->next(path()); !turn) return turn;
    return inner_->readAt(offset, target);
  }
  Result<void> writeAt(std::uint64_t offset, base::ByteSpan bytes) override {
    if (auto turn = counter_->next(path()); !turn) {
      if (counter_->fault->shortWrite)
        base::ignore(inner_->writeAt(offset, bytes.first(bytes.size() / 2)), "fails anyway");
      return turn;
    }
    return inner_->writeAt(offset, bytes);
  }
  Result<void> resize(std::uint64_t size) override {
    if (auto turn = counter_->next(path()); !turn) return turn;
    return inner_->resize(size);
  }
  Result<void> sync() override {
    if (auto turn = counter_->next(path()); !turn) return turn;
    return inner_->sync();
  }

 private:
  std::unique_ptr<base::File> inner_;
  std::shared_ptr<FailingFileSystem::Counter> counter_;
};

}  // namespace

Result<void> FailingFileSystem::Counter::next(const std::string& path) {
  if (fault && !fault->file.empty() && fault->file != path) return {};
  const std::size_t call = calls++;
  if (!fault || call < fault->call || (call >= fault->call + fault->lasts && !fault->forGood))
    return {};
  return base::fail(fault->code, {}, path);
}

FailingFileSystem::FailingFileSystem(base::FileSystem& inner) : inner_(inner) {}

void FailingFileSystem::arm(const Fault& fault) {
  counter_->fault = fault;
  counter_->calls = 0;
}
void FailingFileSystem::disarm() {
  counter_->fault.reset();
  counter_->calls = 0;
}
std::size_t FailingFileSystem::calls() const {
  return counter_->calls;
}
bool FailingFileSystem::struck() const {
  return counter_->fault && counter_->calls > counter_->fault->call;
}

Result<std::unique_ptr<base::File>> FailingFileSystem::open(const std::string& path,
                                                            base::OpenMode mode) {
  if (auto turn = counter_->next(path); !turn) return Failure(turn.error());
  auto file = inner_.open(path, mode);
  if (!file) return file;
  return std::make_unique<FailingFile>(std::move(*file), counter_);
}
Result<base::FileInfo> FailingFileSystem::info(const std::string& path) const {
  if (auto turn = counter_->next(path); !turn) return Failure(turn.error());
  return inner_.info(path);
}
Result<std::vector<std::string>> FailingFileSystem::list(const std::string& folder) const {
  if (auto turn = counter_->next(folder); !turn) return Failure(turn.error());
  return inner_.list(folder);
}
Result<void> FailingFileSystem::remove(const std::string& path) {
  if (auto turn = counter_->next(path); !turn) return turn;
  return inner_.remove(path);
}
Result<void> FailingFileSystem::rename(const std::string& from, const std::string& to) {
  if (auto turn = counter_->next(to); !turn) return turn;
  return inner_.rename(from, to);
}
Result<void> FailingFileSystem::makeFolder(const std::string& path) {
  if (auto turn = counter_->next(path); !turn) return turn;
  return inner_.makeFolder(path);
}
Result<void> FailingFileSystem::syncFolder(const std::string& folder) {
  if (auto turn = counter_->next(folder); !turn) return turn;
  return inner_.syncFolder(folder);
}
Result<void> FailingFileSystem::makeWritable(const std::string& path) {
  if (auto turn = counter_->next(path); !turn) return turn;
  return inner_.makeWritable(path);
}

}  // namespace support
