#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <map>

#include "AllWindows.h"

// What holds for every window of the program, whatever it is for.

using namespace Qt::Literals::StringLiterals;

namespace {

// What is left of 1366 x 768 at 144 dpi, or of 1024 x 600.
constexpr QSize kSmallScreen(880, 440);

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

std::vector<std::string> controlsWithoutName(const QWidget& window) {
  std::vector<std::string> nameless;
  for (QWidget* widget : shown<QWidget>(window)) {
    if (!isControl(*widget) || isPartOfControl(*widget) ||
        widget->objectName().startsWith(u"qt_") || qobject_cast<QComboBox*>(widget->parentWidget()))
      continue;
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    if (!spoken || spoken->text(QAccessible::Name).isEmpty()) nameless.push_back(nameOf(*widget));
  }
  return nameless;
}

// Its tooltip has the whole text then.
bool shortensItself(const QLabel& label) {
  QHelpEvent hover(QEvent::ToolTip, {}, {});
  QApplication::sendEvent(const_cast<QLabel*>(&label), &hover);
  return label.toolTip() == label.text();
}

bool isCut(const QLabel& label) {
  if (label.text().isEmpty() || shortensItself(label)) return false;
  if (label.wordWrap()) return label.height() < label.heightForWidth(label.width());
  return label.width() < label.sizeHint().width() || label.height() < label.sizeHint().height();
}

std::vector<std::string> cutTexts(const QWidget& window) {
  std::vector<std::string> cut;
  for (const QLabel* label : shown<QLabel>(window))
    if (isCut(*label)) cut.push_back(nameOf(*label) + ": " + label->text().toStdString());
  for (const QAbstractButton* button : shown<QAbstractButton>(window)) {
    const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    if (!button->text().isEmpty() &&
        (button->width() < text.width() || button->height() < text.height()))
      cut.push_back(nameOf(*button) + ": " + button->text().toStdString());
  }
  constexpr int kFrame = 8, kArrow = 20;
  for (const QComboBox* box : shown<QComboBox>(window))
    if (box->width() < box->fontMetrics().horizontalAdvance(box->currentText()) + kFrame + kArrow)
      cut.push_back(nameOf(*box) + ": " + box->currentText().toStdString());
  for (const QLineEdit* field : shown<QLineEdit>(window))
    if (field->width() < field->fontMetrics().horizontalAdvance(field->placeholderText()) + kFrame)
      cut.push_back(nameOf(*field) + ": " + field->placeholderText().toStdString());
  for (const QHeaderView* header : shown<QHeaderView>(window))
    for (int i = 0; i < header->count(); ++i) {
      const QString text =
          header->model()->headerData(i, header->orientation(), Qt::DisplayRole).toString();
      if (header->orientation() == Qt::Horizontal && !header->isSectionHidden(i) &&
          header->sectionSize(i) < header->fontMetrics().horizontalAdvance(text))
        cut.push_back(nameOf(*header) + ": " + text.toStdString());
    }
  return cut;
}

std::vector<std::string> overlaps(const QWidget& window) {
  std::vector<std::string> pairs;
  std::map<const QWidget*, std::vector<const QWidget*>> siblings;
  for (const QWidget* widget : shown<QWidget>(window))
    if (!widget->objectName().startsWith(u"qt_") && !isPartOfControl(*widget) &&
        (isControl(*widget) || qobject_cast<const QLabel*>(widget)))
      siblings[widget->parentWidget()].push_back(widget);
  for (const auto& [parent, widgets] : siblings)
    for (std::size_t i = 0; i < widgets.size(); ++i)
      for (std::size_t k = i + 1; k < widgets.size(); ++k)
        if (widgets[i]->geometry().intersects(widgets[k]->geometry()))
          pairs.push_back(nameOf(*widgets[i]) + " and " + nameOf(*widgets[k]));
  return pairs;
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
  std::vector<std::string> twice() const { return twice_; }

 private:
  std::map<QString, QString> texts_;
  std::vector<std::string> twice_;
};

std::vector<std::string> doubleMnemonics(const QWidget& window) {
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

testing::AssertionResult fits(QSize size, QSize room) {
  const bool inside = size.width() <= room.width() && size.height() <= room.height();
  return (inside ? testing::AssertionSuccess() : testing::AssertionFailure())
         << size.width() << " x " << size.height();
}

// In a window made small: what goes on to the side, and main and close buttons that must be
// scrolled to.
std::vector<std::string> outOfReach(const QWidget& window) {
  std::vector<std::string> hidden;
  for (const QScrollArea* area : shown<QScrollArea>(window))
    if (area->horizontalScrollBar()->isVisible()) hidden.push_back(nameOf(*area) + " sideways");
  for (const QPushButton* button : shown<QPushButton>(window)) {
    const bool always = button->isDefault() || button->text().remove(u'&').contains(u"chließen"_s);
    if (always && button->visibleRegion().boundingRect() != button->rect())
      hidden.push_back(nameOf(*button));
  }
  return hidden;
}

}  // namespace

namespace pictures {
void PrintTo(const View& view, std::ostream* out) {
  *out << view.name.toStdString();
}
}  // namespace pictures

namespace {

class EveryWindow : public testing::TestWithParam<pictures::View> {};

TEST_P(EveryWindow, CanBeReadReachedAndFitsASmallScreen) {
  qputenv("HOME", pictures::Household::kHome);  // first folder of backups
  pictures::Household household;
  const std::unique_ptr<QWidget> window = GetParam().make(household);
  window->setAttribute(Qt::WA_DeleteOnClose, false);
  window->show();
  pictures::settle();
  if (GetParam().then) GetParam().then(*window);
  pictures::settle();

  EXPECT_TRUE(fits(window->size(), window->screen()->availableSize())) << "opens too large";
  EXPECT_TRUE(fits(window->minimumSizeHint().expandedTo(window->minimumSize()), kSmallScreen))
      << "cannot be made small enough";
  EXPECT_THAT(controlsWithoutName(*window), testing::IsEmpty());
  EXPECT_THAT(doubleMnemonics(*window), testing::IsEmpty());
  for (const QSize size : {window->size(), QSize(1600, 900), kSmallScreen}) {
    window->resize(size);
    pictures::settle();
    EXPECT_THAT(cutTexts(*window), testing::IsEmpty()) << size.width() << 'x' << size.height();
    EXPECT_THAT(overlaps(*window), testing::IsEmpty()) << size.width() << 'x' << size.height();
  }
  EXPECT_THAT(outOfReach(*window), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, EveryWindow, testing::ValuesIn(pictures::allViews()),
                         [](const auto& view) {
                           QString name = view.param.name;
                           return name.remove(u'-').toStdString();
                         });

}  // namespace
