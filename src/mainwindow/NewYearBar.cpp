#include "mainwindow/NewYearBar.h"

#include "base/Paths.h"
#include "widgets/Utf8.h"

using namespace Qt::Literals::StringLiterals;

namespace mainwindow {

NewYearBar::NewYearBar(QWidget* parent) : Bar(parent) {
  setObjectName(u"fraNeuesJahr"_s);
  setAccessibleName(u"Neues Jahr"_s);
  arrange(lblNeuesJahr, cmdNeuesJahr, cmdNeuesJahrZu);
  lblNeuesJahr->setTextFormat(Qt::PlainText);
  connect(cmdNeuesJahrZu, &QToolButton::clicked, this, &NewYearBar::closeByHand);
}

void NewYearBar::offer(const std::string& path) {
  path_ = path;
  const QString name = widgets::utf8(base::baseName(std::string(base::fileName(path))));
  lblNeuesJahr->setText(name + u" ist angelegt. Eingaben gelten weiter für das geöffnete Jahr."_s);
  cmdNeuesJahr->setText(u"Neues Jahr ö&ffnen"_s);
  cmdNeuesJahr->setAccessibleName(name + u" öffnen"_s);
  cmdNeuesJahr->setToolTip(cmdNeuesJahr->accessibleName());
  want(true);
  announce(lblNeuesJahr);
}

}  // namespace mainwindow
