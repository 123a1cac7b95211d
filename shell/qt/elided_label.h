// A line of text that is cut with dots where it has no room, and then tells the whole as a hint.
// Owns: ElidedLabel.
#pragma once

#include <QLabel>

namespace tess {

class ElidedLabel : public QLabel {
 public:
  // What it is about, for those who hear the screen.
  explicit ElidedLabel(const QString& about, QWidget* parent = nullptr);

  // Takes no less room than so many letters.
  void keepLetters(int letters);
  // The text has changed; an alert is read out at once.
  void tell(const QString& text, bool alert = false);

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int letters_ = 0;
};

}  // namespace tess
