#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace dialogs {

// A window that explains with a picture and a few lines below it; closes on request.
class HelpWindow : public QWidget {
  Q_OBJECT
 public:
  // A second call brings the same window to the front.
  void showInFront();

 Q_SIGNALS:
  // The user has closed it; not when it goes with the window that it belongs to.
  void closed();

 protected:
  struct Content {
    const char* name;  // of the window
    QString caption;
    QString picture;      // see widgets::helpPicture()
    QString description;  // what the picture shows, for those who cannot see it
    QString text;
  };
  HelpWindow(const Content& content, QWidget* parent);
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
};

}  // namespace dialogs

// General help.
class frmHilfe final : public dialogs::HelpWindow {
  Q_OBJECT
 public:
  explicit frmHilfe(QWidget* parent = nullptr);
};

// Help on meter changes.
class frmHilfeZaehlerWechs final : public dialogs::HelpWindow {
  Q_OBJECT
 public:
  explicit frmHilfeZaehlerWechs(QWidget* parent = nullptr);
};
