// The main window: menus and tool bars round the drawing surface, docked panels, and the status
// bar.
// Owns: MainWindowParts, MainWindow.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <functional>
#include <string>
#include <vector>

#include "core/form_host.h"
#include "core/status_bar.h"
#include "core/tool_host.h"
#include "shell/qt/form_window.h"
#include "shell/qt/guide_bar.h"
#include "shell/qt/panels.h"
#include "shell/qt/surface_widget.h"
#include "shell/qt/tool_bars.h"

namespace tess {

struct MainWindowParts {
  ToolHost& tools;
  StatusBar& status;
  FormHost& forms;
  Gateway& gateway;
  SurfaceWidget& surface;  // a child of the window for as long as that lives
};

class MainWindow : public QMainWindow, public ToolHostObserver {
 public:
  explicit MainWindow(const MainWindowParts& parts);
  ~MainWindow() override;  // gives the surface back

  ToolHost& tools() { return parts_.tools; }
  ToolBars& toolBars() { return toolBars_; }
  Panels& panels() { return panels_; }
  QLabel& statusLabel(StatusPanel panel) { return guideBar_->label(panel); }
  GuideBar& guideBar() { return *guideBar_; }

  // At most 80 per cent of the screen each way, then maximised.
  void showAtStart();
  // A small line over the surface, for what is said before dialogs are at hand.
  void print(const std::string& line);

  // Closes as the operator's own close does. Nothing while it is closing already: what is asked or
  // told then would go with the window.
  void closeOnce();

  // Whether the window may close now.
  std::function<bool()> onQueryClose;
  std::function<void()> onClosed;
  // Paths of files that were dropped on the window; none when those are of other computers.
  std::function<void(const std::vector<std::string>&)> onFilesDropped;

  void keepArrangement(std::string& arrangement) override;
  void restoreArrangement(const std::string& arrangement) override;

  // The list of tool bars and panels, each with its mark.
  QMenu* createPopupMenu() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void fillScreen();
  void makeStatusBar();
  bool mayDrop() const;
  void showPanel(StatusPanel panel);
  void tellClientArea();

  MainWindowParts parts_;
  QWidget* client_;  // what the docked bars leave; the surface lies in it
  ToolBars toolBars_;
  Panels panels_;
  FormWindows formWindows_;
  GuideBar* guideBar_ = nullptr;
  Subscription subscription_;
  bool closing_ = false;
};

}  // namespace tess
