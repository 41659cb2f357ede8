// HelpText: a help page as it is read: right to left, pictures as wide as the page.
#pragma once

#include <QTextBrowser>
#include <QTimer>

namespace goods {

class HelpText : public QTextBrowser {
 public:
  explicit HelpText(QWidget* parent);

  // Goes to the next place, or the one before, that reads like the text: letters that Persian keyboards write
  // in two ways are one letter, digits of either script are equal. From the end it goes on at the beginning.
  // With stay, a place that the cursor is at counts. False when the page has none.
  bool Find(const QString& text, bool backwards = false, bool stay = false);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  int PictureWidth() const;
  void Arrange();

  QTimer resized_;
  int pictureWidth_ = 0;
};

}  // namespace goods
