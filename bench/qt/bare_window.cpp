// The yardstick of starting up: a window of the toolkit as bare as one with menus can be. It has
// six menus, a tool bar and a status bar, opens as wide as the program does, and does nothing.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace {

void fillMenu(QMenu& menu) {
  for (const char* entry : {"First", "Second", "Third"}) menu.addAction(entry);
}

}  // namespace

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QMainWindow window;
  window.setWindowTitle("Bare window");
  for (const char* title : {"File", "Edit", "Draw", "View", "Options", "Help"}) {
    fillMenu(*window.menuBar()->addMenu(title));
  }
  QToolBar* bar = window.addToolBar("Tools");
  for (const char* tool : {"First", "Second", "Third"}) bar->addAction(tool);
  window.setCentralWidget(new QWidget);
  window.statusBar()->showMessage("Ready");
  window.showMaximized();
  return QApplication::exec();
}
