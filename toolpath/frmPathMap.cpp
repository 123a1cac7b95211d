// Path Segments: the order of groups and rows.
#include "toolpath/frmPathMap.h"

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/text.h"
#include "toolpath/cycles.h"

namespace tess {
namespace {

std::string pointText(float x, float y) {
  return "(" + plainText(x) + ", " + plainText(y) + ")";
}

}  // namespace

frmPathMap::frmPathMap(CamContext& cam)
    : Form("frmPathMap", "Path Segments"), cam_(cam), order_(cam.store) {
  cmdPromote.setCaption("&Promote");
  cmdDemote.setCaption("&Demote");
  cmdPropose.setCaption("By &Tool and Shortest Travel");
  cmdApply.setCaption("&Apply");
  cmdExit.setCaption("&Cancel");
  setDefaultButton(cmdApply);
  setCancelButton(cmdExit);
  onLoad = [this] { load(); };
  lstPathSegments.onClick = [this] { showLine(); };
  cmdPromote.onClick = [this] { promote(); };
  cmdDemote.onClick = [this] { demote(); };
  cmdPropose.onClick = [this] { propose(); };
  cmdApply.onClick = [this] { apply(); };
  cmdExit.onClick = [this] { close(); };
}

void frmPathMap::load() {
  order_ = PathOrder(cam_.store);
  lblRapidsBefore.setCaption("Before: " + lengthText(order_.rapidLength()));
  fillList();
  if (!lines_.empty()) lstPathSegments.setIndex(0);
}

// ---- The list

void frmPathMap::fillList() {
  lines_.clear();
  lines_.reserve(static_cast<std::size_t>(order_.count()) * 2);
  for (int place = 1; place <= order_.count(); ++place) {
    if (order_.startsRun(place)) {
      order_.nameOf(order_.group(place));
      lines_.push_back({place, true});
    }
    lines_.push_back({place, false});
  }
  listLines();
  showRapids();
}

void frmPathMap::listLines() {
  lstPathSegments.setSource(lineCount(), [this](int line) { return lineText(line); });
}

// -1 for none, and for an item that a script has put there.
int frmPathMap::selectedLine() const {
  return lstPathSegments.index() < lineCount() ? lstPathSegments.index() : -1;
}

std::string frmPathMap::lineText(int line) {
  return isGroup(line) ? groupText(groupAt(line))
                       : rowText(lines_[static_cast<std::size_t>(line)].place);
}

std::string frmPathMap::groupText(int group) {
  return "Path Group #" + std::to_string(group) + ":  " + onOneLine(order_.nameOf(group));
}

std::string frmPathMap::rowText(int place) const {
  const int type = order_.row(place).type;
  const std::string number = std::to_string(place);
  switch (type) {
    case kLine:
      return "   Line Segment " + number;
    case kClockwiseArc:
      return "   CW Arc Segment " + number;
    case kCounterClockwiseArc:
      return "   CCW Arc Segment " + number;
    // Fixed: cycles are spelled so; scripts look for the line.
    default:
      return (type < kFirstShownCycle ? "   Segment " : "   Machine Cylcle ") + number;
  }
}

void frmPathMap::selectGroup(int group) {
  int line = 0;
  while (!isGroup(line) || groupAt(line) != group) ++line;
  lstPathSegments.setIndex(line);
}

// ---- The selected line

void frmPathMap::showLine() {
  const int line = selectedLine();
  if (line < 0) return;
  lblPathOrSeg.setCaption(isGroup(line) ? "Path Group" : "Path Segment");
  if (isGroup(line)) {
    lblSegmentName.setCaption(onOneLine(order_.nameOf(groupAt(line))));
    return showValues({});
  }
  lblSegmentName.setCaption(std::string(trimmed(lineText(line))));
  showValues(order_.row(lines_[static_cast<std::size_t>(line)].place));
}

void frmPathMap::showValues(const PathRow& row) {
  lblStart.setCaption("Starting Point: " + pointText(row.x0, row.y0));
  lblEnd.setCaption("Ending Point: " + pointText(row.x1, row.y1));
  lblCenter.setCaption("Center Point: " + pointText(row.xc, row.yc));
  lblZDepth.setCaption("Depth of Cut: " + plainText(row.z));
  lblFeedRate.setCaption("Feed Rate: " + plainText(row.feed));
}

void frmPathMap::showRapids() {
  lblRapids.setCaption("Rapids between Rows: " + lengthText(order_.rapidLength()));
}

std::string frmPathMap::lengthText(float length) const {
  return formatNumber(length, cam_.context.session.formats.coordfmt);
}

// ---- Changing the order

// The first line is a group's, so that a row always has a line above it.
void frmPathMap::promote() {
  const int line = selectedLine();
  if (line < 0) return;
  if (!isGroup(line)) {
    if (isGroup(line - 1)) return refuse("You cannot promote the first segment of a Path Group.");
    return exchangeRows(line, line - 1);
  }
  if (line == 0) return refuse("You cannot promote the first Path Group.");
  exchangeGroups(groupAt(line), groupAt(line - 1));
}

void frmPathMap::demote() {
  const int line = selectedLine();
  const int last = lineCount() - 1;
  if (line < 0) return;
  if (!isGroup(line)) {
    if (line == last) return refuse("You cannot demote the last segment.");
    if (isGroup(line + 1)) return refuse("You cannot demote the last segment of a Path Group.");
    return exchangeRows(line, line + 1);
  }
  int next = line + 1;
  while (next <= last && !isGroup(next)) ++next;
  if (next > last) return refuse("You cannot demote the last Path Group.");
  exchangeGroups(groupAt(line), groupAt(next));
}

void frmPathMap::exchangeRows(int line, int other) {
  order_.exchangeRows(lines_[static_cast<std::size_t>(line)].place,
                      lines_[static_cast<std::size_t>(other)].place);
  listLines();
  showRapids();
  lstPathSegments.setIndex(other);
}

void frmPathMap::exchangeGroups(int group, int other) {
  order_.exchangeGroups(group, other);
  fillList();
  selectGroup(group);
}

void frmPathMap::propose() {
  if (lines_.empty()) return;
  const int line = selectedLine();
  const int group = groupAt(line < 0 ? 0 : line);
  order_.arrangeByTool({cam_.store.xstartpos, cam_.store.ystartpos});
  fillList();
  selectGroup(group);
}

void frmPathMap::refuse(const char* text) {
  cam_.context.session.host.prompts.showMessage(
      {.text = text, .title = caption(), .icon = MessageIcon::Information});
}

void frmPathMap::apply() {
  const Procedure here("frmPathMap.cmdApply_Click()");
  if (order_.keep(cam_.context)) accept();
}

}  // namespace tess
