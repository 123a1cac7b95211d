// The operator's choice of a program, and its start.
#include "cnc/send_program.h"

#include <array>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cnc/dlgSendProgram.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"
#include "core/start_program.h"
#include "core/text.h"

namespace tess {
namespace {

namespace fs = std::filesystem;

constexpr char kRecordName[] = "send_program";
constexpr char kSend[] = "Send";
constexpr std::string_view kProgramKey = "program=";
constexpr std::string_view kConfirmedKey = "confirmed=";

// A sign behind a backslash stands for what would end a line, or a text in quotes.
struct Escape {
  char letter, sign;
};
constexpr std::array kEscapes{Escape{'\\', '\\'}, Escape{'\n', 'n'}, Escape{'\r', 'r'},
                              Escape{'\t', 't'}, Escape{'\0', '0'}};

std::string escaped(std::string_view text) {
  std::string result;
  for (const char letter : text) {
    char sign = 0;
    for (const Escape& escape : kEscapes) {
      if (escape.letter == letter) sign = escape.sign;
    }
    if (sign != 0) result.push_back('\\');
    result.push_back(sign != 0 ? sign : letter);
  }
  return result;
}

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    char letter = text[at];
    if (letter == '\\' && at + 1 < text.size()) {
      letter = text[++at];
      for (const Escape& escape : kEscapes) {
        if (escape.sign == text[at]) letter = escape.letter;
      }
    }
    result.push_back(letter);
  }
  return result;
}

std::string recordFile(const HandOver& handOver) {
  return handOver.userfolder + kRecordName;
}

// Somebody else could have this user start what he likes.
bool isOwn(const std::string& file) {
  struct stat state {};
  return ::stat(file.c_str(), &state) == 0 && (state.st_uid == ::geteuid() || state.st_uid == 0);
}

std::string inQuotes(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  constexpr unsigned kLowBits = 0xF;
  std::string result = "\"";
  for (const char letter : escaped(text)) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < ' ' || byte == 0x7F) {
      result.append("\\x").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & kLowBits]);
    } else {
      if (letter == '"') result.push_back('\\');
      result.push_back(letter);
    }
  }
  return result + '"';
}

Answer tell(const HandOver& handOver, const std::string& text, MessageIcon icon,
            MessageButtons buttons = MessageButtons::Ok) {
  return handOver.session.host.prompts.showMessage(
      {.text = toUtf8(text), .title = kSend, .icon = icon, .buttons = buttons});
}

// False when the operator will not have it.
bool isAgreed(const HandOver& handOver, SendChoice& choice, const std::string& file) {
  if (choice.confirmed == choice.program) return true;
  const std::string what = choice.confirmed.empty()
                               ? "This command has not been used before:"
                               : "The program that files are sent to is another one than before:";
  const std::string text =
      what + "\n\n" + commandText({choice.program, file}) +
      "\n\nThe program gets the file as its only argument. Start it, and from now on without this "
      "question?";
  const bool agreed =
      tell(handOver, text, MessageIcon::Question, MessageButtons::OkCancel) == Answer::Ok;
  // A script answers for itself alone.
  if (agreed && handOver.others.isOperatorAsked()) {
    choice.confirmed = choice.program;
    writeSendChoice(handOver, choice);
  }
  return agreed;
}

}  // namespace

SendChoice sendChoiceIn(std::string_view content) {
  SendChoice choice;
  while (!content.empty()) {
    const std::size_t end = std::min(content.find('\n'), content.size());
    std::string_view line = content.substr(0, end);
    content.remove_prefix(std::min(end + 1, content.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.starts_with(kProgramKey)) {
      choice.program = unescaped(line.substr(kProgramKey.size()));
    } else if (line.starts_with(kConfirmedKey)) {
      choice.confirmed = unescaped(line.substr(kConfirmedKey.size()));
    }
  }
  return choice;
}

std::string sendChoiceText(const SendChoice& choice) {
  return std::string(kProgramKey) + escaped(choice.program) + "\r\n" + std::string(kConfirmedKey) +
         escaped(choice.confirmed) + "\r\n";
}

SendChoice readSendChoice(const HandOver& handOver) {
  const std::string file = recordFile(handOver);
  if (handOver.userfolder.empty() || !fileExists(file) || !isOwn(file)) return {};
  try {
    return sendChoiceIn(readFile(file, kLargestSettings));
  } catch (const RuntimeFailure& failure) {
    handOver.session.host.failures.report(failure);
    return {};
  }
}

void writeSendChoice(const HandOver& handOver, const SendChoice& choice) {
  if (handOver.userfolder.empty()) throw RuntimeFailure(FailureNumber::PathNotFound, kRecordName);
  std::error_code ignored;  // a folder that is not there then has its failure at the write
  fs::create_directories(handOver.userfolder, ignored);
  writeFile(handOver.session.host.guard, recordFile(handOver), FileKind::SendProgram,
            sendChoiceText(choice));
}

std::string commandText(const std::vector<std::string>& texts) {
  std::string command;
  for (const std::string& text : texts) {
    command.append(command.empty() ? "" : " ").append(inQuotes(text));
  }
  return command;
}

void sendFile(const HandOver& handOver, const std::string& file) {
  SendChoice choice = readSendChoice(handOver);
  if (choice.program.empty()) {
    dlgSendProgram form(handOver);
    handOver.session.host.prompts.showModal(form);
    choice = readSendChoice(handOver);
    if (!form.accepted() || choice.program.empty()) return;
  }
  if (const auto problem = programProblem(choice.program)) {
    tell(handOver,
         "The program that files are sent to " + *problem + ":\n" + commandText({choice.program}),
         MessageIcon::Warning);
    return;
  }
  if (!isAgreed(handOver, choice, file)) return;
  try {
    handOver.others.start(choice.program, {file});
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    tell(handOver,
         "The program could not be started (" + failure.description() + "):\n" +
             commandText({choice.program, file}),
         MessageIcon::Warning);
  }
}

}  // namespace tess
