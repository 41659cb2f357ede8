// WaitingPanel: a veil over a window with a card that says what is being done.
#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace goods {

class WaitingPanel : public QWidget {
 public:
  // Covers the window that over belongs to.
  explicit WaitingPanel(QWidget* over);
  void Show(const QString& text, const QString& rows);
  const QString& Text() const { return text_; }
  const QString& Rows() const { return rows_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  QString rows_;
  QElapsedTimer clock_;
};

}  // namespace goods
