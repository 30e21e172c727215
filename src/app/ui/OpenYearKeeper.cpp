#include "app/ui/OpenYearKeeper.h"

#include "app/SafetyCopies.h"
#include "app/ui/FileBoxes.h"
#include "base/Paths.h"

using dialogs::Harm;

namespace app {
namespace {

CopyMoment momentBefore(Harm harm) {
  switch (harm) {
    case Harm::Clearing:
      return CopyMoment::Clearing;
    case Harm::DeletingReadings:
      return CopyMoment::DeletingReadings;
    case Harm::ShiftingStart:
      break;
  }
  return CopyMoment::ShiftingStart;
}

}  // namespace

bool OpenYearKeeper::keepBefore(Harm harm, QWidget* owner, const std::string& yearPath,
                                const base::Result<base::Bytes>& database) {
  if (!database) return goesOnWithout(*services_, owner, database.error());
  SafetyCopies copies(services_->files, std::string(base::folderOf(yearPath)), services_->clock);
  const auto kept =
      copies.keepOpen(momentBefore(harm), std::string(base::fileName(yearPath)), *database);
  return kept || goesOnWithout(*services_, owner, kept.error());
}

}  // namespace app
