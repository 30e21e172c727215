#include "jet/engine/JournalMatch.h"

#include <algorithm>

#include "jet/engine/Checksum.h"

namespace jet {
namespace {

using base::Failure;
using base::Result;

constexpr std::size_t kSector = 512;
constexpr std::uint64_t kSeed = 0x57697474657265U;
constexpr std::uint32_t kAllWitnesses = 64;
constexpr std::uint32_t kSomeWitnesses = 32;
constexpr std::size_t kPagesPerRead = 8;  // few calls, and a buffer that stays in the cache

std::vector<std::uint32_t> witnessPages(std::uint32_t pages, const PageImages& touched) {
  std::vector<std::uint32_t> result;
  const std::uint32_t wanted = pages <= kAllWitnesses ? pages : kSomeWitnesses;
  for (std::uint32_t i = 0; i < wanted; ++i) {
    const auto page = static_cast<std::uint32_t>(std::uint64_t{i} * pages / wanted);
    if (!touched.contains(page)) result.push_back(page);
  }
  return result;
}

// Of a sector that is not made of old and new bytes: does it look like an edited one? Only bytes
// other than zero say something, and too few say nothing.
bool resembles(base::ByteSpan sector, base::ByteSpan before, base::ByteSpan after) {
  constexpr std::size_t kFewest = 32;
  const auto different = [&](std::uint8_t byte) { return byte != sector.front(); };
  if (std::none_of(sector.begin(), sector.end(), different)) return false;
  std::size_t telling = 0;
  std::size_t alike = 0;
  for (std::size_t i = 0; i < sector.size(); ++i) {
    if (before[i] == 0 && after[i] == 0) continue;
    ++telling;
    alike += sector[i] == before[i] || sector[i] == after[i];
  }
  return telling >= kFewest && alike * 4 > telling;
}

bool hasHeaderOf(base::ByteSpan sector, base::ByteSpan image) {
  constexpr std::array<std::size_t, 6> kTypeAndOwner = {0, 1, 4, 5, 6, 7};
  return std::all_of(kTypeAndOwner.begin(), kTypeAndOwner.end(),
                     [&](std::size_t i) { return sector[i] == image[i]; });
}

bool edited(base::ByteSpan page, base::ByteSpan before, base::ByteSpan after) {
  for (std::size_t start = 0; start < page.size(); start += kSector) {
    const std::size_t length = std::min(kSector, page.size() - start);
    const auto sector = page.subspan(start, length);
    const auto old = before.subspan(start, length);
    const auto fresh = after.subspan(start, length);
    bool ours = true;
    for (std::size_t i = 0; i < length; ++i)
      ours = ours && (sector[i] == old[i] || sector[i] == fresh[i]);
    if (ours) continue;
    if (resembles(sector, old, fresh)) return true;
    if (start == 0 && (hasHeaderOf(sector, old) || hasHeaderOf(sector, fresh))) return true;
  }
  return false;
}

}  // namespace

Result<Witnesses> sumWitnesses(const base::File& database, std::uint64_t size,
                               std::uint32_t pageSize, const PageImages& touched) {
  const auto pages = static_cast<std::uint32_t>(size / pageSize);
  const auto chosen = witnessPages(pages, touched);
  Checksum sum(kSeed);
  base::Bytes images(kPagesPerRead * pageSize);
  for (std::size_t i = 0; i < chosen.size();) {
    std::size_t run = 1;
    while (run < kPagesPerRead && i + run < chosen.size() && chosen[i + run] == chosen[i] + run)
      ++run;
    const std::span<std::uint8_t> part(images.data(), run * pageSize);
    if (auto read = database.readAt(std::uint64_t{chosen[i]} * pageSize, part); !read)
      return Failure(read.error());
    sum.add(chosen[i]).add(part);
    i += run;
  }
  return Witnesses{static_cast<std::uint32_t>(chosen.size()), sum.value()};
}

bool matches(const JournalContent& journal, const base::File& database, std::uint64_t size,
             Result<void>& readError) {
  if (size < journal.sizeBefore || size > journal.sizeAfter) return false;
  const auto witnesses =
      sumWitnesses(database, journal.sizeBefore, journal.pageSize, journal.after);
  if (!witnesses) {
    readError = Failure(witnesses.error());
    return false;
  }
  if (witnesses->count != journal.witnessCount || witnesses->sum != journal.witnessSum)
    return false;
  base::Bytes page(journal.pageSize);
  for (const auto& [number, before] : journal.before) {
    readError = database.readAt(std::uint64_t{number} * journal.pageSize, page);
    if (!readError || edited(page, before, journal.after.at(number))) return false;
  }
  return true;
}

}  // namespace jet
