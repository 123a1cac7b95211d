// The post-processor definition: what tailors the programs to one machine. It is a small text file
// written by hand; what it leaves out stays as the definition before it had it, but for the
// dialect, which begins anew with each.
// Owns: kWordLetters, PostDefinition, load_xsetup, loadxsetup2, readPostDefinition.
#pragma once

#include <string>

#include "cnc/dialect.h"
#include "core/field_reader.h"
#include "core/session.h"

namespace tess {

// Letters of the words X, Y, Z, I, J and K unless a definition maps them.
inline constexpr char kWordLetters[] = "XYZIJK";

// The definition in force. Its number formats are with the others, in Session::formats.
struct PostDefinition {
  std::string cncheadertext;              // lines written first, joined by CR LF
  std::string cnctrailertext;             // lines written last, joined by CR LF
  std::string cnccomment;                 // what every comment line begins with
  bool absCenter = false;                 // arc centres are coordinates, not offsets from the start
  bool forceXYZ = false;                  // X, Y and Z words also when unchanged
  bool forceIJK = false;                  // I and J words also when redundant
  std::string cncletters = kWordLetters;  // the sixth is carried, but the K word never asks for it
  Dialect dialect;
  std::string damage;  // the first thing that was wrong with its file, and where; empty: sound
};

// Loads the definition that belongs to the setup in force, or "standard.msx", and puts the number
// formats in force. A failure is reported, and what was read so far holds.
void load_xsetup(Session& session, PostDefinition& definition);

// Reads the definition file `path`. Raises what FieldReader raises; a list without its end runs
// into Input past end of file.
void loadxsetup2(Session& session, PostDefinition& definition, const std::string& path);

// The same for a definition that is in memory already.
void readPostDefinition(Session& session, PostDefinition& definition, FieldReader& reader);

}  // namespace tess
