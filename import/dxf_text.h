// Texts of DXF files as UTF-8: the code page that a file names, and the escapes for characters that
// the page lacks.
// Owns: dxfText.
#pragma once

#include <string>
#include <string_view>

namespace tess {

// The bytes of a value as text. `codePage` is what the file's header names, as "ANSI_1252" or
// "dos850"; with an empty or unknown one the text is UTF-8 where it is valid and Latin-1 elsewhere.
// "\U+00E4" becomes its character.
std::string dxfText(std::string_view bytes, std::string_view codePage);

}  // namespace tess
