#include "dialogs/HelpEntries.h"

using namespace Qt::Literals::StringLiterals;

namespace dialogs {
namespace {

QAction* entry(QWidget* owner, const char* name, const QString& text) {
  auto* action = new QAction(text, owner);
  action->setObjectName(QLatin1String(name));
  return action;
}

}  // namespace

HelpEntries::HelpEntries(QWidget* owner, Navigator& navigator, std::function<QString()> window)
    : mnuHandbuch(entry(owner, "mnuHandbuch", u"Hand&buch"_s)),
      mnuTastenkuerzel(entry(owner, "mnuTastenkuerzel", u"&Tastenkürzel"_s)),
      mnuBeispieljahr(entry(owner, "mnuBeispieljahr", u"Beispiel&jahr ansehen"_s)),
      mnuUeber(entry(owner, "mnuUeber", u"&Über Kalvira…"_s)) {
  mnuHandbuch->setShortcut(QKeySequence::HelpContents);
  QObject::connect(mnuHandbuch, &QAction::triggered, owner,
                   [&navigator, window = std::move(window)] { navigator.showManual(window()); });
  QObject::connect(mnuTastenkuerzel, &QAction::triggered, owner,
                   [&navigator] { navigator.showManual(u"Tastenkuerzel"_s); });
  QObject::connect(mnuUeber, &QAction::triggered, owner, [&navigator] { navigator.showAbout(); });
}

void HelpEntries::addTo(QMenu* menu) const {
  menu->addActions({mnuHandbuch, mnuTastenkuerzel});
  menu->addSeparator()->setObjectName(u"sepBeispieljahr"_s);
  menu->addActions({mnuBeispieljahr, mnuUeber});
}

}  // namespace dialogs
