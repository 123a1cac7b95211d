// Object snap: the characteristic points of the entity nearest the pointer, and which of them the
// pointer snaps to.
// Owns: SnapQuery, effectiveType, GetClosetFeaturePoint, featureAtPointer, snappedPosition,
//       OSnap_ButtonClick, OSnapMenuClick, tbbtnmnuOSnapEndpoints_ButtonMenuClick,
//       tbbtnmnuOSnapCenter_ButtonMenuClick, tbbtnmnuOSnapMidpoint_ButtonMenuClick,
//       tbbtnmnuOSnapPerpendicular_ButtonMenuClick, tbbtnmnuOSnapQuadrants_ButtonMenuClick,
//       OSnap_ButtonClick_ButtonDropDown.
#pragma once

#include <optional>

#include "drafting/drafting_context.h"

namespace tess {

struct SnapQuery {
  Point pointer;
  std::optional<Point> from;  // where a perpendicular starts
  bool invert = false;        // the persistent kinds count although snap is off
};

// The kind of row `sg`; an arc whose start and end coincide exactly is a circle.
int effectiveType(const DrawingStore& store, int sg);

// The nearest feature of row `sg` within the sensitive radius; of equally near ones the first in
// the order of kinds. Row 0 offers no more than the typed position.
std::optional<CFeaturePoint> GetClosetFeaturePoint(const DraftingContext& context, int sg,
                                                   const SnapQuery& query);

// The same for the row nearest the pointer, perpendiculars starting from the marker.
std::optional<CFeaturePoint> featureAtPointer(const DraftingContext& context, Point pointer,
                                              bool invert);

// Where a click at `position` counts: at the current feature, else on the cursor grid if it is on.
Point snappedPosition(const DraftingContext& context, Point position);

// The OSnap button: snap on or off.
void OSnap_ButtonClick(DraftingContext& context);

// An entry of the snap menu: turns the kind over while the button is down, else a single use.
void OSnapMenuClick(DraftingContext& context, FeatureKind kind);
void tbbtnmnuOSnapEndpoints_ButtonMenuClick(DraftingContext& context);
void tbbtnmnuOSnapCenter_ButtonMenuClick(DraftingContext& context);
void tbbtnmnuOSnapMidpoint_ButtonMenuClick(DraftingContext& context);
void tbbtnmnuOSnapPerpendicular_ButtonMenuClick(DraftingContext& context);
void tbbtnmnuOSnapQuadrants_ButtonMenuClick(DraftingContext& context);

// Marks the menu's entries whose kinds are in the persistent set.
void OSnap_ButtonClick_ButtonDropDown(DraftingContext& context);

}  // namespace tess
