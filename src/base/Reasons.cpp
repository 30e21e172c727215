#include <algorithm>
#include <iterator>

#include "base/Result.h"

// What errors say: a sentence for each code, and the reasons of the database engine in German.
namespace base {
namespace {

struct CodeTexts {
  const char* name;
  const char* sentence;
};
// In the order of the codes.
constexpr CodeTexts kCodeTexts[] = {
    {"NotFound", "Die Datei oder der Ordner ist nicht vorhanden."},
    {"AlreadyExists", "Eine Datei dieses Namens ist bereits vorhanden."},
    {"AccessDenied", "Der Zugriff wurde verweigert."},
    {"ReadOnly", "Die Datei kann nur gelesen, nicht geändert werden."},
    {"NoSpace", "Auf dem Datenträger ist kein Platz mehr."},
    {"InUse", "Die Datei ist bereits geöffnet, hier oder in einem anderen Programm."},
    {"InvalidName", "So kann keine Datei und kein Ordner heißen."},
    {"IoError", "Beim Lesen oder Schreiben ist ein Fehler aufgetreten."},
    {"NotADatabase", "Die Datei ist keine Access-Datenbank."},
    {"NewerVersion",
     "Die Datei wurde mit einer neueren Access-Version (ab 2007) erstellt. Bitte speichern Sie sie "
     "im Format von Access 2000-2003."},
    {"Encrypted", "Die Datei ist verschlüsselt. Bitte entschlüsseln Sie sie in Access."},
    {"PasswordProtected",
     "Die Datei ist mit einem Kennwort geschützt. Bitte entfernen Sie das Kennwort in Access."},
    {"Truncated", "Die Datei ist unvollständig, ihr Ende fehlt."},
    {"Damaged", "Die Datei ist beschädigt."},
    {"IndexDamaged", "Ein Index der Datei ist beschädigt, die Daten selbst sind in Ordnung."},
    {"MissingTable", "Eine Tabelle fehlt; die Datei ist keine Jahresdatei dieses Programms."},
    {"MissingColumn", "Ein Feld fehlt; die Datei ist keine Jahresdatei dieses Programms."},
    {"WrongShape", "Eine Tabelle ist nicht so aufgebaut, wie es eine Jahresdatei verlangt."},
    {"Unsupported", "Diese Änderung wird für diese Datei nicht unterstützt."},
    {"InvalidValue", "Der Wert passt nicht in das Feld."},
    {"ChangedOnDisk",
     "Die Datei wurde inzwischen von einem anderen Programm geändert. Bitte öffnen Sie sie neu."},
    {"Cancelled", "Der Vorgang wurde abgebrochen."},
};
static_assert(std::size(kCodeTexts) == static_cast<std::size_t>(ErrorCode::Cancelled) + 1);

const CodeTexts& textsOf(ErrorCode code) {
  return kCodeTexts[static_cast<std::size_t>(code)];
}

struct Reason {
  std::string_view english;
  std::string_view german;
};
constexpr Reason kReasons[] = {
    {"the name is empty, too long or has characters that the file lacks",
     "Der Name ist leer, zu lang oder hat Zeichen, die es in der Datei nicht gibt"},
    {"the name is there already", "Der Name kommt doppelt vor"},
    {"the column's length is not possible", "Die Feldlänge ist ungültig"},
    {"new columns cannot have this type", "Der Feldtyp wird nicht unterstützt"},
    {"only a column of type Long can count by itself",
     "Nur ein Feld vom Typ Long kann selbst zählen"},
    {"the index has no column or too many", "Zahl der Felder des Index ist ungültig"},
    {"column %1 is not there or cannot be indexed",
     "Das Feld %1 gibt es nicht oder es taugt nicht"},
    {"the table has no column or too many", "Zahl der Felder ist ungültig"},
    {"the table has too many indexes", "Zu viele Indizes"},
    {"the value is too long for the index", "Der Wert ist zu lang für den Index"},
    {"the index is nested too deeply", "Index ist zu tief verschachtelt"},
    {"the last leaf has a successor", "Letzte Indexseite hat einen Nachfolger"},
    {"the index runs in a circle", "Index läuft im Kreis"},
    {"an index page has greater keys than its node says",
     "Indexseite enthält größere Schlüssel als angegeben"},
    {"leaves lie at different depths", "Indexseiten liegen verschieden tief"},
    {"the level of an index page is wrong", "Stufe der Indexseite ist falsch"},
    {"leaves are linked wrongly", "Indexseiten sind falsch verkettet"},
    {"entries are out of order", "Reihenfolge der Einträge ist falsch"},
    {"the index has more entries than the table has rows",
     "Index hat mehr Einträge als die Tabelle Datensätze"},
    {"the entry is there already", "Eintrag ist schon vorhanden"},
    {"a row has no entry", "Ein Datensatz hat keinen Eintrag"},
    {"the page is used but counts as free", "Seite wird verwendet, gilt aber als frei"},
    {"%1 pages are not used but do not count as free",
     "%1 Seiten werden nicht verwendet, gelten aber nicht als frei"},
    {"a table is in no catalog", "Eine Tabelle fehlt im Tabellenverzeichnis"},
    {"the rows of the page are lost to their table",
     "Seite gehört zu einer Tabelle, die sie nicht nennt; ihre Datensätze fehlen"},
    {"a place in the rows has no column", "Ein Platz in den Datensätzen gehört zu keinem Feld"},
    {"two tables have the same definition", "Zwei Tabellen haben dieselbe Definition"},
    {"shared by its lock file", "zum Beispiel in Access"},
    {"opened for reading", "zum Lesen geöffnet"},
    {"the journal has an incomplete page", "Journal enthält eine unvollständige Seite"},
    {"the file is larger than the format allows", "Datei ist größer, als das Format erlaubt"},
    {"the last page is incomplete", "letzte Seite unvollständig"},
    {"the page lies behind the end of the file", "Seite liegt hinter dem Ende der Datei"},
    {"the page is of kind %1 instead of %2", "Seite hat die Art %1 statt %2"},
    {"the file has the greatest length", "Die Datei hat die größte erlaubte Länge"},
    {"the file has to be opened anew", "Die Datei muss neu geöffnet werden"},
    {"a transaction is running already", "Es läuft schon ein Änderungsvorgang"},
    {"it was renamed, moved, replaced or removed",
     "sie wurde umbenannt, verschoben, ersetzt oder gelöscht"},
    {"no transaction is running", "Es läuft kein Änderungsvorgang"},
    {"the catalog has no column %1", "Tabellenverzeichnis hat kein Feld %1"},
    {"the page is not one of this table", "Seite gehört nicht zu dieser Tabelle"},
    {"the row is not on the page", "Datensatz fehlt auf der Seite"},
    {"the head of a long value is incomplete", "Kopf eines langen Textes ist unvollständig"},
    {"the form of a long value is unknown", "Form eines langen Textes ist unbekannt"},
    {"a pointer to a long value leads to another page",
     "Verweis auf einen langen Text führt auf eine andere Seite"},
    {"a pointer leads to a deleted long value", "Verweis auf einen gelöschten langen Text"},
    {"the parts of a long value run in a circle", "Teile eines langen Textes laufen im Kreis"},
    {"a part of a long value is too short", "Teil eines langen Textes ist zu kurz"},
    {"a long value is longer than it says", "Langer Text ist länger als angegeben"},
    {"a long value is shorter than it says", "Langer Text ist kürzer als angegeben"},
    {"the file keeps no pages for long values of this column",
     "Die Datei führt keine Seiten für lange Texte dieses Feldes"},
    {"the text is too long for the column", "Der Text ist zu lang für das Feld"},
    {"the header page is incomplete", "Kopfseite unvollständig"},
    {"the page is no index page", "Seite ist keine Indexseite"},
    {"the index page is one of another table", "Indexseite gehört zu einer anderen Tabelle"},
    {"the node has no last child", "Indexseite hat keine letzte Seite"},
    {"an entry lies behind the end of the index page",
     "Eintrag liegt hinter dem Ende der Indexseite"},
    {"an entry of the index page is too short", "Eintrag der Indexseite ist zu kurz"},
    {"the value is of another kind than the column", "Der Wert passt nicht zur Art des Feldes"},
    {"the number does not fit the column", "Die Zahl passt nicht in das Feld"},
    {"the data are too long for the column", "Die Daten sind zu lang für das Feld"},
    {"the date is out of range", "Das Datum ist ungültig"},
    {"a value has the wrong length", "Wert hat die falsche Länge"},
    {"columns of this kind cannot be changed", "Felder dieser Art kann das Programm nicht ändern"},
    {"the row was moved more than once", "Der Datensatz wurde mehrfach verschoben"},
    {"there are too few or too many values", "Zahl der Werte ist falsch"},
    {"an AutoNumber cannot be changed", "Ein AutoWert-Feld kann nicht geändert werden"},
    {"system tables are not changed", "Systemtabellen werden nicht geändert"},
    {"the length of a column is described wrongly", "Länge eines Feldes ist falsch beschrieben"},
    {"there is no room for the pointer to a row", "Kein Platz für den Verweis auf einen Datensatz"},
    {"the file does not tell whose a new table is",
     "Die Datei verrät nicht, wem eine neue Tabelle gehören soll"},
    {"the page map has no room for more pages", "Seitenliste hat keinen Platz für weitere Seiten"},
    {"the page is one of another table", "Seite gehört zu einer anderen Tabelle"},
    {"a pointer leads to the wrong row %1", "Verweis führt auf den falschen Datensatz %1"},
    {"a pointer to a row is too short", "Verweis auf einen Datensatz ist zu kurz"},
    {"pointers to rows run in a circle", "Verweise auf Datensätze laufen im Kreis"},
    {"the column must not be Null", "Das Feld darf nicht leer sein"},
    {"another row has the value already", "Den Wert gibt es schon in einem anderen Datensatz"},
    {"row %1 of page %2 lacks its entry",
     "Datensatz %1 der Seite %2 hat nicht den richtigen Eintrag"},
    {"an entry fits no value: row %1 of page %2",
     "Eintrag passt zu keinem Wert: Datensatz %1 der Seite %2"},
    {"an entry has no row", "Eintrag ohne Datensatz"},
    {"two rows have the same value", "Der Wert eines Datensatzes kommt doppelt vor"},
    {"the page has no page maps", "Seite enthält keine Seitenlisten"},
    {"page map %1 is not valid", "Seitenliste %1 ist ungültig"},
    {"a page map names a page behind the end of the file",
     "Seitenliste nennt eine Seite hinter dem Ende der Datei"},
    {"a row is empty", "Datensatz ist leer"},
    {"a row has too many columns", "Datensatz hat zu viele Felder"},
    {"a row is too short", "Datensatz ist zu kurz"},
    {"a row has too many columns of variable length",
     "Datensatz hat zu viele Felder veränderlicher Länge"},
    {"the bounds of a row's columns are wrong", "Feldgrenzen eines Datensatzes sind falsch"},
    {"the row gets too long", "Der Datensatz wird zu lang"},
    {"the table's definition runs in a circle", "Tabellendefinition läuft im Kreis"},
    {"the length of the table's definition is wrong", "Länge der Tabellendefinition ist falsch"},
    {"the table's definition ends too early", "Tabellendefinition endet zu früh"},
    {"the kind of the table is unknown", "Art der Tabelle ist unbekannt"},
    {"the number of columns is wrong", "Zahl der Felder in der Tabellendefinition ist falsch"},
    {"the number of indexes is wrong", "Zahl der Indizes in der Tabellendefinition ist falsch"},
    {"column %1 is described wrongly", "Feld \"%1\" ist falsch beschrieben"},
    {"fixed columns are longer than a page", "Feste Felder sind länger als eine Seite"},
    {"index %1 names a column that is not there", "Index %1 nennt ein fehlendes Feld"},
    {"an index names a tree that is not there", "Ein Index nennt einen fehlenden Baum"},
    {"the page is no data page", "Seite ist keine Datenseite"},
    {"so many rows do not fit on the page", "Zahl der Datensätze passt nicht auf die Seite"},
    {"a pointer leads to row %1, which the page lacks",
     "Verweis auf Datensatz %1, den die Seite nicht hat"},
    {"row %1 has the wrong place %2", "Datensatz %1 hat die falsche Lage %2"},
    {"the page is used twice", "Seite wird zweimal verwendet"},
    {"page map %1 is used twice", "Seitenliste %1 wird zweimal verwendet"},
    {"part %1 of long values is used twice", "Teil eines langen Textes %1 wird zweimal verwendet"},
    {"the length is no multiple of the page size", "Die Länge ist kein Vielfaches der Seitengröße"},
    {"a page has the wrong size", "Eine Seite hat die falsche Größe"},
    {"a new page does not follow the last", "Eine neue Seite schließt nicht an"},
    {"the outcome is open until the file is opened anew", "Bitte die Datei neu öffnen"},
    {"there is no such row or column", "Datensatz oder Feld gibt es nicht"},
    {"a text ends within a character", "Text endet im Zeichen"},
    {"code page %1 is not known", "Codepage %1 wird nicht unterstützt"},
    {"the text has a character that the file cannot store",
     "Der Text enthält ein Zeichen, das die Datei nicht speichern kann"},
    {"the text begins with a character that cannot be there",
     "Der Text beginnt mit einem ungültigen Zeichen"},
    {"the table has %1 rows instead of %2", "Tabelle hat %1 Datensätze statt %2"},
    {"the map of pages with room names a page of others",
     "Liste der Seiten mit Platz nennt eine fremde Seite"},
    {"the map of long value pages with room names a page of others",
     "Liste der Textseiten mit Platz nennt eine fremde Seite"},
    {"the page's free bytes are counted wrongly", "Angabe über freien Platz ist falsch"},
    {"two pointers lead to the same row", "Zwei Verweise führen auf denselben Datensatz"},
    {"no pointer leads to the moved row %1",
     "Auf den verschobenen Datensatz %1 führt kein Verweis"},
    {"the page is none of long values", "Seite ist keine Seite für lange Texte"},
    {"%1 stored long values belong to no row",
     "%1 gespeicherte Texte gehören zu keinem Datensatz mehr"},
    {"the index page is missing in the index' page map",
     "Indexseite fehlt in der Seitenliste des Index"},
    {"the index' page map names a page that is not of it",
     "Seitenliste des Index nennt eine Seite, die nicht dazugehört"},
    {"a character cannot be indexed", "Ein Zeichen kann nicht in den Index aufgenommen werden"},
    {"the file's sort order is not known", "Die Sortierfolge der Datei ist nicht bekannt"},
    {"a column of this type cannot be indexed",
     "Der Feldtyp kann nicht in einen Index aufgenommen werden"},
};

std::string filled(std::string text, const std::vector<std::string>& arguments) {
  for (std::size_t i = arguments.size(); i > 0; --i) {
    const std::string mark = "%" + std::to_string(i);
    if (const auto at = text.find(mark); at != std::string::npos)
      text.replace(at, mark.size(), arguments[i - 1]);
  }
  return text;
}

}  // namespace

std::string germanDetail(const Error& error) {
  const auto* found = std::find_if(std::begin(kReasons), std::end(kReasons),
                                   [&](const Reason& r) { return r.english == error.detail; });
  return filled(found == std::end(kReasons) ? error.detail : std::string(found->german),
                error.arguments);
}

std::string germanReason(const Error& error) {
  std::string text = textsOf(error.code).sentence;
  std::string more = germanDetail(error);
  if (!error.subject.empty()) more = error.subject + (more.empty() ? "" : ": " + more);
  if (error.page) more += (more.empty() ? "Seite " : ", Seite ") + std::to_string(*error.page);
  if (!more.empty()) text += " (" + more + ")";
  return text;
}

std::string describe(const Error& error) {
  std::string text = textsOf(error.code).name;
  if (!error.subject.empty()) text += ": " + error.subject;
  if (error.page) text += ", page " + std::to_string(*error.page);
  if (!error.detail.empty()) text += ": " + filled(error.detail, error.arguments);
  return error.file.empty() ? text : text + " (" + error.file + ")";
}

}  // namespace base
