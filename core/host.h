// The ports to the platform: what the program asks of its surroundings, and nothing more. The
// desktop, the script runner and the tests each bring their own.
// Owns: MessageIcon, MessageButtons, Answer, Message, FileRequest, Prompts, DateTime, Clock, Trash,
//       Surroundings, FailureSink, Host.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/write_guard.h"

namespace tess {

class Form;
class RuntimeFailure;

enum class MessageIcon { None, Information, Warning, Error, Question };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

struct Message {
  std::string text;
  std::string title;
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
};

struct FileRequest {
  std::string title;
  std::string pattern;  // "*.CDM", or a filter text such as "Drawing Files (*.cdm)|*.cdm"
  std::string folder;   // where to start
  std::string name;     // what to offer
  bool forSaving = false;
  std::string okCaption{};            // of the button; empty: what the kind of dialog calls it
  std::vector<std::string> places{};  // folders worth going to
  bool showsDrawings = false;         // the files are drawings: the chosen one is seen beforehand
};

// Message boxes, file choice and forms; each call waits for the operator.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual Answer showMessage(const Message& message) = 0;
  // The chosen full path; nothing when the operator cancels.
  virtual std::optional<std::string> chooseFile(const FileRequest& request) = 0;
  // Shows the form until it is closed.
  virtual void showModal(Form& form) = 0;
};

struct DateTime {
  int year = 0, month = 1, day = 1;  // of the calendar, month and day from 1
  int hour = 0, minute = 0, second = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime now() = 0;                   // local time
  virtual double elapsedMilliseconds() = 0;     // since some fixed moment, never going back
  virtual void sleep(double milliseconds) = 0;  // no event is served meanwhile
};

// What became of a file on its way to the operator's trash.
enum class Trash { None, Taken, Failed };

// The rest of the surroundings that long jobs and the program's end touch.
class Surroundings {
 public:
  virtual ~Surroundings() = default;
  virtual void serveEvents() = 0;  // lets repaints happen
  virtual void beep() = 0;
  // While it is on the operator can end what is under way, which isCancelled tells then. Where
  // there is no operator nobody does.
  virtual void setCancellable(bool /*on*/) {}
  virtual bool isCancelled() const { return false; }
  // Serves events until the operator presses a key; at once where there is no operator.
  virtual void waitForKey() {}
  // Where there is no operator there is no trash either, and the file stays.
  virtual Trash moveToTrash(const std::string& /*path*/) { return Trash::None; }
  virtual void printOnMainWindow(const std::string& text) = 0;  // before dialogs are at hand
};

// Where a failure goes that a routine survives: it is reported and logged, and work goes on.
class FailureSink {
 public:
  virtual ~FailureSink() = default;
  virtual void report(const RuntimeFailure& failure) = 0;
};

struct Host {
  Prompts& prompts;
  Clock& clock;
  Surroundings& surroundings;
  FailureSink& failures;
  WriteGuard& guard;
};

}  // namespace tess
