#pragma once

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QRadioButton>
#include <QSlider>
#include <functional>
#include <memory>

#include "charts/ui/ChartTypeLabel.h"
#include "charts/ui/ChartWidget.h"
#include "charts/ui/PictureOutput.h"
#include "dialogs/Window.h"
#include "widgets/control.h"

class QGridLayout;

namespace charts {

// What both chart windows share: the chart, its types, text and 3-D options, the menus with
// pictures, clipboard and printing. Modal.
class ChartWindow : public dialogs::Window {
  Q_OBJECT
 public:
  ChartWidget* const Chart2D1 = widgets::control<ChartWidget>(this, "Chart2D1");

  QGroupBox* const frTyp = widgets::control<QGroupBox>(this, "frTyp");
  const widgets::ControlArray<ChartTypeLabel, kChartTypeCount> lblChartType{this, "lblChartType"};

  QGroupBox* const frDaten = widgets::control<QGroupBox>(this, "frDaten");

  QGroupBox* const frOptionen = widgets::control<QGroupBox>(this, "frOptionen");
  QCheckBox* const chkTextOnOff = widgets::control<QCheckBox>(this, "chkTextOnOff");
  const widgets::ControlArray<QRadioButton, 3> optDrehen{this, "optDrehen"};
  QListWidget* const List1 = widgets::control<QListWidget>(this, "List1");
  QLabel* const lblSchrift = widgets::control<QLabel>(this, "lblSchrift");
  QListWidget* const List2 = widgets::control<QListWidget>(this, "List2");
  QLabel* const lblAbstand = widgets::control<QLabel>(this, "lblAbstand");

  QGroupBox* const frOpt = widgets::control<QGroupBox>(this, "frOpt");
  QCheckBox* const opt3D = widgets::control<QCheckBox>(this, "opt3D");
  QSlider* const UpDown1 = widgets::control<QSlider>(this, "UpDown1", Qt::Horizontal);
  QSlider* const UpDown2 = widgets::control<QSlider>(this, "UpDown2", Qt::Horizontal);
  QSlider* const UpDown3 = widgets::control<QSlider>(this, "UpDown3", Qt::Horizontal);
  QLabel* const lblDepth = widgets::control<QLabel>(this, "lblDepth");
  QLabel* const lblElevation = widgets::control<QLabel>(this, "lblElevation");
  QLabel* const lblRotation = widgets::control<QLabel>(this, "lblRotation");

  QPushButton* const picBeenden = widgets::control<QPushButton>(this, "picBeenden");

  QMenuBar* const menuBar = widgets::control<QMenuBar>(this, "menuBar");
  QAction* const mnuSaveBmp = action("mnuSaveBmp");
  QAction* const mnuSaveWmf = action("mnuSaveWmf");
  QAction* const mnuSaveEnhWmf = action("mnuSaveEnhWmf");
  QAction* const mnuSavePng = action("mnuSavePng");
  QAction* const mnuSaveSvg = action("mnuSaveSvg");
  QAction* const mnuCopyBmp = action("mnuCopyBmp");
  QAction* const mnuCopyWmf = action("mnuCopyWmf");
  QAction* const mnuCopyEnhWmf = action("mnuCopyEnhWmf");
  QAction* const mnuExit = action("mnuExit");
  QAction* const mnuDruckNone = action("mnuDruckNone");
  QAction* const mnuDruckW = action("mnuDruckW");
  QAction* const mnuDruckH = action("mnuDruckH");
  QAction* const mnuDruckAnp = action("mnuDruckAnp");
  QAction* const mnuDruckMax = action("mnuDruckMax");
  // What is shown of each month; one of them is checked.
  QAction* const mnuWerteVerbrauch = action("mnuWerteVerbrauch");
  QAction* const mnuWerteNetto = action("mnuWerteNetto");
  QAction* const mnuWerteBrutto = action("mnuWerteBrutto");
  QAction* const mnuAussen = action("mnuAussen");
  QAction* const mnuInnen = action("mnuInnen");
  QAction* const mnuStandardfarben = action("mnuStandardfarben");
  QAction* const mnuUeblap50 = action("mnuUeblap50");
  QAction* const mnuRahmen = action("mnuRahmen");
  QAction* const mnuProzent = action("mnuProzent");
  QAction* const mnuEinAus = action("mnuEinAus");
  QAction* const mnuReverse = action("mnuReverse");
  QAction* const mnuHilfe = action("mnuHilfe");
  QAction* const mnuDimensions = action("mnuDimensions");  // shown by lblDimensions
  QLabel* const lblDimensions = widgets::control<QLabel>(this, "lblDimensions");

  // The printer that the print commands use; the system's current one unless set.
  using PrinterSource = std::function<std::unique_ptr<QPrinter>()>;
  void setPrinterSource(PrinterSource source) { printerSource_ = std::move(source); }

 protected:
  ChartWindow(const char* name, const QString& caption, const dialogs::Services& services,
              QWidget* parent);

  // Puts a selection button into the data frame.
  void addSelection(QRadioButton* button, const QString& caption);
  void selectType(ChartType type);
  ChartType selectedType() const { return options_.type; }
  Shown shown() const;
  // Shows what is selected.
  virtual void draw() = 0;

  QMenu* chartMenu() const { return chartMenu_; }

 private:
  using Encoder = std::function<QByteArray(const Scene&)>;

  QAction* action(const char* name);
  QMenu* addMenu(const char* name, const QString& title);

  void buildMenus();
  void buildChartMenu();
  void buildPrintMenu();
  void buildValueMenu();
  void buildLayout();
  QWidget* buildOptionColumn();
  void buildTypeFrame();
  void buildTextFrame();
  void buildDepthFrame();
  void connectControls();

  void applyTextOptions();
  void applyDepth();
  void opt3DClick();
  void showDimensions();
  void chooseColor(std::optional<Color> ChartOptions::*target, Color start);
  void applyOptions() { Chart2D1->setOptions(options_); }

  enum class OnFailure { Silent, Tell };
  void savePicture(const QString& filter, const std::string& extension, const Encoder& encode,
                   OnFailure onFailure);
  void print(PrintFit fit, PictureFormat format);
  double pixelScale() const { return devicePixelRatioF(); }

  ChartOptions options_;
  QMenu* chartMenu_ = nullptr;
  QGridLayout* selectionLayout_ = nullptr;
  PrinterSource printerSource_;
};

}  // namespace charts
