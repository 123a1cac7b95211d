// The port through which a platform permits or refuses what is about to happen to a file, at the
// moment of the write and on the very folder that is then written to.
// Owns: FileKind, FileWrite, WriteGuard, NoGuard.
#pragma once

#include <string>

namespace tess {

// What a file is to the program.
enum class FileKind {
  Drawing,    // the .CDM that an operator or a script has named
  Companion,  // belongs to a drawing and is named after it: path file, backup, journal, lock
  Program,    // for a machine
  Picture,
  Setup,   // a setup, or the file that names the one in force
  Layout,  // of the tool bars, where an operator has named the file
  ToolLibrary,
  ControlLocation,  // the record of where the machine-control program lies
  SendProgram,      // the record of the program that the operator has files sent to
  Record,  // what the program keeps for itself under names of its own: recent files, options, log
};

// One file that is about to be written, renamed to or removed.
struct FileWrite {
  FileKind kind;
  int folder;               // an open descriptor of the folder that holds it
  const std::string& name;  // in that folder
  const std::string& path;  // of both, for messages
};

class WriteGuard {
 public:
  virtual ~WriteGuard() = default;
  // False where nobody may lead a write astray by putting a link on its way at the last moment.
  // Links that are there beforehand are followed in either case; what counts is where they lead.
  virtual bool trustsLinks() const = 0;
  // Returns where the write may happen and throws where not.
  virtual void require(const FileWrite& write) = 0;
  // Whether it would return: for what is done only where it may be done.
  virtual bool permits(const FileWrite& write) const = 0;
};

// For whoever sits at the machine: the system's own permissions are all there is.
class NoGuard final : public WriteGuard {
 public:
  bool trustsLinks() const override { return true; }
  void require(const FileWrite& /*write*/) override {}
  bool permits(const FileWrite& /*write*/) const override { return true; }
};

}  // namespace tess
