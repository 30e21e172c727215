#include "dialogs/PrintSystem.h"

#ifdef _WIN32

#include <windows.h>
// After windows.h.
#include <commdlg.h>
#include <winspool.h>

#include <QPageSize>
#include <QPrinterInfo>
#include <QWidget>
#include <string>
#include <vector>

namespace dialogs {
namespace {

HWND handleOf(QWidget* owner) {
  return owner ? reinterpret_cast<HWND>(owner->window()->winId()) : nullptr;
}

// A movable memory block that the dialog has returned; freed at the end.
class GlobalBlock {
 public:
  explicit GlobalBlock(HGLOBAL handle) : handle_(handle) {
    if (handle_) bytes_ = static_cast<const std::uint8_t*>(GlobalLock(handle_));
  }
  ~GlobalBlock() {
    if (!handle_) return;
    GlobalUnlock(handle_);
    GlobalFree(handle_);
  }
  GlobalBlock(const GlobalBlock&) = delete;
  GlobalBlock& operator=(const GlobalBlock&) = delete;

  base::ByteSpan bytes() const {
    return bytes_ ? base::ByteSpan(bytes_, GlobalSize(handle_)) : base::ByteSpan();
  }

 private:
  HGLOBAL handle_;
  const std::uint8_t* bytes_ = nullptr;
};

QString wideText(const wchar_t* text, std::size_t limit) {
  std::size_t length = 0;
  while (length < limit && text[length] != L'\0') ++length;
  return QString::fromWCharArray(text, static_cast<int>(length));
}

std::array<char, 32> textField(const wchar_t* text, std::size_t limit) {
  return deviceModeText(wideText(text, limit).toStdString());
}

DeviceMode deviceModeOf(const DEVMODEW& wide) {
  DeviceMode mode{};
  mode.deviceName = textField(wide.dmDeviceName, CCHDEVICENAME);
  mode.specVersion = wide.dmSpecVersion;
  mode.driverVersion = wide.dmDriverVersion;
  mode.size = static_cast<std::uint16_t>(sizeof(mode));
  mode.driverExtra = wide.dmDriverExtra;
  mode.fields = static_cast<std::uint32_t>(wide.dmFields);
  mode.orientation = wide.dmOrientation;
  mode.paperSize = wide.dmPaperSize;
  mode.paperLength = wide.dmPaperLength;
  mode.paperWidth = wide.dmPaperWidth;
  mode.scale = wide.dmScale;
  mode.copies = wide.dmCopies;
  mode.defaultSource = wide.dmDefaultSource;
  mode.printQuality = wide.dmPrintQuality;
  mode.color = wide.dmColor;
  mode.duplex = wide.dmDuplex;
  mode.yResolution = wide.dmYResolution;
  mode.ttOption = wide.dmTTOption;
  mode.collate = wide.dmCollate;
  mode.formName = textField(wide.dmFormName, CCHFORMNAME);
  mode.icmMethod = static_cast<std::uint32_t>(wide.dmICMMethod);
  mode.icmIntent = static_cast<std::uint32_t>(wide.dmICMIntent);
  mode.mediaType = static_cast<std::uint32_t>(wide.dmMediaType);
  mode.ditherType = static_cast<std::uint32_t>(wide.dmDitherType);
  return mode;
}

class WindowsPrintSystem final : public PrintSystem {
 public:
  PrintReply ask(QWidget* owner, const PrintRequest& request) override {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = handleOf(owner);
    dialog.Flags = request.flags;
    dialog.nFromPage = request.fromPage;
    dialog.nToPage = request.toPage;
    dialog.nMinPage = request.minPage;
    dialog.nMaxPage = request.maxPage;
    dialog.nCopies = request.copies;
    PrintReply reply;
    reply.pages = request;
    if (!PrintDlgW(&dialog)) {
      reply.error = static_cast<std::int32_t>(CommDlgExtendedError());
      reply.outcome = reply.error ? PrintReply::Outcome::Failed : PrintReply::Outcome::Cancelled;
      return reply;
    }
    if (dialog.hDC) DeleteDC(dialog.hDC);
    const GlobalBlock names(dialog.hDevNames);
    const GlobalBlock settings(dialog.hDevMode);
    reply.outcome = PrintReply::Outcome::Accepted;
    reply.pages = {static_cast<std::uint32_t>(dialog.Flags),
                   dialog.nFromPage,
                   dialog.nToPage,
                   dialog.nMinPage,
                   dialog.nMaxPage,
                   dialog.nCopies};
    if (settings.bytes().size() >= sizeof(DEVMODEW))
      reply.deviceMode = deviceModeOf(*reinterpret_cast<const DEVMODEW*>(settings.bytes().data()));
    readNames(names.bytes(), reply);
    return reply;
  }

  base::Result<DeviceMode> documentProperties(const QString& device, QWidget* owner) override {
    std::wstring name = device.toStdWString();
    PRINTER_DEFAULTSW access{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE printer = nullptr;
    if (!OpenPrinterW(name.data(), &printer, &access)) return systemFailure();
    const LONG size =
        DocumentPropertiesW(handleOf(owner), printer, name.data(), nullptr, nullptr, 0);
    if (size <= 0) {
      auto failure = systemFailure();
      ClosePrinter(printer);
      return failure;
    }
    std::vector<std::uint64_t> out(static_cast<std::size_t>(size) / 8 + 1);
    auto* settings = reinterpret_cast<DEVMODEW*>(out.data());
    DocumentPropertiesW(handleOf(owner), printer, name.data(), settings, nullptr, DM_OUT_BUFFER);
    ClosePrinter(printer);
    return deviceModeOf(*settings);
  }

  QStringList printers() const override { return QPrinterInfo::availablePrinterNames(); }
  QString nameInDeviceMode(const QString& printer) const override {
    // The field of the system's record ends one character before its end.
    return QString::fromStdString(
        textOf(deviceModeText(printer.left(CCHDEVICENAME - 1).toStdString())));
  }

  QPrinter& printer() override { return printer_; }
  void makeCurrent(const QString& printerName) override { printer_.setPrinterName(printerName); }
  PrinterState state() const override {
    const QPageLayout layout = printer_.pageLayout();
    return {layout.orientation() == QPageLayout::Portrait ? kPortrait : kLandscape,
            static_cast<std::int16_t>(layout.pageSize().windowsId())};
  }
  void setState(const PrinterState& state) override {
    printer_.setPageOrientation(state.orientation == kPortrait ? QPageLayout::Portrait
                                                               : QPageLayout::Landscape);
    if (state.paperSize > 0) printer_.setPageSize(QPageSize(QPageSize::id(int{state.paperSize})));
  }

 private:
  static tl::unexpected<base::Error> systemFailure() {
    base::Error error;
    error.code = base::ErrorCode::AccessDenied;
    error.systemError = static_cast<int>(GetLastError());
    return base::fail(std::move(error));
  }

  // Four offsets in characters (driver, device, output, default), then the texts.
  static void readNames(base::ByteSpan bytes, PrintReply& reply) {
    if (bytes.size() < sizeof(DEVNAMES)) return;
    const auto* names = reinterpret_cast<const DEVNAMES*>(bytes.data());
    reply.deviceNames = {names->wDriverOffset, names->wDeviceOffset, names->wOutputOffset,
                         names->wDefault};
    const std::size_t characters = bytes.size() / sizeof(wchar_t);
    if (names->wDeviceOffset >= characters) return;
    reply.defaultDevice =
        wideText(reinterpret_cast<const wchar_t*>(bytes.data()) + names->wDeviceOffset,
                 characters - names->wDeviceOffset);
  }

  QPrinter printer_{QPrinter::HighResolution};
};

}  // namespace

std::unique_ptr<PrintSystem> makePrintSystem() {
  return std::make_unique<WindowsPrintSystem>();
}

}  // namespace dialogs

#endif
