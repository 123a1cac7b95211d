// Reads the fields of a text file one after the other: a field ends at a comma or a line end,
// whichever comes first, and nothing relies on where the lines begin.
// Owns: FieldReader.
#pragma once

#include <string>
#include <string_view>

#include "core/file_limits.h"
#include "core/int16.h"
#include "core/runtime_failure.h"

namespace tess {

// Fields of one file held in memory. Lines end with CR LF, LF or CR. Every reading call raises
// Input past end of file once no field is left, and Overflow for a number that does not fit; the
// failure's source names the file, the line and the field.
class FieldReader {
 public:
  FieldReader(std::string path, std::string content);

  // Reads and opens `path`; raises what readFile raises.
  static FieldReader open(const std::string& path, std::size_t limit = kLargestFile);

  bool atEnd() const { return next_ >= content_.size(); }
  // The last field was taken, and the file ends within its line; place() is still that field's.
  bool endsInField() const;
  int line() const { return line_; }  // of the field to be read next, from 1
  std::string place() const;          // of that field: file, line and field

  // The next field's text: leading blanks dropped, any encoding turned into UTF-8.
  std::string readText();
  int readInteger();  // 32-bit
  Int16 readInt16();
  float readFloat();

  // The next field, taken without its quotes when it is quoted, and then with its commas.
  std::string readQuotedText();

  // The rest of the line with its commas and blanks.
  std::string readLine();

  // All characters up to the next line feed, without those outside blank to `z`.
  std::string readPrintable();

  // Raises a failure of which the field to be read next is the source.
  [[noreturn]] void fail(FailureNumber number) const;

 private:
  void requireMore() const;
  void skipSeparator();
  std::string_view takeField();
  template <typename Value>
  bool takePlainNumber(Value& value);
  template <typename Value, typename Parse>
  Value readNumber(Parse parse);

  std::string path_;
  std::string content_;
  std::size_t next_ = 0;
  int line_ = 1;
  int field_ = 1;  // within the line, from 1
};

}  // namespace tess
