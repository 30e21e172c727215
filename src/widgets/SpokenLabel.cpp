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
    const QString name = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name) return name;
    const QString shown = Qt::mightBeRichText(label_->text())
                              ? QTextDocumentFragment::fromHtml(label_->text()).toPlainText()
                              : label_->text();
    if (name.isEmpty()) return shown;
    return shown.isEmpty() || name.contains(shown) ? name : name + u": "_s + shown;
  }

 private:
  const QLabel* label_;
};

// Labels without a name of their own, and those of a kind of their own, are spoken as Qt does it.
QAccessibleInterface* makeSpoken(const QString& kind, QObject* object) {
  auto* label = qobject_cast<QLabel*>(object);
  const bool plain = label != nullptr && kind == u"QLabel" && !label->accessibleName().isEmpty() &&
                     label->pixmap(Qt::ReturnByValue).isNull();
  return plain ? new SpokenLabel(label) : nullptr;
}

}  // namespace

void speakLabels() {
  QAccessible::installFactory(makeSpoken);
}

}  // namespace widgets
