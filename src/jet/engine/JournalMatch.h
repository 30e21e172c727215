#pragma once

#include "base/File.h"
#include "jet/engine/JournalFormat.h"

namespace jet {

// Is this journal about this file?
//
// After a crash in the middle of writing pages in place, the touched pages hold old and new sectors
// side by side and perhaps rubble, and the journal must be applied. A file that somebody has put in
// the place of the database meanwhile (a restored backup), or that another program has edited, must
// be left alone. They are told apart like this:
//
// 1. The length lies between the length before and the length after the transaction.
// 2. The witnesses, pages that the transaction did not touch, are as they were: no crash of ours
//    changes them. In a file of up to 64 pages, that is every year file, all untouched
//    pages are witnesses; in a larger one 32 of them, spread evenly, the header page included.
// 3. Each sector of a touched page consists of bytes of its old and new image, or it is rubble: one
//    value throughout, or without likeness to either image. A sector that is neither, but
//    resembles them, has been edited by somebody else; so has a page whose first sector still
//    bears the page's type and owner.
bool matches(const JournalContent& journal, const base::File& database, std::uint64_t size,
             base::Result<void>& readError);

// The sum of the witnesses, and how many there are. size: of the database before the transaction.
struct Witnesses {
  std::uint32_t count = 0;
  std::uint64_t sum = 0;
};
base::Result<Witnesses> sumWitnesses(const base::File& database, std::uint64_t size,
                                     std::uint32_t pageSize, const PageImages& touched);

}  // namespace jet
