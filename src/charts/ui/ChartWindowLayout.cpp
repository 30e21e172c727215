// How the chart window is laid out: the chart, and beside it one column of frames.
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "charts/ui/ChartWindow.h"
#include "widgets/Pictures.h"

using namespace Qt::Literals::StringLiterals;

namespace charts {
namespace {

constexpr int kListRows = 5;
constexpr std::array kTextSizes = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 24};
constexpr std::array kDistances = {0, 2, 4, 6, 8, 10, 15, 20, 25, 30};
constexpr int kInitialSize = 9;
constexpr int kInitialDistance = 4;
constexpr QMargins kFrameMargins{8, 5, 8, 6};

template <std::size_t count>
void fillList(QListWidget* list, const std::array<int, count>& values, int initial) {
  for (const int value : values) {
    auto* item = new QListWidgetItem(QString::number(value), list);
    item->setData(Qt::UserRole, value);
    item->setTextAlignment(Qt::AlignCenter);
    if (value == initial) list->setCurrentItem(item);
  }
  list->setFixedHeight(kListRows * list->sizeHintForRow(0) + 2 * list->frameWidth());
  list->setMinimumWidth(64);
  list->setMaximumWidth(110);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

// "Größe 9": what a list is set to.
QLayout* valueLine(const QString& caption, QLabel* value) {
  auto* line = new QHBoxLayout;
  line->setSpacing(6);
  line->addWidget(new QLabel(caption));
  line->addWidget(value);
  line->addStretch();
  QFont bold = value->font();
  bold.setBold(true);
  value->setFont(bold);
  value->setAccessibleName(caption);
  return line;
}

}  // namespace

QAction* ChartWindow::action(const char* name) {
  auto* made = new QAction(this);
  made->setObjectName(QString::fromLatin1(name));
  return made;
}

QMenu* ChartWindow::addMenu(const char* name, const QString& title) {
  QMenu* menu = menuBar->addMenu(title);
  menu->setObjectName(QString::fromLatin1(name));
  return menu;
}

void ChartWindow::buildLayout() {
  auto* layout = new QHBoxLayout(this);
  layout->setMenuBar(menuBar);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->addWidget(Chart2D1, 1);
  layout->addWidget(buildOptionColumn());
  const QSize room = screen()->availableSize() * 0.94;
  resize(QSize(1180, 720).boundedTo(room));
  lblChartType(0)->setFocus();
}

QWidget* ChartWindow::buildOptionColumn() {
  auto* column = new QWidget;
  auto* layout = new QVBoxLayout(column);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);
  buildTypeFrame();
  frDaten->setTitle(u"Daten Auswahl:"_s);
  selectionLayout_ = new QGridLayout(frDaten);
  selectionLayout_->setContentsMargins(kFrameMargins);
  selectionLayout_->setVerticalSpacing(2);
  buildTextFrame();
  buildDepthFrame();
  for (QGroupBox* frame : {frTyp, frDaten, frOptionen, frOpt}) layout->addWidget(frame);
  layout->addStretch(1);
  makeCloseButton(picBeenden);
  picBeenden->setIcon(widgets::icon(u"ende"_s));
  picBeenden->setIconSize({24, 24});
  picBeenden->setToolTip(picBeenden->text());

  // Screens that are too low for the frames scroll them.
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(column);
  scroll->setFixedWidth(column->sizeHint().width() +
                        scroll->verticalScrollBar()->sizeHint().width());
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(scroll);
  rows->addWidget(picBeenden);
  return side;
}

void ChartWindow::buildTypeFrame() {
  frTyp->setTitle(u"Diagrammtyp"_s);
  auto* layout = new QGridLayout(frTyp);
  layout->setContentsMargins(kFrameMargins);
  layout->setSpacing(2);
  for (int i = 0; i < lblChartType.size(); ++i) {
    lblChartType(i)->setType(static_cast<ChartType>(i));
    layout->addWidget(lblChartType(i), i / 3, i % 3);
  }
}

void ChartWindow::addSelection(QRadioButton* button, const QString& caption) {
  button->setText(caption);
  button->setAccessibleName(caption);
  button->setToolTip(u"Verbrauch darstellen: "_s + caption);
  const int count = selectionLayout_->count();
  selectionLayout_->addWidget(button, count / 2, count % 2);
}

void ChartWindow::buildTextFrame() {
  frOptionen->setTitle(u"Text"_s);
  chkTextOnOff->setText(u"Text ein / aus"_s);
  chkTextOnOff->setChecked(true);
  chkTextOnOff->setAccessibleName(chkTextOnOff->text());
  const std::array captions = {u"Text drehen 90°"_s, u"Text drehen 270°"_s, u"Text Horizontal"_s};
  auto* layout = new QGridLayout(frOptionen);
  layout->setContentsMargins(kFrameMargins);
  layout->setVerticalSpacing(2);
  layout->addWidget(chkTextOnOff, 0, 0);
  for (int i = 0; i < optDrehen.size(); ++i) {
    optDrehen(i)->setText(captions.at(static_cast<std::size_t>(i)));
    optDrehen(i)->setAccessibleName(optDrehen(i)->text());
    layout->addWidget(optDrehen(i), i == 2 ? 0 : 1, i == 0 ? 0 : 1);
  }
  optDrehen(2)->setChecked(true);
  const auto addList = [layout](QListWidget* list, const QString& caption, int column) {
    auto* label = new QLabel(caption);
    label->setWordWrap(true);
    label->setBuddy(list);
    list->setAccessibleName(caption);
    layout->addWidget(label, 2, column, Qt::AlignBottom);
    layout->addWidget(list, 3, column);
  };
  layout->setRowMinimumHeight(2, 2 * fontMetrics().height() + 6);
  addList(List1, u"Textgröße einstellen"_s, 0);
  addList(List2, u"Abstand Text vom Balken"_s, 1);
  fillList(List1, kTextSizes, kInitialSize);
  fillList(List2, kDistances, kInitialDistance);
  layout->addLayout(valueLine(u"Größe"_s, lblSchrift), 4, 0);
  layout->addLayout(valueLine(u"Abstand"_s, lblAbstand), 4, 1);
}

void ChartWindow::buildDepthFrame() {
  frOpt->setTitle(u"3D"_s);
  opt3D->setText(u"3D ein / aus"_s);
  opt3D->setAccessibleName(opt3D->text());
  opt3D->setToolTip(u"Räumliche Darstellung; mit der Maus im Diagramm ziehen dreht es"_s);
  const View3D initial;
  const struct {
    QSlider* slider;
    QLabel* value;
    QString caption;
    int low, high, start;
  } rows[] = {{UpDown1, lblDepth, u"Tiefe"_s, 0, View3D::kMaxDepth, initial.depth},
              {UpDown2, lblElevation, u"Vertikal"_s, -View3D::kMaxAngle, View3D::kMaxAngle,
               initial.elevation},
              {UpDown3, lblRotation, u"Horizontal"_s, -View3D::kMaxAngle, View3D::kMaxAngle,
               initial.rotation}};
  auto* layout = new QGridLayout(frOpt);
  layout->setContentsMargins(kFrameMargins);
  layout->setVerticalSpacing(3);
  layout->addWidget(opt3D, 0, 0, 1, 3);
  int line = 1;
  for (const auto& row : rows) {
    auto* caption = new QLabel(row.caption);
    caption->setBuddy(row.slider);
    row.slider->setRange(row.low, row.high);
    row.slider->setValue(row.start);
    row.slider->setPageStep(5);
    row.slider->setFocusPolicy(Qt::StrongFocus);
    row.slider->setAccessibleName(row.caption);
    row.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.value->setMinimumWidth(fontMetrics().horizontalAdvance(u"-45"_s) + 4);
    row.value->setAccessibleName(row.caption);
    layout->addWidget(caption, line, 0);
    layout->addWidget(row.slider, line, 1);
    layout->addWidget(row.value, line++, 2);
  }
}

}  // namespace charts
