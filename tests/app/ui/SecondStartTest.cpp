// The program itself, started more than once. Which year it has open shows in who holds the file.

#include <gtest/gtest.h>

#include <QProcess>
#include <QTest>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "SampleYear.h"
#include "base/File.h"
#include "support/EmptyYear.h"
#include "support/TemporaryFolder.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class SecondStart : public testing::Test {
 protected:
  SecondStart() {
    // Years that ask nothing when they are opened.
    EXPECT_TRUE(sample::makeBoth(*files, home.path(), support::emptyYear()));
    EXPECT_TRUE(files->rename(home / "Verbrauch2024.kwd", home / "A.kwd"));
    EXPECT_TRUE(files->rename(home / "Verbrauch2025.kwd", home / "B.kwd"));
  }
  ~SecondStart() override {
    for (const auto& program : programs_) {
      program->kill();
      program->waitForFinished();
    }
  }
  QProcess& start(const QStringList& arguments, const std::string& homeFolder = {}) {
    programs_.push_back(std::make_unique<QProcess>());
    QProcess& program = *programs_.back();
    const std::string own = homeFolder.empty() ? home.path() : homeFolder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"HOME"_s, QString::fromStdString(own));
    environment.insert(u"APPDATA"_s, QString::fromStdString(own));
    environment.remove(u"XDG_CONFIG_HOME"_s);
    program.setProcessEnvironment(environment);
    program.start(QString::fromUtf8(KALVIRA_BIN "/kalvira"), arguments);
    EXPECT_TRUE(program.waitForStarted());
    return program;
  }
  QString at(const char* name) const { return QString::fromStdString(home / name); }
  bool isOpen(const char* name) {
    const auto file = files->open(home / name, base::OpenMode::ReadWrite);
    return !file && file.error().code == base::ErrorCode::InUse;
  }
  bool opens(const char* name) {
    return QTest::qWaitFor([&] { return isOpen(name); }, 20'000);
  }

  support::TemporaryFolder home;
  std::unique_ptr<base::FileSystem> files = base::makeDiskFileSystem();

 private:
  std::vector<std::unique_ptr<QProcess>> programs_;
};

TEST_F(SecondStart, HandsItsFileToTheOneThatRuns) {
  QProcess& first = start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  QProcess& second = start({at("B.kwd")});
  ASSERT_TRUE(second.waitForFinished(20'000));
  EXPECT_EQ(second.exitCode(), 0);
  ASSERT_TRUE(opens("B.kwd"));
  EXPECT_EQ(first.state(), QProcess::Running);
  EXPECT_FALSE(isOpen("A.kwd")) << "it has taken the place of the first";

  // One that was killed answers nobody and hinders nobody.
  first.kill();
  ASSERT_TRUE(first.waitForFinished());
  QProcess& third = start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  QProcess& fourth = start({at("B.kwd")});
  ASSERT_TRUE(fourth.waitForFinished(20'000));
  EXPECT_TRUE(opens("B.kwd"));
  EXPECT_EQ(third.state(), QProcess::Running);
}

// A file that was handed over to a program that then died is opened by the one that waited.
TEST_F(SecondStart, WhatNobodyWaitsForIsNotOpenedLater) {
  QProcess& first = start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  first.kill();
  ASSERT_TRUE(first.waitForFinished());
  std::filesystem::path message;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(home.path()))
    if (entry.path().filename() == "sperre") message = entry.path().parent_path() / "1.oeffnen";
  ASSERT_FALSE(message.empty());
  std::ofstream(message) << (home / "B.kwd");
  using std::filesystem::file_time_type;
  std::filesystem::last_write_time(message, file_time_type::clock::now() - std::chrono::minutes(1));
  start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  EXPECT_FALSE(std::filesystem::exists(message));
  EXPECT_FALSE(isOpen("B.kwd"));
}

TEST_F(SecondStart, AnotherHomeFolderIsAnotherUser) {
  const support::TemporaryFolder other;
  start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  QProcess& second = start({at("B.kwd")}, other.path());
  ASSERT_TRUE(opens("B.kwd"));
  EXPECT_EQ(second.state(), QProcess::Running);
  EXPECT_TRUE(isOpen("A.kwd"));
}

TEST_F(SecondStart, CommandsAndChosenFoldersAreNotHandedOver) {
  start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  QProcess& check = start({u"--pruefen"_s, at("B.kwd")});
  ASSERT_TRUE(check.waitForFinished(20'000));
  EXPECT_TRUE(QString::fromUtf8(check.readAllStandardOutput()).contains(u"keine Fehler"_s));
  QProcess& apart = start({u"--datenordner"_s, QString::fromStdString(home.path()), at("B.kwd")});
  ASSERT_TRUE(opens("B.kwd"));
  EXPECT_EQ(apart.state(), QProcess::Running);
  EXPECT_TRUE(isOpen("A.kwd"));
}

// It is stopped, as while it works out something long: whoever waits opens the year itself.
#ifndef _WIN32
TEST_F(SecondStart, OneThatDoesNotAnswerIsNotWaitedForLong) {
  QProcess& first = start({at("A.kwd")});
  ASSERT_TRUE(opens("A.kwd"));
  ASSERT_EQ(::kill(pid_t(first.processId()), SIGSTOP), 0);
  QProcess& second = start({at("B.kwd")});
  EXPECT_TRUE(opens("B.kwd"));
  EXPECT_EQ(second.state(), QProcess::Running);
}
#endif

}  // namespace
