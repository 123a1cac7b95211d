// Buttons and icons by table.
#include "shell/qt/message_box.h"

#include <QGridLayout>
#include <QStringList>
#include <algorithm>
#include <array>
#include <utility>

#include "core/version.h"

namespace tess {

namespace {

struct ButtonSet {
  MessageButtons buttons;
  QMessageBox::StandardButtons shown;
  QMessageBox::StandardButton first;
  QMessageBox::StandardButton escape;  // of the Esc key and the closing button
};

constexpr std::array kButtonSets{
    ButtonSet{MessageButtons::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok},
    ButtonSet{MessageButtons::OkCancel, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok,
              QMessageBox::Cancel},
    ButtonSet{MessageButtons::YesNo, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes,
              QMessageBox::NoButton},
    ButtonSet{MessageButtons::YesNoCancel, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
              QMessageBox::Yes, QMessageBox::Cancel},
};

const ButtonSet& buttonSet(MessageButtons buttons) {
  for (const ButtonSet& set : kButtonSets) {
    if (set.buttons == buttons) return set;
  }
  return kButtonSets.front();
}

QMessageBox::Icon boxIcon(MessageIcon icon) {
  constexpr std::array<std::pair<MessageIcon, QMessageBox::Icon>, 4> kIcons{
      {{MessageIcon::Information, QMessageBox::Information},
       {MessageIcon::Warning, QMessageBox::Warning},
       {MessageIcon::Error, QMessageBox::Critical},
       {MessageIcon::Question, QMessageBox::Question}}};
  for (const auto& [known, shown] : kIcons) {
    if (known == icon) return shown;
  }
  return QMessageBox::NoIcon;
}

constexpr std::array<std::pair<QMessageBox::StandardButton, Answer>, 4> kAnswers{
    {{QMessageBox::Ok, Answer::Ok},
     {QMessageBox::Yes, Answer::Yes},
     {QMessageBox::No, Answer::No},
     {QMessageBox::Cancel, Answer::Cancel}}};

// Lines and letters that a screen has room for.
constexpr qsizetype kMaxLines = 40;
constexpr qsizetype kLastLines = 5;
constexpr qsizetype kLongestLine = 2000;

QString shortened(const QString& line) {
  return line.size() > kLongestLine ? line.left(kLongestLine) + "..." : line;
}

// Room for the title beside the buttons of the window's frame, however short the text.
void widenForTitle(QMessageBox& box) {
  constexpr int kFrameButtons = 5;  // with the icon and the margins, in heights of a letter
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  if (grid == nullptr) return;
  const QFontMetrics metrics = box.fontMetrics();
  const int wide = metrics.horizontalAdvance(box.windowTitle()) + kFrameButtons * metrics.height();
  grid->addItem(new QSpacerItem(wide, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace

QString shownText(const std::string& text) {
  QStringList lines = QString::fromStdString(text).split('\n');
  if (lines.size() > kMaxLines) {
    const qsizetype first = kMaxLines - kLastLines - 1;
    const qsizetype left = lines.size() - first - kLastLines;
    lines = lines.first(first) + QStringList(QString("... and %1 more lines ...").arg(left)) +
            lines.last(kLastLines);
  }
  std::transform(lines.cbegin(), lines.cend(), lines.begin(), shortened);
  return lines.join('\n');
}

void fillMessageBox(QMessageBox& box, const Message& message) {
  const ButtonSet& set = buttonSet(message.buttons);
  const std::string title = message.title.empty() ? std::string(kProductName) : message.title;
  box.setIcon(boxIcon(message.icon));
  box.setWindowTitle(QString::fromStdString(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(shownText(message.text));
  box.setStandardButtons(set.shown);
  box.setDefaultButton(set.first);
  if (set.escape != QMessageBox::NoButton) box.setEscapeButton(set.escape);
  widenForTitle(box);
}

Answer answerOf(int button) {
  for (const auto& [known, answer] : kAnswers) {
    if (known == button) return answer;
  }
  return Answer::Ok;
}

QMessageBox::StandardButton buttonOf(Answer answer) {
  for (const auto& [button, known] : kAnswers) {
    if (known == answer) return button;
  }
  return QMessageBox::Ok;
}

}  // namespace tess
