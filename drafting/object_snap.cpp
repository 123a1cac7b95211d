// Object snap: features of one entity and the choice among them.
#include "drafting/object_snap.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "core/drawing_store.h"
#include "drafting/drafting_commands.h"
#include "drafting/grids.h"
#include "geometry/float_angles.h"
#include "geometry/float_nearest.h"
#include "geometry/float_nearest_scans.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

// What a kind of feature is made from.
struct Source {
  const DrawingStore& store;
  int sg;
  int type;  // effective
  Entity row;
  std::optional<Point> from;
};

bool hasEnds(int type) {
  return type == kLine || isArc(type);
}

using Places = std::vector<Point>;

void addEnds(const Source& source, Places& places) {
  if (!hasEnds(source.type)) return;
  places.push_back(source.row.start);
  places.push_back(source.row.end);
}

void addCenter(const Source& source, Places& places) {
  if (isRound(source.type)) places.push_back(source.row.center);
}

// Fixed: the mean of the end angles, opposite the arc across angle 0; drawings were snapped so.
Point middleOfArc(const Entity& arc) {
  const double mean =
      (static_cast<double>(vectorAngle(arc.center, arc.start)) + vectorAngle(arc.center, arc.end)) /
      2;
  const double radius = distance(arc.start, arc.center);
  return {narrow(arc.center.x + radius * std::cos(mean)),
          narrow(arc.center.y + radius * std::sin(mean))};
}

void addMidpoint(const Source& source, Places& places) {
  if (source.type == kLine) {
    places.push_back(midpointAndSlope(source.row.start, source.row.end).middle);
  } else if (isArc(source.type)) {
    places.push_back(middleOfArc(source.row));
  }
}

void addQuadrants(const Source& source, Places& places) {
  if (!isRound(source.type)) return;
  const float radius = distance(source.row.start, source.row.center);
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      if (dx * dy != 0 || dx == dy) continue;
      places.push_back({source.row.center.x + static_cast<float>(dx) * radius,
                        source.row.center.y + static_cast<float>(dy) * radius});
    }
  }
}

void addPerpendicular(const Source& source, Places& places) {
  if (!source.from) return;
  const NearestPoint foot = nearestOnSeg(source.store, source.sg, *source.from);
  if (foot) places.push_back(foot.at);
}

struct KindRow {
  FeatureKind kind;
  void (*add)(const Source&, Places&);
};

// In the order in which they are tried.
constexpr KindRow kKinds[] = {
    {FeatureKind::EndPoint, addEnds},
    {FeatureKind::Center, addCenter},
    {FeatureKind::Midpoint, addMidpoint},
    {FeatureKind::Quadrant, addQuadrants},
    {FeatureKind::Perpendicular, addPerpendicular},
};

using Features = std::vector<CFeaturePoint>;

bool isOffered(const CState& state, FeatureKind kind, bool invert) {
  const auto index = static_cast<std::size_t>(kind);
  return state.OSnapActive[index] || (invert && state.OSnapFeatures[index]);
}

void addFeatures(const DraftingContext& context, int sg, const SnapQuery& query,
                 Features& features) {
  const Source source{context.store, sg, effectiveType(context.store, sg),
                      segmentEntity(context.store, sg), query.from};
  for (const KindRow& row : kKinds) {
    if (!isOffered(context.state, row.kind, query.invert)) continue;
    Places places;
    row.add(source, places);
    for (const Point place : places) {
      features.push_back({query.pointer.x, query.pointer.y, place.x, place.y, row.kind});
    }
  }
}

std::optional<CFeaturePoint> nearestWithin(const Features& features, float radius) {
  std::optional<CFeaturePoint> best;
  for (const CFeaturePoint& feature : features) {
    const float away = feature.Distance();
    if (away < radius && (!best || away < best->Distance())) best = feature;
  }
  return best;
}

// The entries of the snap menu that turn a kind over; their tags are the kinds.
constexpr const DraftingCommand* kSnapMenu[] = {&kSnapEndpointsCommand, &kSnapCenterCommand,
                                                &kSnapMidpointCommand, &kSnapQuadrantCommand,
                                                &kSnapPerpendicularCommand};

// The caption with its first character, a mark or a blank, replaced.
std::string marked(const std::string& caption, bool mark) {
  constexpr char kCross[] = "×";
  const std::size_t first = caption.starts_with(kCross) ? sizeof kCross - 1 : 1;
  return (mark ? kCross : " ") + caption.substr(std::min(first, caption.size()));
}

}  // namespace

int effectiveType(const DrawingStore& store, int sg) {
  const Entity row = segmentEntity(store, sg);
  return isArc(row.type) && row.start == row.end ? kCircle : row.type;
}

std::optional<CFeaturePoint> GetClosetFeaturePoint(const DraftingContext& context, int sg,
                                                   const SnapQuery& query) {
  Features features;
  if (sg > 0) addFeatures(context, sg, query, features);
  if (context.typedPosition) {
    features.push_back({query.pointer.x, query.pointer.y, context.typedPosition->x,
                        context.typedPosition->y, FeatureKind::TypedPosition});
  }
  return nearestWithin(features,
                       context.state.OSnapRadius * std::abs(context.ScreenProxy.ScaleWidth()));
}

std::optional<CFeaturePoint> featureAtPointer(const DraftingContext& context, Point pointer,
                                              bool invert) {
  if (context.pointer.exact) return std::nullopt;
  const int sg = nearestSeg(context.store, pointer);
  const Point marker{context.store.markerx, context.store.markery};
  return GetClosetFeaturePoint(context, sg, {pointer, marker, invert});
}

Point snappedPosition(const DraftingContext& context, Point position) {
  if (const auto& feature = context.state.FeaturePoint()) return {feature->X, feature->Y};
  return onGrid(context, position);
}

void OSnap_ButtonClick(DraftingContext& context) {
  context.state.OSnapOn = !context.state.OSnapOn;
  context.tools.setChecked(kObjectSnapCommand.info.tool, context.state.OSnapOn);
  context.state.RevertOSnapFeatures();
}

void OSnapMenuClick(DraftingContext& context, FeatureKind kind) {
  const bool once = !context.tools.isChecked(kObjectSnapCommand.info.tool);
  context.state.UpdateOSnapFeature(once, static_cast<int>(kind));
}

void tbbtnmnuOSnapEndpoints_ButtonMenuClick(DraftingContext& context) {
  OSnapMenuClick(context, FeatureKind::EndPoint);
}
void tbbtnmnuOSnapCenter_ButtonMenuClick(DraftingContext& context) {
  OSnapMenuClick(context, FeatureKind::Center);
}
void tbbtnmnuOSnapMidpoint_ButtonMenuClick(DraftingContext& context) {
  OSnapMenuClick(context, FeatureKind::Midpoint);
}
void tbbtnmnuOSnapPerpendicular_ButtonMenuClick(DraftingContext& context) {
  OSnapMenuClick(context, FeatureKind::Perpendicular);
}
void tbbtnmnuOSnapQuadrants_ButtonMenuClick(DraftingContext& context) {
  OSnapMenuClick(context, FeatureKind::Quadrant);
}

void OSnap_ButtonClick_ButtonDropDown(DraftingContext& context) {
  const bool down = context.tools.isChecked(kObjectSnapCommand.info.tool);
  for (const DraftingCommand* const entry : kSnapMenu) {
    const Tool* const tool = context.tools.tool(entry->info.tool);
    if (tool == nullptr) continue;
    const bool held = context.state.OSnapFeatures[static_cast<std::size_t>(entry->info.tag)];
    context.tools.setCaption(entry->info.tool, marked(tool->caption, down && held));
  }
}

// ---- Descriptors

namespace {

template <FeatureKind kind>
void toggleSnap(DraftingContext& context) {
  OSnapMenuClick(context, kind);
}

template <FeatureKind kind>
void snapOnce(DraftingContext& context) {
  context.state.UpdateOSnapFeature(/*once=*/true, static_cast<int>(kind));
}

// An entry that turns a kind over, and one that offers it for a single use under the same icon.
template <FeatureKind kind>
constexpr DraftingCommand toggling(const char* tool, const char* caption, int place) {
  return {.info = {.tool = tool,
                   .caption = caption,
                   .menu = {"OSnapMenu", place},
                   .tag = static_cast<int>(kind)},
          .run = toggleSnap<kind>};
}

template <FeatureKind kind>
constexpr DraftingCommand single(const char* tool, const char* caption, int place,
                                 const DraftingCommand& twin) {
  return {.info = {.tool = tool,
                   .caption = caption,
                   .menu = {"OSnapMenu", place},
                   .icon = twin.info.tool,
                   .tag = static_cast<int>(kind)},
          .run = snapOnce<kind>};
}

}  // namespace

constexpr DraftingCommand kObjectSnapCommand{
    .info = {.tool = "OSnap",
             .caption = "Object Snap",
             .bar = {"Options", 110},
             .popUp = "OSnapMenu"},
    .run = OSnap_ButtonClick,
};

constexpr DraftingCommand kSnapEndpointsCommand =
    toggling<FeatureKind::EndPoint>("miOSnapEndpoints", "  Endpoints", 110);
constexpr DraftingCommand kSnapCenterCommand =
    toggling<FeatureKind::Center>("miOSnapCenter", "  Center", 120);
constexpr DraftingCommand kSnapMidpointCommand =
    toggling<FeatureKind::Midpoint>("miOSnapMidpoint", "  Midpoint", 130);
constexpr DraftingCommand kSnapQuadrantCommand =
    toggling<FeatureKind::Quadrant>("miOSnapQuadrant", "  Quadrant", 140);
constexpr DraftingCommand kSnapPerpendicularCommand =
    toggling<FeatureKind::Perpendicular>("miOSnapPerpendicular", "  Perpendicular", 150);

constexpr DraftingCommand kSnapEndpointsOnceCommand = single<FeatureKind::EndPoint>(
    "miOSnapEndpointsSingle", "Endpoint once", 210, kSnapEndpointsCommand);
constexpr DraftingCommand kSnapCenterOnceCommand =
    single<FeatureKind::Center>("miOSnapCenterSingle", "Center once", 220, kSnapCenterCommand);
constexpr DraftingCommand kSnapMidpointOnceCommand = single<FeatureKind::Midpoint>(
    "miOSnapMidpointSingle", "Midpoint once", 230, kSnapMidpointCommand);
constexpr DraftingCommand kSnapQuadrantOnceCommand = single<FeatureKind::Quadrant>(
    "miOSnapQuadrantSingle", "Quadrant once", 240, kSnapQuadrantCommand);
constexpr DraftingCommand kSnapPerpendicularOnceCommand = single<FeatureKind::Perpendicular>(
    "miOSnapPerpendicularSingle", "Perpendicular once", 250, kSnapPerpendicularCommand);

}  // namespace tess
