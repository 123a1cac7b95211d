// The engine that lays out a text: a state machine that has one character after the other outlined,
// collects the pieces, keeps their bounds, and moves the pen along a straight or bent baseline.
// Owns: TextRun, kMostLines, frmCanvas.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/form.h"
#include "core/int16.h"
#include "core/session.h"
#include "import/glyph_service.h"

namespace tess {

// What one run draws. Inches are those of the canvas: in a metric drawing the caller gives sizes in
// its own unit.
struct TextRun {
  bool BoundsOnly = false;  // the box of the text alone
  std::string text;
  double Resolution = 0;  // inches; what is not above 0 counts as 0.0005
  std::string FontName;
  bool Bold = false, Italic = false;
  double FontSize = 0;       // points; nothing comes of what is not above 0
  double TrackingDelta = 0;  // points
  bool MirrorX = false, MirrorY = false;
  double Orientation = 0;     // radians, from the x axis of the canvas towards its y axis
  double Curvature = 0;       // radius of the baseline in inches; 0 is straight
  std::int32_t X = 0, Y = 0;  // where the pen starts, in canvas pixels, y downward
  double PixelsPerInchX = 1, PixelsPerInchY = 1;
  bool Kerning = false;
  bool Unite = false;  // one outline round all that contours enclose
};

// No drawing holds more.
inline constexpr std::size_t kMostLines = 32767;

class frmCanvas : public Form, private GlyphClient {
 public:
  // Without a surface there is no preview.
  frmCanvas(Session& session, FontLibrary& fonts, GlyphService& glyphs, DrawingSurface* surface);
  ~frmCanvas() override;

  void DrawText(TextRun run);
  // Starts a run; one in progress ends. It may return before the text is finished.
  void DrawTextEx(const TextRun& run);
  // Serve events until no run is in progress.
  void DrawTextWait();
  void DrawTextWaitAll() { DrawTextWait(); }
  void Abort();
  // Ends a run and forgets what it has drawn.
  void Clear();

  DrawingSurface* DC() const { return surface_; }
  int PixelWidth() const;  // of the surface
  int PixelHeight() const;

  // The pieces, moved by (TX, TY): inches, y upward, from where the pen started on a canvas whose
  // corner is the origin.
  std::vector<clsLineCoordinates> GetLines(double TX, double TY);
  // The same for what the preview shows: the pieces, the box of the text and that of its lines.
  std::vector<clsLineCoordinates> preview(double TX, double TY) const;
  // The last run ended because no drawing could hold its lines, or its pen left the canvas.
  bool isTooLong() const { return tooLong_; }
  // Why the last run ended with its font; empty for a run that came to its end.
  const std::string& failure() const { return failure_; }

  // A run has come to its end, be it of the bounds only.
  std::function<void(bool BoundsOnly)> onDrawTextDone;

  // GlyphClient; a service may report as late as it likes.
  void Glyph_AddLine(int id, double x0, double y0, double x1, double y1) override;
  void Glyph_DrawCharAsyncDone(std::int32_t X, std::int32_t Y, double baseDX) override;
  int requestId() const { return requestid_; }

 private:
  enum class DrawState : int { Idle = 0, Initialise = 1, Next = 2, CharacterOut = 3, Finish = 4 };
  // A place in the text's own frame and one in the canvas.
  using Corners = std::vector<PlanePoint>;
  struct Extent {
    double minx = 1e199, miny = 1e199, maxx = -1e199, maxy = -1e199;
    void take(PlanePoint point);
    bool isEmpty() const { return minx > maxx; }
    Corners corners() const;
  };

  void DrawTextStep();
  bool takeStep();
  void runSteps();
  void endTooLong();
  void endFailed(const RuntimeFailure& failure);
  void DrawTextInitialize();
  void openCanvas();
  void openFont();
  void placeCenter();
  void takeNext();
  char32_t nextOnLine() const;
  void DrawTextChar(char32_t Char);
  void DrawTextFinishChar();
  void newLine();
  void closeLine();
  void DrawTextFinalize();
  void uniteLines();
  void drawBoxes();
  PlanePoint inTextFrame(PlanePoint point) const;
  void DrawArray(const Corners& corners);
  void DrawAngledArray(const Corners& corners, double cx, double cy, double RefRadius);

  Session& session_;
  FontLibrary& fonts_;
  GlyphService& glyphs_;
  DrawingSurface* surface_;
  std::unique_ptr<clsCanvas> canvas_;

  TextRun run_;
  std::u32string characters_;
  DrawState drawstate_ = DrawState::Idle;
  bool stepping_ = false;
  bool charOut_ = false;  // the character asked for has come
  bool tooLong_ = false;
  std::string failure_;
  std::string reported_;  // the failure that the operator knows of
  bool previewRefused_ = false;
  int requestid_ = 0;
  Int16 position_;  // of the present character, from 1
  int linenumber_ = 0;
  Pen pen_, start_, char_;
  double curorientation_ = 0;
  double centerx_ = 0, centery_ = 0, radius_ = 0, arcangle_ = 0;
  double baseDX_ = 0;
  double linewidth_ = 0, maxwidth_ = 0, totalheight_ = 0;
  std::int32_t lineheight_ = 0;
  Extent bounds_;
  std::vector<clsLineCoordinates> lines_;
  std::size_t lineCount_ = 0;
};

}  // namespace tess
