// A thin view of one drawing row for the property window: its name, its values as texts, and the
// row that follows from a changed one.
// Owns: PropertyContent, PropertyAdder, IObjectWithProperties, AngleAsString, CoordinateAsString,
//       PointAsString, CSegment.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "core/drawing_rows.h"
#include "core/int16.h"
#include "core/row_words.h"
#include "core/session.h"
#include "drafting/change.h"
#include "drafting/object_snap.h"
#include "geometry/entity.h"

namespace tess {

// A text, or a number that stands as its shortest text.
using PropertyContent = std::variant<std::string, float>;

// Takes the rows that an object shows.
class PropertyAdder {
 public:
  virtual ~PropertyAdder() = default;
  virtual void AddProperty(const std::string& name, const PropertyContent& value,
                           const std::string& description, const std::string& category) = 0;
};

// Anything that the property window shows.
class IObjectWithProperties {
 public:
  virtual ~IObjectWithProperties() = default;
  // Takes over the text of a row and puts into `value` what the row says then. `cancel` becomes
  // true when there is no such row, and nothing has to be painted anew.
  virtual void PropertyChange(const std::string& name, std::string& value, Flag& cancel) = 0;
  virtual void EnumerateProperties(PropertyAdder& list) const = 0;
};

// Degrees with up to four decimals; 0 stands as "0", an angle below 0 as nothing.
std::string AngleAsString(float radians);
// By the drawing's number format.
std::string CoordinateAsString(const Session& session, float value);
std::string PointAsString(const Session& session, float x, float y);

class CSegment : public IObjectWithProperties {
 public:
  // Looks at row 0, which is none of the drawing's. With Step::Continued its edits join the step of
  // a change around them.
  CSegment(const Session& session, Changes& changes, Step step = Step::New);

  float radius() const { return radius_; }
  std::string SegmentTypeString() const { return segmentTypeWord(row_.type); }
  std::string SegmentName() const;
  // By a text as SegmentName gives it, in any case; any other text is row 0.
  void InitializeSegmentFromName(std::string_view name);
  int SegmentNumber() const { return number_; }
  // Loads the row. Raises Subscript out of range outside the drawing.
  void setSegmentNumber(int number);
  int SegmentType() const { return row_.type; }
  std::optional<CFeaturePoint> GetClosetFeaturePoint(const DraftingContext& context,
                                                     const SnapQuery& query) const {
    return tess::GetClosetFeaturePoint(context, number_, query);
  }

  void EnumerateProperties(PropertyAdder& list) const override;
  // Raises Overflow for what is no number of the tables.
  void PropertyChange(const std::string& name, std::string& value, Flag& cancel) override;

 private:
  struct Property;
  static const Property kProperties[];

  PropertyContent coordinate(float value) const { return CoordinateAsString(session_, value); }
  PropertyContent point(Point at) const { return PointAsString(session_, at.x, at.y); }
  Point onCircle(Point center, float radius, float angle) const;
  Point alongLine(float length, float bearing) const;

  void moveStart(Point to);
  void moveEnd(Point to);
  void moveCenter(Point to);
  void changeRadius(float radius);
  void turnEnds(float startAngle, float endAngle);
  void store(const Entity& changed);

  const Session& session_;
  Changes& changes_;
  Step step_;
  int number_ = 0;
  SegmentRow row_;
  Point start_, end_, center_;
  float radius_ = 0;                     // of a round one
  float startAngle_ = 0, endAngle_ = 0;  // radians
  float bearing_ = 0, length_ = 0;       // of a line
};

}  // namespace tess
