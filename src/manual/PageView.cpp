#include "manual/PageView.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>

#include "manual/Manual.h"

using namespace Qt::Literals::StringLiterals;

namespace manual {
namespace {

constexpr int kMargin = 12;

QColor blended(const QColor& front, const QColor& ground, double share) {
  const auto mix = [share](int a, int b) { return qRound(share * a + (1 - share) * b); };
  return {mix(front.red(), ground.red()), mix(front.green(), ground.green()),
          mix(front.blue(), ground.blue())};
}

}  // namespace

PageView::PageView(QWidget* parent) : QTextBrowser(parent) {
  setOpenExternalLinks(true);
  document()->setDocumentMargin(kMargin);
  connect(this, &QTextBrowser::sourceChanged, this, &PageView::dressPage);
}

void PageView::showPlace(const QString& place) {
  setSource(addressOf(place));
}

void PageView::mark(const QString& words) {
  words_ = words;
  showMarks();
}

QVariant PageView::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) {
    pictures_.clear();  // of the page before
    return QTextBrowser::loadResource(type, name);
  }
  const QUrl full = source().resolved(name);
  pictures_.insert(full);
  return fittingPicture(full);
}

// As large as it was taken, or as wide as the page; on a fine screen with all of its points.
QImage PageView::fittingPicture(const QUrl& name) const {
  QImage picture(u':' + name.path(), "PNG");
  const int room = viewport()->width() - 2 * kMargin - verticalScrollBar()->sizeHint().width();
  if (picture.width() <= room || room <= 0) return picture;
  const int width = qMin(picture.width(), qRound(room * devicePixelRatioF()));
  const double points = double(width) / room;
  picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
  picture.setDevicePixelRatio(points);
  return picture;
}

void PageView::dressPage(const QUrl& address) {
  dressTables();
  fitPictures();
  showMarks();
  Q_EMIT shown(placeAt(address));
}

// Going back and forth comes to the place where one was, without this.
void PageView::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  QTextBrowser::doSetSource(name, type);
  const QString anchor = name.fragment(QUrl::FullyDecoded);
  if (anchor.isEmpty())
    verticalScrollBar()->setValue(0);
  else
    scrollToHeading(anchor);
}

void PageView::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) fitPictures();
}

void PageView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) dressTables();
}

void PageView::fitPictures() {
  for (const QUrl& picture : pictures_)
    document()->addResource(QTextDocument::ImageResource, picture, fittingPicture(picture));
  document()->markContentsDirty(0, document()->characterCount());
}

// Markdown's tables come without room and lines.
void PageView::dressTables() {
  constexpr double kHairline = 0.25;
  const QColor line =
      blended(palette().color(QPalette::Text), palette().color(QPalette::Base), kHairline);
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(line);
    format.setBorderCollapse(true);
    format.setCellPadding(4);
    format.setTopMargin(4);
    format.setBottomMargin(8);
    table->setFormat(format);
  }
}

void PageView::scrollToHeading(const QString& anchor) {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != anchor) continue;
    setTextCursor(QTextCursor(block));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - kMargin);
    return;
  }
}

void PageView::showMarks() {
  QList<ExtraSelection> marks;
  for (const QString& word : words_.simplified().split(u' ', Qt::SkipEmptyParts)) {
    for (QTextCursor found = document()->find(word); !found.isNull();
         found = document()->find(word, found)) {
      ExtraSelection mark{found, {}};
      mark.format.setBackground(palette().highlight());
      mark.format.setForeground(palette().highlightedText());
      marks += mark;
    }
  }
  setExtraSelections(marks);
}

}  // namespace manual
