// Menus, tool bars and pop-ups as the model of the tools has them: one action for all places of a
// tool, kept in step by observing the model.
// Owns: ToolBars.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <functional>
#include <map>
#include <string>

#include "core/tool_host.h"
#include "shell/qt/gateway.h"

namespace tess {

// Long menus are folded into submenus (menu_groups); every tool of a band has its entry.
class ToolBars : public ToolHostObserver {
 public:
  // Builds the window's menu bar and tool bars from the bands that the host has by now.
  ToolBars(ToolHost& host, Gateway& gateway, QMainWindow& window);

  // Null when absent.
  QAction* action(const std::string& tool) const;
  QToolBar* toolBar(const std::string& band) const;
  QMenu* menu(const std::string& band) const;
  const std::map<std::string, QToolBar*, std::less<>>& toolBars() const { return bars_; }

  // A submenu of the window's own at the end of a menu, which outlives this.
  void addSubmenu(const std::string& band, QMenu& submenu);

  // Tool bars show as their bands are, whatever an arrangement made of them.
  void showOpenBands();

  void toolChanged(const Tool& tool, ToolProperty property) override;
  void bandChanged(const Band& band, BandProperty property) override;

  // A command that was chosen in a menu has ended.
  std::function<void()> onMenuCommand;

 private:
  QAction* makeAction(const Tool& tool);
  void makeMenu(const Band& band);
  void makeToolBar(const Band& band);
  void fill(QToolBar& bar, const Band& band);
  void fill(QMenu& menu, const Band& band);
  void addDropDowns();
  void click(const std::string& tool);
  void menuCloses(QMenu& menu);
  void showChecked(const Tool& tool);
  void setOpen(const std::string& band, bool open);

  ToolHost& host_;
  Gateway& gateway_;
  QMainWindow& window_;
  std::map<std::string, QAction*, std::less<>> actions_;
  std::map<std::string, QMenu*, std::less<>> menus_;
  std::map<std::string, QToolBar*, std::less<>> bars_;
  std::map<std::string, QMenu*, std::less<>> guests_;  // submenus by the band they end
  bool menuCloses_ = false;                            // until its command runs, or there is none
  Subscription subscription_;
};

}  // namespace tess
