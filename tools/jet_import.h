// Jet databases through a process of its own: the library that reads them does not withstand every
// damaged file, and the program has to.
// Owns: readJetFile.
#pragma once

#include <optional>
#include <string>

namespace tess {

// The tables of the Jet file with this descriptor, as the bytes of an SQLite database. `reader` is
// the program that reads it. Nothing when that crashes, takes longer than some seconds, writes too
// much, or cannot be started.
std::optional<std::string> readJetFile(int file, const std::string& reader);

}  // namespace tess
