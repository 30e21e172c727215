#include "app/Findings.h"

#include <algorithm>

namespace app {
std::string describe(const jet::Finding& finding) {
  const base::Error& error = finding.error;
  std::string place = error.subject;
  if (error.page) place += (place.empty() ? "Seite " : ", Seite ") + std::to_string(*error.page);
  if (place.empty()) return base::germanReason(error);
  if (!error.detail.empty()) return place + ": " + base::germanDetail(error) + ".";
  return place + ": " + base::germanReason(base::fail(error.code, "").value());
}

std::string advice(const std::vector<jet::Finding>& findings) {
  const auto isError = [](const jet::Finding& finding) { return !finding.warning; };
  if (findings.empty()) return "";
  if (std::none_of(findings.begin(), findings.end(), isError))
    return "Es fehlt nichts. Solche Reste entstehen beim Löschen in Access und verschwinden, wenn "
           "Access die Datenbank komprimiert.";
  const bool indexesOnly = std::all_of(findings.begin(), findings.end(), [](const jet::Finding& f) {
    return f.warning || f.error.code == base::ErrorCode::IndexDamaged;
  });
  if (indexesOnly)
    return "Die Daten sind in Ordnung. Öffnen Sie die Datei im Programm und lassen Sie den Index "
           "neu aufbauen.";
  return "Bitte stellen Sie die Datei aus einer Sicherung wieder her. Arbeiten Sie mit der "
         "beschädigten Datei nicht weiter.";
}

}  // namespace app
