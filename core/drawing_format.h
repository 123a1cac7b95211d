// The two text files of a drawing, as content: 30 header lines and the drawing rows in the one, the
// path rows in the other. A pair of fields that a line shares is parted by a comma.
// Owns: kDrawingVersion, pathFileName, writefileheader, appendSegments, appendPaths, HeaderNotes,
//       readfileheader, readSegments, readPaths, holdsSegments.
#pragma once

#include <string>
#include <string_view>

#include "core/field_reader.h"

namespace tess {

struct DrawingStore;

inline constexpr char kDrawingVersion[] = "1.0";

// The name of the file that holds the paths of a drawing: the name in upper case with ".CDM"
// replaced by ".TPM"; empty when the name has no ".CDM", since such a drawing has no path file.
std::string pathFileName(std::string_view drawingname);

// Appends the header lines. A "part dim z" of 0 or less becomes 0.25 in the store first. Raises
// Invalid procedure call for a value that is no number, as do the row writers.
void writefileheader(DrawingStore& store, std::string& out);
void appendSegments(std::string& out, const DrawingStore& store);
void appendPaths(std::string& out, const DrawingStore& store);

// What the header holds beside values that go straight to the store.
struct HeaderNotes {
  std::string version;
  std::string kind;  // of the file; nobody tests it
  std::string cncoutputpath;
};

// Read the header, all drawing rows and all path rows. Rows are appended to what the tables hold;
// a row that the end of the file cuts off counts. Raise Input past end of file and Overflow.
HeaderNotes readfileheader(DrawingStore& store, FieldReader& fields);
void readSegments(DrawingStore& store, FieldReader& fields);
void readPaths(DrawingStore& store, FieldReader& fields);

// Whether the content of a drawing file has rows behind its header. A file that is no drawing has
// none.
bool holdsSegments(const std::string& content);

}  // namespace tess
