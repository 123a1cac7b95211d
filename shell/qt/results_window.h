// The list of results, to be read again and copied.
// Owns: ResultsWindow.
#pragma once

#include <QDialog>
#include <QPlainTextEdit>

namespace tess {

class ResultsWindow : public QDialog {
 public:
  explicit ResultsWindow(QWidget* owner);

  // All of them, one line each, the newest in sight.
  void showLog(const QString& log);
  QPlainTextEdit& list() { return *list_; }

 private:
  QPlainTextEdit* list_;
};

}  // namespace tess
