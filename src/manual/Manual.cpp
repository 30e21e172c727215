#include "manual/Manual.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

// Outside of the namespace, as the macro asks.
static void loadResources() {
  Q_INIT_RESOURCE(handbuch);
}

namespace manual {
namespace {

QString markdownOf(const QString& page) {
  loadResources();
  QFile file(u":/docs/"_s + page);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// What a reader sees of a line: of a link or a picture its text, of a table its cells.
QString withoutMarks(QString line) {
  static const QRegularExpression kLink(u"!?\\[([^\\]]*)\\]\\([^)]*\\)"_s);
  static const QRegularExpression kRuler(u"^[|\\s:-]+$"_s);
  static const QRegularExpression kMarks(u"[*`|]+"_s);
  if (kRuler.match(line).hasMatch()) return {};
  return line.replace(kLink, u"\\1"_s).replace(kMarks, u" "_s).simplified();
}

QStringList linkedPages(const QString& markdown) {
  static const QRegularExpression kPage(u"\\]\\(([^)#:]*\\.md)"_s);
  QStringList pages;
  for (const auto& link : kPage.globalMatch(markdown)) {
    QString page = u"handbuch/"_s + link.captured(1);
    if (page.startsWith(u"handbuch/../"_s)) page.remove(0, 12);
    pages += page;
  }
  return pages;
}

struct Place {
  const char* window;  // or what its name begins with
  const char* place;
};
constexpr Place kPlaces[] = {
    {"Tastenkuerzel", "handbuch/tastenkuerzel.md"},
    {"frmVerbrStart", "handbuch/start.md"},
    {"frmNeuVerbrauch", "handbuch/jahre.md"},
    {"frmSichern", "handbuch/sichern.md#sichern"},
    {"frmRuecksichern", "handbuch/sichern.md#wiederherstellen"},
    {"Frame4", "handbuch/uebersicht.md"},
    {"Frame", "handbuch/hauptfenster.md"},
    {"fraDrucke", "handbuch/drucken.md"},
    {"frmVerbrauch", "handbuch/hauptfenster.md"},
    {"frmEingabeVerbrauch", "handbuch/zaehlerstaende.md"},
    {"frmHilfeZaehlerWechs", "handbuch/zaehlerstaende.md#zählerwechsel"},
    {"frmPreisJe", "handbuch/preise.md"},
    {"frmGrdGebMo", "handbuch/grundgebuehren.md"},
    {"frmMonatErfassen", "handbuch/monat-erfassen.md"},
    {"frmAblesebuch", "handbuch/ablesebuch.md"},
    {"frmTabelleEinlesen", "handbuch/ablesebuch.md#eine-tabelle-einlesen"},
    {"frmFortfuehren", "handbuch/fortfuehren.md"},
    {"frmHochrechnung", "handbuch/hochrechnung.md"},
    {"frmDiagrVergleich", "handbuch/diagramme.md#zwei-jahre-im-vergleich"},
    {"frmDiagramm", "handbuch/diagramme.md"},
    {"frmAlleJahre", "handbuch/auswertung.md#alle-jahre"},
    {"frmPrognose", "handbuch/auswertung.md#prognose"},
    {"frmTarife", "handbuch/auswertung.md#tarife-vergleichen"},
    {"frmAngebot", "handbuch/auswertung.md#tarife-vergleichen"},
};

}  // namespace

QString anchorOf(const QString& heading) {
  static const QRegularExpression kPunctuation(u"[^\\w\\- ]"_s,
                                               QRegularExpression::UseUnicodePropertiesOption);
  return withoutMarks(heading).toLower().remove(kPunctuation).replace(u' ', u'-');
}

std::vector<Section> sectionsOf(const QString& page, const QString& markdown) {
  static const QRegularExpression kHeading(u"^(#{1,6}) (.*)$"_s);
  std::vector<Section> sections;
  bool code = false;  // where # begins a remark
  for (const QString& line : markdown.split(u'\n')) {
    if (line.startsWith(u"```"_s)) {
      code = !code;
      continue;
    }
    const auto heading = code ? QRegularExpressionMatch() : kHeading.match(line);
    if (heading.hasMatch()) {
      const QString title = withoutMarks(heading.captured(2));
      sections.push_back(
          {page, anchorOf(title), title, static_cast<int>(heading.capturedLength(1)), {}});
    } else if (!sections.empty()) {
      QString& text = sections.back().text;
      text = (text + u' ' + withoutMarks(line)).trimmed();
    }
  }
  return sections;
}

Manual::Manual() {
  add(firstPage());
}

void Manual::add(const QString& page) {
  if (pages_.contains(page)) return;
  const QString markdown = markdownOf(page);
  if (markdown.isEmpty()) return;
  pages_ += page;
  for (Section& section : sectionsOf(page, markdown)) sections_.push_back(std::move(section));
  // Pages beside the manual's own folder are for those who want to know more: they lead no further.
  if (!page.startsWith(u"handbuch/"_s)) return;
  const QStringList linked = linkedPages(markdown);
  for (const QString& other : linked)
    if (page == firstPage() && other.startsWith(u"handbuch/"_s)) add(other);
  if (page != firstPage()) return;
  for (const QString& listed : QStringList(pages_))
    for (const QString& other : linkedPages(markdownOf(listed))) add(other);
}

std::vector<Section> Manual::find(const QString& words) const {
  const QStringList wanted = words.simplified().split(u' ', Qt::SkipEmptyParts);
  if (wanted.isEmpty()) return {};
  const auto has = [&wanted](const QString& text) {
    return std::all_of(wanted.begin(), wanted.end(), [&text](const QString& word) {
      return text.contains(word, Qt::CaseInsensitive);
    });
  };
  std::vector<Section> found;
  std::copy_if(sections_.begin(), sections_.end(), std::back_inserter(found),
               [&has](const Section& part) { return has(part.title + u' ' + part.text); });
  std::stable_partition(found.begin(), found.end(),
                        [&has](const Section& part) { return has(part.title); });
  return found;
}

QUrl addressOf(const QString& place) {
  QUrl address(u"qrc:/docs/"_s + place.section(u'#', 0, 0));
  if (place.contains(u'#')) address.setFragment(place.section(u'#', 1));
  return address;
}

QString placeAt(const QUrl& address) {
  constexpr int kRoot = 6;  // "/docs/"
  const QString page = address.path().mid(kRoot);
  return address.hasFragment() ? page + u'#' + address.fragment(QUrl::FullyDecoded) : page;
}

QString placeOf(const QString& window) {
  const auto* place = std::find_if(
      std::begin(kPlaces), std::end(kPlaces),
      [&window](const Place& each) { return window.startsWith(QLatin1String(each.window)); });
  return place == std::end(kPlaces) ? Manual::firstPage() : QString::fromUtf8(place->place);
}

}  // namespace manual
