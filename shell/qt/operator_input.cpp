// The operator's input.
#include "shell/qt/operator_input.h"

#include <algorithm>
#include <array>

namespace tess {

namespace {

constexpr std::array kInput{
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::MouseMove,
    QEvent::Wheel,
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Shortcut,
    QEvent::ShortcutOverride,
    QEvent::ContextMenu,
    QEvent::DragEnter,
    QEvent::Drop,
    QEvent::TouchBegin,
};

}  // namespace

bool isOperatorInput(QEvent::Type type) {
  return std::find(kInput.begin(), kInput.end(), type) != kInput.end();
}

}  // namespace tess
