// The main window.
#include "shell/qt/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "shell/qt/icons.h"

namespace tess {

namespace {

constexpr double kScreenPart = 0.8;
constexpr int kMaximisedAfter = 250;  // milliseconds
constexpr int kLayoutVersion = 1;
constexpr int kSmallestIcon = 16;
constexpr int kLargestIcon = 64;

}  // namespace

MainWindow::MainWindow(const MainWindowParts& parts)
    : parts_(parts),
      client_(new QWidget(this)),
      toolBars_(parts.tools, parts.gateway, *this),
      panels_(parts.tools, parts.forms, parts.gateway, *this),
      formWindows_(parts.forms, parts.gateway, *this),
      subscription_(parts.tools.observe(*this)) {
  setObjectName("frmMain");
  setWindowIcon(programIcon());
  setAcceptDrops(true);
  setContextMenuPolicy(Qt::DefaultContextMenu);
  client_->setMinimumSize(200, 90);
  parts_.surface.setParent(client_);
  setCentralWidget(client_);
  client_->installEventFilter(this);
  formWindows_.isDocked = [this](const Form& form) { return panels_.isDocked(form); };
  parts_.surface.drawing().onMoved = [this](const SurfaceArea& area) {
    const QRectF place(area.left, area.top, area.width, area.height);
    parts_.surface.setGeometry(place.translated(-client_->mapTo(this, QPointF())).toRect());
  };
  makeStatusBar();
}

MainWindow::~MainWindow() {
  parts_.surface.setParent(nullptr);
}

void MainWindow::makeStatusBar() {
  guideBar_ = new GuideBar(this);
  statusBar()->setSizeGripEnabled(true);
  statusBar()->addWidget(guideBar_, 1);
  for (int panel = static_cast<int>(StatusPanel::FileName);
       panel <= static_cast<int>(StatusPanel::Snap); ++panel) {
    showPanel(static_cast<StatusPanel>(panel));
  }
  parts_.status.onPanel = [this](StatusPanel panel) { showPanel(panel); };
  guideBar_->position().onLeft = [this] { parts_.surface.setFocus(); };
}

void MainWindow::showPanel(StatusPanel panel) {
  QString text = QString::fromStdString(parts_.status.panel(panel));
  if (panel == StatusPanel::Zoom) text = "Zoom: " + text.trimmed();
  guideBar_->showPanel(panel, text);
}

void MainWindow::showAtStart() {
  const QSize screen = this->screen()->availableSize();
  if (width() > screen.width() * kScreenPart) resize(screen * kScreenPart);
  showMaximized();
  QTimer::singleShot(kMaximisedAfter, this, [this] { fillScreen(); });
}

// Without a window manager nobody carries out that a window is maximised, and some take it back
// when the window asks for more room just then, as on a small screen.
void MainWindow::fillScreen() {
  const QRect available = screen()->availableGeometry();
  if (width() > available.width() * kScreenPart) return;
  if (isMaximized()) {
    setGeometry(available);
  } else {
    showMaximized();
  }
}

void MainWindow::print(const std::string& line) {
  statusLabel(StatusPanel::Prompt).setText(QString::fromStdString(line).replace('\n', ' '));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == client_ && event->type() == QEvent::Resize) tellClientArea();
  if (watched == client_ && event->type() == QEvent::Move) tellClientArea();
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::tellClientArea() {
  const QPoint corner = client_->mapTo(this, QPoint());
  const Bounds area{corner.x(), corner.y(), client_->width(), client_->height()};
  parts_.gateway.enter("frmMain.abMain_Resize()", [&] { parts_.tools.setClientArea(area); });
}

// The toolkit takes a window away that is closed while it closes.
void MainWindow::closeOnce() {
  if (!closing_) close();
}

// The question may itself ask for the window to be closed.
void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (closing_) return;
  closing_ = true;
  parts_.gateway.enter("frmMain.Form_QueryUnload(Cancel,UnloadMode)",
                       [&] { event->setAccepted(!onQueryClose || onQueryClose()); });
  closing_ = event->isAccepted();
  if (closing_ && onClosed) onClosed();
}

// Keys that no field wanted are commands.
void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (parts_.surface.handleKey(*event)) return;
  QMainWindow::keyPressEvent(event);
}

// The toolkit brings drops in the middle of a command too, which would take the drawing from under
// it, and from under a dialog.
bool MainWindow::mayDrop() const {
  return !parts_.gateway.isBusy() && QApplication::activeModalWidget() == nullptr;
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && mayDrop()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  if (!mayDrop()) return event->ignore();
  std::vector<std::string> paths;
  const QList<QUrl> urls = event->mimeData()->urls();
  for (const QUrl& url : urls) {
    const QString path = url.toLocalFile();  // empty for one of another computer
    if (!path.isEmpty() && !path.contains(QChar::Null)) paths.push_back(path.toStdString());
  }
  event->acceptProposedAction();
  if (!onFilesDropped) return;
  parts_.gateway.enter("frmMain.picDrawing_OLEDragDrop(Data,Effect,Button,Shift,X,Y)",
                       [&] { onFilesDropped(paths); });
}

// The toolkit's own state as one word, before it the size of the icons and the style of buttons.
void MainWindow::keepArrangement(std::string& arrangement) {
  arrangement = std::to_string(iconSize().width()) + " " +
                std::to_string(static_cast<int>(toolButtonStyle())) + " " +
                saveState(kLayoutVersion).toBase64().toStdString();
}

// Which bars are open was told before; an arrangement of an older program must not hide new ones.
void MainWindow::restoreArrangement(const std::string& arrangement) {
  const QStringList words = QString::fromStdString(arrangement).split(' ');
  if (words.size() != 3) return;
  const int pixels = std::clamp(words[0].toInt(), kSmallestIcon, kLargestIcon);
  setIconSize(QSize(pixels, pixels));
  const bool named = words[1].toInt() == Qt::ToolButtonTextUnderIcon;
  setToolButtonStyle(named ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
  restoreState(QByteArray::fromBase64(words[2].toLatin1()), kLayoutVersion);
  toolBars_.showOpenBands();
  panels_.showOpenBands();
}

QMenu* MainWindow::createPopupMenu() {
  auto* menu = new QMenu(this);
  for (const Band& band : parts_.tools.bands()) {
    if (band.kind != BandKind::ToolBar && band.kind != BandKind::Panel) continue;
    QAction* entry = menu->addAction(QString::fromStdString(band.caption).remove('&'));
    entry->setCheckable(true);
    entry->setChecked(band.open);
    connect(entry, &QAction::triggered, this, [this, name = band.name](bool open) {
      parts_.gateway.enter("frmMain.abMain_BandOpen(band)", [&] {
        open ? parts_.tools.openBand(name) : parts_.tools.closeBand(name);
      });
    });
  }
  return menu;
}

}  // namespace tess
