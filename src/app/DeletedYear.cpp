#include "app/DeletedYear.h"

#include "app/Backup.h"
#include "app/YearFiles.h"
#include "base/Paths.h"

namespace app {
namespace {

// "a", "a und b", "a, b und c"
std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i)
    text += (i == 0 ? "" : i + 1 == names.size() ? " und " : ", ") + names[i];
  return text;
}

}  // namespace

base::Result<std::string> keepBeforeDeleting(base::FileSystem& files, SafetyCopies& copies,
                                             const std::string& dataFolder,
                                             const std::string& year) {
  auto also = deletedWith(files, dataFolder, year);
  if (!also) return base::Failure(also.error());
  const auto sides = listFiles(files, dataFolder, kSideExtension);
  if (!sides) return base::Failure(sides.error());
  const auto years = filesWithExtension(files, dataFolder, kYearExtension);
  for (const std::string& owner : otherOwners(*also, years, year)) {
    // One that is open elsewhere or cannot be read stays where it is; only its side files go.
    if (!completeWaitingJournal(files, base::withSeparator(dataFolder) + owner)) continue;
    if (!files.open(base::withSeparator(dataFolder) + owner, base::OpenMode::Read)) continue;
    also->push_back(owner);
    const std::vector<std::string> own = sideFilesOf(owner, *sides);
    also->insert(also->end(), own.begin(), own.end());
  }
  return copies.keep(CopyMoment::Deleting, year, *also);
}

std::string deletionReport(const std::string& year, const std::vector<std::string>& sideFiles,
                           const std::vector<std::string>& otherOwners, const std::string& copy) {
  std::vector<std::string> gone = sideFiles;
  gone.insert(gone.begin(), year);
  std::string text = "Gelöscht: " + listed(gone) + ".";
  for (const std::string& owner : otherOwners) {
    const std::vector<std::string> own = sideFilesOf(owner, sideFiles);
    text += " " + listed(own) + (own.size() == 1 ? " gehörte zu " : " gehörten zu ") + owner + ".";
  }
  if (copy.empty()) return text + " Es gibt keine Sicherheitskopie davon.";
  return text + " Kopie: " + copy;
}

}  // namespace app
