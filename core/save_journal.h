// The journal of a save: a small hidden file beside the files that are being replaced together. It
// is written first and removed last, and says what each file was and shall be, so that a save which
// was cut off can be completed or taken back.
// Owns: kLargestJournal, SaveJournal, journalText, parseJournal, isOfAnotherVersion, journalStem,
//       journalName, freshName, spareName, stemOfJournal.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/checksum.h"

namespace tess {

inline constexpr std::size_t kLargestJournal = std::size_t{16} * 1024;

struct SaveJournal {
  static constexpr std::size_t kMaxFiles = 4;
  struct File {
    std::optional<Checksum> before, after;  // nothing: there is no file
    friend bool operator==(const File&, const File&) = default;
  };

  std::string name;      // of the first file
  bool keepsOld = true;  // what is there becomes the backup
  std::vector<File> files;
  friend bool operator==(const SaveJournal&, const SaveJournal&) = default;
};

std::string journalText(const SaveJournal& journal);
// Nothing for a text that is no journal as a whole: it was cut off in the making.
std::optional<SaveJournal> parseJournal(std::string_view text);
// Whether another version of the program has written it, or is writing it: only that one knows what
// it says.
bool isOfAnotherVersion(std::string_view text);

// What the hidden files of one save begin with: the same for a file name in any case, and short
// whatever the length of that.
std::string journalStem(std::string_view fileName);
std::string journalName(std::string_view stem);
// The names under which the new content of the file at `index`, from 0, waits for its place, and
// under which what was there before waits to become the backup.
std::string freshName(std::string_view stem, std::size_t index);
std::string spareName(std::string_view stem, std::size_t index);
// The stem of a journal's name; nothing for a file that is no journal.
std::optional<std::string> stemOfJournal(std::string_view name);

}  // namespace tess
