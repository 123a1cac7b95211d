// The port to the other programs of the machine: starting them, and the windows of those that run.
// Owns: WindowHandle, CopyData, OtherWindows, OtherPrograms, LocalPrograms, NoPrograms.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tess {

using WindowHandle = std::uintptr_t;  // 0 is none

// What one program hands to another through its window.
struct CopyData {
  std::uint32_t code = 0;
  std::uint32_t length = 0;    // in bytes, the zero at the end included
  const char* text = nullptr;  // ended by a zero byte
};

// The top-level windows of all programs, where the platform lets others see and address them.
class OtherWindows {
 public:
  virtual ~OtherWindows() = default;
  virtual WindowHandle first() = 0;                    // 0 when there is none
  virtual WindowHandle next(WindowHandle window) = 0;  // 0 behind the last
  // At most so many characters of its title.
  virtual std::string title(WindowHandle window, std::size_t characters) = 0;
  virtual void bringToFront(WindowHandle window) = 0;
  virtual void showNormally(WindowHandle window) = 0;
  // Returns when the receiver has dealt with it. The sender is the viewer's window.
  virtual void send(WindowHandle window, const CopyData& data) = 0;
};

class OtherPrograms {
 public:
  virtual ~OtherPrograms() = default;
  // False where nothing is started and nothing of other programs is written down.
  virtual bool mayBeReached() const = 0;
  // Whether an operator answers the questions. The answers of a script hold for once.
  virtual bool isOperatorAsked() const = 0;
  // Raises what startProgram does.
  virtual void start(const std::string& program, const std::vector<std::string>& arguments) = 0;
  // Null where windows cannot be searched by their titles.
  virtual OtherWindows* windows() { return nullptr; }
};

// The programs of this machine, for whoever sits at it.
class LocalPrograms final : public OtherPrograms {
 public:
  bool mayBeReached() const override { return true; }
  bool isOperatorAsked() const override { return true; }
  void start(const std::string& program, const std::vector<std::string>& arguments) override;
};

// None: each start raises Permission denied.
class NoPrograms final : public OtherPrograms {
 public:
  bool mayBeReached() const override { return false; }
  bool isOperatorAsked() const override { return false; }
  void start(const std::string& program, const std::vector<std::string>& arguments) override;
};

}  // namespace tess
