// The panel that places a text: it reads its controls, has the text laid out, lets it hover under
// the pointer, and turns it into lines of the drawing at a click.
// Owns: frmText, miText_Click.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/controls.h"
#include "core/form.h"
#include "core/tool_host.h"
#include "drafting/drafting_context.h"
#include "import/QLGlyph.h"
#include "import/frmCanvas.h"

namespace tess {

class frmText : public Form, public DockedPanel {
 public:
  // No font is read before the form is opened.
  frmText(DraftingContext& context, FontLibrary& fonts);

  // "Straight" for 0.
  static std::string TextFromRadius(double Radius);
  // A number, "Straight", or the radius of a row by its name with a sign before and a number after
  // it: "-[Entity 3-Circle]-0.5" is 0.5 more than its radius, to the other side.
  double RadiusFromText(const std::string& text) const;

  // Reads the controls anew and lays the text out; a text that is blank ends the placement.
  void Update();
  void BeginPlacement();
  // Nothing unless a text is being placed.
  void CancelPlacement();
  // Takes the outline off the screen and, unless ClearOnly, shows it with the start of its first
  // line there; pixels of the surface.
  void PlaceDrawing(double X, double Y, bool ClearOnly);
  // Between pixels of the surface and the drawing's units.
  PixelPoint MapCoordindates(ScaleUnit Src, ScaleUnit Dest, double X, double Y) const;

  // While a text is being placed. Positions are in drawing units; both are snapped.
  void Drawing_MouseMove(int Button, int Shift, float X, float Y);
  void Drawing_MouseUp(int Button, int Shift, float X, float Y);
  // Away from the operator is above 0. One step an event, however far it goes.
  void Drawing_MouseWheel(int Scroll, int Shift);
  // The placement has ended, by itself or otherwise.
  void placementEnded();
  bool isPlacing() const { return stage_ != Stage::None; }

  // DockedPanel
  Form& form() override { return *this; }
  int DockedHorzWidth() const override;
  int DockedHorzHeight() const override;
  int DockedVertWidth() const override;
  int DockedVertHeight() const override;
  void LayoutHorizontally() override { liesDown_ = true; }
  void LayoutVertically() override { liesDown_ = false; }
  bool liesDown() const override { return liesDown_; }

  Frame fraText{*this, "fraText"};
  TextBox txtText{*this, "txtText", fraText};
  Button cmdPlaceText{*this, "cmdPlaceText", fraText};
  Button cmdCancel{*this, "cmdCancel", fraText};
  Frame fraFont{*this, "fraFont"};
  Label lblFont{*this, "lblFont", fraFont};
  ComboBox cboFont{*this, "cboFont", ComboStyle::ListOnly, fraFont};
  Label lblStyle{*this, "lblStyle", fraFont};
  ComboBox cboStyle{*this, "cboStyle", ComboStyle::ListOnly, fraFont};
  Label lblFontSize{*this, "lblFontSize", fraFont};
  ComboBox cboFontSize{*this, "cboFontSize", ComboStyle::Editable, fraFont};
  Label lblOrientation{*this, "lblOrientation", fraFont};
  ComboBox cboOrientation{*this, "cboOrientation", ComboStyle::Editable, fraFont};
  Label lblResolution{*this, "lblResolution", fraFont};
  ComboBox cboResolution{*this, "cboResolution", ComboStyle::Editable, fraFont};
  Label lblCurvature{*this, "lblCurvature", fraFont};
  ComboBox cboCurvature{*this, "cboCurvature", ComboStyle::Editable, fraFont};
  Label lblTrackingDelta{*this, "lblTrackingDelta", fraFont};
  TextBox txtTrackingDelta{*this, "txtTrackingDelta", fraFont};
  CheckBox chkMirrorX{*this, "chkMirrorX", fraFont};
  CheckBox chkMirrorY{*this, "chkMirrorY", fraFont};
  CheckBox chkUnite{*this, "chkUnite", fraFont};
  CheckBox chkKerning{*this, "chkKerning", fraFont};
  Frame fraWheel{*this, "fraWheel"};
  Label lblWheelTracking{*this, "lblWheelTracking", fraWheel};
  Label lblWheelCurvature{*this, "lblWheelCurvature", fraWheel};
  Label lblWheelOrientation{*this, "lblWheelOrientation", fraWheel};
  Label lblWheelSize{*this, "lblWheelSize", fraWheel};

 private:
  enum class Stage : int { None = 0, Placing = 1, Shown = 2 };

  void label();
  void fillLists();
  void setDefaults();
  void wire();
  void EnumerateFonts();
  void cboCurvature_DropDown();
  void cboCurvature_Validate();
  void TextCanvas_DrawTextDone(bool BoundsOnly);
  double referredRadius(std::string_view name) const;
  TextRun runFromControls() const;
  double unitsPerInch() const;
  void showTrouble();
  std::string trouble() const;
  std::string missingCharacters() const;
  void place(Point at);

  void ScrollTracking(int Direction);
  void ScrollCurvature(int Direction);
  void ScrollOrientation(int Direction);
  void ScrollSize(int Direction);

  DraftingContext& context_;
  FontLibrary& fonts_;
  QLGlyph glyphs_;
  Stage stage_ = Stage::None;
  std::optional<PixelPoint> lastPointer_;
  bool liesDown_ = false;

 public:
  frmCanvas TextCanvas;
};

void miText_Click(DraftingContext& context);

}  // namespace tess
