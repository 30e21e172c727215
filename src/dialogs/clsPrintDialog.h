#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "base/Result.h"
#include "dialogs/DeviceMode.h"
#include "dialogs/PrintSystem.h"

class QWidget;

namespace dialogs {
class Prompts;
}

// The system's print dialog with plain properties: set pages and options, call ShowPrinter, and
// unless Cancelled() print on printer(), which the dialog has made the current one. The settings
// properties (Orientation, PaperSize, ...) are those of DocumentSettings.
class clsPrintDialog final : public QObject, public dialogs::DocumentSettings {
  Q_OBJECT
 public:
  explicit clsPrintDialog(dialogs::Prompts& prompts, QObject* parent = nullptr);
  clsPrintDialog(dialogs::Prompts& prompts, std::unique_ptr<dialogs::PrintSystem> system,
                 QObject* parent = nullptr);
  ~clsPrintDialog() override;

  static QString Version() { return QStringLiteral("1.00 (14.01.2000)"); }
  bool Cancelled() const { return cancelled_; }

  // Page fields of the dialog, passed in and read back.
  std::uint16_t PDnFromPage = 0;
  std::uint16_t PDnToPage = 0;
  std::uint16_t PDnMinPage = 0;
  std::uint16_t PDnMaxPage = 0;
  std::uint16_t PDnCopies = 1;

  // Options of the dialog.
  bool PD_AllPages = false;
  bool PD_PageNums = false;
  bool PD_Selection = false;
  bool PD_Collate = false;
  bool PD_DisablePrintToFile = false;
  bool PD_NoPageNums = false;
  bool PD_PrintToFile = false;
  bool PD_ReturnDC = false;
  bool PD_ReturnIC = false;
  bool PD_ReturnDefault = false;
  bool PD_HelpButton = false;
  bool PD_UseDevModeCopies = false;
  // The name is a macro where the system's headers are included as well; those stay out of here.
  bool PD_NONETWORKBUTTON = false;

  QString DeviceName;
  std::uint16_t DriverVersion = 0;

  // Did the last dialog's printer fill in the setting?
  bool OrientationValid() const { return isValid(dialogs::kOrientation); }
  bool PaperSizeValid() const { return isValid(dialogs::kPaperSize); }
  bool PaperLengthValid() const { return isValid(dialogs::kPaperLength); }
  bool PaperWidthValid() const { return isValid(dialogs::kPaperWidth); }
  bool ScalePercentValid() const { return isValid(dialogs::kScale); }
  bool CopiesValid() const { return isValid(dialogs::kCopies); }
  bool DefaultSourceValid() const { return isValid(dialogs::kDefaultSource); }
  bool PrintQualityValid() const { return isValid(dialogs::kPrintQuality); }
  bool ColorValid() const { return isValid(dialogs::kColor); }
  bool DuplexValid() const { return isValid(dialogs::kDuplex); }
  bool YResolutionValid() const { return isValid(dialogs::kYResolution); }
  bool TTOptionValid() const { return isValid(dialogs::kTTOption); }
  bool CollateValid() const { return isValid(dialogs::kCollate); }
  bool FormNameValid() const { return isValid(dialogs::kFormName); }
  bool MediaTypeValid() const { return isValid(dialogs::kMediaType); }
  bool ICMMethodValid() const { return isValid(dialogs::kIcmMethod); }
  bool ICMIntentValid() const { return isValid(dialogs::kIcmIntent); }
  bool DitherTypeValid() const { return isValid(dialogs::kDitherType); }

  void ShowPrinter(QWidget* owner);
  // "" on failure, which is told as in ShowPrinter.
  QString GetDefaultPrinterName();
  // Fetches the printer's document properties; DriverVersion follows. The error's detail is
  // "Fehler in ChangeDocProperties", systemError says why.
  base::Result<void> ChangeDocProperties(const QString& deviceName, QWidget* owner);
  static QString ClipNullChar(const QString& text);

  const dialogs::DeviceMode& deviceMode() const { return deviceMode_; }
  QPrinter& printer() { return system_->printer(); }

 Q_SIGNALS:
  // The system's dialog has failed. Connect directly: cancel is read when the handlers are done.
  void DialogError(qint32 number, const QString& description, bool& cancel);

 private:
  bool isValid(std::uint32_t field) const { return (fields_ & field) != 0; }
  dialogs::PrintRequest request() const;
  void fail(qint32 error, QWidget* owner);
  void takePrinter();

  dialogs::Prompts& prompts_;
  std::unique_ptr<dialogs::PrintSystem> system_;
  bool cancelled_ = false;
  std::uint32_t fields_ = 0;
  dialogs::DeviceMode deviceMode_{};
  std::array<std::uint16_t, 4> deviceNames_{};
};
