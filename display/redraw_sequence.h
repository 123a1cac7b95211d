// The order in which a picture is painted, at once or in four stages driven by a timer.
// Owns: RedrawListener, RedrawParts, RedrawSequence.
#pragma once

#include <functional>
#include <memory>

#include "core/timers.h"
#include "display/pointer.h"
#include "display/renderer.h"
#include "display/view_transform.h"

namespace tess {

// What a redraw asks of the rooms above it.
class RedrawListener {
 public:
  virtual ~RedrawListener() = default;
  virtual void showDrawingName() = 0;      // the drawing's name in the first panel
  virtual void updateStatusDisplay() = 0;  // counts, zoom, prompt, coordinates
  // A redraw on paper is a picture of the screen as it stands.
  virtual void PrintPreviewScreenShotWorkAround(DrawingTarget& target) = 0;
};

struct RedrawParts {
  const DrawingStore& store;
  View& view;
  Renderer& renderer;
  PictureBoxProxy& ScreenProxy;
  Pointer& pointer;
  Surroundings& surroundings;
  Timers& timers;
  RedrawListener& listener;
};

class RedrawSequence {
 public:
  explicit RedrawSequence(const RedrawParts& parts);

  // Paints everything at once on `target`, null for the screen. Callers say how they wish the grid
  // and the part template, but the settings alone decide. With `DisableEvents` the surface takes
  // no pointer events until tmrEventEnable has fired, 125 ms after the end.
  void redrawscreen(DrawingTarget* target, Flag ShowGrid, Flag FillPartTemplate,
                    Flag DisableEvents);
  void redrawscreen();  // the same on the screen, with all flags set

  // One redraw once the event at hand is over, with the surface's next frame, however often it was
  // asked for; any other redraw stands for it. On a surface without frames redrawSoon, for those
  // who change rows again and again, is at once; soil, for those who have painted rows over in
  // another colour, comes by a timer.
  void redrawSoon();
  void soil();
  // The frame has come.
  void paintFrame();

  // The stage that the next tick of tmrTaskQueue runs: 1 init, 2 segments, 3 paths, 4 final; 0 is
  // idle. Setting it also starts the timer.
  int TaskQueueState() const { return taskQueueState_; }
  void setTaskQueueState(int state);

  void RedrawScreen_Init();
  void RedrawScreen_Segments();
  void RedrawScreen_Paths();
  void RedrawScreen_Final();

  // The marker's cross stands in the screen's picture; false from the clearing to the end of a
  // redraw, which will draw it.
  bool markerShown() const { return markerShown_; }

  // Set once the operator has agreed to close the window: every paint loop leaves at its next row.
  bool redrawabort = false;

  // What lies over the drawing, and under the marker and the axes.
  std::function<void(PictureBoxProxy& target)> paintOver;

  // Whoever draws into the screen's picture in the inverting pen hears that it was wiped, and what
  // stood in it with it, and that the next one stands complete.
  std::function<void()> onCleared;
  std::function<void()> onPainted;

 private:
  void tmrTaskQueue_Timer();
  // A stage, and how often the sequence had been set to one when it began.
  struct StageRun {
    int stage;
    long long starts;
  };
  StageRun stageRun() const { return {taskQueueState_, starts_}; }
  void runStage(int stage);
  void finishStage(const StageRun& run);

  bool frameComes();
  bool openPicture(DrawingTarget& target);
  void paintPartTemplate(DrawingTarget& target);
  bool paintSegments(DrawingTarget& target);
  bool paintPaths(DrawingTarget& target);
  void closePicture();
  void showPitch(PictureBoxProxy& screen);
  void paintPicture(DrawingTarget& target);
  void releaseSurface();
  void abandon();
  bool servedEvents();

  RedrawParts parts_;
  std::unique_ptr<Timer> tmrTaskQueue_;
  std::unique_ptr<Timer> tmrEventEnable_;
  std::unique_ptr<Timer> tmrSoiled_;  // the frame of a surface that has none
  int taskQueueState_ = 0;
  long long starts_ = 0;
  bool inStage_ = false;
  bool markerShown_ = false;
  bool awaitsFrame_ = false;
  bool isOvertaken_ = false;  // the staged sequence, whose picture a redraw at once has finished
};

}  // namespace tess
