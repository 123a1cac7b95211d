// Jet databases through a process of its own: the library that reads them does not withstand every
// damaged file, and the program has to.
// Owns: kLongestJetWait, readJetFile.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace tess {

// Far more than a loaded machine needs for a good file; the reader itself counts the time that it
// really works, and ends earlier.
inline constexpr std::chrono::milliseconds kLongestJetWait{10000};

// The tables of the Jet file with this descriptor, as the bytes of an SQLite database. `reader` is
// the program that reads it. Nothing when that crashes, takes longer than `wait`, writes too much,
// or cannot be started; it has ended in any case.
std::optional<std::string> readJetFile(int file, const std::string& reader,
                                       std::chrono::milliseconds wait = kLongestJetWait);

}  // namespace tess
