// The words of message boxes.
#include "shell/automation/message_buttons.h"

#include <array>

namespace tess {

std::span<const Answer> buttonsOf(MessageButtons buttons) {
  static constexpr std::array kOk{Answer::Ok};
  static constexpr std::array kOkCancel{Answer::Ok, Answer::Cancel};
  static constexpr std::array kYesNo{Answer::Yes, Answer::No};
  static constexpr std::array kYesNoCancel{Answer::Yes, Answer::No, Answer::Cancel};
  switch (buttons) {
    case MessageButtons::Ok:
      break;
    case MessageButtons::OkCancel:
      return kOkCancel;
    case MessageButtons::YesNo:
      return kYesNo;
    case MessageButtons::YesNoCancel:
      return kYesNoCancel;
  }
  return kOk;
}

const char* wordOf(Answer answer) {
  constexpr std::array kWords{"OK", "Cancel", "Yes", "No"};
  return kWords[static_cast<std::size_t>(answer)];
}

const char* iconWord(MessageIcon icon) {
  constexpr std::array kWords{"none", "information", "warning", "error", "question"};
  return kWords[static_cast<std::size_t>(icon)];
}

}  // namespace tess
