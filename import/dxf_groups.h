// The groups of a DXF file, one after the other: a code, which tells the kind of value, and the
// value. Text files of both line ends and binary files of both flavours read alike.
// Owns: DxfGroups.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/runtime_failure.h"

namespace tess {

// Steps over the content, which outlives it. Values are parsed when they are asked for, so that
// what nobody reads costs little and cannot be wrong.
class DxfGroups {
 public:
  // `file` is how failures name the content. Raises a failure for content that is no DXF at all.
  DxfGroups(std::string_view content, std::string file);

  // The next group but comments; false at the end of the content. Raises a failure for a code that
  // is none and for a group without its value.
  bool next();
  // The present group is read again by the following next().
  void putBack() { again_ = true; }

  int code() const { return code_; }
  // The value as bytes of the file, without blanks at its ends. Empty for a number of a binary
  // file.
  std::string_view text() const;
  // The value as a finite number or whole one. Raise a failure for anything else.
  double real() const;
  int integer() const;

  bool isBinary() const { return flavour_ != Flavour::Text; }
  // Where the present group begins: its line from 1, or its byte from 0 in a binary file.
  std::size_t place() const { return place_; }
  // The failure of that trouble at the present place, as "part.dxf line 12: TROUBLE".
  RuntimeFailure failure(const std::string& trouble,
                         FailureNumber number = FailureNumber::TypeMismatch) const;

  // What a text file and a binary one call a place.
  static const char* unitOf(bool binary) { return binary ? "byte" : "line"; }

 private:
  enum class Flavour { Text, BinaryShortCodes, BinaryLongCodes };

  void takeFlavour();
  bool nextGroup();
  bool nextTextGroup();
  bool nextBinaryGroup();
  bool takePlainCode();
  bool takeAnyCode();
  bool isPlainReal(double& value) const;
  std::string_view takeLine();
  int codeOf(std::string_view line) const;
  int takeBinaryCode();
  void takeBinaryValue();
  std::string_view takeBytes(std::size_t count);
  template <typename Value>
  Value takeLittleEndian();
  void takeTerminated();

  std::string_view content_;
  std::string file_;
  std::size_t next_ = 0;   // the byte after the present group
  std::size_t lines_ = 0;  // taken so far
  std::size_t place_ = 0;
  Flavour flavour_ = Flavour::Text;
  char lineEnd_ = '\n';
  bool again_ = false;

  int code_ = 0;
  std::string_view text_;  // of a text file, or a text of a binary one
  enum class Held { Text, Real, Integer } held_ = Held::Text;
  double real_ = 0;
  long long integer_ = 0;
};

}  // namespace tess
