#include "dialogs/LookMenu.h"

#include <QActionGroup>
#include <array>

#include "widgets/Tones.h"
#include "widgets/UserSettings.h"

using namespace Qt::Literals::StringLiterals;
using widgets::Look;

namespace dialogs {
namespace {

struct Choice {
  Look look;
  QString name;  // as it is remembered
  QString caption;
};

const std::array<Choice, 3>& choices() {
  static const std::array<Choice, 3> all = {{{Look::System, u"System"_s, u"Wie das &System"_s},
                                             {Look::Light, u"Hell"_s, u"&Hell"_s},
                                             {Look::Dark, u"Dunkel"_s, u"&Dunkel"_s}}};
  return all;
}

const QString kKey = u"Ansicht"_s;

Look rememberedLook() {
  const QString name = widgets::userSettings().value(kKey).toString();
  for (const Choice& choice : choices())
    if (name == choice.name) return choice.look;
  return Look::System;
}

}  // namespace

LookMenu::LookMenu(QWidget* parent) : QMenu(u"Ans&icht"_s, parent) {
  setObjectName(u"mnuAnsicht"_s);
  auto* group = new QActionGroup(this);
  for (const Choice& choice : choices()) {
    QAction* action = addAction(choice.caption);
    action->setObjectName(u"mnuAnsicht"_s + choice.name);
    action->setCheckable(true);
    group->addAction(action);
    // Chosen perhaps in another window.
    connect(this, &QMenu::aboutToShow, action,
            [action, look = choice.look] { action->setChecked(rememberedLook() == look); });
    connect(action, &QAction::triggered, this, [choice] {
      widgets::userSettings().setValue(kKey, choice.name);
      widgets::showAs(choice.look);
    });
  }
}

void showRememberedLook() {
  if (const Look look = rememberedLook(); look != Look::System) widgets::showAs(look);
}

}  // namespace dialogs
