#pragma once

#include <QFileSystemWatcher>
#include <functional>
#include <memory>
#include <string>

#include "base/File.h"

namespace app {

// Several starts of the program by one user on one display: the first that runs takes the files
// with which the others were started, so that a double click shows the year in the window that is
// there.
//
// They meet in a folder beside the user's settings: whoever holds the lock in it is the first, and
// a small file in it names the year to open. A program that has died holds no lock; one that does
// not answer is not waited for.
class RunningProgram {
 public:
  explicit RunningProgram(base::FileSystem& files) : files_(files) {}

  // True when another program has taken the file over and this one has nothing left to do.
  bool handOver(const std::string& path) const;

  // Becomes the first if there is none. opened gets what others hand over, as long as this object
  // lives. Needs an application with an event loop.
  void listen(std::function<void(const std::string& path)> opened);

 private:
  void take();

  base::FileSystem& files_;
  std::unique_ptr<base::File> lock_;
  QFileSystemWatcher watcher_;
  std::function<void(const std::string&)> opened_;
};

}  // namespace app
