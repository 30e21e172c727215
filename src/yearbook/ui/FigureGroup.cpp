#include "yearbook/ui/FigureGroup.h"

#include <QStyle>
#include <QStyleOptionFrame>

#include "widgets/Rule.h"

using namespace Qt::Literals::StringLiterals;

namespace yearbook {
namespace {

enum GridColumn { kLabel, kValue, kUnit, kExtra, kGap, kColumnsPerBlock };
constexpr int kGapWidth = 18;

}  // namespace

int numberWidth(const QWidget* widget) {
  QFont bold = widget->font();
  bold.setBold(true);
  return QFontMetrics(bold).horizontalAdvance(u"1.234.567,8"_s) + 16;
}

int fieldHeight(const QWidget* widget) {
  QLineEdit framed;
  framed.setFont(widget->font());
  return framed.sizeHint().height();
}

int textInset(const QLineEdit& field) {
  QStyleOptionFrame option;
  option.initFrom(&field);
  option.rect = QRect(0, 0, 200, 40);
  option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
  const QRect text = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
  return option.rect.right() - text.right();
}

DerivedField::DerivedField(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  setFrame(false);
  setFocusPolicy(Qt::ClickFocus);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // The digits end where those of a framed field end.
  setTextMargins(0, 0, textInset(*this), 0);
  QPalette plain;
  plain.setColor(QPalette::Base, Qt::transparent);
  setPalette(plain);
}

void DerivedField::emphasize() {
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
}

void DerivedField::showText(const std::string& utf8) {
  setText(QString::fromStdString(utf8));
}

FigureGroup::FigureGroup(QWidget* parent, const char* name, const QString& title)
    : TitledFrame(title, parent), grid_(new QGridLayout(this)) {
  setObjectName(QString::fromLatin1(name));
  grid_->setHorizontalSpacing(6);
  grid_->setVerticalSpacing(6);
  grid_->setContentsMargins(10, 8, 10, 8);
}

const FigureGroup::Line& FigureGroup::addLine(const QString& label, QWidget* value,
                                              const QString& unit, QWidget* extra) {
  Line line;
  line.label = new QLabel(label, this);
  line.value = value;
  if (value->accessibleName().isEmpty()) value->setAccessibleName(label + u", "_s + title());
  if (!unit.isEmpty()) line.unit = new QLabel(unit, this);
  line.extra = extra;
  if (qobject_cast<QLineEdit*>(value)) value->setFixedSize(numberWidth(value), fieldHeight(value));
  rows_.push_back({line, nullptr});
  arrange(1);
  return rows_.back().line;
}

QLabel* FigureGroup::addNote() {
  auto* note = new QLabel(this);
  note->setForegroundRole(QPalette::PlaceholderText);
  note->setWordWrap(true);
  // Nothing moves when it speaks, and two meters side by side keep their lines at one height.
  QSizePolicy policy = note->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  note->setSizePolicy(policy);
  note->hide();
  rows_.push_back({{}, note});
  arrange(1);
  return note;
}

void FigureGroup::addRule() {
  rows_.push_back({{}, widgets::makeRule(this)});
  arrange(1);
}

void FigureGroup::setFoot(QWidget* widget) {
  foot_ = widget;
  arrange(1);
}

void FigureGroup::place(const Row& row, int gridRow, int block) {
  const int first = block * kColumnsPerBlock;
  if (row.whole) {
    grid_->addWidget(row.whole, gridRow, first, 1, kGap);
    return;
  }
  grid_->addWidget(row.line.label, gridRow, first + kLabel);
  grid_->addWidget(row.line.value, gridRow, first + kValue);
  if (row.line.unit) grid_->addWidget(row.line.unit, gridRow, first + kUnit);
  if (!row.line.extra) return;
  // A text stands beside its number, as a unit would.
  if (!row.line.unit && qobject_cast<QLabel*>(row.line.extra))
    grid_->addWidget(row.line.extra, gridRow, first + kUnit, 1, 2);
  else
    grid_->addWidget(row.line.extra, gridRow, first + kExtra);
}

void FigureGroup::arrange(int blocks) {
  while (QLayoutItem* item = grid_->takeAt(0)) delete item;
  for (int column = 0; column < grid_->columnCount(); ++column) {
    grid_->setColumnMinimumWidth(column, 0);
    grid_->setColumnStretch(column, 0);
  }
  for (int row = 0; row < grid_->rowCount(); ++row) grid_->setRowStretch(row, 0);
  const int perBlock = (int(rows_.size()) + blocks - 1) / blocks;
  for (int i = 0; i < int(rows_.size()); ++i)
    place(rows_[std::size_t(i)], i % perBlock, i / perBlock);
  for (int block = 0; block < blocks; ++block)
    grid_->setColumnMinimumWidth(block * kColumnsPerBlock + kGap,
                                 block + 1 < blocks ? kGapWidth : 0);
  grid_->setColumnStretch(blocks * kColumnsPerBlock - 1, 1);
  grid_->setRowStretch(perBlock, 1);
  if (foot_) grid_->addWidget(foot_, perBlock + 1, 0, 1, blocks * kColumnsPerBlock);
}

}  // namespace yearbook
