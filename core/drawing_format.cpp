// The two text files of a drawing: one table of header fields and one of coordinates per kind of
// row, each walked by the reader and the writer alike.
#include "core/drawing_format.h"

#include <array>
#include <cmath>
#include <type_traits>
#include <variant>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr std::string_view kDrawingExtension = ".CDM";
constexpr std::string_view kPathExtension = ".TPM";
constexpr int kLastRow = 32767;

// What the writer writes: a standing word or a variable.
using HeaderValue = std::variant<const char*, Int16 DrawingSettings::*, float DrawingSettings::*,
                                 std::string DrawingSettings::*, std::string DrawingStore::*>;

// How the reader departs from reading into that variable.
enum class Take {
  Field,
  Aside,      // into the notes; the store is left alone
  Nowhere,    // read and thrown away
  Printable,  // the rest of the line, commas and all
};

struct HeaderField {
  int line;
  HeaderValue value;
  Take take = Take::Field;
  std::string HeaderNotes::*note = nullptr;
  void (*afterwards)(DrawingStore&) = nullptr;  // what the reader mends then
};

// Fixed: the z origin always lies below; old files hold others that never counted.
void faceDown(DrawingStore& store) {
  store.zorigin = -1;
}
void giveHeight(DrawingStore& store) {
  store.partdimz = partHeightOr(store.partdimz);
}
void makeDepthPositive(DrawingStore& store) {
  store.cfg_final_depth = std::abs(store.cfg_final_depth);
}

using Settings = DrawingSettings;

// Fields with the same line number share that line.
constexpr HeaderField kHeader[] = {
    {1, kDrawingVersion, Take::Aside, &HeaderNotes::version},
    {2, "PROFILE", Take::Aside, &HeaderNotes::kind},
    {3, &Settings::xorigin},
    {4, &Settings::yorigin},
    {5, &Settings::zorigin, Take::Field, nullptr, faceDown},
    {6, &Settings::units},
    {7, &Settings::visualgrid},
    {7, &Settings::visualgridf},
    {7, &Settings::cursorgrid},
    {7, &Settings::cursorgridf},
    {8, &Settings::xstartpos},
    {8, &Settings::ystartpos},
    {8, &Settings::zstartpos},
    {9, &Settings::xchange},
    {9, &Settings::ychange},
    {9, &Settings::zchange},
    {10, &Settings::cfg_min_rough_clearance},
    // Fixed: the spacing of a drawing is read past; that of the setup stays in force.
    {11, &Settings::cfg_tool_spacing, Take::Nowhere},
    // Fixed: line 30 has the final depth again and counts; in old files the two differ.
    {12, &Settings::cfg_final_depth},
    {13, &Settings::cfg_start_depth},
    {14, &Settings::cfg_z_cut_per_pass},
    {15, &Settings::cfg_min_z_finish},
    {16, &Settings::cfg_rough_feedrate},
    {17, &Settings::cfg_finish_feedrate},
    {18, &Settings::cfg_cutting_mode},
    {19, &Settings::selectedtool},
    {20, &Settings::autocomments},
    {21, &Settings::usingchuck},
    {22, &Settings::cncoutputpath, Take::Aside, &HeaderNotes::cncoutputpath},
    {23, &Settings::endmarkers},
    {23, &Settings::parttemplate},
    {23, &Settings::tooloutline},
    {24, &Settings::drawingtitle},
    {25, &Settings::designername},
    {26, &Settings::drawingrevision},
    {27, &DrawingStore::creationdate},
    {28, &Settings::partmaterial, Take::Printable},
    {29, &Settings::partdimx},
    {29, &Settings::partdimy},
    {29, &Settings::partdimz, Take::Field, nullptr, giveHeight},
    {30, &Settings::cfg_final_depth, Take::Field, nullptr, makeDepthPositive},
};
constexpr std::size_t kHeaderFields = std::size(kHeader);

void append(std::string& out, float value) {
  appendFileText(out, value);
}
void append(std::string& out, Int16 value) {
  appendFileText(out, int{value});
}
void append(std::string& out, const std::string& value) {
  out.append(onOneLine(value));
}

void read(FieldReader& fields, float& value) {
  value = fields.readFloat();
}
void read(FieldReader& fields, Int16& value) {
  value = fields.readInt16();
}
void read(FieldReader& fields, std::string& value) {
  value = fields.readText();
}

void appendHeaderValue(std::string& out, const DrawingStore& store, const HeaderValue& value) {
  const auto write = [&](auto written) {
    if constexpr (std::is_same_v<decltype(written), const char*>) {
      out.append(written);
    } else {
      append(out, store.*written);
    }
  };
  std::visit(write, value);
}

void readHeaderValue(DrawingStore& store, FieldReader& fields, const HeaderField& field) {
  const auto take = [&](auto wanted) {
    if constexpr (!std::is_same_v<decltype(wanted), const char*>) {
      auto value = store.*wanted;
      read(fields, value);
      if (field.take == Take::Field) store.*wanted = value;
    }
  };
  std::visit(take, field.value);
}

void readHeaderField(DrawingStore& store, HeaderNotes& notes, FieldReader& fields,
                     const HeaderField& field) {
  switch (field.take) {
    case Take::Field:
    case Take::Nowhere:
      readHeaderValue(store, fields, field);
      break;
    case Take::Aside:
      notes.*field.note = fields.readText();
      break;
    case Take::Printable:
      store.*std::get<std::string Settings::*>(field.value) = fields.readPrintable();
      break;
  }
  if (field.afterwards != nullptr) field.afterwards(store);
}

using FloatColumn = Column<float> DrawingStore::*;

// A drawing row's coordinates in file order; each kind has the first few of them.
constexpr FloatColumn kCoordinates[] = {&DrawingStore::x0,      &DrawingStore::y0,
                                        &DrawingStore::x1,      &DrawingStore::y1,
                                        &DrawingStore::centerx, &DrawingStore::centery};
constexpr int kUnknownKind = -1;

// Fixed: an unknown kind takes no coordinates; what follows reads as rows, as it always did.
constexpr int coordinatesOf(int segtype) {
  constexpr int kByKind[] = {2, 4, 6, 6, kUnknownKind, 6, 4};
  const bool known = segtype >= 0 && segtype < static_cast<int>(std::size(kByKind));
  return known ? kByKind[segtype] : kUnknownKind;
}

constexpr FloatColumn kPathFields[] = {
    &DrawingStore::psx0, &DrawingStore::psy0, &DrawingStore::psx1, &DrawingStore::psy1,
    &DrawingStore::psxc, &DrawingStore::psyc, &DrawingStore::psz,  &DrawingStore::psfeed};

// One line of numbers in the making.
class RowText {
 public:
  template <typename Number>
  void field(Number value) {
    end_ = writeFileText(end_, value);
    *end_++ = ',';
  }

  void appendTo(std::string& out) {
    end_[-1] = '\r';  // in place of the last comma
    *end_++ = '\n';
    out.append(text_, end_);
  }

 private:
  static constexpr std::size_t kMaxFields = 2 + std::size(kPathFields);
  char text_[kMaxFields * (kLongestNumber + 1) + 1];
  char* end_ = text_;
};

// The row behind the last one; the tables end where its number does not fit any more.
int rowAfter(Int16 counter, const FieldReader& fields) {
  if (counter == kLastRow) fields.fail(FailureNumber::Overflow);
  return counter + 1;
}

// Fixed: a kind without a centre keeps what the row held; no file has one to give.
void readSegment(DrawingStore& store, FieldReader& fields) {
  const int sg = rowAfter(store.NumSegments, fields);
  ensureSegmentCapacity(store, sg);
  store.NumSegments = sg;
  store.segtype[sg] = fields.readInteger();
  store.segattr[sg] = entityClass(fields.readInt16());
  const int count = coordinatesOf(store.segtype[sg]);
  for (int at = 0; at < count; ++at) (store.*kCoordinates[at])[sg] = fields.readFloat();
}

void readPath(DrawingStore& store, FieldReader& fields) {
  const int ps = rowAfter(store.NumPathSegments, fields);
  ensurePathCapacity(store, ps);
  store.NumPathSegments = ps;
  store.pstype[ps] = fields.readInt16();
  store.pscode[ps] = fields.readInt16();
  for (const FloatColumn column : kPathFields) (store.*column)[ps] = fields.readFloat();
  store.psvisible[ps] = true;
}

}  // namespace

// Fixed: path files have names in capitals; those of older drawings are found under no other.
std::string pathFileName(std::string_view drawingname) {
  std::string name = upperCased(drawingname);
  bool found = false;
  for (std::size_t at = 0; (at = name.find(kDrawingExtension, at)) != std::string::npos;) {
    name.replace(at, kDrawingExtension.size(), kPathExtension);
    found = true;
  }
  return found ? name : std::string();
}

void writefileheader(DrawingStore& store, std::string& out) {
  store.partdimz = partHeightOr(store.partdimz);
  for (std::size_t at = 0; at < kHeaderFields; ++at) {
    appendHeaderValue(out, store, kHeader[at].value);
    const bool shared = at + 1 < kHeaderFields && kHeader[at + 1].line == kHeader[at].line;
    out.append(shared ? "," : kLineEnd);
  }
}

HeaderNotes readfileheader(DrawingStore& store, FieldReader& fields) {
  HeaderNotes notes;
  for (const HeaderField& field : kHeader) readHeaderField(store, notes, fields, field);
  return notes;
}

void appendSegments(std::string& out, const DrawingStore& store) {
  for (int sg = 1; sg <= store.NumSegments; ++sg) {
    const int count = coordinatesOf(store.segtype[sg]);
    if (count == kUnknownKind) continue;
    RowText row;
    row.field(store.segtype[sg]);
    row.field(entityClass(store.segattr[sg]));
    for (int at = 0; at < count; ++at) row.field((store.*kCoordinates[at])[sg]);
    row.appendTo(out);
  }
}

// Fixed: a selected path row keeps its 30000; it comes back selected, unlike a drawing row.
void appendPaths(std::string& out, const DrawingStore& store) {
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    RowText row;
    row.field(int{store.pstype[ps]});
    row.field(int{store.pscode[ps]});
    for (const FloatColumn column : kPathFields) row.field((store.*column)[ps]);
    row.appendTo(out);
  }
}

void readSegments(DrawingStore& store, FieldReader& fields) {
  while (!fields.atEnd()) readSegment(store, fields);
}

void readPaths(DrawingStore& store, FieldReader& fields) {
  while (!fields.atEnd()) readPath(store, fields);
}

bool holdsSegments(const std::string& content) {
  DrawingStore store;
  FieldReader fields({}, content);
  try {
    readfileheader(store, fields);
    return !fields.atEnd();
  } catch (const RuntimeFailure&) {
    takeCallChain();
    return false;
  }
}

}  // namespace tess
