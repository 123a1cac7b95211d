// Bolt Circle: computes the holes of a circular pattern, shows them, and places a machine cycle on
// each.
// Owns: BoltMark, BoltPreview, BoltCircle, mnuDrawBoltCircle_Click.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "toolpath/bolt_circle.h"
#include "toolpath/cam_context.h"

namespace tess {

// A hole in the preview: lengths in the frame of radius kBoltFrame, y upward.
struct BoltMark {
  double x = 0, y = 0, radius = 0;
  std::string text;  // its coordinates, when they are to be seen
};

// The picture of the holes; the first of them is the one that is marked.
class BoltPreview : public Picture {
 public:
  using Picture::Picture;

  const std::vector<BoltMark>& marks() const { return marks_; }
  void show(std::vector<BoltMark> marks);

 private:
  std::vector<BoltMark> marks_;
};

class BoltCircle : public Form {
 public:
  explicit BoltCircle(CamContext& cam);

  TextBox txtNumberOfHoles{*this, "txtNumberOfHoles"};
  TextBox txtDegreesOffset{*this, "txtDegreesOffset"};
  TextBox txtBoltCircleDiameter{*this, "txtBoltCircleDiameter"};
  TextBox txtBoltHoleDiameter{*this, "txtBoltHoleDiameter"};
  Label lblOrigin{*this, "lblOrigin"};
  TextBox txtOrigX{*this, "txtOrigX"};
  TextBox txtOrigY{*this, "txtOrigY"};
  Button cmdCompute{*this, "cmdCompute"};
  Button cmdClear{*this, "cmdClear"};
  ListBox lstBoltHoleResults{*this, "lstBoltHoleResults"};
  Label lblCoordinates{*this, "lblCoordinates"};
  Label lblDistanceBetweenHoleCenters{*this, "lblDistanceBetweenHoleCenters"};
  Label lblDistanceBetweenHoleEdges{*this, "lblDistanceBetweenHoleEdges"};
  BoltPreview Picture1{*this, "Picture1"};
  CheckBox chkDisplayCoordinates{*this, "chkDisplayCoordinates"};
  Button cmdCreateSegments{*this, "cmdCreateSegments"};
  Button cmdCancel{*this, "cmdCancel"};

 private:
  void clear();
  void compute();
  void createSegments();
  std::string complaints() const;
  // Of fields without a fault; nothing while one of them is no number.
  std::optional<BoltPattern> pattern() const;
  void showDistances();
  void showPreview();
  void hoverHoles();
  std::vector<Point> listedPlaces() const;

  CamContext& cam_;
  BoltPattern pattern_;          // of the list
  std::vector<BoltHole> holes_;  // the same
};

void mnuDrawBoltCircle_Click(CamContext& cam);

}  // namespace tess
