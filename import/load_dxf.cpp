// The plain reader of DXF text.
#include "import/load_dxf.h"

#include <cmath>
#include <optional>

#include "core/lifecycle.h"
#include "core/runtime_failure.h"
#include "core/text.h"
#include "geometry/float_points.h"

namespace tess {
namespace {

constexpr double kRadiansPerDegree = 0.017453292;

// A group as the plain reader sees it. Codes of no range have no value, not even a line of their
// own: in newer files what follows them is read as the next code.
struct PlainGroup {
  int code = 0;
  std::string text;
  float real = 0;
  int integer = 0;
};

struct CodeRange {
  int first, last;
};

template <std::size_t count>
bool isIn(const CodeRange (&ranges)[count], int code) {
  for (const CodeRange& range : ranges) {
    if (code >= range.first && code <= range.last) return true;
  }
  return false;
}

constexpr CodeRange kTextCodes[] = {{0, 9}, {999, 1009}};
constexpr CodeRange kRealCodes[] = {{10, 59}, {210, 239}, {1010, 1059}};
constexpr CodeRange kIntegerCodes[] = {{60, 79}, {1060, 1079}};

PlainGroup nextGroup(FieldReader& fields) {
  PlainGroup group;
  group.code = fields.readInteger();
  if (isIn(kTextCodes, group.code)) group.text = std::string(trimmed(fields.readLine()));
  if (isIn(kRealCodes, group.code)) group.real = fields.readFloat();
  if (isIn(kIntegerCodes, group.code)) group.integer = fields.readInteger();
  return group;
}

void skipTo(FieldReader& fields, std::string_view text) {
  while (nextGroup(fields).text != text) {
  }
}

// The entities of a section, each made into its row when the next one begins.
class PlainEntities {
 public:
  explicit PlainEntities(SegmentChanges& segments) : segments_(segments) {}

  void begin(const std::string& type) {
    complete();
    if (type == "SEQEND") closeRun();
    if (type != "VERTEX") runStart_.reset();
    type_ = type;
    groups_ = {};
  }

  void take(const PlainGroup& group) {
    if (group.code == 10) groups_.x0 = group.real;
    if (group.code == 20) groups_.y0 = group.real;
    if (group.code == 11) groups_.x1 = group.real;
    if (group.code == 21) groups_.y1 = group.real;
    if (group.code == 40) groups_.radius = std::abs(group.real);
    if (group.code == 42) groups_.bulge = group.real;
    if (group.code == 50) groups_.startAngle = group.real;
    if (group.code == 51) groups_.endAngle = group.real;
  }

  void complete() {
    if (type_ == "LINE")
      add({.type = kLine, .x0 = groups_.x0, .y0 = groups_.y0, .x1 = groups_.x1, .y1 = groups_.y1});
    if (type_ == "ARC") completeArc();
    if (type_ == "CIRCLE") completeCircle();
    if (type_ == "VERTEX") completeVertex();
    type_.clear();
  }

 private:
  struct Groups {
    float x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    float radius = 0, bulge = 0;
    double startAngle = 0, endAngle = 0;  // in degrees
  };

  void add(const SegmentRow& row) { segments_.append(row, Entry::Unlogged); }

  Point onArc(double degrees) const {
    const double angle = degrees * kRadiansPerDegree;
    return {narrow(groups_.x0 + groups_.radius * std::cos(angle)),
            narrow(groups_.y0 + groups_.radius * std::sin(angle))};
  }

  void completeArc() {
    const Point start = onArc(groups_.startAngle);
    const Point end = onArc(groups_.endAngle);
    add({.type = kCounterClockwiseArc,
         .x0 = start.x,
         .y0 = start.y,
         .x1 = end.x,
         .y1 = end.y,
         .xc = groups_.x0,
         .yc = groups_.y0});
  }

  void completeCircle() {
    const float x = narrow(static_cast<double>(groups_.x0) + groups_.radius);
    add({.type = kCircle,
         .x0 = x,
         .y0 = groups_.y0,
         .x1 = x,
         .y1 = groups_.y0,
         .xc = groups_.x0,
         .yc = groups_.y0});
  }

  // Fixed: an edge takes the bulge of its end vertex and no centre; scripts read such rows.
  void completeVertex() {
    const Point vertex{groups_.x0, groups_.y0};
    if (runStart_) {
      const int type = groups_.bulge < 0   ? kClockwiseArc
                       : groups_.bulge > 0 ? kCounterClockwiseArc
                                           : kLine;
      addEdge(type, vertex);
    } else {
      runStart_ = vertex;
    }
    pen_ = vertex;
  }

  void closeRun() {
    if (runStart_) addEdge(kLine, *runStart_);
  }

  void addEdge(int type, Point end) {
    add({.type = type, .x0 = pen_.x, .y0 = pen_.y, .x1 = end.x, .y1 = end.y});
  }

  SegmentChanges& segments_;
  std::string type_;
  Groups groups_;
  std::optional<Point> runStart_;  // the first vertex of a run
  Point pen_;
};

void forgetSelectionAndPaste(Session& session) {
  session.listener.UnselectAll();
  session.listener.Clear_Paste();
}

// A file that is cut off has replaced the drawing all the same: what was read of it stays.
void readWhatThereIs(Changes& changes, FieldReader& fields) {
  Change change(changes);
  change.marksUnsaved();
  try {
    readPlainDxf(change, fields);
  } catch (...) {
    change.keep({.redraws = false});
    throw;
  }
  change.keep({.redraws = false});
}

}  // namespace

void readPlainDxf(Change& change, FieldReader& fields) {
  skipTo(fields, "SECTION");
  skipTo(fields, "ENTITIES");
  PlainEntities entities(change.segments);
  while (true) {
    const PlainGroup group = nextGroup(fields);
    if (group.code != 0) {
      entities.take(group);
    } else if (group.text == "ENDSEC") {
      return entities.complete();
    } else {
      entities.begin(group.text);
    }
  }
}

void load_dxf(DraftingContext& context, const std::string& path) {
  const Procedure here("load_dxf(path)");
  FieldReader fields = FieldReader::open(path, kLargestDxf);
  new_drawing(context.session);
  forgetSelectionAndPaste(context.session);
  readWhatThereIs(context.changes, fields);
  context.viewCommands.fitview(/*keepview=*/false);
}

}  // namespace tess
