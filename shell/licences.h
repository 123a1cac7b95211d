// What the program is built on, and on what terms: the libraries and fonts that it uses.
// Owns: Licence, kLicences, licenceText.
#pragma once

#include <string>

namespace tess {

struct Licence {
  const char* name;
  const char* terms;
  const char* use;
};

inline constexpr Licence kLicences[] = {
    {"Qt 6", "LGPL-3", "window, pictures, PDF documents"},
    {"FreeType", "FreeType License", "outlines of letters"},
    {"Fontconfig", "MIT", "finding fonts"},
    {"HarfBuzz", "MIT", "kerning"},
    {"SQLite", "public domain", "speeds-and-feeds database"},
    {"MDB Tools (libmdb) with GLib", "LGPL-2 or later", "the same in Jet files"},
    {"Lua", "MIT", "scripts"},
    {"CLI11", "BSD-3-Clause", "command line"},
    {"xxHash", "BSD-2-Clause", "checksums"},
    {"GCC runtime libraries", "GPL-3 with runtime exception", "language"},
    {"DejaVu fonts", "Bitstream Vera License", "letters of the manual and of the window"},
    {"Hershey fonts", "free use with the sentences below", "single-stroke letters"},
};

// A line each.
std::string licenceText();

}  // namespace tess
