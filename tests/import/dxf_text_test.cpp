// Texts of several code pages, and escapes.
#include "import/dxf_text.h"

#include "gtest/gtest.h"

namespace tess {
namespace {

struct PageCase {
  const char* bytes;
  const char* page;
  const char* text;
};

TEST(DxfText, CodePagesBecomeUtf8) {
  for (const PageCase& each : {
           PageCase{"Plate", "ANSI_1252", "Plate"},
           {"Fl\xFCgel", "ANSI_1252", "Flügel"},
           {"\x80 5", "ansi_1252", "€ 5"},
           {"Flügel", "ANSI_1252", "Flügel"},
           {"Fl\xFCgel", "", "Flügel"},
           {"Flügel", "", "Flügel"},
           {"Fl\xFCgel", "ISO8859-1", "Flügel"},
           {"Fl\x81gel", "dos850", "Flügel"},
           {"\xC4\xE5\xF2\xE0\xEB\xFC", "ANSI_1251", "Деталь"},
           {"\xB1\xE6", "ANSI_1250", "±ć"},
           {"\x95\xD4", "ANSI_932", "返"},
           {"Fl\xFCgel", "NO_SUCH_PAGE", "Flügel"},
           {"\xFF\xFF", "ANSI_932", "ÿÿ"},
       }) {
    EXPECT_EQ(dxfText(each.bytes, each.page), each.text) << each.page;
  }
}

TEST(DxfText, EscapesBecomeTheirCharacters) {
  EXPECT_EQ(dxfText("\\U+00E4 \\U+20AC\\U+0041", "ANSI_1252"), "ä €A");
}

TEST(DxfText, WhatIsNoEscapeStays) {
  for (const char* const text : {"\\U+", "\\U+12", "\\U+12G4", "\\U+D800", "\\U+0000", "a\\b"}) {
    EXPECT_EQ(dxfText(text, ""), text);
  }
}

}  // namespace
}  // namespace tess
