#include "WindowChecks.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTableWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <map>

#include "support/ui/Contrast.h"

using namespace Qt::Literals::StringLiterals;

namespace checks {
namespace {

std::string nameOf(const QWidget& widget) {
  QString path = widget.objectName();
  if (path.isEmpty()) path = QString::fromLatin1(widget.metaObject()->className());
  for (const QWidget* up = widget.parentWidget(); up; up = up->parentWidget())
    if (!up->objectName().isEmpty() && !up->objectName().startsWith(u"qt_"))
      return (up->objectName() + u" / "_s + path).toStdString();
  return path.toStdString();
}

// Those that a person sees or could scroll to.
template <class Widget>
std::vector<Widget*> shown(const QWidget& window) {
  std::vector<Widget*> found;
  for (Widget* widget : window.findChildren<Widget*>())
    if (widget->isVisibleTo(&window) && widget->window() == &window) found.push_back(widget);
  return found;
}

bool isPartOfControl(const QWidget& widget) {
  for (const QWidget* up = widget.parentWidget(); up; up = up->parentWidget())
    if (qobject_cast<const QAbstractItemView*>(up) || qobject_cast<const QTabBar*>(up)) return true;
  return false;
}

bool isControl(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
         qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractItemView*>(&widget);
}

// Its tooltip has the whole text then.
bool shortensItself(const QLabel& label) {
  QHelpEvent hover(QEvent::ToolTip, {}, {});
  QApplication::sendEvent(const_cast<QLabel*>(&label), &hover);
  return label.toolTip() == label.text();
}

bool isClosing(const QPushButton& button) {
  return button.text().remove(u'&').contains(u"chließen"_s);
}

bool isCut(const QLabel& label) {
  if (label.text().isEmpty() || shortensItself(label)) return false;
  if (label.wordWrap()) return label.height() < label.heightForWidth(label.width());
  return label.width() < label.sizeHint().width() || label.height() < label.sizeHint().height();
}

bool isCut(const QAbstractButton& button) {
  if (button.text().isEmpty()) return false;
  QSize least = button.fontMetrics().size(Qt::TextShowMnemonic, button.text());
  if (qobject_cast<const QPushButton*>(&button)) {
    if (!button.icon().isNull()) least.rwidth() += button.iconSize().width();
  } else {
    least.setWidth(button.sizeHint().width());  // with the box, circle or picture before the text
  }
  return button.width() < least.width() || button.height() < least.height();
}

// What a person types may go on beyond its field; a figure stands in it whole.
QString wholeTextOf(const QLineEdit& field) {
  return field.alignment().testFlag(Qt::AlignRight) && !field.text().isEmpty()
             ? field.text()
             : field.placeholderText();
}

bool isCut(const QLineEdit& field) {
  const int margin = field.hasFrame() ? 8 : 4;  // the frame, and what a cursor takes
  const QMargins inside = field.textMargins();
  return field.width() - inside.left() - inside.right() <
         field.fontMetrics().horizontalAdvance(wholeTextOf(field)) + margin;
}

bool isCut(const QHeaderView& header, int section, const QString& text) {
  const QSize lines = header.fontMetrics().size(0, text);
  return header.sectionSize(section) < lines.width() || header.height() < lines.height();
}

Findings cutHeads(const QWidget& window) {
  Findings cut;
  for (const QHeaderView* header : shown<QHeaderView>(window))
    for (int i = 0; i < header->count(); ++i) {
      const QString text =
          header->model()->headerData(i, header->orientation(), Qt::DisplayRole).toString();
      if (header->orientation() == Qt::Horizontal && !header->isSectionHidden(i) &&
          isCut(*header, i, text))
        cut.push_back(nameOf(*header) + ": " + text.toStdString());
    }
  for (const QTabBar* bar : shown<QTabBar>(window))
    for (int i = 0; i < bar->count(); ++i)
      if (bar->tabRect(i).width() < bar->fontMetrics().horizontalAdvance(bar->tabText(i)))
        cut.push_back(nameOf(*bar) + ": " + bar->tabText(i).toStdString());
  for (const QGroupBox* box : shown<QGroupBox>(window))
    if (box->width() < box->fontMetrics().horizontalAdvance(box->title()))
      cut.push_back(nameOf(*box) + ": " + box->title().toStdString());
  return cut;
}

class Mnemonics {
 public:
  void add(const QString& text) {
    // Fixed captions that share their key with another one.
    if (text == u"&Drucken" || text == u"&Beenden" || text == u"&Verbrauchserfassung öffnen")
      return;
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (key.isEmpty()) return;
    auto& first = texts_[key.toString()];
    if (!first.isEmpty())
      twice_.push_back((key.toString() + u": "_s + first + u" and "_s + text).toStdString());
    first = text;
  }
  void addMenu(const QString& title, const QMenu& menu) {
    Mnemonics own;
    for (const QAction* action : menu.actions()) {
      own.add(action->text());
      if (action->menu()) addMenu(title + u" > "_s + action->text(), *action->menu());
    }
    for (const std::string& pair : own.twice_) twice_.push_back(title.toStdString() + ": " + pair);
  }
  Findings twice() const { return twice_; }

 private:
  std::map<QString, QString> texts_;
  Findings twice_;
};

}  // namespace

Findings controlsWithoutName(const QWidget& window) {
  Findings nameless;
  for (QWidget* widget : shown<QWidget>(window)) {
    if (!isControl(*widget) || isPartOfControl(*widget) ||
        widget->objectName().startsWith(u"qt_") || qobject_cast<QComboBox*>(widget->parentWidget()))
      continue;
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    if (!spoken || spoken->text(QAccessible::Name).isEmpty()) nameless.push_back(nameOf(*widget));
  }
  return nameless;
}

Findings cutTexts(const QWidget& window) {
  Findings cut = cutHeads(window);
  for (const QLabel* label : shown<QLabel>(window))
    if (isCut(*label)) cut.push_back(nameOf(*label) + ": " + label->text().toStdString());
  for (const QAbstractButton* button : shown<QAbstractButton>(window))
    if (!isPartOfControl(*button) && isCut(*button))
      cut.push_back(nameOf(*button) + ": " + button->text().toStdString());
  constexpr int kFrame = 8, kArrow = 20;
  for (const QComboBox* box : shown<QComboBox>(window))
    if (box->width() < box->fontMetrics().horizontalAdvance(box->currentText()) + kFrame + kArrow)
      cut.push_back(nameOf(*box) + ": " + box->currentText().toStdString());
  for (const QLineEdit* field : shown<QLineEdit>(window))
    if (isCut(*field)) cut.push_back(nameOf(*field) + ": " + wholeTextOf(*field).toStdString());
  return cut;
}

Findings overlaps(const QWidget& window) {
  struct Placed {
    const QWidget* widget;
    QRect place;
  };
  std::vector<Placed> all;
  for (const QWidget* widget : shown<QWidget>(window)) {
    if (widget->objectName().startsWith(u"qt_") || isPartOfControl(*widget) ||
        (!isControl(*widget) && !qobject_cast<const QLabel*>(widget)))
      continue;
    const QRect seen = widget->visibleRegion().boundingRect();
    all.push_back({widget, seen.translated(widget->mapTo(&window, QPoint()))});
  }
  Findings pairs;
  for (std::size_t i = 0; i < all.size(); ++i)
    for (std::size_t k = i + 1; k < all.size(); ++k)
      if (all[i].place.intersects(all[k].place) && !all[i].widget->isAncestorOf(all[k].widget) &&
          !all[k].widget->isAncestorOf(all[i].widget))
        pairs.push_back(nameOf(*all[i].widget) + " and " + nameOf(*all[k].widget));
  return pairs;
}

Findings figuresWithoutName(const QWidget& window) {
  static const QRegularExpression kLetter(u"\\p{L}{2}"_s);
  Findings nameless;
  for (QLabel* label : shown<QLabel>(window)) {
    if (!label->text().contains(QRegularExpression(u"\\d"_s))) continue;
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(label);
    if (!spoken || !spoken->text(QAccessible::Name).contains(kLetter))
      nameless.push_back(nameOf(*label) + ": " + label->text().toStdString());
  }
  return nameless;
}

Findings wrongMainButtons(const QWidget& window) {
  const auto all = shown<QPushButton>(window);
  Findings wrong;
  for (const QPushButton* button : all) {
    if (!button->isDefault()) continue;
    const bool closes = isClosing(*button) && all.size() > 1;
    const bool second = std::any_of(all.begin(), all.end(), [button](const QPushButton* other) {
      return other != button && other->isDefault();
    });
    if (closes || second) wrong.push_back(nameOf(*button));
  }
  return wrong;
}

Findings choicesThatDoNotShow(const QWidget& window) {
  Findings alike;
  for (const QToolButton* button : shown<QToolButton>(window))
    if (button->isChecked() && button->group() && button->group()->exclusive() &&
        !button->font().bold())
      alike.push_back(nameOf(*button));
  return alike;
}

namespace {

// Items with a colour of their own; others are drawn in that of the theme.
void addFaintItems(const QAbstractItemView& view, const QModelIndex& below, Findings& faint) {
  constexpr double kReadable = 4.5;
  const QColor ground = view.palette().color(QPalette::Base);
  for (int row = 0; row < view.model()->rowCount(below); ++row)
    for (int column = 0; column < view.model()->columnCount(below); ++column) {
      const QModelIndex index = view.model()->index(row, column, below);
      const QVariant own = index.data(Qt::ForegroundRole);
      if (own.isValid() && contrast(own.value<QBrush>().color(), ground) < kReadable)
        faint.push_back(nameOf(view) + ": " + index.data().toString().toStdString());
      addFaintItems(view, index, faint);
    }
}

}  // namespace

Findings faintTexts(const QWidget& window) {
  constexpr double kReadable = 4.5;
  const QColor ground = QApplication::palette().color(QPalette::Window);
  Findings faint;
  const auto look = [&](const QWidget& widget, const QString& text) {
    const QColor color = widget.palette().color(widget.foregroundRole());
    if (!text.isEmpty() && widget.isEnabled() && contrast(color, ground) < kReadable)
      faint.push_back(nameOf(widget) + ": " + text.toStdString());
  };
  for (const QLabel* label : shown<QLabel>(window)) look(*label, label->text());
  for (const QAbstractButton* button : shown<QAbstractButton>(window))
    look(*button, button->text());
  for (const QTreeWidget* tree : shown<QTreeWidget>(window)) addFaintItems(*tree, {}, faint);
  for (const QTableWidget* table : shown<QTableWidget>(window)) addFaintItems(*table, {}, faint);
  return faint;
}

Findings doubleMnemonics(const QWidget& window) {
  Mnemonics keys;
  for (const QMenuBar* bar : shown<QMenuBar>(window))
    for (const QAction* action : bar->actions()) {
      keys.add(action->text());
      if (action->menu()) keys.addMenu(action->text(), *action->menu());
    }
  for (const QAbstractButton* button : shown<QAbstractButton>(window)) keys.add(button->text());
  for (const QGroupBox* box : shown<QGroupBox>(window)) keys.add(box->title());
  for (const QLabel* label : shown<QLabel>(window))
    if (label->buddy()) keys.add(label->text());
  for (const QTabBar* bar : shown<QTabBar>(window))
    for (int i = 0; i < bar->count(); ++i) keys.add(bar->tabText(i));
  return keys.twice();
}

Findings outOfReach(const QWidget& window) {
  Findings hidden;
  for (const QScrollArea* area : shown<QScrollArea>(window))
    if (area->horizontalScrollBar()->isVisible()) hidden.push_back(nameOf(*area) + " sideways");
  for (const QHeaderView* header : shown<QHeaderView>(window)) {
    const auto* table = qobject_cast<const QAbstractItemView*>(header->parentWidget());
    if (table && header->orientation() == Qt::Horizontal && header->length() < window.width() &&
        table->horizontalScrollBar()->isVisible())
      hidden.push_back(nameOf(*table) + " sideways");
  }
  for (const QTabBar* bar : shown<QTabBar>(window)) {
    const auto arrows = bar->findChildren<QToolButton*>();
    if (std::any_of(arrows.begin(), arrows.end(), [](auto* arrow) { return arrow->isVisible(); }))
      hidden.push_back(nameOf(*bar) + " sideways");
  }
  for (const QPushButton* button : shown<QPushButton>(window)) {
    if ((button->isDefault() || isClosing(*button)) &&
        button->visibleRegion().boundingRect() != button->rect())
      hidden.push_back(nameOf(*button));
  }
  return hidden;
}

Findings unpainted(QWidget& window) {
  constexpr double kScale = 1.5;
  QImage picture((QSizeF(window.size()) * kScale).toSize(), QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(kScale);
  picture.fill(Qt::transparent);
  window.render(&picture);
  Findings places;
  for (int y = 0; y + 1 < picture.height(); ++y)
    for (int x = 0; x + 1 < picture.width(); ++x) {
      if (qAlpha(picture.pixel(x, y)) == 0xFF) continue;
      const QPoint at = (QPointF(x, y) / kScale).toPoint();
      const QWidget* widget = window.childAt(at);
      const std::string place = widget ? nameOf(*widget) : "the window itself";
      if (std::find(places.begin(), places.end(), place) == places.end()) places.push_back(place);
    }
  return places;
}

namespace {

// In one frame, or in two of a kind.
bool isOneTable(const QWidget& text, const QWidget& other) {
  return text.parentWidget()->metaObject() == other.parentWidget()->metaObject();
}

}  // namespace

Findings crooked(const QWidget& window) {
  struct Line {
    const QWidget* widget;
    double middle;
  };
  std::vector<Line> lines;
  const auto take = [&](const QWidget& widget, const QString& text) {
    if (text.isEmpty() || widget.height() > 2 * widget.fontMetrics().height()) return;
    const double top = widget.mapTo(&window, QPoint()).y();
    lines.push_back({&widget, top + widget.height() / 2.0});
  };
  for (const QLabel* label : shown<QLabel>(window)) take(*label, label->text());
  for (const QLineEdit* field : shown<QLineEdit>(window)) take(*field, field->text());
  Findings found;
  for (std::size_t i = 0; i < lines.size(); ++i)
    for (std::size_t k = i + 1; k < lines.size(); ++k) {
      const double apart = std::abs(lines[i].middle - lines[k].middle);
      if (apart >= 1 && apart < 4 && isOneTable(*lines[i].widget, *lines[k].widget))
        found.push_back(nameOf(*lines[i].widget) + " and " + nameOf(*lines[k].widget));
    }
  return found;
}

}  // namespace checks
