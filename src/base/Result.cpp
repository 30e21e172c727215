#include "base/Result.h"

namespace base {
namespace {

std::string codeSentence(ErrorCode code) {
  switch (code) {
    case ErrorCode::NotFound:
      return "Die Datei oder der Ordner ist nicht vorhanden.";
    case ErrorCode::AlreadyExists:
      return "Eine Datei dieses Namens ist bereits vorhanden.";
    case ErrorCode::AccessDenied:
      return "Der Zugriff wurde verweigert.";
    case ErrorCode::ReadOnly:
      return "Die Datei kann nur gelesen, nicht geändert werden.";
    case ErrorCode::NoSpace:
      return "Auf dem Datenträger ist kein Platz mehr.";
    case ErrorCode::InUse:
      return "Die Datei ist bereits geöffnet, hier oder in einem anderen Programm.";
    case ErrorCode::InvalidName:
      return "So kann keine Datei und kein Ordner heißen.";
    case ErrorCode::IoError:
      return "Beim Lesen oder Schreiben ist ein Fehler aufgetreten.";
    case ErrorCode::NotADatabase:
      return "Die Datei ist keine Access-Datenbank.";
    case ErrorCode::NewerVersion:
      return "Die Datei wurde mit einer neueren Access-Version (ab 2007) erstellt. Bitte speichern "
             "Sie sie im Format von Access 2000-2003.";
    case ErrorCode::Encrypted:
      return "Die Datei ist verschlüsselt. Bitte entschlüsseln Sie sie in Access.";
    case ErrorCode::PasswordProtected:
      return "Die Datei ist mit einem Kennwort geschützt. Bitte entfernen Sie das Kennwort in "
             "Access.";
    case ErrorCode::Truncated:
      return "Die Datei ist unvollständig, ihr Ende fehlt.";
    case ErrorCode::Damaged:
      return "Die Datei ist beschädigt.";
    case ErrorCode::IndexDamaged:
      return "Ein Index der Datei ist beschädigt, die Daten selbst sind in Ordnung.";
    case ErrorCode::MissingTable:
      return "Eine Tabelle fehlt; die Datei ist keine Jahresdatei dieses Programms.";
    case ErrorCode::MissingColumn:
      return "Ein Feld fehlt; die Datei ist keine Jahresdatei dieses Programms.";
    case ErrorCode::WrongShape:
      return "Eine Tabelle ist nicht so aufgebaut, wie es eine Jahresdatei verlangt.";
    case ErrorCode::Unsupported:
      return "Diese Änderung wird für diese Datei nicht unterstützt.";
    case ErrorCode::InvalidValue:
      return "Der Wert passt nicht in das Feld.";
    case ErrorCode::ChangedOnDisk:
      return "Die Datei wurde inzwischen von einem anderen Programm geändert. Bitte öffnen Sie sie "
             "neu.";
    case ErrorCode::Cancelled:
      return "Der Vorgang wurde abgebrochen.";
  }
  return "Unbekannter Fehler.";
}

}  // namespace

Failure fail(ErrorCode code, std::string detail, std::string file) {
  Error error;
  error.code = code;
  error.detail = std::move(detail);
  error.file = std::move(file);
  return Failure(std::move(error));
}

std::string germanReason(const Error& error) {
  std::string text = codeSentence(error.code);
  std::string more = germanDetail(error);
  if (!error.subject.empty()) more = error.subject + (more.empty() ? "" : ": " + more);
  if (error.page) more += (more.empty() ? "Seite " : ", Seite ") + std::to_string(*error.page);
  if (!more.empty()) text += " (" + more + ")";
  return text;
}

std::string germanMessage(const Error& error) {
  if (error.file.empty()) return germanReason(error);
  // Folders end with the separator.
  const bool folder = error.file.back() == '/' || error.file.back() == '\\';
  return (folder ? "Ordner: " : "Datei: ") + error.file + "\n" + germanReason(error);
}

}  // namespace base
