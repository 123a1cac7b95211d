// The port to what outlines one character at a time, and what it answers to.
// Owns: Pen, GlyphRun, GlyphRequest, GlyphClient, GlyphService.
#pragma once

#include <cstdint>
#include <string>

#include "import/clsCanvas.h"

namespace tess {

// In canvas pixels, y downward.
struct Pen {
  std::int32_t x = 0, y = 0;
};

// What holds for all characters of a run.
struct GlyphRun {
  std::string FontName;
  bool Bold = false, Italic = false;
  double ScaleX = 1, ScaleY = -1;  // canvas pixels to the em; y grows upward in the font
};

struct GlyphRequest {
  int id = 0;
  bool BoundsOnly = false;
  char32_t character = 0;
  char32_t next = 0;         // on the same line, for kerning; 0 for none wanted
  double Resolution = 0;     // inches
  double TrackingDelta = 0;  // points
  bool MirrorX = false, MirrorY = false;
  double curorientation = 0;  // radians, from the x axis towards the y axis of the canvas
  double PixelsPerInchX = 1, PixelsPerInchY = 1;
};

class GlyphClient {
 public:
  virtual ~GlyphClient() = default;
  // One piece, in canvas pixels, for the request of that number.
  virtual void Glyph_AddLine(int id, double x0, double y0, double x1, double y1) = 0;
  // The pen behind the character, and the advance before turning, in pixels.
  virtual void Glyph_DrawCharAsyncDone(std::int32_t X, std::int32_t Y, double baseDX) = 0;
};

class GlyphService {
 public:
  virtual ~GlyphService() = default;
  virtual void begin(const GlyphRun& run) = 0;
  // Reports to the client and moves the pen, at once or later. Raises what the canvas raises, and
  // Overflow for a pen beyond the canvas.
  virtual void DrawCharAsync(const GlyphRequest& request, GlyphClient& client, ICanvas& canvas,
                             Pen& pen) = 0;
};

}  // namespace tess
