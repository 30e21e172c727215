#include "analysis/Reminder.h"
#include "app/ui/frmVerbrStart.h"
#include "mainwindow/LinkBar.h"

// The quiet bar: what is due in one of the years, and the way there.

using namespace Qt::Literals::StringLiterals;
using analysis::Reminder;

QWidget* frmVerbrStart::makeReminder() {
  fraAblesen_ = new mainwindow::LinkBar(this);
  connect(fraAblesen_->cmdDorthin, &QPushButton::clicked, this, &frmVerbrStart::followReminder);
  return new mainwindow::BarPlace(this, {fraAblesen_});
}

void frmVerbrStart::showReminder() {
  const auto reminder =
      analysis::reminderOf(services_.files, services_.paths.DataFolder, services_.clock.today());
  if (!reminder) return fraAblesen_->offer({}, {}, nullptr);
  const bool toMonth = reminder->way == Reminder::Way::RecordMonth;
  dueYear_ = QString::fromStdString(reminder->year);
  fraAblesen_->offer(QString::fromStdString(reminder->text),
                     toMonth ? u"Monat erfassen…"_s : u"Tarife vergleichen…"_s,
                     toMonth ? nullptr : mnuTarife);
}

void frmVerbrStart::followReminder() {
  if (filFiles->selectName(dueYear_)) filFilesClick(dueYear_);
  if (fraAblesen_->follow()) return;
  app::PlayClick(services_);
  opener_.openYearAt(u"mnuMonatErfassen"_s);
}
