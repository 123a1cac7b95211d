// A text of many lines as a widget: it paints the lines of its model that are in view, their
// numbers beside them, and what is chosen, found and marked among them.
// Owns: FileTextPane.
#pragma once

#include <QAbstractScrollArea>
#include <functional>

#include "cnc/file_text.h"

class QPainter;

namespace tess {

class FileTextPane : public QAbstractScrollArea {
 public:
  explicit FileTextPane(QWidget* parent = nullptr);

  // Null to begin with, and from the end of the form on.
  void setModel(const FileText* model);
  // The text, or what stands out in it, is another.
  void showModel();

  // What the operator does.
  std::function<void(int line)> onPick;
  std::function<void(int anchor, int last)> onChoose;
  std::function<void()> onFind;

  int firstLine() const;  // in view, from 0
  int linesInView() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  int lineHeight() const;
  int gutterWidth() const;
  int lineAt(int y) const;
  double widthOf(const QString& text) const;
  void takeMetrics();
  void bringIntoView(int line);
  void bringIntoView(const TextMatch& match);
  void choose(int line, bool extends);
  void paintLine(QPainter& painter, int line, int y) const;
  // Gives the place of the present match, if it is one of this line.
  QRectF paintMatches(QPainter& painter, int line, const QRectF& band) const;
  int keyTarget(const QKeyEvent& key) const;

  const FileText* model_ = nullptr;
  int shown_ = 0;    // the text of the model that is shown
  int reveals_ = 0;  // how often a line of it has come into view
};

}  // namespace tess
