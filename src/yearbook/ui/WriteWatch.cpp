#include "yearbook/ui/WriteWatch.h"

#include "base/Paths.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
namespace {

constexpr int kSeconds = 3;

QString noticeOf(YearSession& session) {
  const auto obstacle = session.database().writeObstacle();
  if (session.needsReopen())
    return u"Beim Speichern ist ein Fehler aufgetreten. Bitte schließen Sie dieses Jahr und öffnen "_s
           u"Sie es neu; bis dahin werden Änderungen nicht gespeichert."_s;
  if (!obstacle) return {};
  const QString reading =
      u"Dieses Jahr kann zurzeit nur gelesen werden, Änderungen werden nicht gespeichert. "_s;
  const auto found = session.files().info(session.path());
  if (!found && found.error().code == base::ErrorCode::NotFound)
    return reading + u"Die Datei ist nicht mehr an ihrem Platz."_s;
  const bool folder = obstacle->file.ends_with(base::kPathSeparator);
  return reading +
         (folder ? u"Ordner "_s + QString::fromStdString(obstacle->file) + u": "_s : QString()) +
         QString::fromStdString(base::germanReason(*obstacle));
}

// As the figures that the program works out.
void setEditable(widgets::EntryField& field, bool editable) {
  field.setReadOnly(!editable);
  QPalette plain;
  if (!editable) plain.setColor(QPalette::Base, Qt::transparent);
  field.setPalette(plain);
}

}  // namespace

WriteWatch::WriteWatch(YearEditor& editor, QWidget* pages)
    : QObject(pages), editor_(editor), pages_(pages) {
  again_.setInterval(kSeconds * 1000);
  connect(&again_, &QTimer::timeout, this, &WriteWatch::tryAgain);
  connect(&editor, &YearEditor::changed, this, &WriteWatch::look);
}

void WriteWatch::look() {
  const QString notice = noticeOf(editor_.session());
  if (notice == notice_) return;
  if (notice.isEmpty() != notice_.isEmpty())
    for (auto* field : pages_->findChildren<widgets::EntryField*>())
      setEditable(*field, notice.isEmpty());
  notice_ = notice;
  if (notice.isEmpty())
    again_.stop();
  else
    again_.start();
  Q_EMIT noticed(notice);
}

void WriteWatch::tryAgain() {
  YearSession& session = editor_.session();
  if (session.database().inTransaction() || !session.database().tryWriting()) return;
  base::ignore(session.bringUpToDate(), "then it still cannot be stored, and is said so");
  editor_.showAll();
}

}  // namespace yearbook
