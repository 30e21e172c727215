#include "dialogs/SaveAs.h"

#include "base/Paths.h"
#include "dialogs/Prompts.h"
#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;

namespace dialogs {
namespace {

const QString kFolderKey = u"Ordner/Ausgabe"_s;

std::string firstFolder(const Services& services) {
  const std::string last = widgets::userSettings().value(kFolderKey).toString().toStdString();
  return !last.empty() && services.files.folderExists(last) ? last : services.paths.DataFolder;
}

}  // namespace

QString saveAs(const SaveRequest& request, const QByteArray& content, const Services& services,
               QWidget* owner) {
  const QString proposed = QString::fromStdString(firstFolder(services)) + request.name;
  QString path =
      services.prompts.saveFile(owner, request.filter, request.title, proposed, request.extension);
  if (path.isEmpty()) return {};
  const std::string target = path.toStdString();
  const auto saved = services.files.replaceFile(
      target, base::asBytes({content.constData(), static_cast<std::size_t>(content.size())}));
  if (!saved) {
    services.prompts.tell(owner, QString::fromStdString(base::germanMessage(saved.error())),
                          request.title, Icon::Warning);
    return {};
  }
  widgets::userSettings().setValue(kFolderKey,
                                   QString::fromStdString(std::string(base::folderOf(target))));
  return path;
}

}  // namespace dialogs
