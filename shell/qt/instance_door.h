// How a second start of the program hands its file to the window that is open: a socket in the
// user's runtime folder, which nobody else can reach.
// Owns: InstanceDoor, handToRunning.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <list>
#include <memory>
#include <string>

#include "core/descriptor.h"

namespace tess {

class InstanceDoor {
 public:
  // Listens at `path` for as long as this lives; what was there before is a dead one's. Where the
  // system refuses that, files are simply not handed over.
  explicit InstanceDoor(std::string path);
  ~InstanceDoor();
  InstanceDoor(const InstanceDoor&) = delete;
  InstanceDoor& operator=(const InstanceDoor&) = delete;

  bool isOpen() const { return notifier_ != nullptr; }

  // Takes a file's path; false when that is not possible now.
  std::function<bool(const std::string& file)> onFile;

 private:
  class Guest;

  void admit();
  void hear(Guest& guest);
  void answer(const Guest& guest);
  void showOut(const Guest& guest);

  std::string path_;
  Descriptor listening_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::list<std::unique_ptr<Guest>> guests_;  // who has not said all yet, the oldest first
};

// True when the program that listens at `path` has taken the file.
bool handToRunning(const std::string& path, const std::string& file);

}  // namespace tess
