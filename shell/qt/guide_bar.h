// What stands below the drawing: the guide of what buttons and keys do, the line for typed
// positions with what came of it and of commands, the state of the drawing, and the stated panels
// of the status bar. Where there is not enough room side by side the rows are more.
// Owns: GuideBar.
#pragma once

#include <QHBoxLayout>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>

#include "core/status_bar.h"
#include "shell/qt/elided_label.h"
#include "shell/qt/position_line.h"
#include "shell/qt/results_window.h"

namespace tess {

class GuideBar : public QWidget {
 public:
  explicit GuideBar(QWidget* parent);

  QLabel& label(StatusPanel panel) { return *labels_.at(panel); }
  void showPanel(StatusPanel panel, const QString& text);
  PositionLine& position() { return *position_; }
  QLabel& answer() { return *answer_; }
  QPushButton& resultsButton() { return *results_; }
  ResultsWindow* resultsWindow() { return window_; }  // null until it was opened

  // Stands for some seconds, and in the list if that is open.
  void showResult(const QString& text);

  // A typed position; gives back what is wrong with it, "" when it was taken.
  std::function<std::string(const std::string& text, bool rightButton)> onPosition;
  std::function<std::string()> onLog;  // all results

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void addLabel(StatusPanel panel, const char* about, int letters);
  void fillRows();
  void addTo(QHBoxLayout& row, std::initializer_list<StatusPanel> panels);
  void wire();
  void arrange();
  void arrangeRows();
  void showTrouble(const QString& text);
  void openResults();

  std::map<StatusPanel, ElidedLabel*> labels_;
  PositionLine* position_;
  ElidedLabel* answer_;  // the trouble with a position, or the last result
  QPushButton* results_;
  QHBoxLayout* guideRow_;
  QHBoxLayout* positionRow_;
  QHBoxLayout* stateRow_;  // this and the next are used where the window is narrow
  QHBoxLayout* jobRow_;
  QHBoxLayout* panelRow_;
  ResultsWindow* window_ = nullptr;
  QTimer resultTime_;
  bool narrow_ = false;
};

}  // namespace tess
