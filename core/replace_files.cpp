// Replacing files: new content goes to temporary files, backups and moves come after.
#include "core/replace_files.h"

#include <deque>

#include "core/file_writer.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

// One file on its way to being replaced.
class Replacement {
 public:
  Replacement(WriteGuard& guard, const FileReplacement& wanted)
      : target_(guard, wanted.path, wanted.kind),
        backup_(target_.beside(target_.name() + "~", FileKind::Companion)),
        existed_(target_.replaceableState().has_value()) {
    if (wanted.content) staged_.emplace(target_, *wanted.content);
  }
  ~Replacement() {
    if (!kept_) undo();
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  // The old file becomes the backup. Where the file system can, it stays in its place as well, so
  // that there is no moment without the file.
  void backUp() {
    backup_.remove();
    if (!existed_) return;
    if (!staged_ || !target_.linkTo(backup_)) target_.moveTo(backup_);
    backedUp_ = true;
  }

  void moveIntoPlace() {
    if (!staged_) return;
    staged_->moveIntoPlace();
    placed_ = true;
  }

  void flushFolder() const { target_.flushFolder(); }
  void keep() { kept_ = true; }

 private:
  void undo() noexcept {
    try {
      if (backedUp_) {
        backup_.moveTo(target_);
      } else if (placed_ && !existed_) {
        target_.remove();
      }
    } catch (const RuntimeFailure&) {
      // The failure that led here is the one to tell of.
    }
  }

  FilePlace target_;
  FilePlace backup_;
  bool existed_;
  std::optional<StagedFile> staged_;
  bool backedUp_ = false;
  bool placed_ = false;
  bool kept_ = false;
};

}  // namespace

void replaceWithBackup(WriteGuard& guard, std::span<const FileReplacement> replacements) {
  std::deque<Replacement> staged;  // a deque, since its elements stay where they are built
  for (const FileReplacement& wanted : replacements) staged.emplace_back(guard, wanted);
  for (Replacement& replacement : staged) {
    replacement.backUp();
    replacement.moveIntoPlace();
  }
  for (Replacement& replacement : staged) replacement.keep();
  for (const Replacement& replacement : staged) replacement.flushFolder();
}

}  // namespace tess
