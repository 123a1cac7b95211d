// The offer of an empty window, in the middle of the drawing surface. It is a widget above it: no
// picture, plot or print has it.
// Owns: StartPanel.
#pragma once

#include <QFrame>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <vector>

#include "shell/start_offer.h"

namespace tess {

class StartPanel : public QFrame {
 public:
  // `offer` outlives the panel.
  StartPanel(StartOffer& offer, QWidget& surface);

  // Shows or hides itself as the offer is; takes the keyboard when it comes and gives it back to
  // the surface when it goes.
  void settle();

  // The operator's choice.
  std::function<void(const std::string& tool)> onChosen;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void leave();
  void fill();
  void addEntry(const StartOffer::Entry& entry, bool recent);
  void centre();

  StartOffer& offer_;
  QWidget& surface_;
  QVBoxLayout* column_;
  std::vector<StartOffer::Entry> entries_;  // that are shown
};

}  // namespace tess
