#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QRegularExpression>

#include "StartFixture.h"
#include "app/ui/Program.h"
#include "app/ui/frmUeber.h"
#include "widgets/Tones.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class About : public StartFixture {
 protected:
  const QString data_ = QString::fromStdString(dataFolder());
};

TEST_F(About, TellsTheVersionsAndWhereTheDataLie) {
  const frmUeber window(services, nullptr);
  EXPECT_TRUE(QRegularExpression(u"^\\d+\\.\\d+"_s).match(window.lblVersion->text()).hasMatch());
  EXPECT_EQ(window.lblQt->text(), QLatin1String(qVersion()));
  EXPECT_TRUE(window.lblFormate->text().contains(u"Access 97"_s));
  EXPECT_EQ(window.lblDatenordner->text(), data_);
  EXPECT_EQ(window.lblProgrammordner->text(), QString::fromStdString(program.path()));
}

TEST_F(About, ShowsTheFolderOrSaysThatItCannot) {
  const frmUeber window(services, nullptr);
  window.cmdOrdner->click();
  EXPECT_THAT(shell.opened, testing::ElementsAre(data_));
  shell.succeeds = false;
  prompts.answer(dialogs::Button::Ok);
  window.cmdOrdner->click();
  EXPECT_TRUE(prompts.take().text.contains(data_));
}

TEST_F(About, TheReportTellsOfTheComputerAndNothingOfTheHousehold) {
  put("Familie Meier.kwd", "Zahlen");
  put("Familie Meier alt.kwd", "Zahlen");
  const frmUeber window(services, nullptr);
  window.cmdBericht->click();
  EXPECT_EQ(window.lblKopiert->text(), u"✓ kopiert"_s);
  const QString report = QApplication::clipboard()->text();
  EXPECT_TRUE(report.startsWith(u"Kalvira "_s + window.lblVersion->text() + u'\n'));
  for (const QString& part : {u"Qt "_s + QLatin1String(qVersion()), QGuiApplication::platformName(),
                              QSysInfo::prettyProductName(), window.lblFormate->text(),
                              data_ + u", Jahre: 2\n"_s, window.lblProgrammordner->text()})
    EXPECT_TRUE(report.contains(part)) << part.toStdString();
  EXPECT_FALSE(report.contains(u"Meier"_s));
}

TEST_F(About, TheHelpMenuOfTheStartWindowLeadsThere) {
  frmVerbrStart start(services, facts, opener);
  start.setAttribute(Qt::WA_DeleteOnClose, false);
  for (QAction* entry : start.mnuHandbuchMenue->actions()) entry->trigger();
  EXPECT_EQ(navigator.calls,
            QStringList({u"showManual frmVerbrStart"_s, u"showManual Tastenkuerzel"_s,
                         u"showSample"_s, u"showAbout"_s}));
}

TEST_F(About, TheProgramStartsInTheLookThatWasChosenLast) {
  widgets::userSettings().setValue(u"Ansicht"_s, u"Dunkel"_s);
  {
    const app::Program started(*qApp, {});
    EXPECT_TRUE(widgets::isDark(QApplication::palette()));
  }
  widgets::showAs(widgets::Look::System);
}

}  // namespace
