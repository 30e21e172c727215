#include "app/ui/RecentYears.h"

#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;

namespace app {
namespace {

constexpr auto kKey = "zuletzt";
constexpr int kMost = 9;  // as many as have a digit

}  // namespace

QStringList recentYears() {
  return widgets::userSettings().value(kKey).toStringList();
}

void rememberYear(const QString& path) {
  QStringList years = recentYears();
  years.removeAll(path);
  years.prepend(path);
  widgets::userSettings().setValue(
      kKey, QStringList(years.first(kMost < years.size() ? kMost : years.size())));
}

}  // namespace app
