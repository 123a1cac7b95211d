// The offer of an empty window, in the middle of the drawing surface: in one column, in several
// where the surface is low. It is a widget above it: no picture, plot or print has it.
// Owns: StartPanel.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
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
  QPushButton* makeButton(const StartOffer::Entry& entry, bool recent);
  void arrange();
  void place(int columns, bool withRecent);
  int placeButtons(int row, bool recent, int columns);
  void centre();

  StartOffer& offer_;
  QWidget& surface_;
  QGridLayout* grid_;
  std::vector<StartOffer::Entry> entries_;  // that are offered
  std::vector<QPushButton*> buttons_;       // of each entry
  QLabel* recent_ = nullptr;  // above the drawings used last; null where there is none
};

}  // namespace tess
