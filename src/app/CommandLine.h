#pragma once

#include <string>
#include <vector>

namespace app {

// What the user asked for on the command line.
struct CommandLine {
  enum class Action {
    Windows,   // start window, or the year in `file` directly
    Overview,  // --uebersicht: annual overview as text
    Html,      // --html TARGET
    Pdf,       // --pdf TARGET
    Csv,       // --csv TARGET
    AllYears,  // --alle-jahre [FOLDER]: the table of all years, to `target` where one is given
    Forecast,  // --prognose, likewise
    Tariffs,   // --tarife, likewise
    Import,    // --einlesen TABLE (in `target`)
    Continue,  // --fortfuehren OLD (in `target`); `file` is the new year
    Check,     // --pruefen
    Version,
    Help,
    Wrong,  // `problem` says in German what is wrong
  };
  Action action = Action::Windows;
  std::string target;
  std::string file;        // the folder of AllYears; "" = the data folder
  int monthsRead = 0;      // --stand: as if only so many months had been read; 0 = all
  std::string dataFolder;  // --datenordner, "" = not given
  std::string problem;
};

// Arguments without the program's name, UTF-8.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

std::string commandLineHelp();

}  // namespace app
