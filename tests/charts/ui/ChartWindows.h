#pragma once

#include <gmock/gmock.h>

#include <QTest>

#include "../SampleChart.h"
#include "charts/ui/frmDiagrVergleich.h"
#include "charts/ui/frmDiagramm.h"
#include "support/SampleYears.h"
#include "support/ui/FakeNavigator.h"
#include "support/ui/FakePrompts.h"

// Both chart windows over a disk in memory, with the sample household's years.
class ChartWindows : public testing::Test {
 protected:
  ChartWindows() {
    paths_.DataFolder = "/daten/";
    paths_.YearDatabaseName = "Verbrauch2025.kwd";
    paths_.YearDatabasePath = year_->path();
  }

  std::unique_ptr<frmDiagramm> monthly(const char* mode = "strom") {
    auto window = std::make_unique<frmDiagramm>(services_, *year_, QString::fromLatin1(mode));
    return window;
  }
  // Shown, with the first question answered.
  std::unique_ptr<frmDiagrVergleich> comparison(const QString& firstAnswer) {
    prompts_.answerPath(firstAnswer);
    auto window = std::make_unique<frmDiagrVergleich>(services_, *year_);
    window->show();
    QTest::qWait(1);
    return window;
  }
  std::string stored(const std::string& name) {
    const base::Bytes bytes = files_.get("/daten/" + name);
    return {bytes.begin(), bytes.end()};
  }
  void put(const std::string& name, const std::string& text) {
    files_.put("/daten/" + name, base::asBytes(text));
  }

  support::MemoryFileSystem files_;
  base::PathState paths_;
  base::FixedClock clock_{std::chrono::year(2026) / 1 / 1};
  FakePrompts prompts_;
  FakeShell shell_;
  FakeNavigator navigator_;
  dialogs::Services services_{paths_, files_, clock_, prompts_, shell_, navigator_};
  std::unique_ptr<yearbook::YearSession> year_ = sample::openYear(files_, "Verbrauch2025.kwd");
};

inline const charts::ChartModel& modelOf(const charts::ChartWindow& window) {
  return window.Chart2D1->model();
}
