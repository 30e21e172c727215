#pragma once

#include <array>
#include <optional>

#include "base/Bytes.h"
#include "jet/engine/Journal.h"

// The bytes of a journal file: JournalHeader, then per page a JournalRecord, the old image unless
// the page is new, and the new image. Whatever lies behind is left over from a longer journal, but
// for the JournalUndoMark, which stands at the next sector.
namespace jet {

inline constexpr std::array<std::uint8_t, 16> kJournalMagic = {
    'K', 'a', 'l', 'v', 'i', 'r', 'a', ' ', 'j', 'o', 'u', 'r', 'n', 'a', 'l', 0x1A};
// The mark of a finished journal, written over the magic.
inline constexpr std::array<std::uint8_t, 16> kJournalFinished = {};

struct JournalHeader {
  std::array<std::uint8_t, 16> magic = kJournalMagic;
  base::le32 version = std::uint32_t{1};
  base::le32 pageSize;
  base::le32 pageCount;     // records that follow
  base::le32 witnessCount;  // untouched pages that the witness sum was taken of
  base::le64 sizeBefore;    // length of the database before and after the transaction
  base::le64 sizeAfter;
  base::le64 witnessSum;  // of the untouched pages (JournalMatch.h)
  base::le64 bodyLength;  // bytes of all records
  // Over the header up to here and the body, with two seeds: 128 bits. 32 would not do: a journal
  // area holds remains of earlier journals and whatever the disk left there, and taking them for a
  // transaction destroys a sound file.
  base::le64 firstSum;
  base::le64 secondSum;
};
static_assert(sizeof(JournalHeader) == 80);
inline constexpr std::size_t kJournalSummed = 64;  // bytes of the header before the sums

struct JournalRecord {
  base::le32 page;
  base::le32 hasOldImage;  // 1, or 0 for a page beyond the old end of the database
};
static_assert(sizeof(JournalRecord) == 8);

// The transaction was reported as not stored: it is to be taken back, not completed. In a sector of
// its own, so that a write of it that goes wrong leaves the journal as it was. The sums are those
// of the header: no mark of an earlier journal counts.
struct JournalUndoMark {
  std::array<std::uint8_t, 16> magic = {'K', 'a', 'l', 'v', 'i', 'r', 'a', ' ',
                                        'u', 'n', 'd', 'o', 0,   0,   0,   0x1A};
  base::le64 firstSum;
  base::le64 secondSum;
};
static_assert(sizeof(JournalUndoMark) == 32);
inline constexpr std::size_t kJournalSector = 512;

struct JournalContent {
  std::uint32_t pageSize = 0;
  std::uint64_t sizeBefore = 0;
  std::uint64_t sizeAfter = 0;
  std::uint32_t witnessCount = 0;
  std::uint64_t witnessSum = 0;
  PageImages before;
  PageImages after;
  bool undone = false;  // marked so
};

// Without the mark.
base::Bytes encodeJournal(const JournalContent& content);
// The mark for a journal that was encoded so, and where it comes.
struct PlacedUndoMark {
  std::uint64_t offset;
  JournalUndoMark mark;
};
PlacedUndoMark undoMarkFor(base::ByteSpan journal);
// nullopt for anything but a complete, unfinished journal.
std::optional<JournalContent> decodeJournal(base::ByteSpan bytes);

}  // namespace jet
