#include "app/ui/CopyProgressBox.h"

#include <QApplication>

using namespace Qt::Literals::StringLiterals;

namespace app {

CopyProgressBox::CopyProgressBox(QWidget* owner, const QString& title) : box_(owner) {
  box_.setObjectName(u"boxFortschritt"_s);
  box_.setWindowTitle(title);
  box_.setWindowModality(Qt::WindowModal);
  box_.setMinimumDuration(600);
  box_.setAutoReset(false);
  QApplication::setOverrideCursor(Qt::WaitCursor);
}

CopyProgressBox::~CopyProgressBox() {
  QApplication::restoreOverrideCursor();
}

CopyProgress CopyProgressBox::progress() {
  return [this](const std::string& name, std::size_t number, std::size_t count) {
    box_.setMaximum(int(count));
    box_.setLabelText(QString::fromStdString(name));
    box_.setValue(int(number));
    return !box_.wasCanceled();
  };
}

}  // namespace app
