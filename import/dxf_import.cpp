// The conversion of DXF entities to drawing rows.
#include "import/dxf_import.h"

#include <cmath>
#include <numbers>
#include <optional>

#include "core/drawing_store.h"
#include "core/text.h"
#include "display/drawing_extents.h"
#include "geometry/entity.h"
#include "geometry/float_points.h"
#include "import/exact_geometry.h"

namespace tess {
namespace {

constexpr double kDegreesPerRadian = 180 / std::numbers::pi;

struct Position {
  double x = 0, y = 0;
};

// What one entity leaves to the next.
class Conversion {
 public:
  Conversion(DxfRows& rows, bool connectPoints) : rows_(rows), connectPoints_(connectPoints) {}

  void convert(const DxfEntity& entity);

 private:
  using Step = void (Conversion::*)(const DxfEntity&);
  struct Kind {
    std::string_view type;
    Step convert;
  };
  static const Kind kKinds[];

  bool convertAs(std::string_view type, const DxfEntity& entity);
  void addPolyline(const DxfEntity& entity);
  void addLine(const DxfEntity& entity);
  void addArc(const DxfEntity& entity);
  void addCircle(const DxfEntity& entity);
  void addPoint(const DxfEntity& entity);
  bool meetsLastEnd(double x, double y) const;

  DxfRows& rows_;
  const bool connectPoints_;
  std::optional<Position> lastEnd_;
  std::optional<Position> lastPoint_;
};

const Conversion::Kind Conversion::kKinds[] = {
    {"LINE", &Conversion::addLine},           {"ARC", &Conversion::addArc},
    {"LWPOLYLINE", &Conversion::addPolyline}, {"POLYLINE", &Conversion::addPolyline},
    {"CIRCLE", &Conversion::addCircle},       {"POINT", &Conversion::addPoint},
};

bool Conversion::convertAs(std::string_view type, const DxfEntity& entity) {
  for (const Kind& kind : kKinds) {
    if (kind.type != type) continue;
    (this->*kind.convert)(entity);
    return true;
  }
  return false;
}

void Conversion::convert(const DxfEntity& entity) {
  rows_.begin(entity);
  const std::string_view type = entity.EntityType;
  if (!convertAs(type, entity) && !convertAs(upperCased(type), entity)) rows_.addUnconverted(type);
}

// Exact geometry is an option of its own.
// Fixed: edges run straight and a closed polyline lacks its last; drawings made so have been cut.
void Conversion::addPolyline(const DxfEntity& entity) {
  const std::vector<DxfVertex>& vertices = entity.Vertexes;
  for (std::size_t at = 1; at < vertices.size(); ++at) {
    rows_.add({.x0 = vertices[at - 1].x0,
               .y0 = vertices[at - 1].y0,
               .x1 = vertices[at].x0,
               .y1 = vertices[at].y0});
  }
}

// Ends meet when they are the same in the tables.
bool Conversion::meetsLastEnd(double x, double y) const {
  return lastEnd_ && static_cast<float>(x) == static_cast<float>(lastEnd_->x) &&
         static_cast<float>(y) == static_cast<float>(lastEnd_->y);
}

void Conversion::addLine(const DxfEntity& entity) {
  DxfRow row{.x0 = entity.x0, .y0 = entity.y0, .x1 = entity.x1, .y1 = entity.y1};
  // Fixed: a line is turned round where its end meets the last; chains are imported head to tail.
  if (meetsLastEnd(entity.x1, entity.y1)) {
    row = {.x0 = entity.x1, .y0 = entity.y1, .x1 = entity.x0, .y1 = entity.y0};
  }
  if (rows_.add(row)) lastEnd_ = {row.x1, row.y1};
}

void Conversion::addArc(const DxfEntity& entity) {
  const double start = entity.g50 / kDegreesPerRadian;
  const double end = entity.g51 / kDegreesPerRadian;
  const DxfRow row{.type = kCounterClockwiseArc,
                   .x0 = entity.x0 + entity.g40 * std::cos(start),
                   .y0 = entity.y0 + entity.g40 * std::sin(start),
                   .x1 = entity.x0 + entity.g40 * std::cos(end),
                   .y1 = entity.y0 + entity.g40 * std::sin(end),
                   .xc = entity.x0,
                   .yc = entity.y0};
  if (rows_.add(row)) lastEnd_ = {row.x1, row.y1};
}

// Fixed: a circle comes as a clockwise arc whose ends are one; so do drawn circles.
void Conversion::addCircle(const DxfEntity& entity) {
  const double x = entity.x0 + entity.g40;
  const DxfRow row{.type = kClockwiseArc,
                   .x0 = x,
                   .y0 = entity.y0,
                   .x1 = x,
                   .y1 = entity.y0,
                   .xc = entity.x0,
                   .yc = entity.y0};
  if (rows_.add(row)) lastEnd_ = {row.x1, row.y1};
}

void Conversion::addPoint(const DxfEntity& entity) {
  if (lastPoint_ && connectPoints_) {
    rows_.add({.x0 = lastPoint_->x, .y0 = lastPoint_->y, .x1 = entity.x0, .y1 = entity.y0});
  }
  lastPoint_ = {entity.x0, entity.y0};
  lastEnd_ = lastPoint_;
}

}  // namespace

void convertDxf(const DxfDocument& document, DxfRows& rows, bool connectPoints) {
  Conversion conversion(rows, connectPoints);
  for (const DxfEntity& entity : document.Entities) {
    if (rows.stopped()) return;
    conversion.convert(entity);
  }
}

void importDxf(const DxfDocument& document, const DrawingStore& store, DxfRows& rows,
               const DxfImportOptions& options) {
  if (!options.exactGeometry) return convertDxf(document, rows, options.connectPoints);
  convertDxfExactly(document, rows,
                    {.connectPoints = options.connectPoints,
                     .metric = options.metric.value_or(isMetric(store)),
                     .nearOrigin = options.autoAlign,
                     .tolerence = store.cfg_tolerance});
}

void alignRows(Change& change, const DrawingStore& store, int first, int last) {
  const auto box = GetSegmentExtents(store, first, last);
  if (!box) return;
  const auto align = [&](int sg, SegmentRow& row) {
    if (sg < first || sg > last) return false;
    row.x0 -= box->minx;
    row.y0 -= box->miny;
    row.x1 -= box->minx;
    row.y1 -= box->miny;
    // A line's centre means nothing and stays 0.
    if (isRound(row.type)) {
      row.xc -= box->minx;
      row.yc -= box->miny;
    }
    return true;
  };
  change.segments.replaceWhere(align, Entry::Unlogged);
}

}  // namespace tess
