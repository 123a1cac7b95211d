// The panels that dock beside the surface: each band of that kind has a dock of its own, which
// shows the form that belongs to it while both are open.
// Owns: Panels.
#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "core/form_host.h"
#include "core/tool_host.h"
#include "shell/qt/form_view.h"

namespace tess {

// A band barNAME shows the form frmNAME.
class Panels : public ToolHostObserver, public FormHostObserver {
 public:
  Panels(ToolHost& tools, FormHost& forms, Gateway& gateway, QMainWindow& window);
  ~Panels() override;

  bool isDocked(const Form& form) const { return tools_.band(bandOf(form.name())) != nullptr; }
  QDockWidget* dock(const std::string& band) const;  // null when absent
  // Docks show as their bands are, whatever an arrangement made of them.
  void showOpenBands();

  void bandChanged(const Band& band, BandProperty property) override;
  void formOpened(Form& form) override;
  void formClosed(const std::string& name) override;

 private:
  class Dock;
  static std::string bandOf(const std::string& form);
  void makeDock(const Band& band);
  void operatorClosed(const std::string& band);
  void arrange(const std::string& band, Qt::DockWidgetArea area);

  ToolHost& tools_;
  Gateway& gateway_;
  QMainWindow& window_;
  std::map<std::string, Dock*> docks_;
  Subscription toolSubscription_;
  Subscription formSubscription_;
};

}  // namespace tess
