// The status bar as a model: the line that prompts the operator, and numbered panels.
// Owns: StatusPanel, StatusBar.
#pragma once

#include <functional>
#include <map>
#include <string>

namespace tess {

// The panels from the left; their numbers are those that scripts use. From the cutter in use on
// they are the window's own, which stand beside the others.
enum class StatusPanel : int {
  FileName = 1,
  Prompt = 2,
  X = 3,
  Y = 4,
  Z = 5,
  Zoom = 6,
  Tool = 7,
  Path = 8,
  Guide = 9,      // what buttons, wheel and keys do now
  Modified = 10,  // whether there is unsaved work
  Units = 11,
  Selected = 12,  // how many rows
  Relative = 13,  // the pointer from the marker, in both ways of telling a place
  Snap = 14       // what the pointer snaps to
};

class StatusBar {
 public:
  // The status line, which is the text of the prompt panel. Every text put there is told to
  // onText, an empty or equal one too.
  void setText(std::string text) {
    setPanel(StatusPanel::Prompt, std::move(text));
    if (onText) onText(this->text());
  }
  const std::string& text() const { return panel(StatusPanel::Prompt); }

  void setPanel(StatusPanel panel, std::string text) {
    std::string& shown = panels_[panel];
    if (shown == text) return;
    shown = std::move(text);
    if (onPanel) onPanel(panel);
  }
  const std::string& panel(StatusPanel panel) const { return panels_[panel]; }

  std::function<void(const std::string&)> onText;
  std::function<void(StatusPanel)> onPanel;  // told when a panel's text differs

 private:
  mutable std::map<StatusPanel, std::string> panels_;
};

}  // namespace tess
