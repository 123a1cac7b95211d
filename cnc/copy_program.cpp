// Copies of programs: room, question, write, read back.
#include "cnc/copy_program.h"

#include <sys/statvfs.h>

#include "cnc/program_target.h"
#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kTitle[] = "Copy to Folder";

Answer tell(const Session& session, const std::string& text, MessageIcon icon,
            MessageButtons buttons = MessageButtons::Ok) {
  return session.host.prompts.showMessage(
      {.text = toUtf8(text), .title = kTitle, .icon = icon, .buttons = buttons});
}

// Why the copy has no place there, as a sentence; nothing when it has.
std::optional<std::string> refusal(const HandOver& handOver, std::size_t bytes,
                                   const std::string& target) {
  if (const auto kept = keptAt(handOver.session.store, target)) {
    return target + " " + *kept + "; it stays as it is.";
  }
  std::string folder;
  splitPath(folder, target, "");
  const std::optional<std::uint64_t> room = handOver.freeSpace(folder);
  if (!room || *room >= bytes) return std::nullopt;
  return "There is no room in " + folder + ": the copy needs " + std::to_string(bytes) +
         " bytes, and " + std::to_string(*room) + " are free.";
}

bool mayReplace(const HandOver& handOver, const std::string& target) {
  return !fileExists(target) || tell(handOver.session, target + " is there already. Replace it?",
                                     MessageIcon::Question, MessageButtons::YesNo) == Answer::Yes;
}

// The old file is not touched before the new one is known to be whole.
void writeAndCompare(WriteGuard& guard, std::string_view content, const std::string& target) {
  const FilePlace place(guard, target, FileKind::Program);
  StagedFile copy(place, content);
  if (!copy.reads(content)) {
    throw RuntimeFailure(FailureNumber::DeviceInputOutput, target,
                         "What was read back is not what was written");
  }
  copy.moveIntoPlace();
  place.flushFolder();
}

}  // namespace

std::optional<std::uint64_t> freeSpaceIn(const std::string& folder) {
  struct statvfs state {};
  if (::statvfs(resolvePath(folder).c_str(), &state) != 0) return std::nullopt;
  return std::uint64_t{state.f_bavail} * state.f_frsize;
}

bool copyProgram(const HandOver& handOver, std::string_view content, const std::string& target) {
  const Session& session = handOver.session;
  try {
    if (const auto reason = refusal(handOver, content.size(), target)) {
      tell(session, *reason, MessageIcon::Warning);
      return false;
    }
    if (!mayReplace(handOver, target)) return false;
    writeAndCompare(session.host.guard, content, target);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    tell(session, "The copy was not made: " + failure.description() + ": " + failure.source(),
         MessageIcon::Warning);
    return false;
  }
  tell(session,
       "Copied to " + target + ": " + std::to_string(content.size()) +
           " bytes, read back and compared.",
       MessageIcon::Information);
  return true;
}

}  // namespace tess
