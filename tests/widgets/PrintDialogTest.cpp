#include <gtest/gtest.h>

#include <cstring>

#include "dialogs/clsPrintDialog.h"
#include "support/ui/FakePrintSystem.h"
#include "support/ui/FakePrompts.h"

using namespace Qt::StringLiterals;

namespace {

using dialogs::DeviceMode;
using dialogs::PrintReply;

// A record as a printer on another system hands it over, byte by byte.
DeviceMode recordedMode() {
  base::Bytes bytes(200, 0xEE);
  const auto put16 = [&](std::size_t at, int value) {
    bytes[at] = static_cast<std::uint8_t>(value & 0xFF);
    bytes[at + 1] = static_cast<std::uint8_t>(value >> 8 & 0xFF);
  };
  std::memcpy(bytes.data(), "Büro", 6);
  put16(34, 0x0501);
  put16(40, 0xF);     // orientation, paper size, length, width
  put16(42, 0x0001);  // form name
  put16(44, 2);
  put16(46, 9);
  put16(48, 2970);
  put16(50, 2100);
  put16(54, 7);
  std::memcpy(bytes.data() + 70, "A4", 3);
  DeviceMode mode{};
  std::memcpy(&mode, bytes.data(), sizeof(mode));
  return mode;
}

TEST(DeviceMode, RecordLiesAsSystemsWriteIt) {
  const DeviceMode mode = recordedMode();
  EXPECT_EQ(dialogs::textOf(mode.deviceName), "Büro");
  EXPECT_EQ(mode.driverVersion, 0x0501);
  EXPECT_EQ(mode.fields, 0x1000FU);
  EXPECT_EQ(mode.paperLength, 2970);
  EXPECT_EQ(mode.copies, 7);
  EXPECT_EQ(dialogs::textOf(mode.formName), "A4");
  EXPECT_EQ(mode.ditherType, 0xEEEEEEEEU);
}

TEST(DeviceMode, OnlyMarkedSettingsAreTaken) {
  dialogs::DocumentSettings settings;
  settings.Color = 2;
  settings.Copies = 5;
  dialogs::PrinterState printer;
  applyDeviceMode(recordedMode(), settings, printer);
  EXPECT_EQ(settings.Orientation, 2);
  EXPECT_EQ(settings.PaperSize, 9);
  EXPECT_EQ(printer.orientation, 2);
  EXPECT_EQ(printer.paperSize, 9);
  EXPECT_EQ(settings.FormName, "A4");
  EXPECT_EQ(settings.Color, 2);
  EXPECT_EQ(settings.Copies, 1) << "the printer does not mark its 7 copies";
  EXPECT_EQ(settings.PaperLength, 2100);
  EXPECT_EQ(settings.PaperWidth, 2970);
}

TEST(DeviceMode, UprightPaperKeepsLengthAndWidth) {
  DeviceMode mode{};
  mode.fields = 0x1U | 0x4U | 0x8U | 0x100U;
  mode.orientation = std::int16_t{1};
  mode.paperLength = std::int16_t{2970};
  mode.paperWidth = std::int16_t{2100};
  mode.copies = std::int16_t{3};
  dialogs::DocumentSettings settings;
  dialogs::PrinterState printer{dialogs::kLandscape, 0};
  applyDeviceMode(mode, settings, printer);
  EXPECT_EQ(settings.PaperLength, 2970);
  EXPECT_EQ(settings.PaperWidth, 2100);
  EXPECT_EQ(settings.Copies, 3);
  // Without an orientation of its own the printer's counts.
  mode.fields = 0x4U;
  printer.orientation = dialogs::kLandscape;
  settings.PaperWidth = 0;
  applyDeviceMode(mode, settings, printer);
  EXPECT_EQ(settings.PaperWidth, 2970);
}

TEST(DeviceMode, LongNamesAreCutBetweenCharacters) {
  const std::string name = "Drucker im Arbeitszimmer oben üc";  // the ü is bytes 31 and 32
  EXPECT_EQ(dialogs::textOf(dialogs::deviceModeText(name)), "Drucker im Arbeitszimmer oben ü");
  EXPECT_EQ(dialogs::textOf(dialogs::deviceModeText("x" + name)),
            "xDrucker im Arbeitszimmer oben ");
}

class PrintDialog : public testing::Test {
 protected:
  PrintDialog() {
    auto owned = std::make_unique<FakePrintSystem>();
    system_ = owned.get();
    dialog_ = std::make_unique<clsPrintDialog>(prompts_, std::move(owned));
    system_->names = {u"Flur"_s, u"Büro"_s};
    system_->reply.deviceMode = recordedMode();
  }

  FakePrompts prompts_;
  FakePrintSystem* system_ = nullptr;
  std::unique_ptr<clsPrintDialog> dialog_;
};

TEST_F(PrintDialog, FlagsHaveTheirPublishedValues) {
  dialog_->PD_AllPages = true;
  bool clsPrintDialog::*const flags[] = {
      &clsPrintDialog::PD_Selection,          &clsPrintDialog::PD_PageNums,
      &clsPrintDialog::PD_NoPageNums,         &clsPrintDialog::PD_Collate,
      &clsPrintDialog::PD_PrintToFile,        &clsPrintDialog::PD_ReturnDC,
      &clsPrintDialog::PD_ReturnIC,           &clsPrintDialog::PD_ReturnDefault,
      &clsPrintDialog::PD_HelpButton,         &clsPrintDialog::PD_UseDevModeCopies,
      &clsPrintDialog::PD_DisablePrintToFile, &clsPrintDialog::PD_NONETWORKBUTTON};
  const std::uint32_t values[] = {1,   2,    8,    16,      32,      256,
                                  512, 1024, 2048, 0x40000, 0x80000, 0x200000};
  std::uint32_t all = 0;
  for (std::size_t i = 0; i < std::size(flags); ++i) {
    dialog_.get()->*flags[i] = true;
    all |= values[i];
    dialog_->ShowPrinter(nullptr);
    EXPECT_EQ(system_->requests.back().flags, all) << i;
  }
}

TEST_F(PrintDialog, CancellingChangesNothingAndSaysNothing) {
  dialog_->Copies = 4;
  dialog_->ShowPrinter(nullptr);
  EXPECT_TRUE(dialog_->Cancelled());
  EXPECT_EQ(dialog_->Copies, 4);
  EXPECT_FALSE(dialog_->OrientationValid());
  EXPECT_TRUE(prompts_.shown.empty());
}

TEST_F(PrintDialog, ChosenPrinterBecomesCurrentWithOrientationAndPaper) {
  system_->reply.outcome = PrintReply::Outcome::Accepted;
  system_->reply.pages.toPage = 3;
  dialog_->ShowPrinter(nullptr);
  EXPECT_FALSE(dialog_->Cancelled());
  EXPECT_EQ(system_->current, u"Büro"_s);
  EXPECT_EQ(system_->printerState.orientation, 2);
  EXPECT_EQ(dialog_->PDnToPage, 3);
  EXPECT_TRUE(dialog_->FormNameValid());
  EXPECT_FALSE(dialog_->ColorValid());
  EXPECT_EQ(dialog_->Copies, 1);

  system_->current.clear();
  system_->names = {u"Flur"_s};
  dialog_->ShowPrinter(nullptr);
  EXPECT_TRUE(system_->current.isEmpty()) << "a printer that is not in the list stays unchosen";
}

TEST_F(PrintDialog, FailureRaisesTheEventThenTellsWhetherItWasCancelled) {
  system_->reply.outcome = PrintReply::Outcome::Failed;
  system_->reply.error = 0x1008;
  prompts_.acceptTellings();
  dialog_->ShowPrinter(nullptr);
  EXPECT_EQ(prompts_.last().text, u"Cancel war nicht gesetzt"_s);
  qint32 number = 0;
  QObject::connect(dialog_.get(), &clsPrintDialog::DialogError, dialog_.get(),
                   [&](qint32 error, const QString&, bool& cancel) {
                     number = error;
                     cancel = true;
                   });
  EXPECT_EQ(dialog_->GetDefaultPrinterName(), QString());
  EXPECT_EQ(number, 0x1008);
  EXPECT_EQ(prompts_.last().text, u"Cancel war gesetzt"_s);
  EXPECT_FALSE(dialog_->Cancelled());
}

TEST_F(PrintDialog, DefaultPrinterAndDocumentPropertiesNeedNoDialog) {
  system_->reply.outcome = PrintReply::Outcome::Accepted;
  system_->reply.defaultDevice = u"Flur"_s + QChar(u'\0') + u"rest"_s;
  EXPECT_EQ(dialog_->GetDefaultPrinterName(), u"Flur"_s);
  EXPECT_EQ(system_->requests.back().flags, 1024U);

  system_->properties = recordedMode();
  ASSERT_TRUE(dialog_->ChangeDocProperties(u"Flur"_s, nullptr));
  EXPECT_EQ(dialog_->DriverVersion, 0x0501);
  base::Error error;
  error.systemError = 5;
  system_->properties = base::Failure(error);
  const auto failed = dialog_->ChangeDocProperties(u"Flur"_s, nullptr);
  ASSERT_FALSE(failed);
  EXPECT_EQ(failed.error().detail, "Fehler in ChangeDocProperties");
  EXPECT_EQ(failed.error().systemError, 5);
}

TEST_F(PrintDialog, TextsEndAtTheirFirstNul) {
  EXPECT_EQ(clsPrintDialog::ClipNullChar(u"ab"_s + QChar(u'\0') + u"c"_s), u"ab"_s);
  EXPECT_EQ(clsPrintDialog::ClipNullChar(u"abc"_s), u"abc"_s);
  EXPECT_EQ(clsPrintDialog::ClipNullChar(QString(QChar(u'\0'))), QString());
  EXPECT_EQ(clsPrintDialog::Version(), u"1.00 (14.01.2000)"_s);
}

}  // namespace
