// Looking at an import beforehand.
#include "import/import_preview.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <numeric>
#include <utility>

#include "core/drawing_store.h"
#include "drafting/edited_table.h"
#include "import/exact_geometry.h"

namespace tess {
namespace {

// Points that pass for one, each with the rows that end there. A point is looked for in the squares
// round its own, so that the cost does not grow with the square of the rows.
class EndPoints {
 public:
  explicit EndPoints(float tolerence) : tolerence_(std::max(tolerence, 1e-6F)) {}

  int indexOf(float x, float y) {
    const Square square = squareOf(x, y);
    for (const double across : {-1, 0, 1}) {
      for (const double up : {-1, 0, 1}) {
        const int known = find({square.first + across, square.second + up}, x, y);
        if (known >= 0) return known;
      }
    }
    points_.push_back({x, y});
    squares_.emplace(square, count() - 1);
    return count() - 1;
  }
  int count() const { return static_cast<int>(points_.size()); }
  OpenEnd place(int point) const { return points_[static_cast<std::size_t>(point)]; }

 private:
  // As wide as the tolerance: more than one point is never in it.
  using Square = std::pair<double, double>;

  double cell(float value) const { return std::floor(static_cast<double>(value) / tolerence_); }
  Square squareOf(float x, float y) const { return {cell(x), cell(y)}; }
  int find(const Square& square, float x, float y) const {
    const auto found = squares_.find(square);
    if (found == squares_.end()) return -1;
    const OpenEnd known = place(found->second);
    const bool same = std::abs(known.x - x) <= tolerence_ && std::abs(known.y - y) <= tolerence_;
    return same ? found->second : -1;
  }

  float tolerence_;
  std::vector<OpenEnd> points_;
  std::map<Square, int> squares_;
};

// Sets of points that rows connect.
class Outlines {
 public:
  explicit Outlines(int points) : leader_(static_cast<std::size_t>(points)) {
    std::iota(leader_.begin(), leader_.end(), 0);
  }
  int of(int point) {
    while (at(point) != point) point = at(point) = at(at(point));
    return point;
  }
  void connect(int one, int other) { at(of(one)) = of(other); }

 private:
  int& at(int point) { return leader_[static_cast<std::size_t>(point)]; }
  std::vector<int> leader_;
};

struct Edge {
  int from, to;
};

// Rows that close by themselves have no ends.
std::vector<Edge> edgesOf(const std::vector<SegmentRow>& rows, EndPoints& points) {
  std::vector<Edge> edges;
  for (const SegmentRow& row : rows) {
    const bool counts = std::isfinite(row.x0 + row.y0 + row.x1 + row.y1);
    if (row.type == kCircle || row.type == kRectangle || !counts) continue;
    const Edge edge{points.indexOf(row.x0, row.y0), points.indexOf(row.x1, row.y1)};
    if (edge.from != edge.to) edges.push_back(edge);
  }
  return edges;
}

std::optional<DrawingExtents> boxOf(const std::vector<SegmentRow>& rows) {
  std::optional<DrawingExtents> all;
  for (const SegmentRow& row : rows) {
    const DrawingExtents box = entityExtents(entityOf(row));
    if (!all) all = box;
    *all = {std::min(all->minx, box.minx), std::min(all->miny, box.miny),
            std::max(all->maxx, box.maxx), std::max(all->maxy, box.maxy)};
  }
  const bool hasArea = all && all->maxx > all->minx && all->maxy > all->miny;
  return hasArea ? all : std::nullopt;
}

}  // namespace

std::vector<OpenEnd> openOutlines(const std::vector<SegmentRow>& rows, float tolerence) {
  EndPoints points(tolerence);
  const std::vector<Edge> edges = edgesOf(rows, points);
  Outlines outlines(points.count());
  std::vector<int> meeting(static_cast<std::size_t>(points.count()));
  for (const auto& [from, to] : edges) {
    outlines.connect(from, to);
    ++meeting[static_cast<std::size_t>(from)];
    ++meeting[static_cast<std::size_t>(to)];
  }
  std::vector<OpenEnd> open;
  std::vector<bool> known(static_cast<std::size_t>(points.count()));
  for (int point = 0; point < points.count(); ++point) {
    if (meeting[static_cast<std::size_t>(point)] % 2 == 0) continue;
    const auto outline = static_cast<std::size_t>(outlines.of(point));
    if (!known[outline]) open.push_back(points.place(point));
    known[outline] = true;
  }
  return open;
}

ImportPreview previewImport(const DxfDocument& document, const DrawingStore& store,
                            const DxfImportOptions& options) {
  ImportPreview preview;
  DxfRows rows(preview.rows, store.NumSegments, document);
  importDxf(document, store, rows, options);
  preview.unconverted = rows.unconverted();
  preview.lost = rows.lost();
  preview.box = boxOf(preview.rows);
  preview.openOutlines = openOutlines(preview.rows, store.cfg_tolerance);
  return preview;
}

std::optional<FileUnits> fileUnits(int insunits) {
  switch (insunits) {
    case 1:
      return FileUnits{"inch", "inches", false};
    case 2:
      return FileUnits{"foot", "feet", false};
    case 4:
      return FileUnits{"millimetre", "millimetres", true};
    case 5:
      return FileUnits{"centimetre", "centimetres", true};
    case 6:
      return FileUnits{"metre", "metres", true};
    default:
      return std::nullopt;
  }
}

std::string sizeText(const DrawingExtents& box, bool metric) {
  const double width = static_cast<double>(box.maxx) - box.minx;
  const double height = static_cast<double>(box.maxy) - box.miny;
  const double inches = metric ? 1 / kMillimetresPerInch : 1;
  const double millimetres = metric ? 1 : kMillimetresPerInch;
  char text[160];
  std::snprintf(text, sizeof text, "%.4f x %.4f in = %.3f x %.3f mm", width * inches,
                height * inches, width * millimetres, height * millimetres);
  return text;
}

}  // namespace tess
