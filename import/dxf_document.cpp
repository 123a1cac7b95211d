// Sections, block definitions and entities out of the groups of a DXF file.
#include "import/dxf_document.h"

#include <array>
#include <utility>

#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"
#include "import/dxf_groups.h"
#include "import/dxf_text.h"

namespace tess {
namespace {

constexpr std::string_view kFirstUtf8Version = "AC1021";

// The texts of a file, each decoded once and kept in the document.
class Names {
 public:
  explicit Names(DxfDocument& document) : document_(document) {}

  void setCodePage(std::string_view page) { codePage_ = page; }

  std::string decode(std::string_view bytes) const {
    return dxfText(bytes, document_.version < kFirstUtf8Version ? codePage_ : std::string());
  }

  // Neighbours mostly share their type and their layer.
  std::string_view keepType(std::string_view bytes) { return keep(lastType_, bytes); }
  std::string_view keepLayer(std::string_view bytes) { return keep(lastLayer_, bytes); }

 private:
  struct Kept {
    std::string_view bytes;
    std::string_view name;
  };

  std::string_view keep(Kept& last, std::string_view bytes) {
    if (bytes != last.bytes) last = {bytes, *document_.names.insert(decode(bytes)).first};
    return last.name;
  }

  DxfDocument& document_;
  std::string codePage_;
  Kept lastType_, lastLayer_;
};

// Points whose coordinates come one by one, in any order: a coordinate that the last point has
// already begins the next one.
template <typename Point>
class PointRun {
 public:
  Point& with(std::vector<Point>& points, unsigned axis) {
    const unsigned bit = 1U << axis;
    if (points.empty() || (seen_ & bit) != 0) {
      points.emplace_back();
      seen_ = 0;
    }
    seen_ |= bit;
    return points.back();
  }

 private:
  unsigned seen_ = 0;
};

void setAxis(DxfPoint& point, unsigned axis, double value) {
  constexpr std::array<double DxfPoint::*, 3> kAxes{&DxfPoint::x, &DxfPoint::y, &DxfPoint::z};
  point.*kAxes[axis] = value;
}

// An entity whose groups are being read.
struct Underway {
  DxfEntity& entity;
  PointRun<DxfVertex> vertices{};
  PointRun<DxfPoint> controlPoints{};
  PointRun<DxfPoint> fitPoints{};
};

// Takes a group that means something special to its kind; false leaves it to the common fields.
using Take = bool (*)(Underway& underway, const DxfGroups& groups, const Names& names);

bool takePolylineGroup(Underway& underway, const DxfGroups& groups, const Names& /*names*/) {
  std::vector<DxfVertex>& vertices = underway.entity.Vertexes;
  switch (groups.code()) {
    case 10:
      underway.vertices.with(vertices, 0).x0 = groups.real();
      return true;
    case 20:
      underway.vertices.with(vertices, 1).y0 = groups.real();
      return true;
    case 38:
      underway.entity.z0 = groups.real();
      return true;
    case 40:  // width of the pen
      return true;
    case 42:
      if (!vertices.empty()) vertices.back().bulge = groups.real();
      return true;
    default:
      return false;
  }
}

// Group codes of coordinates: 1x is the x of point x, 2x its y, 3x its z.
unsigned axisOf(int code) {
  return static_cast<unsigned>(code / 10 - 1);
}

bool takeSplinePoint(Underway& underway, const DxfGroups& groups) {
  DxfSpline& spline = *underway.entity.spline;
  const unsigned axis = axisOf(groups.code());
  switch (groups.code() % 10) {
    case 0:
      setAxis(underway.controlPoints.with(spline.controlPoints, axis), axis, groups.real());
      return true;
    case 1:
      setAxis(underway.fitPoints.with(spline.fitPoints, axis), axis, groups.real());
      return true;
    case 2:
      setAxis(spline.startTangent, axis, groups.real());
      return true;
    case 3:
      setAxis(spline.endTangent, axis, groups.real());
      return true;
    default:
      return false;
  }
}

bool takeSplineGroup(Underway& underway, const DxfGroups& groups, const Names& /*names*/) {
  DxfSpline& spline = *underway.entity.spline;
  const int code = groups.code();
  if (code >= 10 && code <= 39) return takeSplinePoint(underway, groups);
  if (code == 40) spline.knots.push_back(groups.real());
  if (code == 41) spline.weights.push_back(groups.real());
  if (code == 71) spline.degree = groups.integer();
  return code == 40 || code == 41 || code == 71;
}

bool takeEllipseGroup(Underway& underway, const DxfGroups& groups, const Names& /*names*/) {
  DxfEllipse& ellipse = *underway.entity.ellipse;
  if (groups.code() == 41) ellipse.startParameter = groups.real();
  if (groups.code() == 42) ellipse.endParameter = groups.real();
  return groups.code() == 41 || groups.code() == 42;
}

bool takeInsertGroup(Underway& underway, const DxfGroups& groups, const Names& names) {
  constexpr std::array<double DxfInsert::*, 5> kReals{&DxfInsert::xScale, &DxfInsert::yScale,
                                                      &DxfInsert::zScale, &DxfInsert::columnSpacing,
                                                      &DxfInsert::rowSpacing};  // groups 41 to 45
  DxfInsert& insert = *underway.entity.insert;
  const int code = groups.code();
  if (code == 2) insert.block = names.decode(groups.text());
  if (code == 70) insert.columns = groups.integer();
  if (code == 71) insert.rows = groups.integer();
  const bool isReal = code >= 41 && code <= 45;
  if (isReal) insert.*kReals[static_cast<std::size_t>(code - 41)] = groups.real();
  return isReal || code == 2 || code == 70 || code == 71;
}

struct Kind {
  std::string_view type;
  Take take;
  void (*prepare)(DxfEntity& entity);
};

void prepareNothing(DxfEntity& /*entity*/) {}
void prepareSpline(DxfEntity& entity) {
  entity.spline = std::make_unique<DxfSpline>();
}
void prepareEllipse(DxfEntity& entity) {
  entity.ellipse = std::make_unique<DxfEllipse>();
}
void prepareInsert(DxfEntity& entity) {
  entity.insert = std::make_unique<DxfInsert>();
}

// The kinds with groups of their own; all others have the common fields.
constexpr Kind kKinds[] = {
    {"LWPOLYLINE", takePolylineGroup, prepareNothing},
    {"SPLINE", takeSplineGroup, prepareSpline},
    {"ELLIPSE", takeEllipseGroup, prepareEllipse},
    {"INSERT", takeInsertGroup, prepareInsert},
};

const Kind* kindOf(std::string_view type) {
  for (const Kind& kind : kKinds) {
    if (equalIgnoringCase(kind.type, type)) return &kind;
  }
  return nullptr;
}

// The numbers that entities of all kinds may have, by group code.
constexpr auto kRealFields = [] {
  std::array<double DxfEntity::*, 52> fields{};
  // g++ 12 leaves zeros in a constant table, which is the first member and not none.
  fields.fill(nullptr);
  fields[10] = &DxfEntity::x0;
  fields[20] = &DxfEntity::y0;
  fields[30] = &DxfEntity::z0;
  fields[11] = &DxfEntity::x1;
  fields[21] = &DxfEntity::y1;
  fields[31] = &DxfEntity::z1;
  fields[40] = &DxfEntity::g40;
  fields[50] = &DxfEntity::g50;
  fields[51] = &DxfEntity::g51;
  return fields;
}();

void takeCommonGroup(DxfEntity& entity, const DxfGroups& groups, Names& names) {
  const auto code = static_cast<std::size_t>(groups.code());
  if (code < kRealFields.size()) {
    if (kRealFields[code] != nullptr) entity.*kRealFields[code] = groups.real();
    if (code == 8) entity.layer = names.keepLayer(groups.text());
    return;
  }
  if (code == 67) entity.paperSpace = groups.integer() != 0;
  if (code == 70) entity.g70 = groups.integer();
  if (code == 210) entity.extrusion.x = groups.real();
  if (code == 220) entity.extrusion.y = groups.real();
  if (code == 230) entity.extrusion.z = groups.real();
}

// Reads one file into one document.
class Reader {
 public:
  Reader(DxfDocument& document, std::string_view content)
      : document_(document), groups_(content, document.file), names_(document) {
    document_.isBinary = groups_.isBinary();
  }

  void read() {
    bool anySection = false;
    while (groups_.next()) {
      if (groups_.code() != 0) continue;
      if (groups_.text() == "EOF") return requireSection(anySection);
      if (groups_.text() != "SECTION") continue;
      anySection = true;
      readSection();
    }
    requireSection(anySection);
    throw cutOff();
  }

 private:
  void requireSection(bool anySection) const {
    if (!anySection) throw groups_.failure("this is not a DXF file: it has no section");
  }

  RuntimeFailure cutOff() const {
    return groups_.failure("the file is cut off here: its end is missing",
                           FailureNumber::InputPastEnd);
  }

  // The next group; the content must have one, as EOF is the last.
  void step() {
    if (!groups_.next()) throw cutOff();
  }

  bool atStart(std::string_view name) const {
    return groups_.code() == 0 && groups_.text() == name;
  }
  bool endsSection() const { return atStart("ENDSEC") || atStart("SECTION") || atStart("EOF"); }

  void readSection() {
    step();
    if (groups_.code() != 2) return groups_.putBack();
    const std::string_view name = groups_.text();
    if (name == "HEADER") return readHeader();
    if (name == "BLOCKS") return readBlocks();
    if (name == "ENTITIES") return readEntities(document_.Entities, /*inBlock=*/false);
  }

  // Up to the next group 0, which stays to be read.
  template <typename Visit>
  void eachGroup(Visit visit) {
    for (step(); groups_.code() != 0; step()) visit();
    groups_.putBack();
  }

  void readHeader() {
    std::string_view variable;
    eachGroup([this, &variable] {
      if (groups_.code() == 9) {
        variable = groups_.text();
      } else if (variable == "$ACADVER") {
        document_.version = groups_.text();
      } else if (variable == "$DWGCODEPAGE") {
        names_.setCodePage(groups_.text());
      } else if (variable == "$INSUNITS") {
        document_.insunits = groups_.integer();
      }
    });
  }

  void readBlocks() {
    for (step(); !endsSection(); step()) {
      if (atStart("BLOCK")) readBlock();
    }
    groups_.putBack();
  }

  void readBlock() {
    DxfBlock block;
    eachGroup([this, &block] {
      if (groups_.code() == 2) block.name = names_.decode(groups_.text());
      if (groups_.code() == 10) block.base.x = groups_.real();
      if (groups_.code() == 20) block.base.y = groups_.real();
      if (groups_.code() == 30) block.base.z = groups_.real();
    });
    readEntities(block.entities, /*inBlock=*/true);
    document_.blocks.try_emplace(upperCased(block.name), std::move(block));
  }

  // Up to the end of the section or block.
  void readEntities(std::vector<DxfEntity>& entities, bool inBlock) {
    for (step(); !endsSection() && !(inBlock && atStart("ENDBLK")); step()) {
      // A SEQEND closes the attributes of an INSERT and is nothing by itself.
      if (groups_.code() == 0 && !atStart("SEQEND")) readEntity(entities);
    }
    groups_.putBack();
  }

  // It stays with the others when the group 0 behind it shows that it is whole.
  void readEntity(std::vector<DxfEntity>& entities) {
    entities.emplace_back();
    try {
      fillEntity(entities.back());
    } catch (...) {
      entities.pop_back();
      throw;
    }
  }

  void fillEntity(DxfEntity& entity) {
    entity.place = groups_.place();
    entity.EntityType = names_.keepType(groups_.text());
    const Kind* const kind = kindOf(entity.EntityType);
    if (kind == nullptr) {
      eachGroup([this, &entity] { takeCommonGroup(entity, groups_, names_); });
    } else {
      fillSpecial(entity, *kind);
    }
    if (equalIgnoringCase(entity.EntityType, "POLYLINE")) readVertices(entity.Vertexes);
  }

  void fillSpecial(DxfEntity& entity, const Kind& kind) {
    kind.prepare(entity);
    Underway underway{entity};
    eachGroup([&] {
      if (!kind.take(underway, groups_, names_)) takeCommonGroup(entity, groups_, names_);
    });
  }

  // The entities VERTEX up to SEQEND, which some files lack.
  void readVertices(std::vector<DxfVertex>& vertices) {
    for (step(); atStart("VERTEX"); step()) vertices.push_back(readVertex());
    if (!atStart("SEQEND")) return groups_.putBack();
    eachGroup([] {});
  }

  DxfVertex readVertex() {
    DxfVertex vertex;
    eachGroup([this, &vertex] {
      if (groups_.code() == 10) vertex.x0 = groups_.real();
      if (groups_.code() == 20) vertex.y0 = groups_.real();
      if (groups_.code() == 42) vertex.bulge = groups_.real();
      if (groups_.code() == 70) vertex.g70 = groups_.integer();
    });
    return vertex;
  }

  DxfDocument& document_;
  DxfGroups groups_;
  Names names_;
};

}  // namespace

const DxfBlock* DxfDocument::block(std::string_view name) const {
  const auto found = blocks.find(upperCased(name));
  return found == blocks.end() ? nullptr : &found->second;
}

std::string dxfPlace(const DxfDocument& document, std::size_t place) {
  return DxfGroups::unitOf(document.isBinary) + (" " + std::to_string(place));
}

void readDxf(DxfDocument& document, std::string_view content, const std::string& file) {
  const Procedure here("readDxf(document,content,file)");
  document.file = file;
  Reader(document, content).read();
}

void readDxfFile(DxfDocument& document, const std::string& path) {
  const Procedure here("readDxfFile(document,path)");
  const std::string content = readFile(path, kLargestDxf);
  readDxf(document, content, std::string(fileNameOf(path)));
}

}  // namespace tess
