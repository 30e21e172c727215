#include "app/CommandLine.h"

#include <array>
#include <string_view>

#include "app/YearFiles.h"

namespace app {
namespace {

using Action = CommandLine::Action;

struct Option {
  std::string_view name;
  Action action;
  bool hasTarget;
  bool needsFile;
};
constexpr std::array kOptions = {Option{"--uebersicht", Action::Overview, false, true},
                                 Option{"--html", Action::Html, true, true},
                                 Option{"--pdf", Action::Pdf, true, true},
                                 Option{"--csv", Action::Csv, true, true},
                                 Option{"--pruefen", Action::Check, false, true},
                                 Option{"--version", Action::Version, false, false},
                                 Option{"--help", Action::Help, false, false}};

const Option* optionNamed(std::string_view name) {
  for (const Option& option : kOptions)
    if (option.name == name) return &option;
  return nullptr;
}

CommandLine wrong(std::string problem) {
  CommandLine line;
  line.action = Action::Wrong;
  line.problem = std::move(problem);
  return line;
}

// Arguments from the left; take() hands out the value that belongs to an option.
class Arguments {
 public:
  explicit Arguments(const std::vector<std::string>& all) : all_(all) {}
  bool more() const { return next_ < all_.size(); }
  const std::string& take() { return all_[next_++]; }

 private:
  const std::vector<std::string>& all_;
  std::size_t next_ = 0;
};

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& list) {
  CommandLine line;
  const Option* chosen = nullptr;
  for (Arguments arguments(list); arguments.more();) {
    const std::string& argument = arguments.take();
    if (argument == "--datenordner") {
      if (!arguments.more()) return wrong("Nach --datenordner fehlt der Ordner.");
      line.dataFolder = arguments.take();
    } else if (const Option* option = optionNamed(argument)) {
      if (chosen)
        return wrong("Bitte nur eine der Angaben " + std::string(chosen->name) + " und " +
                     argument + ".");
      chosen = option;
      line.action = option->action;
      if (option->hasTarget && !arguments.more())
        return wrong("Nach " + argument + " fehlt die Zieldatei.");
      if (option->hasTarget) line.target = arguments.take();
      if (isNamedAsYear(line.target))
        return wrong("Eine Jahresdatei wird nicht überschrieben: " + line.target);
    } else if (argument.size() > 1 && argument[0] == '-') {
      return wrong("Unbekannte Angabe: " + argument);
    } else if (!line.file.empty()) {
      return wrong("Bitte nur eine Datei angeben: " + line.file + ", " + argument);
    } else {
      line.file = argument;
    }
  }
  if (chosen && chosen->needsFile && line.file.empty())
    return wrong("Nach " + std::string(chosen->name) + " fehlt die Jahresdatei (*.kwd).");
  return line;
}

std::string commandLineHelp() {
  return "Aufruf: kalvira [Angaben] [DATEI.kwd]\n"
         "\n"
         "Ohne Angaben öffnet sich das Startfenster, mit einer Datei gleich dieses Jahr.\n"
         "\n"
         "  --datenordner ORDNER     anderen Datenordner für diesen Lauf verwenden\n"
         "  --uebersicht DATEI.kwd   Jahresübersicht als Text ausgeben\n"
         "  --html ZIEL DATEI.kwd    Jahresübersicht als HTML-Seite schreiben\n"
         "  --pdf ZIEL DATEI.kwd     Jahresübersicht als PDF schreiben\n"
         "  --csv ZIEL DATEI.kwd     alle Monate als CSV-Tabelle schreiben\n"
         "  --pruefen DATEI.kwd      Datei Seite für Seite prüfen, nichts ändern\n"
         "  --version                Version ausgeben\n"
         "  --help                   diese Hilfe\n";
}

}  // namespace app
