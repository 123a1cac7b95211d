// Feeds any bytes to the reader of the journals that a save keeps, and to that of the record of
// saves. What is taken for a journal is one: it is written as it was read.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/save_journal.h"
#include "core/save_record.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const auto journal = tess::parseJournal(text);
  if (journal && tess::parseJournal(tess::journalText(*journal)) != journal) std::abort();
  // The checksum keeps most inputs out; with one of their own they get further.
  const std::string body = text.substr(0, text.find('\0'));
  const std::string proven = body + tess::checksumText(tess::checksumOf(body)) + "\n";
  const auto forged = tess::parseJournal(proven);
  if (forged && tess::parseJournal(tess::journalText(*forged)) != forged) std::abort();
  const auto save = tess::findSave(text, "/drawings/PART.CDM");
  if (save && save->when.find(' ') == std::string::npos) std::abort();
  return 0;
}
