#include "app/ui/CopyWindow.h"

#include <QApplication>
#include <QGridLayout>
#include <QProgressDialog>
#include <QShowEvent>

#include "app/YearFiles.h"
#include "app/ui/FileBoxes.h"
#include "app/ui/FileLists.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;

namespace app {

CopyWindow::CopyWindow(const QString& name, const QString& caption,
                       const dialogs::Services& services, QWidget* parent)
    : Window(name, caption, services, parent), left_(new QVBoxLayout), right_(new QVBoxLayout) {
  setSizeGripEnabled(true);
  Drive1->setAccessibleName(u"Laufwerk"_s);
  makeCloseButton(Command2);
  buildLayout();
  Dir1->setLister(subfoldersOf(services.files));
  FilesWechsel->setLister(filesOf(services.files, kSideExtension));
  enterDataFolder();
  connect(Drive1, &widgets::DriveList::chosen, this, &CopyWindow::Drive1Change);
  connect(Dir1, &widgets::FolderList::chosen, this, &CopyWindow::Dir1Change);
}

void CopyWindow::buildLayout() {
  for (QLabel* label : {Label7, Label2}) makeBold(label);
  for (QLabel* label : {Label7, Label6}) label->setWordWrap(true);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(10);
  buttons->addWidget(Command1, 1);
  buttons->addWidget(Command2);
  for (QPushButton* button : {Command1, Command2}) button->setMinimumHeight(34);
  Command2->setMinimumWidth(Command2->sizeHint().width() + 24);
  left_->addWidget(Dir1, 1);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(16, 14, 16, 14);
  grid->setHorizontalSpacing(18);
  grid->setVerticalSpacing(9);
  grid->addWidget(Label7, 0, 0, 1, 2);
  grid->addWidget(Drive1, 1, 0);
  grid->addWidget(Label2, 1, 1);
  grid->addLayout(left_, 2, 0);
  grid->addLayout(right_, 2, 1);
  grid->addWidget(Label6, 3, 0, 1, 2);
  grid->addLayout(buttons, 4, 0, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(2, 1);
  for (QVBoxLayout* column : {left_, right_}) column->setSpacing(grid->verticalSpacing());
}

void CopyWindow::makeBold(QLabel* label) {
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
}

void CopyWindow::onlyShow(widgets::FileList* list) {
  list->setSelectionMode(QAbstractItemView::NoSelection);
  list->setFocusPolicy(Qt::NoFocus);
}

void CopyWindow::addYears(widgets::FileList* years, int stretch) {
  years->setLister(filesOf(services_.files, kYearExtension));
  years->setAccessibleName(Label2->text());
  right_->addWidget(years, stretch);
}

void CopyWindow::addSideFiles(QLabel* heading, int stretch) {
  heading->setText(u"Zugehörige Dateien"_s);
  makeBold(heading);
  right_->addWidget(heading);
  FilesWechsel->setAccessibleName(heading->text());
  onlyShow(FilesWechsel);
  right_->addWidget(FilesWechsel, stretch);
}

QString CopyWindow::firstFolder() const {
  return firstBackupFolder();
}

void CopyWindow::showEvent(QShowEvent* event) {
  Window::showEvent(event);
  if (event->spontaneous()) return;
  showFolder(*Drive1, *Dir1, firstFolder());
  activate();
  Dir1->setFocus();
}

void CopyWindow::Drive1Change(const QString& root) {
  if (changeDrive(*Drive1, *Dir1, root))
    Dir1Change();
  else
    services_.prompts.tell(this, u"Laufwerksfehler!"_s, u"Error"_s);
}

bool CopyWindow::run(const CopyTexts& texts,
                     const std::function<base::Result<void>(const CopyProgress& progress)>& copy) {
  base::Result<void> outcome;
  {
    QProgressDialog box(this);
    box.setObjectName(u"boxFortschritt"_s);
    box.setWindowTitle(texts.title);
    box.setWindowModality(Qt::WindowModal);
    box.setMinimumDuration(600);
    box.setAutoReset(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    outcome = copy([&box](const std::string& name, std::size_t number, std::size_t count) {
      box.setMaximum(int(count));
      box.setLabelText(QString::fromStdString(name));
      box.setValue(int(number));
      return !box.wasCanceled();
    });
    QApplication::restoreOverrideCursor();
  }
  const bool cancelled = !outcome && outcome.error().code == base::ErrorCode::Cancelled;
  if (!outcome && !cancelled)
    tellFileError(services_, this, outcome.error());
  else
    services_.prompts.tell(this, outcome ? texts.done : texts.cancelled, texts.title,
                           dialogs::Icon::Information);
  return outcome.has_value();
}

}  // namespace app
