#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcutEvent>

#include "app/ui/RecentYears.h"
#include "app/ui/frmVerbrStart.h"
#include "base/Paths.h"
#include "yearbook/YearSummary.h"

// How the start window keeps up: with its folder, with the year last worked in, with the keyboard.

using namespace Qt::Literals::StringLiterals;

namespace {

// "Haushalt 2026" of "Haushalt 2026.kwd", as a caption.
QString captionOf(const QString& file) {
  return QString::fromStdString(base::baseName(file.toStdString())).replace(u'&', u"&&"_s);
}

}  // namespace

void frmVerbrStart::followFolder() {
  const QString folder = QString::fromStdString(services_.paths.DataFolder);
  if (folderWatch_.directories() == QStringList{folder}) return;
  if (!folderWatch_.directories().isEmpty()) folderWatch_.removePaths(folderWatch_.directories());
  folderWatch_.addPath(folder);
}

// Another program writes, renames and deletes in one go; one look afterwards is enough.
void frmVerbrStart::lookAgain() {
  filFiles->refresh();
  FilesWechsel->refresh();
  offerLastYear();
}

void frmVerbrStart::offerLastYear() {
  const QStringList names = filFiles->names();
  const std::string& folder = services_.paths.DataFolder;
  lastYear_ = names.contains(newYear_) ? newYear_ : QString();
  QString looked;  // opened later, but nobody has worked in it
  for (const QString& path : app::recentYears()) {
    if (!lastYear_.isEmpty()) break;
    const std::string year = path.toStdString();
    const QString name = QString::fromStdString(std::string(base::fileName(year)));
    if (base::folderOf(year) != folder || !names.contains(name)) continue;
    const auto summary = yearbook::summarizeYear(services_.files, year);
    if (!summary || summary->hasEntries)
      lastYear_ = name;
    else if (looked.isEmpty())
      looked = name;
  }
  if (lastYear_.isEmpty()) lastYear_ = looked;
  const bool offered = !lastYear_.isEmpty();
  const int room = cmdWeiter->fontMetrics().averageCharWidth() * 30;
  const QString caption = captionOf(lastYear_);
  cmdWeiter->setText(u"Wei&ter mit "_s +
                     cmdWeiter->fontMetrics().elidedText(caption, Qt::ElideMiddle, room));
  cmdWeiter->setAccessibleName(u"Weiter mit "_s + caption);
  cmdWeiter->setToolTip(
      lastYear_ + (lastYear_ == newYear_ ? u" ist neu angelegt"_s : u" war zuletzt geöffnet"_s));
  cmdWeiter->setVisible(offered);
  belowWeiter_->setVisible(offered);
  cmdWeiter->setDefault(offered);
  cmdHausrat->setDefault(!offered);
}

void frmVerbrStart::cmdWeiterClick() {
  const QString name = lastYear_;
  if (filFiles->selectName(name)) filFilesClick(name);
  mnuOpenClick();
}

void frmVerbrStart::fillRecentYears() {
  mnuZuletzt->clear();
  const std::string& folder = services_.paths.DataFolder;
  int number = 0;
  for (const QString& path : app::recentYears()) {
    const std::string year = path.toStdString();
    if (!services_.files.exists(year)) continue;
    const QString name = captionOf(QString::fromStdString(std::string(base::fileName(year))));
    const bool here = base::folderOf(year) == folder;
    const QString elsewhere =
        here ? QString()
             : u"  –  "_s +
                   QString::fromStdString(std::string(base::folderOf(year))).replace(u'&', u"&&"_s);
    QAction* entry = mnuZuletzt->addAction(u"&%1 "_s.arg(++number) + name + elsewhere);
    entry->setObjectName(u"mnuZuletzt_"_s + QString::number(number - 1));
    connect(entry, &QAction::triggered, this, [this, year] { opener_.openFile(year); });
  }
  mnuZuletzt->setEnabled(number > 0);
}

void frmVerbrStart::keyPressEvent(QKeyEvent* event) {
  auto* button = qobject_cast<QAbstractButton*>(focusWidget());
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_F5)
    lookAgain();
  else if (enter && button != nullptr)
    button->click();
  else
    QMainWindow::keyPressEvent(event);
}

bool frmVerbrStart::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Shortcut) return QMainWindow::eventFilter(watched, event);
  const auto* shortcut = static_cast<QShortcutEvent*>(event);
  if (!shortcut->isAmbiguous() || shortcut->key() != cmdHausrat->shortcut())
    return QMainWindow::eventFilter(watched, event);
  cmdHausrat->animateClick();
  return true;
}
