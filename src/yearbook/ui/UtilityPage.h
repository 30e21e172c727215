#pragma once

#include <QScrollArea>

#include "dialogs/GrossButton.h"
#include "yearbook/ui/FigureGroup.h"
#include "yearbook/ui/MonthTable.h"

class QGridLayout;
class QHBoxLayout;

namespace yearbook {

// The result of a utility: its total in large figures, what it stands for, and the way to the
// charts.
class ResultGroup final : public TitledFrame {
  Q_OBJECT
 public:
  // The field shows the total; a note says what is in it.
  ResultGroup(QWidget* parent, const QString& caption, DerivedField* total);
  // A chart button; they stand in one row.
  void addButton(QWidget* button);
  QLabel* addNote(const QString& text);
  void showTotal(const FieldValues& values, Utility utility);

 private:
  QHBoxLayout* buttons_;
  DerivedField* total_;
  QLabel* totalNote_;
};

// What a meter's frame shows of it, from top to bottom.
struct MeterFrame {
  QLineEdit* startReading;
  DerivedField* endReading;
  DerivedField* consumption;
  QLineEdit* price;  // typed, or of the last month only
  DerivedField* amount;
  DerivedField* vat;
  DerivedField* gross;
};

// A page of the main window that reads like the bill that it works out: meters, contract, months
// and result. Scrolls only where the screen is too small for it.
class UtilityPage : public QScrollArea {
  Q_OBJECT
 public:
  // The whole page, without bars.
  QSize fullSize() const { return fullSize_; }

 protected:
  UtilityPage(QWidget* parent, const char* name, YearEditor& editor);

  YearEditor& editor() const { return editor_; }
  QWidget* content() const { return content_; }
  QPushButton* button(QPushButton* made, const QString& caption, const QString& toolTip) const;
  // The ways to a meter's readings and prices, and to another year.
  void entryButtons(QPushButton* readings, const QString& readingsTip, QPushButton* prices,
                    const QString& pricesTip);
  QPushButton* comparisonButton(QPushButton* made) const;

  // extra stands beside the start reading.
  void addMeterLines(FigureGroup* frame, const MeterFrame& fields, Meter meter,
                     QWidget* extra = nullptr) const;
  // With a note below that tells the months' prices when they differ, and where they are entered
  // when that is not here.
  void addPriceLine(FigureGroup* frame, QLineEdit* price, Meter meter) const;
  // All but the two fields above that may be typed.
  void showMeter(const MeterFrame& fields, Meter meter) const;
  void addBaseFeeLine(FigureGroup* contract, const QString& label, widgets::NumberField* fee,
                      Meter meter, QPushButton* monthly, const QString& monthlyTip) const;
  // Says beside the rate when it is missing and something is to be taxed.
  void addVatLine(FigureGroup* contract, const QString& label, QLineEdit* rate, Meter meter,
                  QWidget* beside = nullptr) const;
  void addStartMonthLine(FigureGroup* contract, QLabel* month, QPushButton* adapt) const;

  struct Parts {
    QWidget* first;
    QWidget* second;  // none where there is one meter
    FigureGroup* contract;
    MonthTable* months;
    ResultGroup* result;
  };
  // Side by side, one below the other where the page is too narrow for that.
  void placeMeters(const Parts& parts);
  // Tab goes through these in order, then through the twelve advance payments. The job of every
  // month comes first.
  void chainFields(const std::vector<QWidget*>& fields, const MonthTable& months);
  void resizeEvent(QResizeEvent* event) override;

 private:
  void arrangeContract(int blocks);
  void placeSideBySide();
  void placeBelow();
  static QString priceTip(const QLineEdit& price);
  QWidget* grossButton(QLineEdit* field, Meter meter, dialogs::GrossFigure figure) const;
  void showPrices(QLineEdit* price, QLabel* note, Meter meter) const;
  void clearPlaces();

  YearEditor& editor_;
  QWidget* content_;
  QGridLayout* places_;
  Parts parts_{};
  QSize fullSize_;
  int leastSideBySide_ = 0;
  bool below_ = false;
  bool lettersLeft_ = true;  // the first meter's buttons have not been captioned
};

// Two or three buttons side by side at the foot of a meter's frame.
QWidget* buttonRow(QWidget* parent, const char* name, std::initializer_list<QWidget*> buttons);

}  // namespace yearbook
