#pragma once

#include <QIconEngine>
#include <functional>

namespace widgets {

// An icon whose picture is fetched when it is drawn: what nobody opens is never decoded.
class LateIcon final : public QIconEngine {
 public:
  // The picture for a size in pixels of the screen.
  using Source = std::function<QIcon(const QSize&)>;
  // sizes is what the icon says it has, for window managers; it draws in every size.
  explicit LateIcon(Source source, QList<QSize> sizes = {})
      : source_(std::move(source)), sizes_(std::move(sizes)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return sizes_; }
  QIconEngine* clone() const override { return new LateIcon(*this); }

 private:
  Source source_;
  QList<QSize> sizes_;
};

}  // namespace widgets
