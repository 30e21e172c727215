#include "dialogs/clsPrintDialog.h"

#include "dialogs/Prompts.h"

using namespace Qt::StringLiterals;
using dialogs::PrintReply;

clsPrintDialog::clsPrintDialog(dialogs::Prompts& prompts, QObject* parent)
    : clsPrintDialog(prompts, dialogs::makePrintSystem(), parent) {}

clsPrintDialog::clsPrintDialog(dialogs::Prompts& prompts,
                               std::unique_ptr<dialogs::PrintSystem> system, QObject* parent)
    : QObject(parent), prompts_(prompts), system_(std::move(system)) {}

clsPrintDialog::~clsPrintDialog() = default;

dialogs::PrintRequest clsPrintDialog::request() const {
  const std::pair<bool, std::uint32_t> options[] = {
      {PD_AllPages, dialogs::kAllPagesFlag},
      {PD_PageNums, dialogs::kPageNumsFlag},
      {PD_Selection, dialogs::kSelectionFlag},
      {PD_Collate, dialogs::kCollateFlag},
      {PD_DisablePrintToFile, dialogs::kDisablePrintToFileFlag},
      {PD_NoPageNums, dialogs::kNoPageNumsFlag},
      {PD_PrintToFile, dialogs::kPrintToFileFlag},
      {PD_ReturnDC, dialogs::kReturnDcFlag},
      {PD_ReturnIC, dialogs::kReturnIcFlag},
      {PD_ReturnDefault, dialogs::kReturnDefaultFlag},
      {PD_HelpButton, dialogs::kHelpButtonFlag},
      {PD_UseDevModeCopies, dialogs::kUseDevModeCopiesFlag},
      {PD_NONETWORKBUTTON, dialogs::kNoNetworkButtonFlag}};
  dialogs::PrintRequest request;
  for (const auto& [set, flag] : options)
    if (set) request.flags |= flag;
  request.fromPage = PDnFromPage;
  request.toPage = PDnToPage;
  request.minPage = PDnMinPage;
  request.maxPage = PDnMaxPage;
  request.copies = PDnCopies;
  return request;
}

void clsPrintDialog::ShowPrinter(QWidget* owner) {
  cancelled_ = false;
  const PrintReply reply = system_->ask(owner, request());
  if (reply.outcome == PrintReply::Outcome::Failed) return fail(reply.error, owner);
  if (reply.outcome == PrintReply::Outcome::Cancelled) {
    cancelled_ = true;
    return;
  }
  deviceNames_ = reply.deviceNames;
  deviceMode_ = reply.deviceMode;
  fields_ = deviceMode_.fields;
  DriverVersion = deviceMode_.driverVersion;
  PDnFromPage = reply.pages.fromPage;
  PDnToPage = reply.pages.toPage;
  PDnMinPage = reply.pages.minPage;
  PDnMaxPage = reply.pages.maxPage;
  PDnCopies = reply.pages.copies;
  takePrinter();

  dialogs::PrinterState state = system_->state();
  applyDeviceMode(deviceMode_, *this, state);
  system_->setState(state);
}

// The first printer of that name becomes the current one; where there is none it stays.
void clsPrintDialog::takePrinter() {
  const QString wanted = QString::fromStdString(dialogs::textOf(deviceMode_.deviceName));
  for (const QString& printer : system_->printers()) {
    if (system_->nameInDeviceMode(printer) != wanted) continue;
    system_->makeCurrent(printer);
    break;
  }
  DeviceName = system_->printer().printerName();
}

void clsPrintDialog::fail(qint32 error, QWidget* owner) {
  bool cancel = false;
  Q_EMIT DialogError(error, u"Der Druckdialog konnte nicht angezeigt werden."_s, cancel);
  prompts_.tell(owner, cancel ? u"Cancel war gesetzt"_s : u"Cancel war nicht gesetzt"_s);
}

QString clsPrintDialog::GetDefaultPrinterName() {
  dialogs::PrintRequest request;
  request.flags = dialogs::kReturnDefaultFlag;
  const PrintReply reply = system_->ask(nullptr, request);
  if (reply.outcome == PrintReply::Outcome::Accepted) return ClipNullChar(reply.defaultDevice);
  if (reply.outcome == PrintReply::Outcome::Failed) fail(reply.error, nullptr);
  return {};
}

base::Result<void> clsPrintDialog::ChangeDocProperties(const QString& deviceName, QWidget* owner) {
  auto mode = system_->documentProperties(deviceName, owner);
  if (!mode) {
    base::Error error = mode.error();
    error.subject = deviceName.toStdString();
    error.detail = "Fehler in ChangeDocProperties";
    return base::fail(std::move(error));
  }
  deviceMode_ = *mode;
  DriverVersion = deviceMode_.driverVersion;
  return {};
}

QString clsPrintDialog::ClipNullChar(const QString& text) {
  return text.left(text.indexOf(QChar(u'\0')));
}
