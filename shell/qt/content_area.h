// The inside of a form's window: as large as the form wants it while the screen has room for that,
// with scroll bars where it has not.
// Owns: ContentArea, takeButtonRow.
#pragma once

#include <QLayout>
#include <QScrollArea>

#include "core/form.h"

namespace tess {

class ContentArea : public QScrollArea {
 public:
  explicit ContentArea(QWidget& content);

  // How large it may become; a content that needs more is scrolled.
  void setRoom(const QSize& room);
  // How small it may become, although a smaller content has to be scrolled then.
  void setLeast(const QSize& least);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QSize within(QSize wanted) const;
  void fitContent();
  int leastWidth() const;
  int leastHeight(int width) const;

  QWidget& content_;
  QSize room_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
  QSize least_{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

// Takes the row of the buttons that end the form out of the layouts below `root`, so that it can
// stand where it never scrolls away. Null when the form has no such button, or it is in no row.
QLayout* takeButtonRow(const Form& form, const QWidget& root);

}  // namespace tess
