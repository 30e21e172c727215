#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QTimer>

#include "widgets/EntryField.h"
#include "widgets/control.h"
#include "yearbook/ui/YearEditor.h"

class QGridLayout;

namespace yearbook {

// "Anmerkungen": the free remarks on the twelve months of each utility. A remark is stored when its
// field is left, or when typing pauses.
class RemarksPage final : public QScrollArea {
  Q_OBJECT
 public:
  RemarksPage(QWidget* parent, YearEditor& editor);

  const widgets::ControlArray<widgets::EntryField, kMonths> txtAnmerkungenS;
  const widgets::ControlArray<widgets::EntryField, kMonths> txtAnmerkungenW;
  const widgets::ControlArray<widgets::EntryField, kMonths> txtAnmerkungenG;

  // Stores what has been typed and not stored yet; false when it failed (the user has been told).
  bool flush();

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  struct Place {
    Utility utility;
    int month;
    bool operator==(const Place&) const = default;
  };
  const widgets::ControlArray<widgets::EntryField, kMonths>& fields(Utility utility) const;
  QWidget* column(Utility utility);
  void edited(Place place);
  void showValues();

  YearEditor& editor_;
  PerUtility<PerMonth<QLabel*>> months_{};
  std::optional<Place> pending_;
  QTimer pause_;
};

}  // namespace yearbook
