// Keeps the operator to one dialog and the drawing, which a modal window of the toolkit would
// close off with all the rest.
// Owns: DrawingReach.
#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace tess {

// While it lives. Boxes and dialogs that the dialog opens are its own; a click elsewhere beeps.
class DrawingReach : public QObject {
 public:
  explicit DrawingReach(QWidget& dialog);
  ~DrawingReach() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool isInReach(const QObject& watched, QEvent::Type type) const;
  void comeBack();

  QWidget& dialog_;
};

}  // namespace tess
