// The splash.
#include "shell/qt/splash.h"

#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace tess {

namespace {

constexpr int kShownFor = 2000;  // milliseconds

}  // namespace

Splash::Splash(const Session& session, Gateway& gateway, QWidget& owner)
    : QWidget(&owner, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                          Qt::WindowDoesNotAcceptFocus),
      form_(session),
      view_(form_, gateway, *this) {
  setObjectName("frmSplash");
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(&view_.root());
}

void Splash::show(const Session& session, Gateway& gateway, QWidget& owner) {
  auto* splash = new Splash(session, gateway, owner);
  splash->adjustSize();
  splash->move(owner.screen()->availableGeometry().center() - splash->rect().center());
  splash->setVisible(true);
  QTimer::singleShot(kShownFor, splash, [splash] { splash->close(); });
}

}  // namespace tess
