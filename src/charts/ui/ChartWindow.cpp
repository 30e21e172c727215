#include "charts/ui/ChartWindow.h"

#include <QActionGroup>
#include <QEvent>

#include "charts/SvgWriter.h"
#include "dialogs/Prompts.h"

using namespace Qt::Literals::StringLiterals;

namespace charts {
namespace {

constexpr double kTwipsPerInch = 1440;

// The wheel scrolls the window; it changes a value only where the focus is.
class WheelGuard final : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(object);
    if (event->type() != QEvent::Wheel || !widget || widget->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

Color fromWindowsColor(int color) {
  return {static_cast<std::uint8_t>(color & 0xff), static_cast<std::uint8_t>(color >> 8 & 0xff),
          static_cast<std::uint8_t>(color >> 16 & 0xff)};
}

int toWindowsColor(Color color) {
  return color.red | color.green << 8 | color.blue << 16;
}

}  // namespace

ChartWindow::ChartWindow(const char* name, const QString& caption,
                         const dialogs::Services& services, QWidget* parent)
    : Window(QString::fromLatin1(name), caption, services, parent) {
  setModal(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  printerSource_ = [] { return std::make_unique<QPrinter>(QPrinter::HighResolution); };
  buildMenus();
  buildLayout();
  connectControls();
  for (QSlider* slider : {UpDown1, UpDown2, UpDown3})
    slider->installEventFilter(new WheelGuard(slider));
  selectType(ChartType::Line);
  opt3DClick();
  applyTextOptions();
}

void ChartWindow::connectControls() {
  for (int i = 0; i < lblChartType.size(); ++i) {
    connect(lblChartType(i), &ChartTypeLabel::clicked, this,
            [this, i] { selectType(static_cast<ChartType>(i)); });
    connect(lblChartType(i), &ChartTypeLabel::neighbourWanted, this, [this, i](int step) {
      const int next = (i + step + kChartTypeCount) % kChartTypeCount;
      selectType(static_cast<ChartType>(next));
      lblChartType(next)->setFocus(Qt::TabFocusReason);
    });
  }
  connect(chkTextOnOff, &QCheckBox::toggled, this, &ChartWindow::applyTextOptions);
  for (QRadioButton* button : optDrehen)
    connect(button, &QRadioButton::toggled, this, &ChartWindow::applyTextOptions);
  for (QListWidget* list : {List1, List2})
    connect(list, &QListWidget::currentRowChanged, this, &ChartWindow::applyTextOptions);
  connect(opt3D, &QCheckBox::toggled, this, &ChartWindow::opt3DClick);
  for (QSlider* slider : {UpDown1, UpDown2, UpDown3})
    connect(slider, &QSlider::valueChanged, this, &ChartWindow::applyDepth);
  connect(Chart2D1, &ChartWidget::viewDragged, this, [this](const View3D& view) {
    UpDown2->setValue(view.elevation);
    UpDown3->setValue(view.rotation);
  });
  connect(Chart2D1, &ChartWidget::resized, this, &ChartWindow::showDimensions);
}

void ChartWindow::selectType(ChartType type) {
  for (int i = 0; i < lblChartType.size(); ++i)
    lblChartType(i)->setChecked(i == static_cast<int>(type));
  options_.type = type;
  applyOptions();
}

void ChartWindow::applyTextOptions() {
  constexpr std::array kRotations = {90, 270, 0};
  options_.labels = chkTextOnOff->isChecked();
  for (int i = 0; i < optDrehen.size(); ++i)
    if (optDrehen(i)->isChecked())
      options_.labelRotation = kRotations.at(static_cast<std::size_t>(i));
  if (const QListWidgetItem* size = List1->currentItem()) {
    options_.labelSize = size->data(Qt::UserRole).toInt();
    lblSchrift->setText(size->text());
  }
  if (const QListWidgetItem* distance = List2->currentItem()) {
    options_.labelDistance = distance->data(Qt::UserRole).toInt();
    lblAbstand->setText(distance->text());
  }
  applyOptions();
}

void ChartWindow::applyDepth() {
  options_.view = {UpDown1->value(), UpDown2->value(), UpDown3->value()};
  lblDepth->setText(QString::number(options_.view.depth));
  lblElevation->setText(QString::number(options_.view.elevation));
  lblRotation->setText(QString::number(options_.view.rotation));
  applyOptions();
}

void ChartWindow::opt3DClick() {
  options_.threeD = opt3D->isChecked();
  for (QSlider* slider : {UpDown1, UpDown2, UpDown3}) slider->setEnabled(options_.threeD);
  // Captions and values.
  for (QLabel* label : frOpt->findChildren<QLabel*>()) label->setEnabled(options_.threeD);
  mnuUeblap50->setEnabled(!options_.threeD);
  mnuRahmen->setEnabled(!options_.threeD);
  applyDepth();
}

void ChartWindow::showDimensions() {
  const double perPixelX = kTwipsPerInch / Chart2D1->logicalDpiX();
  const double perPixelY = kTwipsPerInch / Chart2D1->logicalDpiY();
  mnuDimensions->setText(QString::fromStdString(
      dimensionText({Chart2D1->width() * perPixelX, Chart2D1->height() * perPixelY},
                    perPixelX / pixelScale(), perPixelY / pixelScale())));
  // The menus come first: in a narrow window it is the size in pixels alone.
  const QString whole = mnuDimensions->text().trimmed() + u"  "_s;
  constexpr int kAroundEntry = 24;
  int menus = 0;
  for (const QAction* entry : menuBar->actions())
    menus += fontMetrics().horizontalAdvance(entry->text()) + kAroundEntry;
  const bool fits = menus + fontMetrics().horizontalAdvance(whole) <= width();
  lblDimensions->setText(fits ? whole : whole.section(u' ', 2, 5) + u"  "_s);
  lblDimensions->setToolTip(fits ? QString() : whole.trimmed());
}

void ChartWindow::chooseColor(std::optional<Color> ChartOptions::*target, Color start) {
  const int chosen =
      services_.prompts.chooseColor(this, toWindowsColor((options_.*target).value_or(start)), true);
  if (chosen < 0) return;
  options_.*target = fromWindowsColor(chosen);
  applyOptions();
}

void ChartWindow::savePicture(const QString& filter, const std::string& extension,
                              const Encoder& encode, OnFailure onFailure) {
  const QString title = u"Pfad für Sicherung auswählen"_s;
  const QString proposed =
      QString::fromStdString(services_.paths.DataFolder + Chart2D1->model().title);
  const QString chosen =
      services_.prompts.saveFile(this, filter, title, proposed, QString::fromStdString(extension));
  if (chosen.isEmpty()) return;
  const QByteArray bytes = encode(Chart2D1->picture());
  const auto saved = services_.files.replaceFile(
      chosen.toStdString(),
      base::asBytes({bytes.constData(), static_cast<std::size_t>(bytes.size())}));
  if (onFailure == OnFailure::Silent)
    base::ignore(saved, "a picture that could not be written is missed where it is looked for");
  else if (!saved)
    services_.prompts.tell(this, QString::fromStdString(base::germanMessage(saved.error())), title,
                           dialogs::Icon::Warning);
}

void ChartWindow::print(PrintFit fit, PictureFormat format) {
  const std::unique_ptr<QPrinter> printer = printerSource_();
  if (!printer) return;
  printer->setDocName(windowTitle());
  printChart(*Chart2D1, *printer, fit, format);
}

void ChartWindow::buildChartMenu() {
  chartMenu_ = addMenu("mnuDiagramm", u"&Diagramm"_s);
  const QString wmfFilter = u"*.wmf (WMF Dateien)|*.wmf"_s;
  const auto save = [this](QAction* entry, const QString& text, const QString& filter,
                           const std::string& extension, const Encoder& encode,
                           OnFailure onFailure = OnFailure::Silent) {
    entry->setText(text);
    chartMenu_->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, filter, extension, encode, onFailure] {
      savePicture(filter, extension, encode, onFailure);
    });
  };
  const auto as = [this](PictureFormat format) {
    return [this, format](const Scene& scene) { return pictureBytes(scene, format, pixelScale()); };
  };
  save(mnuSaveBmp, u"Speichern als &BMP (Bitmap)"_s, u"*.bmp (BMP Dateien)|*.bmp"_s, ".bmp",
       as(PictureFormat::Bitmap));
  save(mnuSaveWmf, u"Speichern als &WMF"_s, wmfFilter, ".wmf", as(PictureFormat::Metafile));
  save(mnuSaveEnhWmf, u"Speichern als &Enh WMF"_s, wmfFilter, ".wmf",
       as(PictureFormat::EnhancedMetafile));
  save(
      mnuSavePng, u"Speichern als &PNG"_s, u"*.png (PNG Dateien)|*.png"_s, ".png",
      [this](const Scene& scene) { return pngBytes(scene, pixelScale()); }, OnFailure::Tell);
  save(
      mnuSaveSvg, u"Speichern als &SVG"_s, u"*.svg (SVG Dateien)|*.svg"_s, ".svg",
      [this](const Scene& scene) {
        return QByteArray::fromStdString(
            toSvg(scene, Chart2D1->model().title, Chart2D1->accessibleDescription().toStdString()));
      },
      OnFailure::Tell);
  chartMenu_->addSeparator();
  const auto copy = [this](QAction* entry, const QString& text, PictureFormat format) {
    entry->setText(text);
    chartMenu_->addAction(entry);
    connect(entry, &QAction::triggered, this,
            [this, format] { copyPicture(Chart2D1->picture(), format, pixelScale()); });
  };
  copy(mnuCopyBmp, u"Kopiere BMP  in den Zwischenspeicher"_s, PictureFormat::Bitmap);
  copy(mnuCopyWmf, u"Kopiere WMF  in den Zwischenspeicher"_s, PictureFormat::Metafile);
  copy(mnuCopyEnhWmf, u"Kopiere Enh WMF  in den Zwischenspeicher"_s,
       PictureFormat::EnhancedMetafile);
  mnuCopyBmp->setShortcut(QKeySequence::Copy);
  chartMenu_->addSeparator();
  mnuExit->setText(u"&Beenden"_s);
  chartMenu_->addAction(mnuExit);
  connect(mnuExit, &QAction::triggered, this, &ChartWindow::reject);
}

void ChartWindow::buildPrintMenu() {
  QMenu* menu = addMenu("mnuDrucken", u"&Drucken"_s);
  menu->setToolTipsVisible(true);
  const auto add = [this, menu](QAction* entry, const QString& text, PrintFit fit,
                                PictureFormat format) {
    entry->setText(text);
    entry->setToolTip(u"Druckt sofort auf dem Standarddrucker"_s);
    menu->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, fit, format] { print(fit, format); });
  };
  add(mnuDruckNone, u"Drucken ( 1 zu 1)"_s, PrintFit::OneToOne, PictureFormat::Bitmap);
  add(mnuDruckW, u"Drucken (Breite anpassen)"_s, PrintFit::Width, PictureFormat::Bitmap);
  // The only one that goes to the printer as lines and areas.
  add(mnuDruckH, u"Drucken (Höhe anpassen)"_s, PrintFit::Height, PictureFormat::EnhancedMetafile);
  add(mnuDruckAnp, u"Drucken (auf Seite anpassen)"_s, PrintFit::Page, PictureFormat::Bitmap);
  add(mnuDruckMax, u"Drucken (maximieren)"_s, PrintFit::Maximum, PictureFormat::Bitmap);
  mnuDruckAnp->setShortcut(QKeySequence::Print);
}

void ChartWindow::buildValueMenu() {
  QMenu* menu = addMenu("mnuWerte", u"&Werte"_s);
  auto* group = new QActionGroup(this);
  const std::pair<QAction*, QString> entries[] = {{mnuWerteVerbrauch, u"&Verbrauch"_s},
                                                  {mnuWerteNetto, u"Kosten in Euro, &netto"_s},
                                                  {mnuWerteBrutto, u"Kosten in Euro, &brutto"_s}};
  for (const auto& [entry, text] : entries) {
    entry->setText(text);
    entry->setCheckable(true);
    group->addAction(entry);
    menu->addAction(entry);
    connect(entry, &QAction::triggered, this, [this] { draw(); });
  }
  mnuWerteVerbrauch->setChecked(true);
}

Shown ChartWindow::shown() const {
  if (mnuWerteNetto->isChecked()) return Shown::Net;
  return mnuWerteBrutto->isChecked() ? Shown::Gross : Shown::Consumption;
}

void ChartWindow::buildMenus() {
  buildChartMenu();
  buildPrintMenu();
  buildValueMenu();

  QMenu* colors = addMenu("mnuFarben", u"&Farben"_s);
  mnuAussen->setText(u"Farbe &äußerer Bereich"_s);
  mnuInnen->setText(u"Farbe &innerer Bereich"_s);
  mnuStandardfarben->setText(u"&Standardfarben"_s);
  colors->addActions({mnuAussen, mnuInnen, mnuStandardfarben});
  connect(mnuAussen, &QAction::triggered, this,
          [this] { chooseColor(&ChartOptions::outer, themeOf(palette()).outer); });
  connect(mnuInnen, &QAction::triggered, this,
          [this] { chooseColor(&ChartOptions::inner, themeOf(palette()).inner); });
  connect(mnuStandardfarben, &QAction::triggered, this, [this] {
    options_.outer.reset();
    options_.inner.reset();
    applyOptions();
  });

  const auto toggle = [this](QAction* entry, const QString& text, bool ChartOptions::*target) {
    entry->setText(text);
    entry->setCheckable(true);
    connect(entry, &QAction::toggled, this, [this, target](bool on) {
      options_.*target = on;
      applyOptions();
    });
  };
  QMenu* bars = addMenu("mnuBalken", u"&Balken"_s);
  toggle(mnuUeblap50, u"&Balken Überlappen 50% (nur 2D-Darstellung)"_s, &ChartOptions::overlapBars);
  toggle(mnuRahmen, u"Balken umranden (Rahmen)"_s, &ChartOptions::outlineBars);
  bars->addActions({mnuUeblap50, mnuRahmen});
  toggle(mnuProzent, u"&Prozentuale Anzeigel "_s, &ChartOptions::percent);
  menuBar->addAction(mnuProzent);
  // A menu bar shows no tick of its own.
  connect(mnuProzent, &QAction::toggled, this, [this](bool on) {
    mnuProzent->setText((on ? u"✓ "_s : QString()) + u"&Prozentuale Anzeigel "_s);
  });

  QMenu* legend = addMenu("mnuLegende", u"&Legende"_s);
  mnuEinAus->setText(u"Legende ausschalten"_s);
  legend->addAction(mnuEinAus);
  connect(mnuEinAus, &QAction::triggered, this, [this] {
    options_.legend = !options_.legend;
    mnuEinAus->setText(options_.legend ? u"Legende ausschalten"_s : u"Legende einschalten"_s);
    applyOptions();
  });
  toggle(mnuReverse, u"Reihenfolge umkehren"_s, &ChartOptions::reverse);
  legend->addAction(mnuReverse);

  mnuHilfe->setText(u"&Hilfe"_s);
  mnuHilfe->setShortcut(QKeySequence::HelpContents);
  menuBar->addAction(mnuHilfe);
  connect(mnuHilfe, &QAction::triggered, this, &ChartWindow::showHelp);
  // Beside the menus: it cannot be chosen, and it stays when they have no room.
  menuBar->setCornerWidget(lblDimensions);
}

}  // namespace charts
