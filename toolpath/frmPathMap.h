// Path Segments: the order in which groups and rows are cut, to be changed on a copy.
// Owns: frmPathMap.
#pragma once

#include <string>
#include <vector>

#include "core/form.h"
#include "toolpath/cam_context.h"
#include "toolpath/path_order.h"

namespace tess {

class frmPathMap : public Form {
 public:
  explicit frmPathMap(CamContext& cam);

  ListBox lstPathSegments{*this, "lstPathSegments"};
  Label lblPathOrSeg{*this, "lblPathOrSeg"};
  Label lblSegmentName{*this, "lblSegmentName"};
  Label lblStart{*this, "lblStart"};
  Label lblEnd{*this, "lblEnd"};
  Label lblCenter{*this, "lblCenter"};
  Label lblZDepth{*this, "lblZDepth"};
  Label lblFeedRate{*this, "lblFeedRate"};
  Button cmdPromote{*this, "cmdPromote"};
  Button cmdDemote{*this, "cmdDemote"};
  Button cmdPropose{*this, "cmdPropose"};
  Label lblRapids{*this, "lblRapids"};
  Label lblRapidsBefore{*this, "lblRapidsBefore"};
  Button cmdApply{*this, "cmdApply"};
  Button cmdExit{*this, "cmdExit"};

 private:
  // A line of the list: a row, or a group that begins with it.
  struct Line {
    int place = 0;
    bool isGroup = false;
  };

  void load();
  void fillList();
  void listLines();
  int selectedLine() const;
  std::string lineText(int line);
  std::string groupText(int group);
  std::string rowText(int place) const;
  void selectGroup(int group);

  void showLine();
  void showValues(const PathRow& row);
  void showRapids();
  std::string lengthText(float length) const;

  void promote();
  void demote();
  void exchangeRows(int line, int other);
  void exchangeGroups(int group, int other);
  void propose();
  void refuse(const char* text);
  void apply();

  int lineCount() const { return static_cast<int>(lines_.size()); }
  int groupAt(int line) const { return order_.group(lines_[static_cast<std::size_t>(line)].place); }
  bool isGroup(int line) const { return lines_[static_cast<std::size_t>(line)].isGroup; }

  CamContext& cam_;
  PathOrder order_;
  std::vector<Line> lines_;
};

}  // namespace tess
