// The splash.
#include "shell/qt/splash.h"

#include <QEvent>
#include <QTimer>
#include <QVBoxLayout>

namespace tess {

namespace {

constexpr int kShownFor = 2000;  // milliseconds

}  // namespace

// A part of the window, not a window of its own: a window manager may give the frame of one all the
// clicks that it should let through.
Splash::Splash(const Session& session, Gateway& gateway, QWidget& owner)
    : QWidget(&owner), form_(session), view_(form_, gateway, *this) {
  setObjectName("frmSplash");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(&view_.root());
  owner.installEventFilter(this);
}

void Splash::show(const Session& session, Gateway& gateway, QWidget& owner) {
  auto* splash = new Splash(session, gateway, owner);
  splash->adjustSize();
  splash->moveToMiddle();
  splash->setVisible(true);
  QTimer::singleShot(kShownFor, splash, [splash] { splash->close(); });
}

void Splash::moveToMiddle() {
  move(parentWidget()->rect().center() - rect().center());
}

bool Splash::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) moveToMiddle();
  return QWidget::eventFilter(watched, event);
}

}  // namespace tess
