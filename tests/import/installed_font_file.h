// Files of fonts that the tests' packages bring, wherever the machine keeps them.
// Owns: installedFontFile.
#pragma once

#include <fontconfig/fontconfig.h>
#include <string>

#include "gtest/gtest.h"

namespace tess::testing {

// The path of a family's regular face; the test fails where the family is not installed.
inline std::string installedFontFile(const char* family) {
  FcPattern* const pattern = FcNameParse(reinterpret_cast<const FcChar8*>(family));
  FcPatternAddInteger(pattern, FC_WEIGHT, FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern, FC_SLANT, FC_SLANT_ROMAN);
  FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  FcPattern* const match = FcFontMatch(nullptr, pattern, &result);
  FcChar8* file = nullptr;
  FcChar8* found = nullptr;
  FcPatternGetString(match, FC_FAMILY, 0, &found);
  FcPatternGetString(match, FC_FILE, 0, &file);
  EXPECT_STREQ(reinterpret_cast<const char*>(found), family);
  std::string path = reinterpret_cast<const char*>(file);
  FcPatternDestroy(match);
  FcPatternDestroy(pattern);
  return path;
}

}  // namespace tess::testing
