// The choice of the theme: a submenu of the window's own, and what this user chose last.
// Owns: ThemeMenu.
#pragma once

#include <QMenu>
#include <string>

#include "core/session.h"
#include "shell/qt/theme.h"

namespace tess {

class ThemeMenu {
 public:
  // The choice is kept in `userfolder`; "": nowhere. What was chosen before is in force at once.
  ThemeMenu(QWidget& window, Host& host, std::string userfolder);

  QMenu& menu() { return *list_; }

  ThemeChoice choice() const { return choice_; }
  // A file that cannot be written is reported, and the theme is in force all the same.
  void choose(ThemeChoice choice);

 private:
  std::string file() const { return userfolder_ + "theme.cfg"; }
  ThemeChoice remembered() const;
  void remember();
  void showChoice();

  Host& host_;
  std::string userfolder_;
  QMenu* list_;  // the window's
  ThemeChoice choice_ = ThemeChoice::System;
};

}  // namespace tess
