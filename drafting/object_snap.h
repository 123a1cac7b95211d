// Object snap: the characteristic points of the entity nearest the pointer, and which of them the
// pointer snaps to.
// Owns: SnapQuery, effectiveType, GetClosetFeaturePoint, featureAtPointer, snappedPosition,
//       OSnap_ButtonClick, OSnapMenuClick, tbbtnmnuOSnapEndpoints_ButtonMenuClick,
//       tbbtnmnuOSnapCenter_ButtonMenuClick, tbbtnmnuOSnapMidpoint_ButtonMenuClick,
//       tbbtnmnuOSnapPerpendicular_ButtonMenuClick, tbbtnmnuOSnapQuadrants_ButtonMenuClick,
//       OSnap_ButtonClick_ButtonDropDown.
#pragma once

#include <optional>

#include "drafting/desk.h"

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
std::optional<CFeaturePoint> GetClosetFeaturePoint(const Desk& desk, int sg,
                                                   const SnapQuery& query);

// The same for the row nearest the pointer, perpendiculars starting from the marker.
std::optional<CFeaturePoint> featureAtPointer(const Desk& desk, Point pointer, bool invert);

// Where a click at `position` counts: at the current feature, else on the cursor grid if it is on.
Point snappedPosition(const Desk& desk, Point position);

// The OSnap button: snap on or off.
void OSnap_ButtonClick(Desk& desk);

// An entry of the snap menu: turns the kind over while the button is down, else a single use.
void OSnapMenuClick(Desk& desk, FeatureKind kind);
void tbbtnmnuOSnapEndpoints_ButtonMenuClick(Desk& desk);
void tbbtnmnuOSnapCenter_ButtonMenuClick(Desk& desk);
void tbbtnmnuOSnapMidpoint_ButtonMenuClick(Desk& desk);
void tbbtnmnuOSnapPerpendicular_ButtonMenuClick(Desk& desk);
void tbbtnmnuOSnapQuadrants_ButtonMenuClick(Desk& desk);

// Marks the menu's entries whose kinds are in the persistent set.
void OSnap_ButtonClick_ButtonDropDown(Desk& desk);

}  // namespace tess
