// Windows by title, the message to one, and the start of the control program.
#include "cnc/transfer.h"

#include <array>

#include "cnc/control_location.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr std::size_t kTitleCharacters = 256;
// A longer title belongs to a window of another program that shows a document of that name.
constexpr std::size_t kTitleMore = 23;
constexpr std::uint32_t kOpenFile = 3;  // what the receiver does with the text

constexpr std::array kMillTitles{"GantrixPro 2010", "GantrixPro 2011", "GantrixPro 2012",
                                 "GantrixPro 2013"};
constexpr std::array kLatheTitles{"Lathrix Pro 2010", "Lathrix Pro 2011", "Lathrix Pro 2012",
                                  "Lathrix Pro 2013"};

std::string withEach(std::string text, std::string_view part, std::string_view other) {
  for (std::size_t at = 0;;) {
    const std::size_t found = findIgnoringCase(std::string_view(text).substr(at), part);
    if (found == std::string_view::npos) return text;
    text.replace(at + found, part.size(), other);
    at += found + other.size();
  }
}

bool matches(std::string_view text, std::string_view title) {
  return text.starts_with(title) && characterCount(text) < characterCount(title) + kTitleMore;
}

WindowHandle findControl(OtherWindows& windows, Surroundings& surroundings, CncMode mode) {
  for (const char* const title : mode == CncMode::Lathe ? kLatheTitles : kMillTitles) {
    const WindowHandle window = FindWindowPartial(windows, surroundings, title);
    if (window != 0) return window;
  }
  return 0;
}

// What has been done so far, for the report of a failure.
class StepLog {
 public:
  void step(std::string_view text) { text_.append(text_.empty() ? "" : "; ").append(text); }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

void handTo(OtherWindows& windows, WindowHandle window, Surroundings& surroundings,
            const std::string& file, StepLog& log) {
  log.step("Before ShowWindow ()");
  windows.showNormally(window);
  surroundings.serveEvents();
  log.step("Before SendMessage ()");
  windows.send(window, {.code = kOpenFile,
                        .length = static_cast<std::uint32_t>(file.size() + 1),
                        .text = file.c_str()});
}

void startControl(const Session& session, OtherPrograms& others, CncMode mode,
                  const std::string& file, StepLog& log) {
  const std::string mill = controlPath(session);
  const std::string path = resolvePath(mode == CncMode::Lathe ? lathePath(mill) : mill);
  log.step("Before Shell ()");
  // The working folder may be anybody's: nothing in it is the control program.
  if (!path.starts_with(kSeparator)) throw RuntimeFailure(FailureNumber::FileNotFound, path);
  others.start(path, {file});
  log.step("After Shell ()");
  session.host.surroundings.serveEvents();
}

}  // namespace

std::string lathePath(std::string_view path) {
  const std::string_view name = fileNameOf(path);
  const std::string folder(path.substr(0, path.size() - name.size()));
  return withEach(withEach(folder, "Gantrix", "Lathrix") + std::string(name), "GTXFW", "LTXFW");
}

WindowHandle FindWindowPartial(OtherWindows& windows, Surroundings& surroundings,
                               std::string_view title) {
  for (WindowHandle window = windows.first(); window != 0; window = windows.next(window)) {
    if (!matches(windows.title(window, kTitleCharacters), title)) continue;
    windows.bringToFront(window);
    surroundings.serveEvents();
    return window;
  }
  return 0;
}

void transferProgram(const Session& session, OtherPrograms& others, CncMode mode,
                     const std::string& file) {
  StepLog log;
  try {
    Surroundings& surroundings = session.host.surroundings;
    OtherWindows* const windows = others.windows();
    log.step("Before FindWindow ()");
    const WindowHandle window = windows == nullptr ? 0 : findControl(*windows, surroundings, mode);
    if (window != 0) return handTo(*windows, window, surroundings, file, log);
    startControl(session, others, mode, file, log);
  } catch (const RuntimeFailure& failure) {
    throw RuntimeFailure(failure.number(), failure.source(),
                         failure.description() + " (" + log.text() + ")");
  }
}

}  // namespace tess
