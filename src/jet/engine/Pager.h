#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "base/File.h"
#include "jet/engine/HeaderPage.h"
#include "jet/engine/Journal.h"

namespace jet {

// A page's content as it reads after decryption. Holding it keeps the bytes alive; a page that is
// edited afterwards may or may not show the change.
class PageRef {
 public:
  PageRef() = default;
  PageRef(std::shared_ptr<const std::uint8_t[]> bytes, std::size_t size)
      : bytes_(std::move(bytes)), size_(size) {}
  explicit PageRef(const std::shared_ptr<base::Bytes>& bytes)
      : bytes_(bytes, bytes->data()), size_(bytes->size()) {}

  base::ByteSpan operator*() const { return {bytes_.get(), size_}; }

 private:
  std::shared_ptr<const std::uint8_t[]> bytes_;
  std::size_t size_ = 0;
};

// The file as numbered pages: reading through a bounded cache, changes in memory until they are
// committed as a whole. Knows the kinds of pages, not what is in them.
//
// Errors carry page and file.
class Pager {
 public:
  struct Options {
    bool readOnly = false;
    bool acceptPassword = false;
    bool acceptEncryption = false;
  };
  // Completes or discards a waiting journal, or reads through it where the file is not to be
  // written. A file that can only be read opens for reading; readOnlyReason() says why.
  static base::Result<std::unique_ptr<Pager>> open(base::FileSystem& files, const std::string& path,
                                                   Options options);

  // A file in the making: its header page, to which others are appended. In memory only, within a
  // transaction that is not committed; content() has the bytes.
  static std::unique_ptr<Pager> ofNewFile(const format::Version& version);
  base::Bytes content() const;

  const std::string& path() const { return path_; }
  const format::Version& version() const { return *header_.version; }
  const std::optional<base::Error>& readOnlyReason() const { return readOnlyReason_; }
  std::uint32_t pageCount() const { return pageCount_; }

  // Why nothing can be stored at present: readOnlyReason(), or what the folder or the last commit
  // says.
  const std::optional<base::Error>& obstacle() const {
    return readOnlyReason_ ? readOnlyReason_ : obstacle_;
  }
  // Looks again, as when a medium may have come back: opens the file anew if need be, provided that
  // it holds what it held. False while the obstacle is there. Not within a transaction.
  bool tryWriting();

  // All bytes as they are stored.
  base::Result<base::Bytes> image() const;
  // Truncated for a page beyond the file's end.
  base::Result<PageRef> page(std::uint32_t number) const;
  // The same, and Damaged unless the page is of this kind.
  base::Result<PageRef> page(std::uint32_t number, format::PageKind kind) const;

  // The page for writing, valid until the next begin, commit or rollback.
  base::Result<std::span<std::uint8_t>> edit(std::uint32_t number);
  // A new page of zeros behind the last one. NoSpace when the file would outgrow its format.
  base::Result<std::uint32_t> append();

  base::Result<void> begin();
  // The journal's promise: afterwards the file holds the new state or the old one. needsReopen()
  // tells that the journal has to bring it there first.
  base::Result<void> commit();
  void rollback();
  bool inTransaction() const { return inTransaction_; }
  bool needsReopen() const { return needsReopen_; }

  // Changes since its making are undone unless keep() was called: a change of several pages
  // happens whole or not at all within a transaction.
  class Step {
   public:
    explicit Step(Pager& pager);
    ~Step();
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;
    void keep() { kept_ = true; }

   private:
    friend class Pager;
    Pager& pager_;
    std::uint32_t pageCount_;
    std::map<std::uint32_t, std::optional<base::Bytes>> before_;
    bool kept_ = false;
  };

  // Adds the file to an error.
  base::Failure located(base::Error error) const;
  base::Failure located(base::Failure failure) const { return located(std::move(failure.value())); }

 private:
  using Images = std::map<std::uint32_t, std::shared_ptr<base::Bytes>>;

  Pager(base::FileSystem* files, std::string path);
  base::Result<void> openFile(Options options);
  base::Result<void> checkNotShared() const;
  base::Result<void> openForWriting();
  base::Result<void> openForReading();
  base::Result<void> readHeader(Options options);
  base::Result<void> measure();
  void decode(std::uint32_t number, std::span<std::uint8_t> bytes) const;
  base::Result<PageRef> readFromDisk(std::uint32_t number) const;
  base::Result<void> checkFileOnDisk() const;
  base::Result<void> checkFolder() const;
  base::Result<void> openAgain();
  base::Result<void> checkUnchanged(const base::File& file) const;
  base::Result<void> refused(base::Result<void> result);
  PageImages changedImages() const;
  PageImages originalImages() const;

  base::FileSystem* files_;  // nullptr: a file in the making
  std::string path_;
  std::unique_ptr<base::File> file_;
  std::optional<Journal> journal_;
  HeaderPage header_;
  std::optional<base::Error> readOnlyReason_;
  std::optional<base::Error> obstacle_;
  bool forReading_ = false;  // and for nothing else, as asked
  std::uint32_t pageCount_ = 0;
  std::uint32_t storedPageCount_ = 0;  // on disk
  Images overlay_;  // newer than the disk: a waiting journal's pages, or a commit cut short
  Images dirty_;
  mutable std::unordered_map<std::uint32_t, PageRef> cache_;
  std::map<std::uint32_t, PageRef> originals_;  // of dirty pages, as they were read
  Step* step_ = nullptr;
  bool inTransaction_ = false;
  bool needsReopen_ = false;
};

}  // namespace jet
