#include "dialogs/PrintSystem.h"

#ifndef _WIN32

#include <QPageSize>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace dialogs {
namespace {

constexpr int kNoDefaultPrinter = 0x1008;  // the number that other systems give this failure

std::int16_t duplexNumber(QPrinter::DuplexMode mode) {
  if (mode == QPrinter::DuplexLongSide) return 2;
  return mode == QPrinter::DuplexShortSide ? 3 : 1;
}

std::int16_t tenthsOfMillimetre(double millimetres) {
  return static_cast<std::int16_t>(qRound(millimetres * 10));
}

DeviceMode deviceModeOf(const QPrinter& printer) {
  DeviceMode mode{};
  const QPageSize paper = printer.pageLayout().pageSize();
  const bool upright = printer.pageLayout().orientation() == QPageLayout::Portrait;
  mode.deviceName = deviceModeText(printer.printerName().toStdString());
  mode.size = static_cast<std::uint16_t>(sizeof(mode));
  mode.orientation = upright ? kPortrait : kLandscape;
  mode.paperSize = static_cast<std::int16_t>(paper.windowsId());
  mode.paperLength = tenthsOfMillimetre(paper.size(QPageSize::Millimeter).height());
  mode.paperWidth = tenthsOfMillimetre(paper.size(QPageSize::Millimeter).width());
  mode.copies = static_cast<std::int16_t>(printer.copyCount());
  mode.printQuality = static_cast<std::int16_t>(printer.resolution());
  mode.yResolution = static_cast<std::int16_t>(printer.resolution());
  mode.color = static_cast<std::int16_t>(printer.colorMode() == QPrinter::Color ? 2 : 1);
  mode.duplex = duplexNumber(printer.duplex());
  mode.collate = static_cast<std::int16_t>(printer.collateCopies() ? 1 : 0);
  mode.defaultSource = static_cast<std::int16_t>(printer.paperSource());
  mode.formName = deviceModeText(paper.name().toStdString());
  mode.fields = kOrientation | kPaperSize | kPaperLength | kPaperWidth | kCopies | kPrintQuality |
                kYResolution | kColor | kDuplex | kCollate | kDefaultSource | kFormName;
  return mode;
}

class QtPrintSystem final : public PrintSystem {
 public:
  PrintReply ask(QWidget* owner, const PrintRequest& request) override {
    PrintReply reply;
    reply.pages = request;
    if (request.flags & kReturnDefaultFlag) {
      reply.defaultDevice = QPrinterInfo::defaultPrinterName();
      const bool found = !reply.defaultDevice.isEmpty();
      reply.outcome = found ? PrintReply::Outcome::Accepted : PrintReply::Outcome::Failed;
      reply.error = found ? 0 : kNoDefaultPrinter;
      reply.deviceMode = deviceModeOf(printer_);
      return reply;
    }
    QPrintDialog dialog(&printer_, owner);
    setUp(dialog, request);
    if (dialog.exec() != QDialog::Accepted) return reply;
    reply.outcome = PrintReply::Outcome::Accepted;
    reply.deviceMode = deviceModeOf(printer_);
    reply.pages.fromPage = static_cast<std::uint16_t>(dialog.fromPage());
    reply.pages.toPage = static_cast<std::uint16_t>(dialog.toPage());
    reply.pages.copies = static_cast<std::uint16_t>(printer_.copyCount());
    return reply;
  }

  base::Result<DeviceMode> documentProperties(const QString& device, QWidget*) override {
    const QPrinterInfo info = QPrinterInfo::printerInfo(device);
    if (info.isNull()) {
      base::Error error;
      error.code = base::ErrorCode::NotFound;
      error.systemError = ENODEV;
      return base::fail(std::move(error));
    }
    return deviceModeOf(QPrinter(info));
  }

  QStringList printers() const override { return QPrinterInfo::availablePrinterNames(); }
  QString nameInDeviceMode(const QString& printer) const override {
    return QString::fromStdString(textOf(deviceModeText(printer.toStdString())));
  }

  QPrinter& printer() override { return printer_; }
  void makeCurrent(const QString& printerName) override {
    // The dialog has set it already, with every choice made there; setting it again loses them.
    if (printer_.printerName() != printerName) printer_.setPrinterName(printerName);
  }
  PrinterState state() const override {
    const QPageLayout layout = printer_.pageLayout();
    return {layout.orientation() == QPageLayout::Portrait ? kPortrait : kLandscape,
            static_cast<std::int16_t>(layout.pageSize().windowsId())};
  }
  void setState(const PrinterState& wanted) override {
    const PrinterState current = state();
    if (wanted.orientation != current.orientation)
      printer_.setPageOrientation(wanted.orientation == kPortrait ? QPageLayout::Portrait
                                                                  : QPageLayout::Landscape);
    if (wanted.paperSize != current.paperSize)
      printer_.setPageSize(QPageSize(QPageSize::id(int{wanted.paperSize})));
  }

 private:
  static void setUp(QPrintDialog& dialog, const PrintRequest& request) {
    const auto has = [&](std::uint32_t flag) { return (request.flags & flag) != 0; };
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, !has(kNoPageNumsFlag));
    dialog.setOption(QAbstractPrintDialog::PrintSelection, has(kSelectionFlag));
    dialog.setOption(QAbstractPrintDialog::PrintToFile, !has(kDisablePrintToFileFlag));
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies, true);
    dialog.printer()->setCollateCopies(has(kCollateFlag));
    dialog.printer()->setCopyCount(std::max<int>(1, request.copies));
    if (request.maxPage >= std::max<int>(1, request.minPage))
      dialog.setMinMax(std::max<int>(1, request.minPage), request.maxPage);
    if (request.fromPage > 0) dialog.setFromTo(request.fromPage, request.toPage);
    if (has(kPageNumsFlag)) dialog.setPrintRange(QAbstractPrintDialog::PageRange);
    if (has(kSelectionFlag)) dialog.setPrintRange(QAbstractPrintDialog::Selection);
  }

  QPrinter printer_{QPrinter::HighResolution};
};

}  // namespace

std::unique_ptr<PrintSystem> makePrintSystem() {
  return std::make_unique<QtPrintSystem>();
}

}  // namespace dialogs

#endif
