#pragma once

#include <QTextBrowser>

namespace manual {

// Shows pages of the manual in the colours and fonts of the program; pictures are never wider than
// the page.
class PageView final : public QTextBrowser {
  Q_OBJECT
 public:
  explicit PageView(QWidget* parent = nullptr);

  // "handbuch/preise.md#gut-zu-wissen"; a page alone is shown from its top.
  void showPlace(const QString& place);
  // These words stand out on whatever page is shown.
  void mark(const QString& words);

  QVariant loadResource(int type, const QUrl& name) override;

 Q_SIGNALS:
  // Whatever led to it: link, contents, back and forth.
  void shown(const QString& place);

 protected:
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void dressPage(const QUrl& address);
  QImage fittingPicture(const QUrl& name) const;
  void fitPictures();
  void dressTables();
  void scrollToHeading(const QString& anchor);
  void showMarks();

  QString words_;
  QSet<QUrl> pictures_;  // of the page
};

}  // namespace manual
