#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <vector>

// The user's manual: the pages of docs/ that are built into the program, so that they are there
// without a network and always those of this version.
namespace manual {

// A part of a page from its heading up to the next one.
struct Section {
  QString page;    // file below docs/: "handbuch/preise.md"
  QString anchor;  // as links name it: "gut-zu-wissen"
  QString title;
  int level = 1;  // 1: the page itself
  QString text;   // without marks, on one line
};

// The name by which links know a heading: small letters, hyphens for blanks, no punctuation.
QString anchorOf(const QString& heading);

// The sections of a page.
std::vector<Section> sectionsOf(const QString& page, const QString& markdown);

class Manual {
 public:
  // Reads the pages that are built in: first the one that lists the others, then those in the order
  // in which they are listed, then what else they lead to (outside of "handbuch/").
  Manual();

  static QString firstPage() { return QStringLiteral("handbuch/README.md"); }
  const QStringList& pages() const { return pages_; }
  const std::vector<Section>& sections() const { return sections_; }
  // Those with all of the words in title or text, capital letters or not; the titles' first, else
  // in the order of the manual. Nothing without a word.
  std::vector<Section> find(const QString& words) const;

 private:
  void add(const QString& page);

  QStringList pages_;
  std::vector<Section> sections_;
};

// Where a page, picture or anchor of the manual is found ("handbuch/preise.md#gut-zu-wissen"), and
// back.
QUrl addressOf(const QString& place);
QString placeAt(const QUrl& address);

// The place in the manual that explains a window or a page of the main window, by its object name;
// the first page for a name that has none.
QString placeOf(const QString& window);

}  // namespace manual
