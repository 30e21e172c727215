#include "widgets/SpokenLabel.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QTextDocumentFragment>

using namespace Qt::Literals::StringLiterals;

namespace widgets {
namespace {

class SpokenLabel final : public QAccessibleWidget {
 public:
  explicit SpokenLabel(QLabel* label)
      : QAccessibleWidget(label, QAccessible::StaticText), label_(label) {}

  QString text(QAccessible::Text kind) const override {
    QString name = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name) return name;
    QString shown = Qt::mightBeRichText(label_->text())
                        ? QTextDocumentFragment::fromHtml(label_->text()).toPlainText()
                        : label_->text();
    if (label_->buddy() != nullptr) shown.remove(u'&');
    if (name.isEmpty()) return shown;
    return shown.isEmpty() || name.contains(shown) ? name : name + u": "_s + shown;
  }
  QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation wanted) const override {
    auto found = QAccessibleWidget::relations(wanted);
    if (label_->buddy() != nullptr && wanted.testFlag(QAccessible::Labelled))
      found.append({QAccessible::queryAccessibleInterface(label_->buddy()), QAccessible::Labelled});
    return found;
  }

 private:
  const QLabel* label_;
};

// Pictures, and labels of a kind of their own, are spoken as they were.
QAccessibleInterface* makeSpoken(const QString& kind, QObject* object) {
  auto* label = qobject_cast<QLabel*>(object);
  const bool text =
      label != nullptr && kind == u"QLabel" && label->pixmap(Qt::ReturnByValue).isNull();
  return text ? new SpokenLabel(label) : nullptr;
}

}  // namespace

void speakLabels() {
  QAccessible::installFactory(makeSpoken);
}

}  // namespace widgets
