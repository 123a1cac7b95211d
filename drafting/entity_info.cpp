// What there is to know of one row.
#include "drafting/entity_info.h"

#include "core/number_text.h"
#include "core/row_words.h"
#include "drafting/drafting_commands.h"
#include "drafting/edit_steps.h"
#include "drafting/entity_creation.h"
#include "drafting/pending_actions.h"
#include "geometry/float_angles.h"

namespace tess {
namespace {

constexpr char kRule[] = "_____________________________________";
constexpr char kAnglePattern[] = "###.####";

// `other` stands for the kinds that only one of the tables knows.
std::string kindOf(const Entity& row, float tolerence, const char* other) {
  if (isArc(row.type) && samePoint(row.start, row.end, tolerence)) return "Circle";
  const char* const word = segmentTypeWord(row.type);
  return *word == '\0' ? other : word;
}

class InfoText {
 public:
  explicit InfoText(const std::string& pattern) : pattern_(pattern) {}

  void add(const std::string& line) { text_ += (text_.empty() ? "" : "\n") + line; }
  void addPoint(const std::string& label, Point at) {
    add(label + " (" + length(at.x) + "," + length(at.y) + ")");
  }
  void addLength(const std::string& label, float value) { add(label + " " + length(value)); }
  void addAngle(const std::string& label, float degrees) {
    add(label + " " + formatNumber(degrees, kAnglePattern));
  }
  const std::string& text() const { return text_; }

 private:
  std::string length(float value) const { return formatNumber(value, pattern_); }

  const std::string& pattern_;
  std::string text_;
};

float inDegrees(float radians) {
  return static_cast<float>(radians * 180 / kPi);
}

void addForm(InfoText& info, const Entity& row) {
  if (isRound(row.type)) {
    const ArcAngles angles = arcRadiusAndAngles(row.start, row.end, row.center);
    info.addPoint("Center point:", row.center);
    info.addLength("Radius:", angles.radius);
    info.addAngle("Start Angle:", inDegrees(angles.start));
    info.addAngle("End Angle:", inDegrees(angles.end));
  } else if (row.type == kLine) {
    info.addLength("Line Length:", distance(row.start, row.end));
    info.addAngle("Bearing:", polarOf(row.start, row.end).degrees);
  }
}

InfoText infoOf(const DraftingContext& context, int number, const Entity& row,
                const char* otherKind) {
  InfoText info(context.session.formats.coordfmt);
  info.add("Entity #: " + std::to_string(number));
  info.add("Type: " + kindOf(row, context.store.cfg_tolerance, otherKind));
  info.add(kRule);
  info.addPoint("Start point:", row.start);
  info.addPoint("End point:", row.end);
  addForm(info, row);
  return info;
}

template <class Table>
void requireRow(const DrawingStore& store, Table table, int number) {
  if (number < 1 || number > table.count(store)) throw subscriptOutOfRange();
}

void clickEntityInfo(DraftingContext& context) {
  const bool paths = context.command.EditPaths;
  const int number = onEditedTable(
      context, [&](auto table) { return table.nearest(context.store, mouseOf(context)); });
  if (number < 1) return;
  context.state.setPendingaction(0);
  warn(context, paths ? pathEntityInfo(context, number) : entityInfo(context, number),
       context.session.productname);
}

}  // namespace

std::string entityInfo(const DraftingContext& context, int sg) {
  requireRow(context.store, DrawnTable{}, sg);
  return infoOf(context, sg, segmentEntity(context.store, sg), "Point").text();
}

std::string pathEntityInfo(const DraftingContext& context, int ps) {
  requireRow(context.store, PlacedTable{}, ps);
  const Entity row = pathEntity(context.store, ps);
  InfoText info = infoOf(context, ps, row, row.type == kRapid ? "Rapid" : "Cycle");
  info.addLength("Z:", context.store.psz[ps]);
  info.add("Feed: " + plainText(context.store.psfeed[ps]));
  return info.text();
}

void mnuEditEntityInfo_Click(DraftingContext& context) {
  arm(context, PendingAction::EntityInfo);
}

// ---- Descriptors

namespace {

constexpr Action<DraftingContext> kEntityInfoActions[] = {
    {{.action = PendingAction::EntityInfo,
      .prompt = "Click near item to display data.",
      .left = "shows the data of the nearest item"},
     clickEntityInfo},
};

}  // namespace

constexpr DraftingCommand kEntityInfoCommand{
    .info = {.tool = "miEntityInfo",
             .caption = "Entity &Info",
             .key = "Tab",
             .menu = {"miEdit", 620}},
    .run = mnuEditEntityInfo_Click,
    .actions = kEntityInfoActions,
    .repeat = {{PendingAction::EntityInfo}},
};

}  // namespace tess
