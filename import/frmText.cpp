// The text panel.
#include "import/frmText.h"

#include <cmath>
#include <numbers>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/text.h"
#include "drafting/entity_creation.h"
#include "drafting/object_snap.h"
#include "drafting/pending_actions.h"
#include "drafting/pointer_events.h"
#include "drafting/segment_name.h"
#include "geometry/float_angles.h"
#include "import/import_commands.h"

namespace tess {
namespace {

constexpr char kStraight[] = "Straight";
constexpr char kDefaultFont[] = "Lucida Console";
constexpr double kRowWithoutRadius = 1;
constexpr double kDefaultResolution = 0.0005;
// The engine's own pixel, so that nothing depends on the zoom: 2^18 to the inch are more than the
// digits of a coordinate tell apart.
constexpr double kPixelsPerInch = 262144;

// Bounds and steps of the wheel.
constexpr double kMostTracking = 32000;
constexpr double kOrientationStep = 5;
constexpr double kFullTurn = 360;
constexpr double kCurvatureStep = 0.1;
constexpr double kLeastRadius = 0.1;
constexpr double kLargestRadius = 10;

constexpr const char* kStyles[] = {"Regular", "Italic", "Bold", "Bold Italic"};
constexpr const char* kSizes[] = {"6",  "7",  "8",  "9",  "10",  "11",  "12",
                                  "14", "16", "18", "20", "22",  "24",  "28",
                                  "36", "48", "72", "96", "144", "216", "288"};
constexpr const char* kResolutions[] = {"0.0005", "0.001", "0.002", "0.005",
                                        "0.010",  "0.020", "0.050", "0.100"};
constexpr int kOrientations = 24;

// Sizes of the panel in pixels.
constexpr int kStandingWidth = 280;
constexpr int kStandingHeight = 620;
constexpr int kLyingWidth = 980;
constexpr int kLyingHeight = 260;

bool isBlank(const std::string& text) {
  return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

// The shortest text of a value that steps have come to: what rounding has left behind goes.
std::string steppedText(double value) {
  constexpr double kSteps = 1e6;
  return plainText(narrow(std::round(value * kSteps) / kSteps));
}

double valueOf(const Control& control) {
  return Val(control.text());
}

std::string quoted(char32_t character) {
  std::string text = "\"";
  appendCharacter(text, character);
  return text + "\"";
}

}  // namespace

// ---- The form

frmText::frmText(DraftingContext& context, FontLibrary& fonts)
    : Form("frmText", "Text"),
      context_(context),
      fonts_(fonts),
      TextCanvas(context.session, fonts, glyphs_, &context.ScreenProxy.surface()) {
  txtText.multiLine = true;
  label();
  fillLists();
  setDefaults();
  wire();
}

void frmText::label() {
  cmdPlaceText.setCaption("&Hover Text");
  cmdCancel.setCaption("&Clear");
  lblFont.setCaption("&Font Name:");
  lblStyle.setCaption("Font St&yle:");
  lblFontSize.setCaption("Font &Size:");
  lblOrientation.setCaption("&Orientation:");
  lblResolution.setCaption("&Resolution:");
  lblCurvature.setCaption("&Curvature (in):");
  lblTrackingDelta.setCaption("Extra &Tracking:");
  chkMirrorX.setCaption("Mirror &X");
  chkMirrorY.setCaption("Mirror &Y");
  chkUnite.setCaption("&Unite Contours");
  chkKerning.setCaption("&Kerning");
  fraWheel.setCaption(" Mouse Scrollwheel ");
  lblWheelTracking.setCaption("Use the Mouse Scrollwheel to change the text spacing.");
  // Fixed: the blank that this label lacks; scripts find labels by their texts.
  lblWheelCurvature.setCaption("Combine with:  <Shift> tochange the curvature of the text.");
  lblWheelOrientation.setCaption("<Ctrl> to change the orientation of the text.");
  lblWheelSize.setCaption("<Shift> + <Ctrl> to change the size of the text.");
  cboFontSize.setHint("Font size in points");
  // Fixed: the letter that this hint lacks; scripts read hints.
  cboOrientation.setHint("Angle of orientation in degress, CCW from the right");
  cboResolution.setHint("Maximum error for spline curve approximation in inches");
  cboCurvature.setHint("Radius of curvature in drawing units");
  txtTrackingDelta.setHint("Delta from normal character spacing in points");
  chkUnite.setHint("One outline round all that the contours of the letters enclose");
  chkKerning.setHint("Move pairs of letters together as the font says");
}

void frmText::fillLists() {
  cboFont.keepSorted();
  for (const char* const style : kStyles) cboStyle.addItem(style);
  for (const char* const size : kSizes) cboFontSize.addItem(size);
  for (int step = 0; step < kOrientations; ++step) {
    cboOrientation.addItem(std::to_string(step * static_cast<int>(kFullTurn) / kOrientations));
  }
  for (const char* const resolution : kResolutions) cboResolution.addItem(resolution);
  cboCurvature.addItem(kStraight);
}

void frmText::setDefaults() {
  cboStyle.setText("Regular");
  cboFontSize.setText("72");
  cboOrientation.setText("0");
  cboResolution.setText("0.001");
  cboCurvature.setText(kStraight);
  txtTrackingDelta.setText("0");
}

void frmText::wire() {
  for (Control* const control : controls()) {
    control->onKey = [this] { CancelPlacement(); };
    control->onLeave = [this] { Update(); };
    control->onValidate = [this](Validation&) { Update(); };
  }
  for (ComboBox* const combo :
       {&cboFont, &cboStyle, &cboFontSize, &cboOrientation, &cboResolution, &cboCurvature}) {
    combo->onClick = [this] { Update(); };
    combo->onDropDown = [this] { CancelPlacement(); };
  }
  for (CheckBox* const box : {&chkMirrorX, &chkMirrorY, &chkUnite, &chkKerning}) {
    box->onClick = [this] { Update(); };
  }
  cboCurvature.onDropDown = [this] { cboCurvature_DropDown(); };
  cboCurvature.onValidate = [this](Validation&) { cboCurvature_Validate(); };
  cmdPlaceText.onClick = [this] { Update(); };
  cmdCancel.onClick = [this] { CancelPlacement(); };
  cmdCancel.onLeave = nullptr;
  cmdCancel.onValidate = nullptr;
  TextCanvas.onDrawTextDone = [this](bool BoundsOnly) { TextCanvas_DrawTextDone(BoundsOnly); };
  onLoad = [this] {
    TextCanvas.load();
    EnumerateFonts();
  };
  onClose = [this] {
    CancelPlacement();
    TextCanvas.close();
  };
}

// A font that is gone is not chosen any more.
void frmText::EnumerateFonts() {
  const std::string chosen = cboFont.text();
  cboFont.setItems(fonts_.families());
  if (cboFont.indexOf(chosen) >= 0) cboFont.setText(chosen);
}

int frmText::DockedHorzWidth() const {
  return kLyingWidth;
}
int frmText::DockedHorzHeight() const {
  return kLyingHeight;
}
int frmText::DockedVertWidth() const {
  return kStandingWidth;
}
int frmText::DockedVertHeight() const {
  return kStandingHeight;
}

// ---- The radius

std::string frmText::TextFromRadius(double Radius) {
  return Radius == 0 ? kStraight : steppedText(Radius);
}

double frmText::RadiusFromText(const std::string& text) const {
  if (const std::optional<double> number = numericValue(text)) return *number;
  const std::size_t open = text.find('[');
  const std::size_t close = text.find(']', std::min(open, text.size()));
  if (open == std::string::npos || close == std::string::npos) return 0;
  const double sense = text.find('-') < open ? -1 : 1;
  const double offset = Val(text.substr(close + 1));
  return sense * referredRadius(text.substr(open + 1, close - open - 1)) + offset;
}

double frmText::referredRadius(std::string_view name) const {
  const int sg = segmentNumberIn(name);
  if (sg < 1 || sg > context_.store.NumSegments) return kRowWithoutRadius;
  const SegmentRow row = segmentRow(context_.store, sg);
  if (!isRound(row.type)) return kRowWithoutRadius;
  return arcRadiusAndAngles({row.x0, row.y0}, {row.x1, row.y1}, {row.xc, row.yc}).radius;
}

void frmText::cboCurvature_DropDown() {
  CancelPlacement();
  const std::string chosen = cboCurvature.text();
  std::vector<std::string> entries{kStraight};
  for (const int sg : context_.state.Selected.rows()) {
    const int type = segmentRow(context_.store, sg).type;
    if (!isRound(type)) continue;
    const std::string name = "[" + segmentName(sg, type) + "]";
    entries.push_back("+" + name + "+0");
    entries.push_back("-" + name + "-0");
  }
  cboCurvature.setItems(std::move(entries));
  cboCurvature.setText(chosen);
}

void frmText::cboCurvature_Validate() {
  cboCurvature.setText(TextFromRadius(RadiusFromText(cboCurvature.text())));
  Update();
}

// ---- Laying out

// Sizes of a metric drawing are those on paper, in its own unit.
double frmText::unitsPerInch() const {
  return isMetric(context_.store) ? kMillimetresPerInch : 1;
}

TextRun frmText::runFromControls() const {
  const double units = unitsPerInch();
  const double resolution = valueOf(cboResolution);
  const std::string style = cboStyle.text();
  TextRun run;
  run.text = txtText.text();
  run.Resolution = (resolution > 0 ? resolution : kDefaultResolution) * units;
  run.FontName = cboFont.text().empty() ? kDefaultFont : cboFont.text();
  run.Bold = style.starts_with("Bold");
  run.Italic = style.ends_with("Italic");
  run.FontSize = valueOf(cboFontSize) * units;
  run.TrackingDelta = valueOf(txtTrackingDelta) * units;
  run.MirrorX = chkMirrorX.isChecked();
  run.MirrorY = chkMirrorY.isChecked();
  // The operator's angle is counter-clockwise, that of the canvas the other way: y is turned over.
  run.Orientation = -std::fmod(valueOf(cboOrientation), kFullTurn) * std::numbers::pi / 180;
  run.Curvature = RadiusFromText(cboCurvature.text());
  run.PixelsPerInchX = run.PixelsPerInchY = kPixelsPerInch / units;
  run.Kerning = chkKerning.isChecked();
  run.Unite = chkUnite.isChecked();
  return run;
}

void frmText::Update() {
  const Procedure here("frmText.Update()");
  if (isBlank(txtText.text())) return CancelPlacement();
  TextRun run = runFromControls();
  TextCanvas.Clear();
  if (!isPlacing()) BeginPlacement();
  run.BoundsOnly = true;
  TextCanvas.DrawTextEx(run);
}

void frmText::TextCanvas_DrawTextDone(bool BoundsOnly) {
  if (lastPointer_) PlaceDrawing(lastPointer_->x, lastPointer_->y, /*ClearOnly=*/false);
  if (!BoundsOnly || TextCanvas.isTooLong() || !TextCanvas.failure().empty()) return showTrouble();
  TextCanvas.DrawText(runFromControls());
}

// What the operator should know of the text; else the prompt.
void frmText::showTrouble() {
  const std::string text = trouble();
  context_.statusBar.setText(text.empty() ? pendingPrompt(context_, context_.state.pendingaction())
                                          : text);
}

std::string frmText::trouble() const {
  if (TextCanvas.isTooLong()) {
    return "The text is too long or too large: a drawing holds at most " +
           std::to_string(kMostLines) + " lines.";
  }
  return TextCanvas.failure().empty() ? missingCharacters() : TextCanvas.failure();
}

std::string frmText::missingCharacters() const {
  const auto& missing = glyphs_.missing();
  if (missing.empty()) return {};
  const auto& [character, substitute] = *missing.begin();
  const std::string font = cboFont.text().empty() ? "the font" : cboFont.text();
  std::string text = quoted(character) + " is not in " + font;
  text += substitute.empty() ? " and leaves a blank" : " and comes from " + substitute;
  if (missing.size() > 1) {
    text += "; so with " + std::to_string(missing.size() - 1) +
            (missing.size() == 2 ? " other character" : " other characters");
  }
  return text + ".";
}

// ---- Placing

void frmText::BeginPlacement() {
  stage_ = Stage::Placing;
  lastPointer_.reset();
  // Fixed: the drawing mode stays, and no action comes back; operators go on drawing after a text.
  context_.state.setPendingaction(static_cast<int>(PendingAction::PlaceText));
}

void frmText::CancelPlacement() {
  if (!isPlacing()) return;
  context_.state.setPendingaction(0);
  context_.systemPointer.setMousePointer(kDefaultShape);
}

void frmText::placementEnded() {
  stage_ = Stage::None;
}

PixelPoint frmText::MapCoordindates(ScaleUnit Src, ScaleUnit Dest, double X, double Y) const {
  if (Src == Dest) return {X, Y};
  const DrawingSurface& surface = context_.ScreenProxy.surface();
  if (Dest == ScaleUnit::Pixels) return surface.toPixels(narrow(X), narrow(Y));
  const Point world = surface.toWorld(X, Y);
  return {world.x, world.y};
}

void frmText::PlaceDrawing(double X, double Y, bool ClearOnly) {
  endHoverLines(context_);
  if (ClearOnly) return;
  const PixelPoint world = MapCoordindates(ScaleUnit::Pixels, ScaleUnit::User, X, Y);
  std::vector<WorldBox> lines;
  for (const clsLineCoordinates& line : TextCanvas.preview(world.x, world.y)) {
    lines.push_back({narrow(line.x0), narrow(line.y0), narrow(line.x1), narrow(line.y1)});
  }
  setHoverLines(context_, std::move(lines));
  stage_ = Stage::Shown;
}

void frmText::Drawing_MouseMove(int /*Button*/, int /*Shift*/, float X, float Y) {
  if (!isPlacing()) return;
  const Point at = snappedPosition(context_, {X, Y});
  lastPointer_ = MapCoordindates(ScaleUnit::User, ScaleUnit::Pixels, at.x, at.y);
  PlaceDrawing(lastPointer_->x, lastPointer_->y, /*ClearOnly=*/false);
}

void frmText::Drawing_MouseUp(int Button, int /*Shift*/, float X, float Y) {
  const Procedure here("frmText.Drawing_MouseUp(Button,Shift,X,Y)");
  if (Button == kLeftButton && isPlacing()) place(snappedPosition(context_, {X, Y}));
}

namespace {

// Lines whose ends are one place for the tables are none; what these cannot hold is no drawing.
std::vector<BatchLine> storable(const std::vector<clsLineCoordinates>& lines) {
  std::vector<BatchLine> rows;
  rows.reserve(lines.size());
  for (const clsLineCoordinates& line : lines) {
    if (!isStorable({line.x0, line.y0}) || !isStorable({line.x1, line.y1})) throw overflow();
    const BatchLine row{narrow(line.x0), narrow(line.y0), narrow(line.x1), narrow(line.y1)};
    if (row.x0 != row.x1 || row.y0 != row.y1) rows.push_back(row);
  }
  return rows;
}

}  // namespace

// A text that cannot be placed goes on hovering, to be made smaller.
void frmText::place(Point at) {
  TextCanvas.DrawTextWaitAll();
  if (TextCanvas.isTooLong()) throw overflow();
  const std::vector<BatchLine> lines = storable(TextCanvas.GetLines(at.x, at.y));
  if (lines.empty()) return;
  endHoverLines(context_);
  stage_ = Stage::Placing;
  BatchAddLines(context_, lines);
  context_.state.setPendingaction(0);
  context_.redraw.redrawscreen();
}

// ---- The wheel

void frmText::Drawing_MouseWheel(int Scroll, int Shift) {
  if (!isPlacing() || Scroll == 0) return;
  const int direction = Scroll > 0 ? 1 : -1;
  const bool shift = (Shift & kShiftKey) != 0;
  const bool control = (Shift & kControlKey) != 0;
  if (shift && control) {
    ScrollSize(direction);
  } else if (shift) {
    ScrollCurvature(direction);
  } else if (control) {
    ScrollOrientation(direction);
  } else {
    ScrollTracking(direction);
  }
}

void frmText::ScrollTracking(int Direction) {
  const double tracking = valueOf(txtTrackingDelta) + Direction;
  const bool possible = tracking >= 0 && tracking <= kMostTracking;
  txtTrackingDelta.setText(possible ? steppedText(tracking) : "0");
  Update();
}

void frmText::ScrollOrientation(int Direction) {
  double degrees = std::fmod(valueOf(cboOrientation), kFullTurn) + kOrientationStep * Direction;
  if (!std::isfinite(degrees)) degrees = 0;
  if (degrees < 0) degrees += kFullTurn;
  if (degrees >= kFullTurn) degrees -= kFullTurn;
  cboOrientation.setText(steppedText(degrees));
  Update();
}

void frmText::ScrollSize(int Direction) {
  const double size = valueOf(cboFontSize) + Direction;
  if (isStorable({size, 0})) cboFontSize.setText(steppedText(size));
  Update();
}

void frmText::ScrollCurvature(int Direction) {
  const double radius = RadiusFromText(cboCurvature.text());
  if (radius == 0) {
    if (Direction < 0) cboCurvature.setText(steppedText(kLargestRadius));
  } else {
    const double stepped = radius + kCurvatureStep * Direction;
    const bool straight = std::round(stepped * 1e6) > std::round(kLargestRadius * 1e6);
    const double bent = stepped <= 0 ? kLeastRadius : stepped;
    cboCurvature.setText(straight ? kStraight : steppedText(bent));
  }
  Update();
}

// ---- The command

void miText_Click(DraftingContext& context) {
  const Procedure here("frmMain.miText_Click()");
  context.tools.openBand("barText");
}

constexpr DraftingCommand kTextCommand{
    .info = {.tool = "miText",
             .caption = "&Text...",
             .menu = {"miDraw", 220},
             .bar = {"barDraw", 280}},
    .run = miText_Click,
};

}  // namespace tess
