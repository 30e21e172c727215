#include "manual/Manual.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextTable>

#include "manual/frmHandbuch.h"

using namespace Qt::Literals::StringLiterals;
using manual::Manual;
using manual::Section;

namespace {

QStringList placesIn(const std::vector<Section>& sections) {
  QStringList places;
  for (const Section& section : sections) places += section.page + u'#' + section.anchor;
  return places;
}

bool exists(const Manual& book, const QString& place) {
  const QString page = place.section(u'#', 0, 0);
  const QString anchor = place.section(u'#', 1);
  if (!book.pages().contains(page)) return false;
  return anchor.isEmpty() || placesIn(book.sections()).contains(place);
}

TEST(ManualText, SectionsEndAtTheNextHeadingAndCodeHasNone) {
  const auto parts =
      manual::sectionsOf(u"p.md"_s, QStringLiteral("# Die **Preise**\n"
                                                   "Ein [Preis](x.md) je `kWh`.\n"
                                                   "| a | b |\n|---|---|\n| 1 | 2 |\n"
                                                   "## Gut zu wissen: ja\n"
                                                   "```\n# kein Titel\n```\n"
                                                   "Ende\n"));
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].title, u"Die Preise"_s);
  EXPECT_EQ(parts[0].text, u"Ein Preis je kWh . a b 1 2"_s);
  EXPECT_EQ(parts[1].anchor, u"gut-zu-wissen-ja"_s);
  EXPECT_EQ(parts[1].level, 2);
  EXPECT_TRUE(parts[1].text.endsWith(u"Ende"_s));
}

TEST(ManualText, PagesComeInTheOrderOfTheFirst) {
  const Manual book;
  ASSERT_GT(book.pages().size(), 16);
  EXPECT_EQ(book.pages().front(), Manual::firstPage());
  EXPECT_EQ(book.pages().at(1), u"handbuch/start.md"_s);
  EXPECT_TRUE(book.pages().contains(u"pruefen.md"_s)) << "pages beside the folder come along";
  EXPECT_LT(book.pages().indexOf(u"handbuch/preise.md"_s), book.pages().indexOf(u"pruefen.md"_s));
}

// Whatever a page refers to is built in, anchors and pictures too.
TEST(ManualText, NoLinkLeadsNowhere) {
  const Manual book;
  const QRegularExpression link(u"\\]\\(([^):]*)\\)"_s);
  for (const QString& page : book.pages()) {
    if (!page.startsWith(u"handbuch/"_s)) continue;
    QFile file(u":/docs/"_s + page);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    for (const auto& match : link.globalMatch(QString::fromUtf8(file.readAll()))) {
      const QString inside =
          manual::placeAt(manual::addressOf(page).resolved(QUrl(match.captured(1))));
      EXPECT_TRUE(inside.endsWith(u".png"_s) ? QFile::exists(u":/docs/"_s + inside)
                                             : exists(book, inside))
          << page.toStdString() << " leads to " << inside.toStdString();
    }
  }
}

TEST(ManualText, EveryWindowHasItsPage) {
  const Manual book;
  // What the reader expects to see on top.
  const std::pair<const char*, const char16_t*> titles[] = {
      {"frmVerbrStart", u"Das Startfenster"},
      {"frmNeuVerbrauch", u"Jahre anlegen und löschen"},
      {"frmSichern", u"Sichern"},
      {"frmRuecksichern", u"Wiederherstellen"},
      {"Frame1", u"Das Hauptfenster"},
      {"Frame4", u"Die Jahresübersicht"},
      {"Frame5", u"Das Hauptfenster"},
      {"fraDrucke", u"Drucken und weitergeben"},
      {"frmVerbrauch", u"Das Hauptfenster"},
      {"frmEingabeVerbrauchNS", u"Zählerstände"},
      {"frmHilfeZaehlerWechs", u"Zählerwechsel"},
      {"frmPreisJeKubikAbW", u"Preise je Monat"},
      {"frmGrdGebMoW", u"Monatliche Grundgebühren"},
      {"frmMonatErfassen", u"Monat erfassen"},
      {"frmAblesebuch", u"Das Ablesebuch"},
      {"frmTabelleEinlesen", u"Eine Tabelle einlesen"},
      {"frmFortfuehren", u"Das nächste Jahr"},
      {"frmHochrechnung", u"Hochrechnung"},
      {"frmDiagramm", u"Diagramme"},
      {"frmDiagrVergleich", u"Zwei Jahre im Vergleich"},
      {"frmAlleJahre", u"Alle Jahre"},
      {"frmPrognose", u"Prognose"},
      {"frmTarife", u"Tarife vergleichen"},
      {"frmAngebot", u"Tarife vergleichen"},
      {"Tastenkuerzel", u"Tastenkürzel"}};
  for (const auto& [window, title] : titles) {
    const QString place = manual::placeOf(QLatin1String(window));
    const auto found =
        std::find_if(book.sections().begin(), book.sections().end(), [&](const Section& part) {
          return place == (part.level == 1 ? part.page : part.page + u'#' + part.anchor);
        });
    ASSERT_NE(found, book.sections().end()) << window << ": " << place.toStdString();
    EXPECT_EQ(found->title, QString::fromUtf16(title)) << window;
  }
  EXPECT_EQ(manual::placeOf(u"Frame4"_s), u"handbuch/uebersicht.md"_s);
  EXPECT_EQ(manual::placeOf(u"anderes"_s), Manual::firstPage());
}

TEST(ManualText, SearchWantsAllWordsAndPutsTitlesFirst) {
  const Manual book;
  const auto found = book.find(u" ZÄHLERWECHSEL "_s);
  ASSERT_GT(found.size(), 2U);
  EXPECT_EQ(found.front().title, u"Zählerwechsel"_s);
  EXPECT_LT(book.find(u"zählerwechsel startmonat"_s).size(), found.size());
  EXPECT_FALSE(book.find(u"zählerwechsel startmonat"_s).empty());
  EXPECT_TRUE(book.find(u"  "_s).empty());
  EXPECT_TRUE(book.find(u"Zeppelin"_s).empty());
}

class ManualWindow : public testing::Test {
 protected:
  ManualWindow() {
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.show();
    QApplication::processEvents();
  }
  QString shown() const { return manual::placeAt(window.txtSeite->source()); }
  void clickLink(const QString& to) {
    const QTextDocument& page = *window.txtSeite->document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next())
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (part.fragment().charFormat().anchorHref() != to) continue;
        QTextCursor link(block);
        link.setPosition(part.fragment().position() + 1);
        window.txtSeite->setTextCursor(link);
        window.txtSeite->ensureCursorVisible();
        const QPoint place = window.txtSeite->cursorRect(link).center();
        return QTest::mouseClick(window.txtSeite->viewport(), Qt::LeftButton, {}, place);
      }
    ADD_FAILURE() << "no link to " << to.toStdString();
  }
  frmHandbuch window;
};

TEST_F(ManualWindow, APlaceIsScrolledToAndMarkedInTheContents) {
  window.showPlace(u"handbuch/zaehlerstaende.md#alle-zählerstände-löschen"_s);
  EXPECT_EQ(window.trvInhalt->currentItem()->text(0), u"Alle Zählerstände löschen"_s);
  EXPECT_GT(window.txtSeite->verticalScrollBar()->value(), 0);
  EXPECT_EQ(window.txtSeite->textCursor().block().text(), u"Alle Zählerstände löschen"_s);
  window.cmdZurueck->click();
  EXPECT_EQ(shown(), Manual::firstPage());
  EXPECT_EQ(window.trvInhalt->currentItem()->text(0), u"Handbuch"_s);
  EXPECT_EQ(window.txtSeite->verticalScrollBar()->value(), 0);
  window.cmdVor->click();
  EXPECT_GT(window.txtSeite->verticalScrollBar()->value(), 0);
}

TEST_F(ManualWindow, PicturesAreNeverWiderThanThePageAndTablesHaveLines) {
  window.showPlace(u"handbuch/hauptfenster.md"_s);
  const QTextDocument& page = *window.txtSeite->document();
  for (const int width : {1100, 700}) {
    window.resize(width, 500);
    QApplication::processEvents();
    // A long page is laid out step by step.
    const auto* bar = window.txtSeite->horizontalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->maximum() == 0; })) << width;
    const auto formats = page.allFormats();
    int pictures = 0;
    for (const QTextFormat& format : formats) {
      if (!format.isImageFormat()) continue;
      const QUrl name(format.toImageFormat().name());
      const auto picture = page.resource(QTextDocument::ImageResource, name).value<QImage>();
      EXPECT_GT(picture.width(), 300) << name.toString().toStdString();
      ++pictures;
    }
    EXPECT_GT(pictures, 0);
  }
  bool lines = false;
  for (QTextFrame* frame : window.txtSeite->document()->rootFrame()->childFrames())
    lines |= qobject_cast<QTextTable*>(frame) != nullptr && frame->frameFormat().border() > 0;
  EXPECT_TRUE(lines);
}

// As a reader clicks it, to a place on another page.
TEST_F(ManualWindow, ALinkLeadsToItsPlace) {
  clickLink(u"preise.md"_s);
  EXPECT_EQ(shown(), u"handbuch/preise.md"_s);
  window.showPlace(u"handbuch/grundgebuehren.md"_s);
  clickLink(u"preise.md#brutto-umrechnen"_s);
  EXPECT_EQ(shown(), u"handbuch/preise.md#brutto-umrechnen"_s);
  EXPECT_EQ(window.txtSeite->textCursor().block().text(), u"Brutto umrechnen"_s);
}

TEST_F(ManualWindow, SearchListsThePlacesMarksTheWordsAndComesBackToTheContents) {
  const int pages = window.trvInhalt->topLevelItemCount();
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(window.txtSuche, u"Brennwert"_s);
  ASSERT_EQ(window.trvInhalt->topLevelItemCount(), 1);
  EXPECT_EQ(window.lblTreffer->text(), u"1 Stelle"_s);
  EXPECT_TRUE(window.trvInhalt->topLevelItem(0)->text(0).startsWith(u"Das Hauptfenster: "_s))
      << "of which page the place is";
  QTest::keyClick(window.txtSuche, Qt::Key_Return);
  EXPECT_TRUE(shown().startsWith(u"handbuch/hauptfenster.md"_s)) << shown().toStdString();
  EXPECT_EQ(window.txtSeite->extraSelections().size(), 1);
  EXPECT_TRUE(window.isVisible()) << "Enter opens the first place and closes nothing";
  window.txtSuche->setText(u"Zeppelin"_s);
  EXPECT_EQ(window.lblTreffer->text(), u"Nichts gefunden."_s);
  window.txtSuche->clear();
  EXPECT_EQ(window.trvInhalt->topLevelItemCount(), pages);
  ASSERT_NE(window.trvInhalt->currentItem()->parent(), nullptr);
  EXPECT_EQ(window.trvInhalt->currentItem()->parent()->text(0), u"Das Hauptfenster"_s);
  EXPECT_TRUE(window.txtSeite->extraSelections().isEmpty());
}

}  // namespace
