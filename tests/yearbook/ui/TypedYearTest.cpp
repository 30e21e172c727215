#include <QCheckBox>
#include <QRadioButton>

#include "MainWindowFixture.h"
#include "reports/YearReport.h"

using namespace Qt::Literals::StringLiterals;
using yearbook::PerMonth;

// A household types its whole year, window by window, into an empty one.

namespace {

QString typed(double number) {
  return QString::number(number, 'g', 10).replace(u'.', u',');
}

// The overview's last rows: gross sum, advance payments and balance of a utility.
QStringList lastLine(const reports::UtilityTotals& totals) {
  QStringList line;
  for (const std::optional<base::Money>& amount : std::initializer_list<std::optional<base::Money>>{
           totals.net, totals.vat, totals.gross, totals.balance})
    line << QString::fromStdString(base::formatMoney(yearbook::orZero(amount)));
  return line;
}

}  // namespace

class TypedYear : public MainWindowFixture {
 protected:
  void typeReadings(QPushButton* button, const PerMonth<double>& readings) {
    clickAndHandle(button, [&](QDialog* dialog) { enterReadings(dialog, readings); });
  }

  void typeReadingsWithChange(QPushButton* button, const PerMonth<double>& readings, int month,
                              double newReading) {
    clickAndHandle(button, [&](QDialog* dialog) {
      auto* option = dialog->findChild<QRadioButton*>(u"optWechsel_"_s + QString::number(month));
      prompts.answerInput(typed(newReading));
      QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(8, option->height() / 2));
      enterReadings(dialog, readings);
    });
  }

  static void enterReadings(QDialog* dialog, const PerMonth<double>& readings) {
    for (int i = 0; i < 12; ++i)
      type(dialog->findChild<QLineEdit*>(u"txtVerbrauch_"_s + QString::number(i)),
           typed(readings[std::size_t(i)]));
    dialog->findChild<QPushButton*>(u"Command1"_s)->click();
  }

  // A price for the months from a position on, in the window's field of that name.
  void typePrice(QPushButton* button, const QString& field, int from, double price) {
    clickAndHandle(button, [&](QDialog* dialog) {
      for (int i = 0; i < 12; ++i)
        dialog->findChild<QCheckBox*>(u"Check1_"_s + QString::number(i))->setChecked(i >= from);
      type(dialog->findChild<QLineEdit*>(field), typed(price));
      dialog->findChild<QPushButton*>(u"Command1"_s)->click();
    });
  }

  void typeFee(QPushButton* button, double perMonth) {
    clickAndHandle(button, [&](QDialog* dialog) {
      for (int i = 0; i < 12; ++i)
        type(dialog->findChild<QLineEdit*>(u"txtVerbrauch_"_s + QString::number(i)),
             typed(perMonth));
      dialog->findChild<QPushButton*>(u"Command1"_s)->click();
    });
  }

  void typeAdvances(const yearbook::MonthTable& months, double perMonth) {
    for (int i = 0; i < 12; ++i) type(months.advance(i), typed(perMonth));
  }

  void typeSettings() {
    type(window->Frame1->txtAnfStandSN, u"24371"_s);
    type(window->Frame1->txtMwStS, u"19"_s);
    type(window->Frame1->txtDatumStrom, u"01.01.2025"_s);
    window->TabStrip->setCurrentIndex(1);
    type(window->Frame2->txtAnfStandAbW, u"443"_s);
    type(window->Frame2->txtAnfStandW, u"443"_s);
    type(window->Frame2->txtMwStW, u"7"_s);
    type(window->Frame2->txtMwStAbW, u"0"_s);
    window->TabStrip->setCurrentIndex(2);
    type(window->Frame3->txtAnfStandG, u"10.114"_s);
    type(window->Frame3->txtFaktor, u"10,523"_s);
    type(window->Frame3->txtMwStG, u"19"_s);
  }

  void typeTariffs() {
    typePrice(window->Frame1->cmdPreisJeEinheitS, u"txtJeKwsTag"_s, 0, 29.6);
    typePrice(window->Frame1->cmdPreisJeEinheitS, u"txtJeKwsTag"_s, 3, 28.9);
    typePrice(window->Frame1->cmdPreisJeEinheitSN, u"txtJeKwsNacht"_s, 0, 24.4);
    typePrice(window->Frame1->cmdPreisJeEinheitSN, u"txtJeKwsNacht"_s, 3, 23.9);
    typePrice(window->Frame2->cmdPreisJeEinheitW, u"txtJeKubik"_s, 0, 2.25);
    typePrice(window->Frame2->cmdPreisJeEinheitAbW, u"txtJeKubik"_s, 0, 3.05);
    typePrice(window->Frame3->cmdPreisJeEinheitG, u"txtJeKubik"_s, 0, 9.45);
    typePrice(window->Frame3->cmdPreisJeEinheitG, u"txtJeKubik"_s, 6, 9.25);
    typeFee(window->Frame1->cmdMonatlStrom, 13.5);
    typeFee(window->Frame2->cmdWMonatl, 8.9);
    typeFee(window->Frame2->cmdWWMonatl, 0);
    typeFee(window->Frame3->cmdMonatlGas, 11.2);
    typeAdvances(*window->Frame1->months, 136);
    typeAdvances(*window->Frame2->months, 66);
    typeAdvances(*window->Frame3->months, 142);
  }

  void typeMeters() {
    typeReadingsWithChange(
        window->Frame1->cmdEingabeVerbrauchS,
        {44600, 44855, 45115, 45354, 45585, 45808, 238, 436, 670, 925, 1201, 1506}, 5, 12);
    typeReadingsWithChange(window->Frame1->cmdEingabeVerbrauchNS,
                           {24551, 24708, 24849, 24964, 25065, 25157, 93, 178, 277, 399, 546, 717},
                           5, 4);
    const PerMonth<double> water = {453, 462, 471, 481, 492, 503, 515, 524, 534, 543, 553, 562};
    typeReadings(window->Frame2->cmdEingabeVerbrauchW, water);
    typeReadings(window->Frame2->cmdEingabeVerbrauchAbW, water);
    typeReadings(window->Frame3->cmdEingabeVerbrauchG, {10354, 10580, 10759, 10855, 10917, 10945,
                                                        10969, 10989, 11033, 11141, 11318, 11522});
  }

  std::string sideFile(const std::string& name) {
    return disk.readText(std::string(kFolder) + "Verbrauch2025_" + name).value_or("missing");
  }
};

TEST_F(TypedYear, FromTheEmptyYearToTheOverview) {
  disk.put(kSample, support::emptyYear());
  prompts.answerInput(u"44309"_s);
  openWindow(kSample);
  typeSettings();
  typeTariffs();
  typeMeters();

  EXPECT_EQ(window->Frame1->txtBetragTS->text(), u"870,62"_s);
  EXPECT_EQ(window->Frame1->txtBetragNS->text(), u"360,65"_s);
  EXPECT_EQ(window->Frame2->txtBetragW->text(), u"267,75"_s);
  EXPECT_EQ(window->Frame2->txtBetragAbW->text(), u"362,95"_s);
  EXPECT_EQ(window->Frame3->txtBetragG->text(), u"1.388,00"_s);
  const auto totals = reports::overviewTotals(reports::overviewInput(*stored()));
  EXPECT_EQ(lastLine(totals.electricity),
            (QStringList{u"1.393,27"_s, u"264,72"_s, u"1.657,99"_s, u"25,99"_s}));
  EXPECT_EQ(lastLine(totals.water),
            (QStringList{u"737,50"_s, u"26,22"_s, u"763,72"_s, u"-28,28"_s}));
  EXPECT_EQ(lastLine(totals.gas),
            (QStringList{u"1.522,40"_s, u"289,26"_s, u"1.811,66"_s, u"107,66"_s}));

  EXPECT_EQ(sideFile("WechselStrom.dat"), "5,12\r\n");
  EXPECT_EQ(sideFile("WechselNachtstrom.dat"), "5,4\r\n");
  EXPECT_EQ(sideFile("WechselGas.dat"), "12,0\r\n");
  EXPECT_EQ(sideFile("GrdGebStrMon.dat"),
            "13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5,13.5\r\n");
  EXPECT_EQ(sideFile("GrdGebAWMon.dat"), "0,0,0,0,0,0,0,0,0,0,0,0\r\n");
}
