#include "analysis/ui/frmAlleJahre.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QToolButton>
#include <QVBoxLayout>
#include <numeric>
#include <set>

#include "analysis/Charts.h"
#include "charts/ui/ChartWidget.h"
#include "widgets/Segment.h"
#include "yearbook/YearSession.h"

using namespace Qt::StringLiterals;
using analysis::kMeters;
using analysis::Meter;

namespace {

constexpr int kYearRole = Qt::UserRole, kMeterRole = Qt::UserRole + 1, kSortRole = Qt::UserRole + 2;

// Sorted by the figures, not by their texts. Nothing known comes last when the least is first.
class Row final : public QTreeWidgetItem {
 public:
  using QTreeWidgetItem::QTreeWidgetItem;
  bool operator<(const QTreeWidgetItem& other) const override {
    const int column = treeWidget()->sortColumn();
    return data(column, kSortRole).toDouble() < other.data(column, kSortRole).toDouble();
  }
};

QString text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

// The name of a year's row; the usual beginning is left to the tooltip.
void showName(QTreeWidgetItem* item, const QString& whole, const analysis::Year& year) {
  QString name = whole;
  if (year.source == analysis::StartSource::StartDate) {
    const QString start = text(analysis::startText(year));
    name.replace(u" ("_s + start + u')', QString());
    name.replace(start + u", "_s, QString());
  }
  item->setText(0, name);
  item->setToolTip(0, whole);
}

// What the table's columns are sorted by: the year for texts, else the number that is shown.
void setSortKeys(QTreeWidgetItem* item, double start) {
  for (int column = 0; column < item->columnCount(); ++column) {
    QString number = item->text(column);
    number.remove(u'.').remove(u'%').replace(u',', u'.');
    bool isNumber = false;
    const double value = number.trimmed().toDouble(&isNumber);
    item->setData(column, kSortRole, column == 0 || !isNumber ? start : value);
  }
}

}  // namespace

frmAlleJahre::frmAlleJahre(const dialogs::Services& services, const yearbook::YearSession* open,
                           QWidget* parent)
    : ReportWindow(u"frmAlleJahre"_s, u"Alle Jahre"_s, services, parent) {
  auto folder = analysis::readFolder(services_.files, services_.paths.DataFolder, open);
  if (folder)
    folder_ = std::move(*folder);
  else
    folder_.damaged.push_back({services_.paths.DataFolder, base::germanReason(folder.error())});
  figures_ = analysis::figuresOf(folder_);
  for (std::size_t i = 0; i < figures_.size(); ++i)
    if (!open || figures_[i].year->path == open->path()) front_ = static_cast<int>(i);
  if (front_ < 0) front_ = static_cast<int>(figures_.size()) - 1;
  buildLayout();
  connect(grpZaehler, &QButtonGroup::idClicked, this, &frmAlleJahre::fill);
  connect(lstJahre, &QTreeWidget::itemSelectionChanged, this, &frmAlleJahre::showCharts);
  fill(0);
  connect(lstJahre->header(), &QHeaderView::sortIndicatorChanged, this,
          [this] { analysis::fitColumns(lstJahre); });
  openAs({1240, 740}, *lstJahre);
}

QWidget* frmAlleJahre::buildSegments() {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  const auto add = [&](int id, const QString& caption, const QIcon& icon) {
    auto* button = widgets::control<QToolButton>(row, "optZaehler");
    button->setObjectName(u"optZaehler_"_s + QString::number(id));
    button->setText(caption);
    button->setAccessibleName(caption);
    button->setIcon(icon);
    button->setCheckable(true);
    widgets::showChosen(button);
    button->setToolButtonStyle(icon.isNull() ? Qt::ToolButtonTextOnly
                                             : Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    grpZaehler->addButton(button, id);
    layout->addWidget(button);
  };
  add(0, u"Alle Zähler"_s, {});
  const charts::Theme theme = charts::themeOf(palette());
  for (const Meter meter : kMeters) {
    bool used = false;
    for (const auto& year : figures_) used |= year.meters[meter].months > 0;
    if (used)
      add(static_cast<int>(meter) + 1, text(std::string(analysis::spokenName(meter))),
          widgets::colorMark(palette(), charts::toQColor(theme.color(analysis::hueOf(meter)))));
  }
  grpZaehler->button(0)->setChecked(true);
  layout->addStretch();
  layout->addWidget(lblJahre);
  return row;
}

void frmAlleJahre::buildLayout() {
  lblJahre->setText(text(analysis::summaryOf(folder_)));
  analysis::makeQuiet(lblJahre);
  QStringList missing;
  for (const std::string& remark : analysis::remarksOf(folder_)) missing.append(text(remark));
  lblFehlt->setText(missing.join(u'\n'));
  lblFehlt->setWordWrap(true);
  lblFehlt->setTextFormat(Qt::PlainText);
  lblFehlt->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblFehlt->setVisible(!missing.isEmpty());
  lstJahre->setAccessibleName(u"Jahre und Zähler"_s);
  lstJahre->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lstJahre->setMinimumHeight(120);
  analysis::showHeadings(lstJahre, analysis::tableOf(figures_));
  lstJahre->header()->setSectionsClickable(true);

  auto* pictures = new QHBoxLayout;
  pictures->setSpacing(12);
  pictures->addWidget(picJahre, 2);
  pictures->addWidget(picMonate, 5);
  pictures->addWidget(picPreise, 2);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(16, 12, 16, 12);
  page->setSpacing(12);
  page->addWidget(buildSegments());
  page->addWidget(lstJahre, 1);
  page->addWidget(lblFehlt);
  page->addLayout(pictures, 1);
  page->addLayout(buildButtons());
}

void frmAlleJahre::fill(int segment) {
  lstJahre->setSortingEnabled(false);
  lstJahre->clear();
  lstJahre->setRootIsDecorated(segment == 0);
  const charts::Theme theme = charts::themeOf(palette());
  QTreeWidgetItem* first = nullptr;
  for (int i = 0; i < static_cast<int>(figures_.size()); ++i) {
    const analysis::YearFigures& year = figures_[static_cast<std::size_t>(i)];
    const reports::Grid grid = analysis::tableOf({year});
    const auto start =
        static_cast<double>(std::chrono::sys_days(year.year->start).time_since_epoch().count());
    QTreeWidgetItem* group = nullptr;
    int row = 1;
    if (segment == 0) {
      group = new Row(lstJahre);
      analysis::showRow(group, grid, row);
      group->setData(0, kYearRole, i);
      group->setData(0, kMeterRole, -1);
      showName(group, text(grid.text(1, 0)), *year.year);
      setSortKeys(group, start);
      group->setExpanded(true);
    }
    for (const Meter meter : kMeters) {
      if (year.meters[meter].months == 0) continue;
      ++row;
      const int index = static_cast<int>(meter);
      if (segment != 0 && segment != index + 1) continue;
      auto* item = group ? new Row(group) : new Row(lstJahre);
      analysis::showRow(item, grid, row);
      if (!group) showName(item, text(grid.text(1, 0)), *year.year);
      item->setIcon(
          0, widgets::colorMark(palette(), charts::toQColor(theme.color(analysis::hueOf(meter)))));
      item->setData(0, kYearRole, i);
      item->setData(0, kMeterRole, index);
      // Meters keep their order below their year.
      setSortKeys(item, group ? -index : start);
      if (i == front_ && !first) first = item;
    }
  }
  lstJahre->setSortingEnabled(true);
  lstJahre->sortByColumn(0, Qt::DescendingOrder);
  analysis::fitColumns(lstJahre);
  if (first) lstJahre->setCurrentItem(first);
  showCharts();
}

frmAlleJahre::Place frmAlleJahre::placeOf(const QTreeWidgetItem* item) const {
  return {item->data(0, kYearRole).toInt(), item->data(0, kMeterRole).toInt()};
}

std::vector<int> frmAlleJahre::chosenYears() const {
  std::set<int> chosen;
  for (const QTreeWidgetItem* item : lstJahre->selectedItems()) chosen.insert(placeOf(item).year);
  if (chosen.size() > 1) return {chosen.begin(), chosen.end()};
  std::vector<int> all(figures_.size());
  std::iota(all.begin(), all.end(), 0);
  return all;
}

void frmAlleJahre::showCharts() {
  if (figures_.empty()) return;
  const QTreeWidgetItem* item = lstJahre->currentItem();
  Place place = item ? placeOf(item) : Place{front_, -1};
  const bool allMeters = place.meter < 0;
  if (allMeters) {
    const auto& months = figures_[static_cast<std::size_t>(place.year)].year->months;
    place.meter = static_cast<int>(
        std::find_if(months.begin(), months.end(), [](int count) { return count > 0; }) -
        months.begin());
  }
  const auto meter = static_cast<Meter>(place.meter);
  const QString name = text(std::string(analysis::spokenName(meter)));
  picJahre->show(
      [this, meter, allMeters](const analysis::Frame& frame) {
        return allMeters ? analysis::yearCosts(frame, figures_, front_)
                         : analysis::yearBars(frame, figures_, meter, front_);
      },
      allMeters ? u"Diagramm: Kosten aller Zähler je Jahr"_s
                : u"Diagramm: Verbrauch je Jahr, "_s + name);
  picMonate->show(
      [this, meter, chosen = chosenYears()](const analysis::Frame& frame) {
        return analysis::monthLines(frame, figures_, meter, front_, chosen);
      },
      u"Diagramm: Verbrauch im Jahreslauf, "_s + name);
  picPreise->show(
      [this, meter](const analysis::Frame& frame) {
        return analysis::unitPrices(frame, figures_, meter, front_);
      },
      u"Diagramm: Bruttopreis je Einheit, "_s + name);
}

reports::Grid frmAlleJahre::shownTable() const {
  return analysis::tableOf(figures_);
}

reports::Grid frmAlleJahre::csvTable() const {
  return analysis::csvTableOf(figures_);
}
