#include "app/StrayJournal.h"

#include "app/YearFiles.h"
#include "base/Paths.h"
#include "jet/Database.h"

namespace app {

std::string formerNameOf(base::FileSystem& files, const std::string& folder,
                         const std::string& year) {
  const std::string place = folder.empty() ? folder : base::withSeparator(folder);
  if (files.exists(journalOf(place + year))) return {};
  const std::string ending = journalOf({});
  for (const std::string& name :
       files.list(place.empty() ? "." : place).value_or(std::vector<std::string>())) {
    if (!name.ends_with(ending)) continue;
    std::string former = name.substr(0, name.size() - ending.size());
    if (!isNamedAsYear(former) || files.exists(place + former)) continue;
    const auto owns = jet::Database::ownsJournal(files, place + year, place + name);
    if (owns && *owns) return former;
  }
  return {};
}

base::Result<void> adoptWaitingChange(base::FileSystem& files, const std::string& folder,
                                      const std::string& formerName, const std::string& year) {
  const std::string place = base::withSeparator(folder);
  auto renamed = files.rename(journalOf(place + formerName), journalOf(place + year));
  if (renamed) renamed = files.syncFolder(place);
  if (!renamed) renamed.error().file = place + year;
  return renamed;
}

std::string waitingChangeQuestion(const std::string& formerName, const std::string& year) {
  return year + " hieß offenbar " + formerName +
         ", als das Programm mitten in einer Änderung unterbrochen wurde. Die Änderung liegt noch "
         "im Ordner; ohne sie kann ein Teil der Werte neu und ein Teil alt sein.\n\n"
         "Soll sie jetzt zu Ende geführt werden?";
}

std::string waitingChangeFinding(const std::string& formerName) {
  return "Eine Änderung wurde unterbrochen, als die Datei noch " + formerName +
         " hieß, und ist nicht zu Ende geführt. Öffnen Sie die Datei im Programm: es bietet an, "
         "das nachzuholen.";
}

}  // namespace app
