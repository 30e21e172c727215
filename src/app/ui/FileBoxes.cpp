#include "app/ui/FileBoxes.h"

#include "app/RunTimeError.h"
#include "dialogs/Prompts.h"

using dialogs::Icon;

namespace app {

void tellFileError(const dialogs::Services& services, QWidget* owner, const base::Error& error,
                   const QString& title) {
  services.prompts.tell(owner, QString::fromStdString(runTimeErrorText(error)), title,
                        Icon::Critical);
}

void tellCopyOutcome(const dialogs::Services& services, QWidget* owner,
                     const base::Result<void>& outcome, const CopyTexts& texts) {
  if (outcome)
    services.prompts.tell(owner, texts.done, texts.title, Icon::Information);
  else if (outcome.error().code == base::ErrorCode::Cancelled)
    services.prompts.tell(owner, texts.cancelled, texts.title, Icon::Information);
  else
    tellFileError(services, owner, outcome.error());
}

}  // namespace app
