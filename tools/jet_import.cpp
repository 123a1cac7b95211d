// The process that reads a Jet file, seen from outside: started, listened to, ended.
#include "tools/jet_import.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <vector>

#include "core/child_process.h"
#include "core/descriptor.h"
#include "tools/jet_frame.h"

namespace tess {
namespace {

// Above the three that a process begins with, so that none is overwritten while they are set up.
Descriptor aboveStandard(int descriptor) {
  return Descriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

struct Pipe {
  Descriptor reading, writing;
};

Pipe makePipe() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return {Descriptor(), Descriptor()};
  const Descriptor reading(ends[0]);
  const Descriptor writing(ends[1]);
  return {aboveStandard(reading.number()), aboveStandard(writing.number())};
}

// The library takes code pages and options from its environment: it gets none. What finds the
// program's own libraries stays.
std::vector<std::string> readerEnvironment() {
  std::vector<std::string> variables{"LC_ALL=C"};
  if (const char* const libraries = std::getenv("LD_LIBRARY_PATH")) {
    variables.push_back(std::string("LD_LIBRARY_PATH=") + libraries);
  }
  return variables;
}

// A running reader; its end is this object's at the latest.
class ReaderProcess {
 public:
  ReaderProcess(const std::string& reader, const Descriptor& input, const Descriptor& output) {
    ChildFiles files;
    files.become(input.number(), STDIN_FILENO);
    files.become(output.number(), STDOUT_FILENO);
    files.discard(STDERR_FILENO);
    files.closeOthers();
    std::string program = reader;
    std::string option = kReadJetOption;
    char* const arguments[] = {program.data(), option.data(), nullptr};
    std::vector<std::string> variables = readerEnvironment();
    std::vector<char*> environment;
    environment.reserve(variables.size() + 1);
    for (std::string& variable : variables) environment.push_back(variable.data());
    environment.push_back(nullptr);
    const ChildAttributes attributes;
    const int error = ::posix_spawn(&process_, reader.c_str(), files.get(), attributes.get(),
                                    arguments, environment.data());
    if (error != 0) process_ = -1;
  }
  ~ReaderProcess() {
    if (process_ < 0) return;
    ::kill(process_, SIGKILL);
    while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  ReaderProcess(const ReaderProcess&) = delete;
  ReaderProcess& operator=(const ReaderProcess&) = delete;

  bool started() const { return process_ >= 0; }

 private:
  pid_t process_ = -1;
};

using Moment = std::chrono::steady_clock::time_point;

int millisecondsUntil(Moment end) {
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
  return left.count() < 0 ? 0 : static_cast<int>(left.count());
}

// Appends what the next read gives; false at the end of the output and of the patience.
bool readMore(const Descriptor& output, std::string& bytes, Moment end) {
  pollfd waiting{output.number(), POLLIN, 0};
  const int ready = ::poll(&waiting, 1, millisecondsUntil(end));
  if (ready < 0) return errno == EINTR;
  if (ready == 0) return false;
  char block[1 << 16];
  const ssize_t got = ::read(output.number(), block, sizeof block);
  if (got < 0) return errno == EINTR;
  bytes.append(block, static_cast<std::size_t>(got));
  return got > 0;
}

// True while the bytes may still become one whole frame.
bool lacksBytes(std::string_view bytes) {
  if (bytes.size() < kJetFrameHeader) return true;
  const auto length = frameLength(bytes);
  return length && bytes.size() < *length;
}

}  // namespace

std::optional<std::string> readJetFile(int file, const std::string& reader,
                                       std::chrono::milliseconds wait) {
  const Descriptor input = aboveStandard(file);
  Pipe pipe = makePipe();
  if (!input.isOpen() || !pipe.reading.isOpen() || !pipe.writing.isOpen()) return std::nullopt;
  const ReaderProcess process(reader, input, pipe.writing);
  pipe.writing = Descriptor();
  if (!process.started()) return std::nullopt;
  const Moment end = std::chrono::steady_clock::now() + wait;
  std::string bytes;
  while (lacksBytes(bytes) && readMore(pipe.reading, bytes, end)) {
  }
  return unframedImage(bytes);
}

}  // namespace tess
