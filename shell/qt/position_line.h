// The line in which positions are typed. Enter clicks there, Shift+Enter with the right button, Esc
// goes back to the drawing.
// Owns: PositionLine.
#pragma once

#include <QLineEdit>
#include <functional>

namespace tess {

class PositionLine : public QLineEdit {
 public:
  explicit PositionLine(QWidget* parent = nullptr);

  // A key on the drawing that begins a position comes here with the keyboard, which goes back once
  // the position is entered. False for any other key.
  bool begin(const QKeyEvent& key);
  // Half a position is there: the keyboard stays.
  bool isWriting() const { return hasFocus() && !text().isEmpty(); }

  // The position is entered; gives back whether it was taken. Else the text stays, to be mended.
  std::function<bool(const QString& text, bool rightButton)> onEntered;
  std::function<void()> onLeft;    // the keyboard goes back to the drawing
  std::function<void()> onEdited;  // by hand

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void enter(bool rightButton);
  void leave();

  bool begunOnDrawing_ = false;
};

}  // namespace tess
