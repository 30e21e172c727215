#include "app/ui/frmUeber.h"

#include <QApplication>
#include <QClipboard>
#include <QFormLayout>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

#include "app/DataFolder.h"
#include "app/YearFiles.h"
#include "dialogs/Prompts.h"
#include "dialogs/Shell.h"
#include "widgets/Pictures.h"
#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;

frmUeber::frmUeber(const dialogs::Services& services, QWidget* parent)
    : Window(u"frmUeber"_s, u"Über Kalvira"_s, services, parent) {
  setTexts();
  arrange();
  connect(cmdOrdner, &QPushButton::clicked, this, &frmUeber::openDataFolder);
  connect(cmdBericht, &QPushButton::clicked, this, [this] {
    QApplication::clipboard()->setText(report());
    lblKopiert->setText(u"✓ kopiert"_s);
  });
}

void frmUeber::setTexts() {
  lblProgramm->setText(u"Kalvira"_s);
  QFont title = font();
  title.setBold(true);
  title.setPointSizeF(1.25 * title.pointSizeF());
  lblProgramm->setFont(title);
  lblVersion->setText(QString::fromStdString(app::plainVersion(KALVIRA_VERSION)));
  lblQt->setText(QString::fromLatin1(qVersion()));
  lblFormate->setText(
      u"Jahresdateien .kwd: Access 97 (Jet\u00a03) und Access 2000 bis 2003 (Jet\u00a04); neue "
      u"Jahre sind Jet\u00a04. Dateien daneben: Text .dat in Windows-1252."_s);
  lblDatenordner->setText(QString::fromStdString(services_.paths.DataFolder));
  lblProgrammordner->setText(QString::fromStdString(services_.paths.ProgramFolder));
  for (QLabel* label : {lblVersion, lblQt, lblFormate, lblDatenordner, lblProgrammordner}) {
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::NoFocus);
  }
  cmdOrdner->setText(u"Daten&ordner zeigen"_s);
  cmdBericht->setText(u"Bericht &kopieren"_s);
  cmdBericht->setToolTip(
      u"Diese Angaben und die des Rechners in die Zwischenablage, ohne Zahlen des Haushalts"_s);
  for (QPushButton* button : {cmdOrdner, cmdBericht})
    button->setAccessibleName(button->text().remove(u'&'));
  widgets::setTone(lblKopiert, widgets::Tone::Good);
  makeCloseButton(cmdSchliessen, u"&Schließen"_s);
  cmdSchliessen->setMinimumWidth(88);
}

void frmUeber::arrange() {
  auto* picture = new QLabel;
  picture->setPixmap(widgets::icon(u"kalvira"_s).pixmap(QSize(48, 48), devicePixelRatioF()));
  auto* head = new QHBoxLayout;
  head->setSpacing(12);
  head->addWidget(picture);
  head->addWidget(lblProgramm, 1);
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(12);
  form->setVerticalSpacing(8);
  const std::pair<QString, QLabel*> lines[] = {{u"Version"_s, lblVersion},
                                               {u"Qt"_s, lblQt},
                                               {u"Dateiformate"_s, lblFormate},
                                               {u"Datenordner"_s, lblDatenordner},
                                               {u"Programmordner"_s, lblProgrammordner}};
  for (const auto& [caption, label] : lines) {
    auto* name = new QLabel(caption);
    name->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    form->addRow(name, label);
    // Whole at any font, however small the window was made before.
    label->setMinimumWidth(50 * fontMetrics().averageCharWidth());
    label->setMinimumHeight(label->heightForWidth(label->minimumWidth()));
    label->setAccessibleName(caption + u": "_s + label->text());
  }
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(cmdOrdner);
  buttons->addWidget(cmdBericht);
  buttons->addWidget(lblKopiert);
  buttons->addStretch();
  buttons->addWidget(cmdSchliessen);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(12);
  rows->addLayout(head);
  rows->addLayout(form, 1);
  rows->addLayout(buttons);
  constexpr int kWidth = 560;
  resize(kWidth, rows->totalHeightForWidth(kWidth));
}

void frmUeber::openDataFolder() {
  if (!services_.shell.openDocument(lblDatenordner->text()))
    services_.prompts.tell(this,
                           u"Der Ordner lässt sich nicht zeigen:\n"_s + lblDatenordner->text(),
                           windowTitle(), dialogs::Icon::Warning);
}

QString frmUeber::report() const {
  const QScreen& shown = *screen();
  const QSize size = shown.size();
  const auto years =
      app::filesWithExtension(services_.files, services_.paths.DataFolder, app::kYearExtension);
  const QString lines[] = {
      u"Kalvira "_s + lblVersion->text(),
      u"Qt %1, gebaut mit %2, Plattform %3"_s.arg(lblQt->text(), QLatin1String(QT_VERSION_STR),
                                                  QGuiApplication::platformName()),
      u"System: %1, %2"_s.arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture()),
      u"Bildschirm: %1 x %2, Maßstab %3, Schrift %4 %5, %6"_s.arg(size.width())
          .arg(size.height())
          .arg(devicePixelRatioF())
          .arg(font().family())
          .arg(font().pointSizeF())
          .arg(widgets::isDark(palette()) ? u"dunkel"_s : u"hell"_s),
      u"Dateiformate: "_s + lblFormate->text(),
      u"Datenordner: %1, Jahre: %2"_s.arg(lblDatenordner->text()).arg(years.size()),
      u"Programmordner: "_s + lblProgrammordner->text(),
  };
  QString text;
  for (const QString& line : lines) text += line + u'\n';
  return text;
}
