#include "widgets/PageTabs.h"

#include <QScrollArea>

namespace widgets {

PageTabs::PageTabs(QWidget* parent) : QTabWidget(parent) {
  setDocumentMode(true);
}

int PageTabs::addFrame(QWidget* frame, const QString& caption) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(frame);
  return addTab(area, caption);
}

int PageTabs::pageOf(const QWidget* frame) const {
  for (int i = 0; i < count(); ++i) {
    const auto* area = qobject_cast<const QScrollArea*>(widget(i));
    if (area != nullptr && area->widget() == frame) return i;
  }
  return -1;
}

void PageTabs::showFrame(const QWidget* frame) {
  const int page = pageOf(frame);
  if (page >= 0) setCurrentIndex(page);
}

}  // namespace widgets
