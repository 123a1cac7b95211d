// What a DXF file holds, as far as drawing rows can come of it: the entities of its ENTITIES
// section in their order, and its block definitions. Numbers stand as the file has them: no units,
// no extrusion and no block is applied.
// Owns: DxfPoint, DxfVertex, DxfSpline, DxfEllipse, DxfInsert, DxfEntity, DxfBlock, DxfDocument,
//       dxfPlace, readDxf, readDxfFile.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tess {

struct DxfPoint {
  double x = 0, y = 0, z = 0;
};

// A vertex of a polyline, whether LWPOLYLINE's own or a VERTEX entity of its own.
struct DxfVertex {
  static constexpr int kCurveFit = 1;       // added by curve fitting
  static constexpr int kSplineFit = 8;      // added by spline fitting
  static constexpr int kControlPoint = 16;  // of the spline's frame, not on the curve

  double x0 = 0, y0 = 0;
  double bulge = 0;  // of the edge to the next vertex: the tangent of a quarter of its angle
  int g70 = 0;       // flags of a VERTEX entity
};

// What a SPLINE has beyond the common fields; flags are the entity's g70.
struct DxfSpline {
  static constexpr int kClosed = 1, kPeriodic = 2, kRational = 4;  // bits of g70

  int degree = 0;
  std::vector<double> knots;
  std::vector<double> weights;  // one for each control point, or none
  std::vector<DxfPoint> controlPoints;
  std::vector<DxfPoint> fitPoints;
  DxfPoint startTangent, endTangent;  // zero when the file has none
};

// What an ELLIPSE has; its centre is (x0, y0), the end of its major axis relative to the centre is
// (x1, y1), the ratio of its axes is g40.
struct DxfEllipse {
  double startParameter = 0;                // radians
  double endParameter = 6.283185307179586;  // a whole ellipse
};

// What an INSERT has; it stands at (x0, y0), turned by g50 degrees.
struct DxfInsert {
  std::string block;  // its name as written
  double xScale = 1, yScale = 1, zScale = 1;
  int columns = 1, rows = 1;
  double columnSpacing = 0, rowSpacing = 0;
};

// One entity. The views live as long as the document. Fields that the file does not give are 0.
struct DxfEntity {
  static constexpr int kClosed = 1;  // bits of a polyline's g70
  static constexpr int kSplineFit = 4, k3D = 8, kMesh = 16, kPolyface = 64;

  std::string_view EntityType;      // "LINE", as written in the file
  double x0 = 0, y0 = 0;            // start, centre, or insertion point
  double x1 = 0, y1 = 0;            // end
  double g40 = 0;                   // radius
  double g50 = 0, g51 = 0;          // start and end angle in degrees
  int g70 = 0;                      // flags
  std::vector<DxfVertex> Vertexes;  // of LWPOLYLINE and POLYLINE

  DxfPoint extrusion{0, 0, 1};
  double z0 = 0, z1 = 0;    // of start and end; z0 of a LWPOLYLINE is its elevation
  std::string_view layer;   // as written
  bool paperSpace = false;  // not of the model
  std::size_t place = 0;    // line of its first group, from 1; byte, from 0, in a binary file

  std::unique_ptr<DxfSpline> spline;    // of a SPLINE, null otherwise
  std::unique_ptr<DxfEllipse> ellipse;  // of an ELLIPSE
  std::unique_ptr<DxfInsert> insert;    // of an INSERT
};

struct DxfBlock {
  std::string name;  // as written
  DxfPoint base;
  std::vector<DxfEntity> entities;
};

struct DxfDocument {
  DxfDocument() = default;
  DxfDocument(const DxfDocument&) = delete;  // entities view its names
  DxfDocument& operator=(const DxfDocument&) = delete;
  DxfDocument(DxfDocument&&) = default;
  DxfDocument& operator=(DxfDocument&&) = default;

  // The definition of that name, regardless of case; null when there is none.
  const DxfBlock* block(std::string_view name) const;

  std::string file;     // the name it was read under
  std::string version;  // "AC1009"; empty when the file names none
  int insunits = 0;     // $INSUNITS: 0 none, 1 inch, 2 foot, 4 mm, 5 cm, 6 m ...
  bool isBinary = false;
  std::vector<DxfEntity> Entities;
  std::map<std::string, DxfBlock> blocks;  // by upper-cased name; the first of a name counts

  std::set<std::string, std::less<>> names;  // what the views of the entities show
};

// "line 12" of a text file, "byte 345" of a binary one.
std::string dxfPlace(const DxfDocument& document, std::size_t place);

// Reads the content of a DXF file of any version, text or binary, into an empty document. `file` is
// how messages name it. Raises a failure whose description says file, line (byte of a binary file)
// and trouble when the content is no DXF, ends too early, or holds what is no number where one
// belongs; the entities before that place are in the document then.
void readDxf(DxfDocument& document, std::string_view content, const std::string& file);

// The same from a file; raises its failures too.
void readDxfFile(DxfDocument& document, const std::string& path);

}  // namespace tess
