// The lines of a text.
#include "shell/qt/file_text_pane.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <string>

namespace tess {

namespace {

constexpr int kTextMargin = 8;
constexpr int kMarkWidth = 4;
constexpr int kFaint = 60;     // of 255: the ground of what is marked
constexpr int kVisible = 120;  // of matches that are not the present one
constexpr int kTabWidth = 8;
constexpr int kNoLine = -1;
constexpr char16_t kControlSigns = 0x2400;  // signs for the control characters, in their order
constexpr char16_t kDeleteSign = 0x2421;
constexpr char16_t kDelete = 0x7F;

// A text with nothing in it that a painter would not show, or show as wide as it likes.
QString visible(std::string_view utf8) {
  const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  QString result;
  result.reserve(text.size());
  for (const QChar letter : text) {
    if (letter == '\t') {
      result.append(QString(kTabWidth - result.size() % kTabWidth, ' '));
    } else if (letter.unicode() < ' ') {
      result.append(QChar(kControlSigns + letter.unicode()));
    } else {
      result.append(letter.unicode() == kDelete ? QChar(kDeleteSign) : letter);
    }
  }
  return result;
}

QColor thinned(QColor color, int alpha) {
  color.setAlpha(alpha);
  return color;
}

}  // namespace

FileTextPane::FileTextPane(QWidget* parent) : QAbstractScrollArea(parent) {
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  viewport()->setCursor(Qt::IBeamCursor);
}

void FileTextPane::setModel(const FileText* model) {
  model_ = model;
  takeMetrics();
}

void FileTextPane::showModel() {
  if (model_ == nullptr) return;
  if (shown_ != model_->shown()) {
    shown_ = model_->shown();
    reveals_ = model_->reveals();
    takeMetrics();
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
  }
  if (reveals_ != model_->reveals()) {
    reveals_ = model_->reveals();
    bringIntoView(model_->revealed());
    bringIntoView(model_->match());
  }
  viewport()->update();
}

// ---- Measures

int FileTextPane::lineHeight() const {
  return fontMetrics().height() + 2;
}

double FileTextPane::widthOf(const QString& text) const {
  return QFontMetricsF(font()).horizontalAdvance(text);
}

int FileTextPane::gutterWidth() const {
  const int count = model_ == nullptr ? 0 : model_->lines().count();
  const auto digits = static_cast<int>(std::max<std::size_t>(std::to_string(count).size(), 3));
  return fontMetrics().horizontalAdvance(QString(digits, '0')) + 2 * kTextMargin + kMarkWidth;
}

int FileTextPane::firstLine() const {
  return verticalScrollBar()->value();
}

int FileTextPane::linesInView() const {
  return std::max(viewport()->height() / lineHeight(), 1);
}

void FileTextPane::takeMetrics() {
  const int count = model_ == nullptr ? 0 : model_->lines().count();
  verticalScrollBar()->setRange(0, std::max(count - linesInView(), 0));
  verticalScrollBar()->setPageStep(linesInView());
  // A tab is the widest that one byte can be.
  const std::size_t longest = model_ == nullptr ? 0 : model_->longestShown();
  const double width = static_cast<double>(longest) * widthOf("0") + 2 * kTextMargin;
  const int room = viewport()->width() - gutterWidth();
  horizontalScrollBar()->setRange(0, std::max(static_cast<int>(width) - room, 0));
  horizontalScrollBar()->setPageStep(std::max(room, 1));
  horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 4);
  viewport()->update();
}

void FileTextPane::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  takeMetrics();
}

void FileTextPane::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) takeMetrics();
  QAbstractScrollArea::changeEvent(event);
}

// A line beyond the next one comes to the middle.
void FileTextPane::bringIntoView(int line) {
  const int first = firstLine();
  const int view = linesInView();
  if (line < 0 || (line >= first && line < first + view)) return;
  if (line == first - 1) return verticalScrollBar()->setValue(line);
  if (line == first + view) return verticalScrollBar()->setValue(first + 1);
  verticalScrollBar()->setValue(line - view / 2);
}

void FileTextPane::bringIntoView(const TextMatch& match) {
  if (match.line < 0) return;
  const std::string text = model_->shownLine(match.line);
  const std::string_view whole(text);
  const auto left = static_cast<int>(widthOf(visible(whole.substr(0, match.begin))));
  const auto right =
      static_cast<int>(widthOf(visible(whole.substr(0, match.begin + match.length))));
  QScrollBar& bar = *horizontalScrollBar();
  const int room = bar.pageStep() - 2 * kTextMargin;
  if (left < bar.value() || right > bar.value() + room) bar.setValue(std::max(right - room, 0));
}

// ---- Painting

void FileTextPane::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
  const QRect gutter(0, 0, gutterWidth(), viewport()->height());
  painter.fillRect(gutter, palette().color(QPalette::Window));
  if (model_ == nullptr) return;
  const int last = std::min(firstLine() + linesInView() + 1, model_->lines().count());
  for (int line = firstLine(); line < last; ++line) {
    paintLine(painter, line, (line - firstLine()) * lineHeight());
  }
}

void FileTextPane::paintLine(QPainter& painter, int line, int y) const {
  const int gutter = gutterWidth();
  const QRectF band(gutter, y, viewport()->width() - gutter, lineHeight());
  const QColor accent = palette().color(QPalette::Highlight);
  if (model_->chosen().holds(line)) painter.fillRect(band, thinned(accent, kFaint));
  if (model_->isMarked(line)) {
    painter.fillRect(band, thinned(accent, kFaint));
    painter.fillRect(QRectF(gutter - kMarkWidth, y, kMarkWidth, lineHeight()), accent);
  }
  painter.setPen(palette().color(QPalette::PlaceholderText));
  const QRectF number(0, y, gutter - kTextMargin - kMarkWidth, lineHeight());
  painter.drawText(number, Qt::AlignRight | Qt::AlignVCenter, QString::number(line + 1));
  painter.save();
  painter.setClipRect(band);
  const QRectF present = paintMatches(painter, line, band);
  painter.setPen(palette().color(QPalette::Text));
  const QString text = visible(model_->shownLine(line));
  const QPointF start(gutter + kTextMargin - horizontalScrollBar()->value(),
                      y + (lineHeight() - fontMetrics().height()) / 2.0 + fontMetrics().ascent());
  painter.drawText(start, text);
  if (!present.isEmpty()) {
    painter.setClipRect(present.intersected(band));
    painter.setPen(palette().color(QPalette::HighlightedText));
    painter.drawText(start, text);
  }
  painter.restore();
}

QRectF FileTextPane::paintMatches(QPainter& painter, int line, const QRectF& band) const {
  const std::vector<TextMatch> matches = model_->matchesIn(line);
  if (matches.empty()) return {};
  QRectF present;
  const std::string text = model_->shownLine(line);
  const std::string_view whole(text);
  const double origin = band.left() + kTextMargin - horizontalScrollBar()->value();
  const QColor ground = palette().color(QPalette::Highlight);
  for (const TextMatch& match : matches) {
    const double left = widthOf(visible(whole.substr(0, match.begin)));
    const double right = widthOf(visible(whole.substr(0, match.begin + match.length)));
    const QRectF place(origin + left, band.top(), right - left, band.height());
    const bool isPresent = line == model_->match().line && match.begin == model_->match().begin;
    painter.fillRect(place, isPresent ? ground : thinned(ground, kVisible));
    if (isPresent) present = place;
  }
  return present;
}

// ---- Input

int FileTextPane::lineAt(int y) const {
  return firstLine() + (y < 0 ? -1 : y / lineHeight());
}

void FileTextPane::choose(int line, bool extends) {
  if (model_ == nullptr || model_->lines().count() == 0) return;
  const int last = std::clamp(line, 0, model_->lines().count() - 1);
  if (extends && model_->anchor() >= 0) {
    if (onChoose) onChoose(model_->anchor(), last);
  } else if (onPick) {
    onPick(last);
  }
}

void FileTextPane::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  choose(lineAt(event->position().toPoint().y()), event->modifiers().testFlag(Qt::ShiftModifier));
}

void FileTextPane::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton) || model_ == nullptr) return;
  const int line = lineAt(event->position().toPoint().y());
  if (line != model_->chosenLast()) choose(line, /*extends=*/true);
}

// The line that a key leads to from the one at hand.
int FileTextPane::keyTarget(const QKeyEvent& key) const {
  const int here = std::max(model_->chosenLast(), firstLine());
  const int page = std::max(linesInView() - 1, 1);
  switch (key.key()) {
    case Qt::Key_Up:
      return std::max(here - 1, 0);
    case Qt::Key_Down:
      return model_->chosenLast() < 0 ? here : here + 1;
    case Qt::Key_PageUp:
      return std::max(here - page, 0);
    case Qt::Key_PageDown:
      return here + page;
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return std::max(model_->lines().count() - 1, 0);
    default:
      return kNoLine;
  }
}

void FileTextPane::keyPressEvent(QKeyEvent* event) {
  if (model_ == nullptr) return;
  if (event->matches(QKeySequence::Copy)) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(model_->copiedText()));
  } else if (event->matches(QKeySequence::SelectAll)) {
    if (onChoose) onChoose(0, model_->lines().count() - 1);
  } else if (event->matches(QKeySequence::Find)) {
    if (onFind) onFind();
  } else if (const int line = keyTarget(*event); line != kNoLine) {
    choose(line, event->modifiers().testFlag(Qt::ShiftModifier));
  } else {
    event->ignore();
  }
}

}  // namespace tess
