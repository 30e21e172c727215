#pragma once

#include <memory>

#include "app/CommandLine.h"

class QApplication;

namespace app {

// The program with its windows: settles the folders, makes the services, opens the first window.
// Needs a QApplication that outlives it.
class Program {
 public:
  Program(QApplication& application, const CommandLine& line);
  ~Program();

  // True when a program that runs already opens the year that the command line names.
  bool handedOver() const;

  // The start window, or the year that the command line names; a year that cannot be opened is
  // explained, and the start window comes instead.
  void start();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace app
