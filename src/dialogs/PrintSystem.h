#pragma once

#include <QPrinter>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>

#include "base/Result.h"
#include "dialogs/DeviceMode.h"

namespace dialogs {

// Bits of PrintRequest::flags. Published values.
enum PrintFlag : std::uint32_t {
  kAllPagesFlag = 0x0,
  kSelectionFlag = 0x1,
  kPageNumsFlag = 0x2,
  kNoSelectionFlag = 0x4,
  kNoPageNumsFlag = 0x8,
  kCollateFlag = 0x10,
  kPrintToFileFlag = 0x20,
  kReturnDcFlag = 0x100,
  kReturnIcFlag = 0x200,
  kReturnDefaultFlag = 0x400,
  kHelpButtonFlag = 0x800,
  kUseDevModeCopiesFlag = 0x40000,
  kDisablePrintToFileFlag = 0x80000,
  kNoNetworkButtonFlag = 0x200000,
};

struct PrintRequest {
  std::uint32_t flags = 0;
  std::uint16_t fromPage = 0;
  std::uint16_t toPage = 0;
  std::uint16_t minPage = 0;
  std::uint16_t maxPage = 0;
  std::uint16_t copies = 1;
};

struct PrintReply {
  enum class Outcome { Accepted, Cancelled, Failed };
  Outcome outcome = Outcome::Cancelled;
  std::int32_t error = 0;  // of the dialog, when it failed
  PrintRequest pages;      // flags and pages as the dialog left them
  DeviceMode deviceMode{};
  std::array<std::uint16_t, 4> deviceNames{};  // offsets into the names record
  QString defaultDevice;                       // from the names record
};

// The system's print dialog, its printers and the printer that the program prints on.
class PrintSystem {
 public:
  virtual ~PrintSystem() = default;

  // With kReturnDefaultFlag no dialog is shown.
  virtual PrintReply ask(QWidget* owner, const PrintRequest& request) = 0;
  // systemError tells why, if not.
  virtual base::Result<DeviceMode> documentProperties(const QString& device, QWidget* owner) = 0;

  virtual QStringList printers() const = 0;
  // The name as a device mode carries it: its field holds 32 bytes.
  virtual QString nameInDeviceMode(const QString& printer) const = 0;

  // The current printer; print on it.
  virtual QPrinter& printer() = 0;
  virtual void makeCurrent(const QString& printerName) = 0;
  virtual PrinterState state() const = 0;
  virtual void setState(const PrinterState& state) = 0;
};

// The real one: on Windows the native dialog, elsewhere the dialog of the print system.
std::unique_ptr<PrintSystem> makePrintSystem();

}  // namespace dialogs
