#include "app/ui/FileBoxes.h"

#include "app/RunTimeError.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Icon;

namespace app {

void tellFileError(const dialogs::Services& services, QWidget* owner, const base::Error& error,
                   const QString& title) {
  services.prompts.tell(owner, QString::fromStdString(runTimeErrorText(error)), title,
                        Icon::Critical);
}

bool goesOnWithout(const dialogs::Services& services, QWidget* owner, const base::Error& error) {
  if (error.code == base::ErrorCode::InUse) return true;
  return services.prompts.confirm(owner,
                                  u"Die Sicherheitskopie vorher ließ sich nicht anlegen.\n\n"_s +
                                      QString::fromStdString(base::germanMessage(error)) +
                                      u"\n\nTrotzdem weitermachen?"_s,
                                  u"Sicherheitskopie"_s);
}

bool keepBefore(const dialogs::Services& services, QWidget* owner, CopyMoment moment,
                const std::string& year) {
  const std::string& folder = services.paths.DataFolder;
  if (!services.files.exists(folder + year)) return true;
  SafetyCopies copies(services.files, folder, services.clock);
  const auto kept = copies.keep(moment, year);
  return kept || goesOnWithout(services, owner, kept.error());
}

}  // namespace app
