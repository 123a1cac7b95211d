// The exact conversion: through entities and blocks, chain after chain, and the joining at the end.
#include "import/exact_geometry.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "core/conventions.h"
#include "core/text.h"
#include "import/axis_split.h"
#include "import/biarc.h"
#include "import/block_placement.h"
#include "import/entity_chain.h"
#include "import/flat_arcs.h"
#include "import/join_ends.h"
#include "import/whole_circles.h"

namespace tess {
namespace {

constexpr std::size_t kDeepestNesting = 64;
// Blocks of blocks grow without bounds from a small file. An entity counts with all the points that
// it is made of, since that is what its conversion takes.
constexpr std::size_t kMaxPlaced = 1000000;
// Far more rows than a drawing holds, so that an operator learns how many there would be.
constexpr std::size_t kMaxMade = 1000000;

struct FileUnit {
  int insunits;
  double millimetres;
};
constexpr FileUnit kFileUnits[] = {
    {1, kMillimetresPerInch},         // inch
    {2, 12 * kMillimetresPerInch},    // foot
    {4, 1},                           // millimetre
    {5, 10},                          // centimetre
    {6, 1000},                        // metre
    {8, kMillimetresPerInch / 1e6},   // microinch
    {9, kMillimetresPerInch / 1000},  // mil
    {10, 36 * kMillimetresPerInch},   // yard
    {13, 0.001},                      // micrometre
    {14, 100},                        // decimetre
};

bool isBetween(double value, double a, double b) {
  return value >= std::min(a, b) && value <= std::max(a, b);
}

std::size_t partsOf(const DxfEntity& entity) {
  std::size_t parts = 1 + entity.Vertexes.size();
  if (entity.spline) {
    const auto degree = static_cast<std::size_t>(std::max(entity.spline->degree, 1));
    parts += entity.spline->fitPoints.size() + degree * entity.spline->controlPoints.size();
  }
  return parts;
}

class ExactConversion {
 public:
  ExactConversion(const DxfDocument& document, DxfRows& rows, const ExactGeometry& options)
      : document_(document), rows_(rows), options_(options), tolerance_(curveTolerance(options)) {}

  void run() {
    const BlockPlacement inDrawing = scaledBy(unitFactor(document_.insunits, options_.metric));
    place(inDrawing);
    if (options_.nearOrigin) place(broughtNear(inDrawing));
    joinEnds(made_, options_.tolerence);
    straightenFlatArcs(made_, tolerance_);
    closeCircles(made_, options_.tolerence);
    splitAtAxis(made_, options_.tolerence, tolerance_);
    if (incomplete_) rows_.addMore();
    for (const PlacedRow& made : made_) {
      if (rows_.stopped()) return;
      rows_.begin(*made.entity);
      rows_.add(made.row);
    }
  }

 private:
  void place(const BlockPlacement& inDrawing) {
    made_.clear();
    placed_ = 0;
    incomplete_ = false;
    lastEnd_.reset();
    lastPoint_.reset();
    for (const DxfEntity& entity : document_.Entities) {
      if (made_.size() >= kMaxMade) {
        incomplete_ = true;
        return;
      }
      convert(entity, inDrawing);
    }
  }

  // Moved by whole units, so that round coordinates stay round.
  BlockPlacement broughtNear(BlockPlacement placement) const {
    std::optional<PlanePoint> low;
    for (const PlacedRow& made : made_) {
      const PlanePoint start{made.row.x0, made.row.y0};
      if (!isStorable(start)) continue;
      if (!low) low = start;
      low = {std::min(low->x, start.x), std::min(low->y, start.y)};
    }
    if (!low) return placement;
    placement.origin.x -= std::floor(low->x);
    placement.origin.y -= std::floor(low->y);
    return placement;
  }

  void convert(const DxfEntity& entity, const BlockPlacement& placement) {
    const std::string type = upperCased(entity.EntityType);
    if (type == "POINT") return convertPoint(entity, placement);
    if (type == "INSERT") return convertInsert(entity, placement);
    EntityChain chain;
    bool whole = true;
    if (!chainOf(entity, placement, tolerance_, chain, whole)) return rows_.addUnconverted(type);
    incomplete_ = incomplete_ || !whole;
    append(std::move(chain), entity);
  }

  void convertPoint(const DxfEntity& entity, const BlockPlacement& placement) {
    const PlanePoint at = placement.point({entity.x0, entity.y0, entity.z0});
    if (lastPoint_ && options_.connectPoints) {
      made_.push_back(
          {{.x0 = lastPoint_->x, .y0 = lastPoint_->y, .x1 = at.x, .y1 = at.y}, &entity});
    }
    lastPoint_ = lastEnd_ = at;
  }

  void convertInsert(const DxfEntity& entity, const BlockPlacement& placement) {
    const DxfBlock* const block = document_.block(entity.insert->block);
    if (block == nullptr) return refuse(entity, "is missing");
    const bool underway = std::find(open_.begin(), open_.end(), block) != open_.end();
    if (underway) return refuse(entity, "contains itself");
    if (open_.size() >= kDeepestNesting) return refuse(entity, "is nested too deeply");
    open_.push_back(block);
    insertArray(entity, *block, placement);
    open_.pop_back();
  }

  void insertArray(const DxfEntity& entity, const DxfBlock& block,
                   const BlockPlacement& placement) {
    const int columns = std::max(entity.insert->columns, 1);
    const int lines = std::max(entity.insert->rows, 1);
    for (int line = 0; line < lines; ++line) {
      for (int column = 0; column < columns; ++column) {
        const BlockPlacement here = placement * insertedAt(entity, block.base, column, line);
        if (!isSpent() && placeBlock(block, here)) continue;
        incomplete_ = true;
        return refuse(entity, "has too many parts");
      }
    }
  }

  // False when there is no end to it.
  bool placeBlock(const DxfBlock& block, const BlockPlacement& placement) {
    ++placed_;
    for (const DxfEntity& entity : block.entities) {
      if (isSpent()) return false;
      placed_ += partsOf(entity);
      convert(entity, placement);
    }
    return true;
  }

  bool isSpent() const { return made_.size() >= kMaxMade || placed_ >= kMaxPlaced; }

  void refuse(const DxfEntity& insert, const std::string& reason) {
    rows_.addUnconverted("INSERT (block \"" + insert.insert->block + "\" " + reason + ")");
  }

  // Chains go on head to tail: one that ends where the last one ended is turned round.
  void append(EntityChain chain, const DxfEntity& entity) {
    if (chain.empty()) return;
    const DxfRow& first = chain.front();
    const DxfRow& last = chain.back();
    const bool meetsHere = meetsLastEnd({first.x0, first.y0});
    if (!meetsHere && meetsLastEnd({last.x1, last.y1})) turnRound(chain);
    for (const DxfRow& row : chain) made_.push_back({row, &entity});
    lastEnd_ = {chain.back().x1, chain.back().y1};
  }

  bool meetsLastEnd(PlanePoint p) const {
    const double reach = options_.tolerence;
    return lastEnd_ && isBetween(p.x, lastEnd_->x - reach, lastEnd_->x + reach) &&
           isBetween(p.y, lastEnd_->y - reach, lastEnd_->y + reach);
  }

  static void turnRound(EntityChain& chain) {
    std::reverse(chain.begin(), chain.end());
    for (DxfRow& row : chain) {
      std::swap(row.x0, row.x1);
      std::swap(row.y0, row.y1);
      if (isArc(row.type)) row.type = kClockwiseArc + kCounterClockwiseArc - row.type;
    }
  }

  const DxfDocument& document_;
  DxfRows& rows_;
  const ExactGeometry options_;
  const double tolerance_;
  std::vector<PlacedRow> made_;
  std::vector<const DxfBlock*> open_;  // whose content is being placed, outermost first
  std::size_t placed_ = 0;             // blocks, and parts of entities in them, so far
  bool incomplete_ = false;            // there are more rows than were made
  std::optional<PlanePoint> lastEnd_;
  std::optional<PlanePoint> lastPoint_;
};

}  // namespace

double unitFactor(int insunits, bool metric) {
  for (const FileUnit& unit : kFileUnits) {
    const double perDrawingUnit = metric ? 1 : kMillimetresPerInch;
    if (unit.insunits == insunits) return unit.millimetres / perDrawingUnit;
  }
  return 1;
}

double curveTolerance(const ExactGeometry& options) {
  const double most = options.metric ? 0.025 : 0.001;
  const double least = most / 1000;  // for a drawing whose tolerance is none
  return std::clamp<double>(options.tolerence, least, most);
}

void convertDxfExactly(const DxfDocument& document, DxfRows& rows, const ExactGeometry& options) {
  ExactConversion(document, rows, options).run();
}

}  // namespace tess
