// The picture that greets at the start. It lies in the middle of the main window for two seconds,
// takes no input and waits for nothing: the window behind it works from the first moment.
// Owns: Splash.
#pragma once

#include <QWidget>

#include "core/session.h"
#include "shell/frmAbout.h"
#include "shell/qt/form_view.h"

namespace tess {

class Splash : public QWidget {
 public:
  // Goes by itself, at the latest with its owner.
  static void show(const Session& session, Gateway& gateway, QWidget& owner);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Splash(const Session& session, Gateway& gateway, QWidget& owner);
  void moveToMiddle();

  frmSplash form_;
  FormView view_;
};

}  // namespace tess
