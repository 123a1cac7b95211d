// What an empty window offers to begin with: as long as there is nothing on the drawing and nothing
// is armed.
// Owns: StartOffer.
#pragma once

#include <string>
#include <vector>

namespace tess {

class Application;

class StartOffer {
 public:
  explicit StartOffer(Application& application) : application_(application) {}

  // A tool with what it says; the recent files last, each by its name and its folder.
  struct Entry {
    std::string tool;
    std::string caption;
    std::string hint;
    friend bool operator==(const Entry&, const Entry&) = default;
  };
  std::vector<Entry> entries() const;

  // Whether to show it now: an untitled drawing without a row, no command at work, and the operator
  // has not begun an empty drawing.
  bool isOpen();
  // The operator's choice. An empty drawing ends the offer until there has been a row.
  void choose(const std::string& tool);

 private:
  bool isEmpty() const;

  Application& application_;
  bool begun_ = false;
};

}  // namespace tess
