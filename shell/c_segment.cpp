// One drawing row in the property window.
#include "shell/c_segment.h"

#include <algorithm>
#include <cmath>

#include "core/conventions.h"
#include "core/drawing_store.h"
#include "core/number_text.h"
#include "drafting/segment_name.h"
#include "geometry/float_angles.h"
#include "geometry/row_entity.h"

namespace tess {
namespace {

constexpr char kGeometry[] = "Geometry";
constexpr double kDegreesPerRadian = 57.29578;
// Fixed: a negative angle shows blank; scripts that read the window compare with that.
constexpr char kAngleFormat[] = "###.####;;0";

constexpr char kStartText[] = "Start point of the line or arc.";
constexpr char kEndText[] = "End point of the line or arc.";
constexpr char kArcCenterText[] = "Center of the arc.";
constexpr char kCircleCenterText[] = "Center of the circle.";
constexpr char kRadiusText[] = "Radius of the arc or circle.";

bool isAny(int /*type*/) {
  return true;
}
bool isLine(int type) {
  return type == kLine;
}
bool isCircle(int type) {
  return type == kCircle;
}

float degrees(std::string_view text) {
  return narrow(parseFloat(text) / kDegreesPerRadian);
}

// "(1.5, 2)": both pieces go by their place, whatever the brackets are.
Point pointIn(std::string_view text) {
  const std::size_t comma = std::min(text.find(','), text.size());
  const std::string_view first = text.substr(0, comma);
  std::string_view second = text.substr(std::min(comma + 1, text.size()));
  second.remove_suffix(second.empty() ? 0 : 1);
  return {parseFloat(first.substr(std::min<std::size_t>(1, first.size()))), parseFloat(second)};
}

}  // namespace

std::string AngleAsString(float radians) {
  return formatNumber(narrow(radians * kDegreesPerRadian), kAngleFormat);
}

std::string CoordinateAsString(const Session& session, float value) {
  return formatNumber(value, session.formats.coordfmt);
}

std::string PointAsString(const Session& session, float x, float y) {
  return "(" + CoordinateAsString(session, x) + ", " + CoordinateAsString(session, y) + ")";
}

// A row of the window: for which kinds it is, what it says, and what its text does. One without a
// reading is not shown, but taken.
struct CSegment::Property {
  const char* name;
  const char* description;
  bool (*isOf)(int type);
  bool isShown;
  PropertyContent (*read)(const CSegment&);
  void (*write)(CSegment&, std::string_view text);
};

const CSegment::Property CSegment::kProperties[] = {
    {"Start X", kStartText, isAny, true, [](const CSegment& s) { return s.coordinate(s.start_.x); },
     [](CSegment& s, std::string_view text) {
       s.moveStart({parseFloat(text), s.start_.y});
     }},
    {"Start Y", kStartText, isAny, true, [](const CSegment& s) { return s.coordinate(s.start_.y); },
     [](CSegment& s, std::string_view text) {
       s.moveStart({s.start_.x, parseFloat(text)});
     }},
    {"End X", kEndText, isAny, true, [](const CSegment& s) { return s.coordinate(s.end_.x); },
     [](CSegment& s, std::string_view text) {
       s.moveEnd({parseFloat(text), s.end_.y});
     }},
    {"End Y", kEndText, isAny, true, [](const CSegment& s) { return s.coordinate(s.end_.y); },
     [](CSegment& s, std::string_view text) {
       s.moveEnd({s.end_.x, parseFloat(text)});
     }},
    {"Start", kStartText, isAny, false, [](const CSegment& s) { return s.point(s.start_); },
     [](CSegment& s, std::string_view text) { s.moveStart(pointIn(text)); }},
    {"End", kEndText, isAny, false, [](const CSegment& s) { return s.point(s.end_); },
     [](CSegment& s, std::string_view text) { s.moveEnd(pointIn(text)); }},
    {"Bearing", "", isLine, true,
     [](const CSegment& s) -> PropertyContent { return AngleAsString(s.bearing_); },
     [](CSegment& s, std::string_view text) { s.moveEnd(s.alongLine(s.length_, degrees(text))); }},
    {"Length", "", isLine, true, [](const CSegment& s) -> PropertyContent { return s.length_; },
     [](CSegment& s, std::string_view text) {
       s.moveEnd(s.alongLine(parseFloat(text), s.bearing_));
     }},
    {"Center X", kArcCenterText, isArc, true,
     [](const CSegment& s) { return s.coordinate(s.center_.x); },
     [](CSegment& s, std::string_view text) {
       s.moveCenter({parseFloat(text), s.center_.y});
     }},
    {"Center Y", kArcCenterText, isArc, true,
     [](const CSegment& s) { return s.coordinate(s.center_.y); },
     [](CSegment& s, std::string_view text) {
       s.moveCenter({s.center_.x, parseFloat(text)});
     }},
    {"Center X", kCircleCenterText, isCircle, true,
     [](const CSegment& s) { return s.coordinate(s.center_.x); },
     [](CSegment& s, std::string_view text) {
       s.moveCenter({parseFloat(text), s.center_.y});
     }},
    {"Center Y", kCircleCenterText, isCircle, true,
     [](const CSegment& s) { return s.coordinate(s.center_.y); },
     [](CSegment& s, std::string_view text) {
       s.moveCenter({s.center_.x, parseFloat(text)});
     }},
    {"Center", kArcCenterText, isRound, false, [](const CSegment& s) { return s.point(s.center_); },
     [](CSegment& s, std::string_view text) { s.moveCenter(pointIn(text)); }},
    {"Radius", kRadiusText, isRound, true,
     [](const CSegment& s) -> PropertyContent { return s.radius_; },
     [](CSegment& s, std::string_view text) { s.changeRadius(parseFloat(text)); }},
    {"Starting Angle", "", isArc, true,
     [](const CSegment& s) -> PropertyContent { return AngleAsString(s.startAngle_); },
     [](CSegment& s, std::string_view text) { s.turnEnds(degrees(text), s.endAngle_); }},
    {"Ending Angle", "", isArc, true,
     [](const CSegment& s) -> PropertyContent { return AngleAsString(s.endAngle_); },
     [](CSegment& s, std::string_view text) { s.turnEnds(s.startAngle_, degrees(text)); }},
};

CSegment::CSegment(const Session& session, Changes& changes, Step step)
    : session_(session), changes_(changes), step_(step) {}

std::string CSegment::SegmentName() const {
  return segmentName(number_, row_.type);
}

void CSegment::InitializeSegmentFromName(std::string_view name) {
  setSegmentNumber(segmentNumberIn(name));
}

void CSegment::setSegmentNumber(int number) {
  const DrawingStore& store = changes_.store;
  if (number < 0 || number > store.NumSegments) throw subscriptOutOfRange();
  number_ = number;
  row_ = number == 0 ? SegmentRow{} : segmentRow(store, number);
  start_ = {row_.x0, row_.y0};
  end_ = {row_.x1, row_.y1};
  center_ = {row_.xc, row_.yc};
  const ArcAngles arc =
      isRound(row_.type) ? arcRadiusAndAngles(start_, end_, center_) : ArcAngles{};
  radius_ = arc.radius;
  startAngle_ = arc.start;
  endAngle_ = arc.end;
  const bool line = row_.type == kLine;
  bearing_ = line ? vectorAngle(start_, end_) : 0;
  length_ = line ? distance(start_, end_) : 0;
}

void CSegment::EnumerateProperties(PropertyAdder& list) const {
  for (const Property& property : kProperties) {
    if (!property.isShown || !property.isOf(row_.type)) continue;
    list.AddProperty(property.name, property.read(*this), property.description, kGeometry);
  }
}

void CSegment::PropertyChange(const std::string& name, std::string& value, Flag& cancel) {
  const Procedure here("CSegment.IObjectWithProperties_PropertyChange(name,value,cancel)");
  const auto* const property =
      std::find_if(std::begin(kProperties), std::end(kProperties),
                   [&](const Property& each) { return name == each.name && each.isOf(row_.type); });
  cancel = property == std::end(kProperties);
  if (cancel) return;
  property->write(*this, value);
  const PropertyContent now = property->read(*this);
  const auto* const number = std::get_if<float>(&now);
  value = number != nullptr ? plainText(*number) : std::get<std::string>(now);
}

Point CSegment::onCircle(Point center, float radius, float angle) const {
  return {narrow(center.x + radius * std::cos(static_cast<double>(angle))),
          narrow(center.y + radius * std::sin(static_cast<double>(angle)))};
}

Point CSegment::alongLine(float length, float bearing) const {
  return onCircle(start_, length, bearing);
}

// The one point of a circle is both of its ends.
void CSegment::moveStart(Point to) {
  store({row_.type, to, row_.type == kCircle ? to : end_, center_});
}

void CSegment::moveEnd(Point to) {
  store({row_.type, row_.type == kCircle ? to : start_, to, center_});
}

// A circle takes its point along; an arc keeps radius and angles.
void CSegment::moveCenter(Point to) {
  if (row_.type == kCircle) {
    const Point point{narrow(static_cast<double>(start_.x) + to.x - center_.x),
                      narrow(static_cast<double>(start_.y) + to.y - center_.y)};
    return store({row_.type, point, point, to});
  }
  store({row_.type, onCircle(to, radius_, startAngle_), onCircle(to, radius_, endAngle_), to});
}

void CSegment::changeRadius(float radius) {
  const Point start = onCircle(center_, radius, startAngle_);
  store({row_.type, start, row_.type == kCircle ? start : onCircle(center_, radius, endAngle_),
         center_});
}

void CSegment::turnEnds(float startAngle, float endAngle) {
  const Point start = startAngle == startAngle_ ? start_ : onCircle(center_, radius_, startAngle);
  const Point end = endAngle == endAngle_ ? end_ : onCircle(center_, radius_, endAngle);
  store({row_.type, start, end, center_});
}

void CSegment::store(const Entity& changed) {
  Change change(changes_, step_);
  change.segments.replace(number_, segmentRowOf(changed, row_.attr));
  change.keep({.redraws = false});
  setSegmentNumber(number_);
}

}  // namespace tess
