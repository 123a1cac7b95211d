// What stands below the drawing.
#include "shell/qt/guide_bar.h"

#include <QResizeEvent>
#include <QVBoxLayout>

namespace tess {

namespace {

constexpr int kEdge = 6;             // pixels
constexpr int kResultStands = 8000;  // milliseconds
// Letters of an average width that all takes side by side.
constexpr int kWideLetters = 175;

struct PanelRow {
  StatusPanel panel;
  const char* about;
  int letters;  // 0: what the others leave
};

constexpr PanelRow kPanels[] = {
    {StatusPanel::Guide, "What the mouse buttons and keys do now", 0},
    {StatusPanel::Snap, "What a click snaps to", 18},
    {StatusPanel::Relative, "The pointer from the marker", 40},
    {StatusPanel::Selected, "Selected rows", 17},
    {StatusPanel::Units, "Units of the drawing", 6},
    {StatusPanel::Modified, "Whether there is unsaved work", 11},
    {StatusPanel::FileName, "The drawing", 30},
    {StatusPanel::Prompt, "What the command asks for", 0},
    {StatusPanel::X, "The pointer", 12},
    {StatusPanel::Y, "The pointer", 12},
    {StatusPanel::Z, "The final depth", 12},
    {StatusPanel::Zoom, "The zoom", 9},
    {StatusPanel::Tool, "The cutter in use", 30},
    {StatusPanel::Path, "What the path amounts to", 30},
};

QHBoxLayout* addRow(QVBoxLayout& rows) {
  auto* row = new QHBoxLayout;
  row->setSpacing(2);
  rows.addLayout(row);
  return row;
}

}  // namespace

GuideBar::GuideBar(QWidget* parent)
    : QWidget(parent),
      position_(new PositionLine(this)),
      answer_(new ElidedLabel("What came of the last command", this)),
      results_(new QPushButton("Resu&lts...", this)) {
  setObjectName("guideBar");
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, kEdge, 0);
  rows->setSpacing(1);
  guideRow_ = addRow(*rows);
  positionRow_ = addRow(*rows);
  stateRow_ = addRow(*rows);
  jobRow_ = addRow(*rows);
  panelRow_ = addRow(*rows);
  for (const PanelRow& row : kPanels) addLabel(row.panel, row.about, row.letters);
  answer_->setObjectName("lblAnswer");
  answer_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  results_->setObjectName("cmdResults");
  results_->setToolTip("The results of commands, with their times");
  results_->setAutoDefault(false);
  fillRows();
  arrangeRows();
  wire();
}

void GuideBar::addLabel(StatusPanel panel, const char* about, int letters) {
  auto* label = new ElidedLabel(about, this);
  label->keepLetters(letters);
  if (letters == 0) label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  labels_[panel] = label;
}

void GuideBar::fillRows() {
  auto* caption = new QLabel("&Position:", this);
  caption->setBuddy(position_);
  caption->setContentsMargins(6, 0, 0, 0);
  guideRow_->addWidget(labels_.at(StatusPanel::Guide), 1);
  positionRow_->addWidget(caption);
  positionRow_->addWidget(position_);
  positionRow_->addWidget(answer_, 1);
  positionRow_->addWidget(results_);
  panelRow_->addWidget(labels_.at(StatusPanel::FileName));
  panelRow_->addWidget(labels_.at(StatusPanel::Prompt), 1);
  addTo(*panelRow_, {StatusPanel::X, StatusPanel::Y, StatusPanel::Z, StatusPanel::Zoom});
  for (QHBoxLayout* const row : {stateRow_, jobRow_}) row->addStretch(1);
}

void GuideBar::addTo(QHBoxLayout& row, std::initializer_list<StatusPanel> panels) {
  for (const StatusPanel panel : panels) {
    const bool hasRoomAtEnd =
        row.count() > 0 && row.itemAt(row.count() - 1)->spacerItem() != nullptr;
    row.insertWidget(row.count() - (hasRoomAtEnd ? 1 : 0), labels_.at(panel));
  }
}

void GuideBar::wire() {
  position_->onEntered = [this](const QString& text, bool rightButton) {
    const std::string trouble =
        onPosition ? onPosition(text.toStdString(), rightButton) : std::string();
    showTrouble(QString::fromStdString(trouble));
    return trouble.empty();
  };
  position_->onEdited = [this] { showTrouble({}); };
  connect(results_, &QPushButton::clicked, this, [this] { openResults(); });
  resultTime_.setSingleShot(true);
  resultTime_.setInterval(kResultStands);
  connect(&resultTime_, &QTimer::timeout, this, [this] { answer_->tell({}); });
}

void GuideBar::showPanel(StatusPanel panel, const QString& text) {
  const auto found = labels_.find(panel);
  if (found != labels_.end()) found->second->tell(text);
}

// A position that was taken leaves what the click came to.
void GuideBar::showTrouble(const QString& text) {
  if (text.isEmpty() && resultTime_.isActive()) return;
  resultTime_.stop();
  answer_->tell(text, /*alert=*/true);
}

void GuideBar::showResult(const QString& text) {
  answer_->tell(text, /*alert=*/true);
  resultTime_.start();
  if (window_ != nullptr && window_->isVisible() && onLog) {
    window_->showLog(QString::fromStdString(onLog()));
  }
}

void GuideBar::openResults() {
  if (window_ == nullptr) window_ = new ResultsWindow(this);
  window_->showLog(onLog ? QString::fromStdString(onLog()) : QString());
  window_->show();
  window_->raise();
  window_->activateWindow();
}

void GuideBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void GuideBar::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  arrange();
}

void GuideBar::arrange() {
  const bool narrow = width() < kWideLetters * fontMetrics().averageCharWidth();
  if (!isVisible() || narrow == narrow_) return;
  narrow_ = narrow;
  arrangeRows();
}

// The state of the drawing, the cutter and the path get rows of their own, or join the others.
void GuideBar::arrangeRows() {
  addTo(narrow_ ? *stateRow_ : *positionRow_,
        {StatusPanel::Snap, StatusPanel::Relative, StatusPanel::Selected, StatusPanel::Units,
         StatusPanel::Modified});
  addTo(narrow_ ? *jobRow_ : *panelRow_, {StatusPanel::Tool, StatusPanel::Path});
}

}  // namespace tess
