#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>

#include "manual/Manual.h"
#include "manual/PageView.h"
#include "widgets/control.h"

// The manual: contents, or what was searched for, on the left, the page on the right.
class frmHandbuch final : public QDialog {
  Q_OBJECT
 public:
  explicit frmHandbuch(QWidget* parent = nullptr);

  QPushButton* const cmdZurueck = widgets::control<QPushButton>(this, "cmdZurueck");
  QPushButton* const cmdVor = widgets::control<QPushButton>(this, "cmdVor");
  QLabel* const lblSuche = widgets::control<QLabel>(this, "lblSuche");
  QLineEdit* const txtSuche = widgets::control<QLineEdit>(this, "txtSuche");
  QTreeWidget* const trvInhalt = widgets::control<QTreeWidget>(this, "trvInhalt");
  QLabel* const lblTreffer = widgets::control<QLabel>(this, "lblTreffer");
  manual::PageView* const txtSeite = widgets::control<manual::PageView>(this, "txtSeite");
  QPushButton* const cmdSchliessen = widgets::control<QPushButton>(this, "cmdSchliessen");

  void showPlace(const QString& place);
  // A second call brings the same window to the front.
  void showInFront();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void setTexts();
  void arrange();
  void connectControls();
  void search(const QString& words);
  void showContents();
  QTreeWidgetItem* addLine(QTreeWidgetItem* parent, const manual::Section& section);
  void open(const QTreeWidgetItem* line);
  void followPage(const QString& shown);

  const manual::Manual manual_;
};
