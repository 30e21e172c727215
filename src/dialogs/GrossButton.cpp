#include "dialogs/GrossButton.h"

#include <QEvent>
#include <QShortcut>

using namespace Qt::Literals::StringLiterals;

namespace dialogs {

GrossButton::GrossButton(widgets::NumberField* field, const Services& services,
                         std::function<GrossFigure()> figure, QWidget* parent)
    : QToolButton(parent), field_(field), services_(services), figure_(std::move(figure)) {
  setObjectName(u"cmdBrutto_"_s + field->objectName());
  setText(u"⇄"_s);
  setToolTip(u"Brutto umrechnen"_s);
  setAccessibleName(toolTip());
  setAccessibleDescription(u"Strg+B im Feld"_s);
  setFixedSize(QSize(26, kHeight).expandedTo(minimumSizeHint()));
  setFocusPolicy(Qt::NoFocus);
  connect(this, &QToolButton::clicked, this, &GrossButton::convert);
  auto* key = new QShortcut(QKeySequence(u"Ctrl+B"_s), field);
  key->setContext(Qt::WidgetShortcut);
  connect(key, &QShortcut::activated, this, &GrossButton::convert);
  field->installEventFilter(this);
}

bool GrossButton::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ReadOnlyChange) setEnabled(!field_->isReadOnly());
  return QToolButton::eventFilter(watched, event);
}

void GrossButton::convert() {
  if (field_->isReadOnly()) return;
  const GrossFigure figure = figure_();
  frmBrutto window(services_, figure, this->window());
  if (window.exec() != QDialog::Accepted) return;
  if (const auto rate = window.newVat()) figure.storeVat(*rate);
  field_->setFocus();
  field_->enterValue(window.net());
  field_->finish();
}

}  // namespace dialogs
