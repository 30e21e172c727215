#include "app/ui/frmNeuVerbrauch.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "app/DataFolder.h"
#include "app/YearFiles.h"
#include "app/ui/FileBoxes.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;
using dialogs::Button;
using dialogs::Buttons;
using dialogs::Icon;

frmNeuVerbrauch::frmNeuVerbrauch(const dialogs::Services& services, QWidget* parent)
    : Window(u"frmNeuVerbrauch"_s, u"Weitere Datenbanken (Verbrauch) anlegen."_s, services,
             parent) {
  setTexts();
  buildLayout();
  txtBenutzer->setFilter([](const QString& input) {
    return QString::fromStdString(app::allowedYearName(input.toStdString()));
  });
  // The only field: Enter is the button.
  txtBenutzer->setEnterMovesOn(false);
  Command1->setDefault(true);
  connect(txtBenutzer, &QLineEdit::textChanged, this, &frmNeuVerbrauch::showNameHint);
  connect(Command1, &QPushButton::clicked, this, &frmNeuVerbrauch::Command1Click);
}

void frmNeuVerbrauch::setTexts() {
  Text2->setPlainText(
      u"Benutzen Sie dieses Fenster,\n"
      "wenn Sie zusätzlich zu der bestehenden \n"
      "Datenbank Verbrauch\n"
      "weitere Datenbanken anlegen wollen.\n"_s);
  Text2->setReadOnly(true);
  Text2->setTabChangesFocus(true);
  Text2->setFocusPolicy(Qt::ClickFocus);
  Text2->setAccessibleName(u"Hinweis"_s);
  Label2->setText(u"Eingabe Name :"_s);
  Label2->setBuddy(txtBenutzer);
  txtBenutzer->setAccessibleName(u"Eingabe Name"_s);
  txtBenutzer->setToolTip(u"Name ohne Endung; nicht erlaubt sind  \\ / < > * . ? : ; , |"_s);
  txtBenutzer->setMaxLength(200);
  Command1->setText(u"&Datenbank anlegen"_s);
  Command1->setAccessibleName(u"Datenbank anlegen"_s);
  makeCloseButton(Command2);
}

void frmNeuVerbrauch::buildLayout() {
  Text2->setFrameShape(QFrame::NoFrame);
  Text2->document()->setDocumentMargin(0);
  QPalette plain = Text2->palette();
  plain.setColor(QPalette::Base, palette().color(QPalette::Window));
  Text2->setPalette(plain);
  Text2->setFixedHeight(Text2->fontMetrics().lineSpacing() * 5 + 8);
  Text2->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The caption needs room beside the buttons of the frame.
  constexpr int kFrameButtons = 160;
  setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + kFrameButtons);
  txtBenutzer->setMinimumWidth(txtBenutzer->fontMetrics().averageCharWidth() * 36);

  // Room for the hint from the start, so that nothing moves when it comes.
  lblNamensHinweis->setWordWrap(true);
  lblNamensHinweis->setTextFormat(Qt::PlainText);
  lblNamensHinweis->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  lblNamensHinweis->setMinimumHeight(fontMetrics().lineSpacing() * 4);
  for (QPushButton* button : {Command1, Command2}) {
    button->setMinimumHeight(32);
    button->setMinimumWidth(button->sizeHint().width() + 20);
  }
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(10);
  buttons->addStretch();
  buttons->addWidget(Command1);
  buttons->addWidget(Command2);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(20, 16, 20, 16);
  grid->setVerticalSpacing(14);
  grid->setHorizontalSpacing(12);
  grid->addWidget(Text2, 0, 0, 1, 2);
  grid->addWidget(Label2, 1, 0);
  grid->addWidget(txtBenutzer, 1, 1);
  grid->addWidget(lblNamensHinweis, 2, 0, 1, 2);
  grid->setRowStretch(2, 1);
  grid->addLayout(buttons, 3, 0, 1, 2);
  setTabOrder({txtBenutzer, Command1, Command2});
}

void frmNeuVerbrauch::showEvent(QShowEvent* event) {
  Window::showEvent(event);
  txtBenutzer->setFocus(Qt::OtherFocusReason);
}

void frmNeuVerbrauch::showNameHint() {
  const auto years =
      app::filesWithExtension(services_.files, services_.paths.DataFolder, app::kYearExtension);
  const auto similar =
      app::yearsWithCommonBeginning(app::trimmedYearName(txtBenutzer->text().toStdString()), years);
  lblNamensHinweis->setText(QString::fromStdString(app::namesHint(similar)));
}

void frmNeuVerbrauch::Command1Click() {
  const QString name =
      QString::fromStdString(app::trimmedYearName(txtBenutzer->text().toStdString()));
  if (name.isEmpty()) {
    services_.prompts.tell(this, u"Sie müssen erst einen neuen Datei-Namen eingeben!"_s);
    txtBenutzer->setFocus();
    return;
  }
  if (app::isNameTooLong(services_.files, services_.paths.DataFolder, name.toStdString())) {
    services_.prompts.tell(this,
                           u"Der Name ist zu lang: mit dem Ordner und den Dateien, die zu einem "
                           "Jahr gehören, ist er länger, als Dateien hier heißen können."_s,
                           u"Eingabe Name"_s, Icon::Warning);
    txtBenutzer->setFocus();
    return;
  }
  const QString question = u"Sie haben  "_s + name +
                           u"  eingegeben\nSoll die Datenbank mit dem Namen   "_s + name +
                           u"  angelegt werden?"_s;
  if (!services_.prompts.confirm(this, question, u" Eingabe prüfen"_s)) return;
  enterDataFolder();
  const QString target = QString::fromStdString(services_.paths.DataFolder) + name + u".kwd"_s;
  if (!mayReplace(target)) return;
  if (!app::keepBefore(services_, this, app::CopyMoment::Replacing,
                       name.toStdString() + std::string(app::kYearExtension)))
    return;
  const auto created = app::createYear(services_.files, services_.paths, target.toStdString());
  if (!created) {
    app::tellFileError(services_, this, created.error());
    return;
  }
  made_ = target.toStdString();
  services_.prompts.tell(this, u"Neue Datenbank wurde angelegt unter  \n"_s + target);
  accept();
}

bool frmNeuVerbrauch::mayReplace(const QString& target) {
  if (!app::FileExists(services_.files, target.toStdString())) return true;
  const Button answer = services_.prompts.message(
      this, u"Die Datei  "_s + target + u"  existiert bereits!"_s, u"Fehler"_s, Icon::Question,
      Buttons::AbortRetryIgnore, Button::Abort);
  return answer == Button::Retry || answer == Button::Ignore;
}
