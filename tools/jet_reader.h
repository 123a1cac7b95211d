// The process that reads one Jet file and does nothing else.
// Owns: kThisProgram, asksForJetReader, runJetReader.
#pragma once

namespace tess {

// The running program as one that can be started, for those that answer to being asked.
inline constexpr char kThisProgram[] = "/proc/self/exe";

// True when the program was started to read a Jet file.
bool asksForJetReader(int argc, const char* const* argv);

// Reads the Jet file that is the standard input and writes its tables to the standard output, in
// the form of jet_frame.h. The process is confined first, for good: some seconds of processor time,
// limited memory, no files. The exit status.
int runJetReader();

}  // namespace tess
