// DXF files for tests, written as short lines of groups and given as text or in either binary form.
// Owns: GroupLine, groupLines, entitySection, inTextForm, BinaryForm, appendBytes,
//       appendBinaryCode, appendBinaryValue, inBinaryForm.
#pragma once

#include <cstdint>
#include <cstring>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace tess::testing {

using GroupLine = std::pair<int, std::string>;

// "0 LINE, 10 1.5, 20 2" as code and value pairs.
inline std::vector<GroupLine> groupLines(const std::string& text) {
  std::vector<GroupLine> groups;
  std::istringstream in(text);
  std::string item;
  while (std::getline(in, item, ',')) {
    std::istringstream pair(item);
    GroupLine group;
    pair >> group.first >> std::ws;
    std::getline(pair, group.second);
    groups.push_back(group);
  }
  return groups;
}

// The entities in their section, and the end of the file.
inline std::string entitySection(const std::string& entities) {
  return "0 SECTION, 2 ENTITIES, " + entities + ", 0 ENDSEC, 0 EOF";
}

inline std::string inTextForm(const std::string& groups, const std::string& lineEnd = "\n") {
  std::string text;
  for (const auto& [code, value] : groupLines(groups)) {
    text += std::to_string(code) + lineEnd + value + lineEnd;
  }
  return text;
}

enum class BinaryForm { ShortCodes, LongCodes };

inline void appendBytes(std::string& out, std::uint64_t bits, int count) {
  for (int at = 0; at < count; ++at) out.push_back(static_cast<char>(bits >> (8 * at) & 0xFFU));
}

inline void appendBinaryCode(std::string& out, int code, BinaryForm form) {
  if (form == BinaryForm::ShortCodes && code < 255)
    return appendBytes(out, static_cast<unsigned>(code), 1);
  if (form == BinaryForm::ShortCodes) out.push_back('\xFF');
  appendBytes(out, static_cast<unsigned>(code), 2);
}

// Texts, numbers and whole numbers of 16 bits; the codes 90 to 99 have 32.
inline void appendBinaryValue(std::string& out, int code, const std::string& value) {
  const bool isReal = (code >= 10 && code < 60) || (code >= 210 && code < 240);
  const bool isWhole = code >= 60 && code < 100;
  if (isReal) {
    const double number = std::stod(value);
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    appendBytes(out, bits, 8);
  } else if (isWhole) {
    appendBytes(out, static_cast<std::uint64_t>(std::stoll(value)), code < 90 ? 2 : 4);
  } else {
    out.append(value).push_back('\0');
  }
}

inline std::string inBinaryForm(const std::string& groups, BinaryForm form) {
  std::string out("AutoCAD Binary DXF\r\n\x1A\0", 22);
  for (const auto& [code, value] : groupLines(groups)) {
    appendBinaryCode(out, code, form);
    appendBinaryValue(out, code, value);
  }
  return out;
}

}  // namespace tess::testing
