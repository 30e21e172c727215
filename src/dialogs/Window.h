#pragma once

#include <QDialog>
#include <QPushButton>

#include "dialogs/Services.h"

namespace dialogs {

// What all windows share in which something is entered or looked at. Enter presses the button that
// has the focus, else the window's main button (setDefault), and goes to the next control where
// there is none; no other button is pressed by surprise. Escape, the close button and the frame
// close alike, by reject(). F1 shows the window's page of the manual. It opens where it was last,
// and what is too large for a small screen scrolls.
class Window : public QDialog {
  Q_OBJECT
 protected:
  Window(const QString& name, const QString& caption, const Services& services, QWidget* parent);

  void showHelp();

  // Captions the button that closes the window, and lets it.
  void makeCloseButton(QPushButton* button,
                       const QString& caption = QStringLiteral("Fenster schließen"));
  using QDialog::setTabOrder;
  // Tab goes through the controls in this order (later versions of Qt have this).
  static void setTabOrder(std::initializer_list<QWidget*> controls);
  // The data folder becomes the current folder, as far as it can.
  void enterDataFolder() const;

  void setVisible(bool visible) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  const Services& services_;

 private:
  void letTallContentScroll();

  bool prepared_ = false;
};

}  // namespace dialogs
