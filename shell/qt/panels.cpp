// Docked panels.
#include "shell/qt/panels.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "shell/qt/content_area.h"

namespace tess {

namespace {

// A panel that is larger than its window scrolls, down to this.
constexpr QSize kLeastContent{360, 34};

bool isOneLine(const std::string& band) {
  return band == "barPathProof";
}

}  // namespace

// A dock whose closing button asks the program.
class Panels::Dock : public QDockWidget {
 public:
  using QDockWidget::QDockWidget;

  void showForm(Form& form, Gateway& gateway) {
    auto* frame = new QWidget(this);
    auto* whole = new QVBoxLayout(frame);
    whole->setContentsMargins(0, 0, 0, 0);
    view_ = std::make_unique<FormView>(form, gateway, *frame);
    auto* content = new ContentArea(view_->root());
    content->setLeast(kLeastContent);
    whole->addWidget(content);
    view_->measure(*frame);
    setWidget(frame);
  }

  // The parts of a form that lies along the top or bottom stand side by side.
  void layOut(bool liesDown) {
    auto* box = view_ ? qobject_cast<QBoxLayout*>(view_->root().layout()) : nullptr;
    if (box != nullptr) {
      box->setDirection(liesDown ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    }
  }

  // The view may be in the middle of an event of its own.
  void dropForm() {
    if (QWidget* frame = widget()) frame->deleteLater();
    setWidget(nullptr);
    if (view_) view_.release()->deleteLater();
  }

  std::function<void()> onOperatorClosed;

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    if (onOperatorClosed) onOperatorClosed();
  }

  // What a field leaves of its keys is no command of the drawing, but for the function keys.
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_F1 && view_) return view_->actions().help();
    if (event->key() >= Qt::Key_F1 && event->key() <= Qt::Key_F35) return event->ignore();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || !view_) return;
    view_->actions().run("Form_Enter", [this] { view_->form()->pressDefault(); });
  }

 private:
  std::unique_ptr<FormView> view_;
};

Panels::Panels(ToolHost& tools, FormHost& forms, Gateway& gateway, QMainWindow& window)
    : tools_(tools),
      gateway_(gateway),
      window_(window),
      toolSubscription_(tools.observe(*this)),
      formSubscription_(forms.observe(*this)) {
  for (const Band& band : tools_.bands()) {
    if (band.kind == BandKind::Panel) makeDock(band);
  }
}

Panels::~Panels() = default;

std::string Panels::bandOf(const std::string& form) {
  constexpr std::string_view kPrefix = "frm";
  return form.starts_with(kPrefix) ? "bar" + form.substr(kPrefix.size()) : std::string();
}

void Panels::makeDock(const Band& band) {
  auto* dock = new Dock(QString::fromStdString(band.caption), &window_);
  dock->setObjectName(QString::fromStdString(band.name));
  dock->onOperatorClosed = [this, name = band.name] { operatorClosed(name); };
  QObject::connect(dock, &QDockWidget::dockLocationChanged, dock,
                   [this, name = band.name](Qt::DockWidgetArea area) { arrange(name, area); });
  docks_[band.name] = dock;
  // A line of text lies best above the drawing, where no larger panel has to share its place.
  const bool lies = isOneLine(band.name);
  window_.addDockWidget(lies ? Qt::TopDockWidgetArea : Qt::RightDockWidgetArea, dock);
  dock->setVisible(band.open);
}

QDockWidget* Panels::dock(const std::string& band) const {
  const auto found = docks_.find(band);
  return found == docks_.end() ? nullptr : found->second;
}

void Panels::showOpenBands() {
  for (const auto& [name, dock] : docks_) dock->setVisible(tools_.band(name)->open);
}

void Panels::operatorClosed(const std::string& band) {
  gateway_.enter("frmMain.abMain_BandClose(band)", [&] { tools_.closeBand(band); });
}

void Panels::bandChanged(const Band& band, BandProperty property) {
  const auto found = docks_.find(band.name);
  if (found == docks_.end() || property != BandProperty::Open) return;
  found->second->setVisible(band.open);
}

void Panels::formOpened(Form& form) {
  const auto found = docks_.find(bandOf(form.name()));
  if (found == docks_.end()) return;
  found->second->showForm(form, gateway_);
  tools_.openBand(found->first);
  arrange(found->first, window_.dockWidgetArea(found->second));
}

void Panels::formClosed(const std::string& name) {
  const auto found = docks_.find(bandOf(name));
  if (found == docks_.end()) return;
  found->second->dropForm();
  tools_.closeBand(found->first);
}

// A panel lies along the top or bottom, or stands at a side, and wants a size for either.
void Panels::arrange(const std::string& band, Qt::DockWidgetArea area) {
  if (area == Qt::NoDockWidgetArea) return;
  const bool lying = area == Qt::TopDockWidgetArea || area == Qt::BottomDockWidgetArea;
  DockedPanel* panel = tools_.band(band)->panel;
  if (panel == nullptr) return docks_.at(band)->layOut(lying && isOneLine(band));
  gateway_.enter("frmMain.abMain_BandDock(band)", [&] {
    if (lying) {
      panel->LayoutHorizontally();
    } else {
      panel->LayoutVertically();
    }
  });
  docks_.at(band)->layOut(panel->liesDown());
  const int extent = lying ? panel->DockedHorzHeight() : panel->DockedVertWidth();
  // The window has yet to hear how small the form can be in its new arrangement.
  QTimer::singleShot(0, docks_.at(band), [this, dock = docks_.at(band), extent, lying] {
    if (!dock->isVisible()) return;
    window_.resizeDocks({dock}, {extent}, lying ? Qt::Vertical : Qt::Horizontal);
  });
}

}  // namespace tess
