#include "app/CommandLine.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "app/YearFiles.h"
#include "base/GermanNumber.h"

namespace app {
namespace {

using Action = CommandLine::Action;

struct Option {
  std::string_view name;
  Action action;
  bool hasTarget;
  bool needsFile;
  bool isTable = false;      // --csv beside it names the file that the table goes to
  bool readsTarget = false;  // what is named behind it is a source
};
constexpr std::array kOptions = {Option{"--uebersicht", Action::Overview, false, true},
                                 Option{"--html", Action::Html, true, true},
                                 Option{"--pdf", Action::Pdf, true, true},
                                 Option{"--csv", Action::Csv, true, true},
                                 Option{"--alle-jahre", Action::AllYears, false, false, true},
                                 Option{"--prognose", Action::Forecast, false, true, true},
                                 Option{"--tarife", Action::Tariffs, false, true, true},
                                 Option{"--einlesen", Action::Import, true, true, false, true},
                                 Option{"--fortfuehren", Action::Continue, true, true, false, true},
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

// Which of two actions holds: of a table and --csv the table, whichever comes first.
const Option* joined(const Option* chosen, const Option* next) {
  if (!chosen) return next;
  if (chosen->isTable && next->action == Action::Csv) return chosen;
  return chosen->action == Action::Csv && next->isTable ? next : nullptr;
}

std::optional<int> monthCount(const std::string& text) {
  const auto number = base::parseNumber(text);
  if (!number || *number < 1 || *number > 12 || *number != std::floor(*number)) return std::nullopt;
  return static_cast<int>(*number);
}

// The line in the making; what is wrong is said by the first call that sees it.
class Parser {
 public:
  explicit Parser(const std::vector<std::string>& all) : arguments_(all) {}

  CommandLine parse() {
    while (arguments_.more() && problem_.empty()) take(arguments_.take());
    if (problem_.empty()) problem_ = missing();
    return problem_.empty() ? std::move(line_) : wrong(problem_);
  }

 private:
  void take(const std::string& argument) {
    if (argument == "--datenordner") {
      line_.dataFolder = value("Nach --datenordner fehlt der Ordner.");
    } else if (argument == "--stand") {
      const auto months = monthCount(value("Nach --stand fehlt der Monat (1 bis 12)."));
      if (!months && problem_.empty()) problem_ = "--stand nennt einen Monat von 1 bis 12.";
      line_.monthsRead = months.value_or(0);
    } else if (const Option* option = optionNamed(argument)) {
      takeAction(*option);
    } else if (argument.size() > 1 && argument[0] == '-') {
      problem_ = "Unbekannte Angabe: " + argument;
    } else if (!line_.file.empty()) {
      problem_ = "Bitte nur eine Datei angeben: " + line_.file + ", " + argument;
    } else {
      line_.file = argument;
    }
  }

  void takeAction(const Option& option) {
    const Option* both = joined(chosen_, &option);
    if (!both) {
      problem_ = "Bitte nur eine der Angaben " + std::string(chosen_->name) + " und " +
                 std::string(option.name) + ".";
      return;
    }
    chosen_ = both;
    line_.action = both->action;
    if (!option.hasTarget) return;
    line_.target = value(
        "Nach " + std::string(option.name) +
        (option.readsTarget ? " fehlt die Datei, aus der gelesen wird." : " fehlt die Zieldatei."));
    if (!option.readsTarget && isNamedAsYear(line_.target))
      problem_ = "Eine Jahresdatei wird nicht überschrieben: " + line_.target;
  }

  std::string value(const std::string& problem) {
    if (arguments_.more()) return arguments_.take();
    problem_ = problem;
    return {};
  }

  std::string missing() const {
    if (line_.monthsRead != 0 && line_.action != Action::Forecast)
      return "--stand gehört zu --prognose.";
    if (chosen_ && chosen_->needsFile && line_.file.empty())
      return "Nach " + std::string(chosen_->name) + " fehlt die Jahresdatei (*.kwd).";
    return {};
  }

  Arguments arguments_;
  CommandLine line_;
  const Option* chosen_ = nullptr;
  std::string problem_;
};

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& list) {
  return Parser(list).parse();
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
         "  --alle-jahre [ORDNER]    alle Jahre eines Ordners als Tabelle ausgeben\n"
         "  --prognose DATEI.kwd     Verbrauch und Kosten des ganzen Jahres schätzen\n"
         "      --stand MONAT        als wären nur so viele Monate (1 bis 12) abgelesen\n"
         "  --tarife DATEI.kwd       Angebote mit dem bisherigen Vertrag vergleichen\n"
         "      --csv ZIEL           neben diesen dreien: die Tabelle als CSV schreiben\n"
         "  --einlesen TABELLE.csv DATEI.kwd\n"
         "                           Zählerstände in Ablesebuch und Monate übernehmen\n"
         "  --fortfuehren ALT.kwd NEU.kwd\n"
         "                           neues Jahr anlegen, das beginnt, wo ALT endet\n"
         "  --pruefen DATEI.kwd      Datei Seite für Seite prüfen, nichts ändern\n"
         "  --version                Version ausgeben\n"
         "  --help                   diese Hilfe\n";
}

}  // namespace app
