// The path editor as a model, over path rows of a test's own.
// Owns: EditPath.
#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "gtest/gtest.h"

#include "tests/support/recorded_cam.h"
#include "toolpath/dlgEditPath.h"

namespace tess::testing {

struct EditPath : RecordedCam, ::testing::Test {
  void addRow(const PathRow& row) { addPathSegment(store, row); }
  // A line of length 1 for each code.
  void addRows(const std::vector<int>& codes) {
    for (const int code : codes) {
      const auto at = static_cast<float>(store.NumPathSegments);
      addRow({.type = kLine, .x0 = at, .x1 = at + 1, .z = -0.5F, .feed = 10, .code = code});
    }
  }
  void addArc(Point start, Point end, Point center) {
    addRow({.type = kClockwiseArc,
            .x0 = start.x,
            .y0 = start.y,
            .x1 = end.x,
            .y1 = end.y,
            .xc = center.x,
            .yc = center.y,
            .code = 100});
  }
  void addCycle(int type) {
    addRow({.type = type, .xc = 0.125F, .yc = 1.5F, .z = -1, .feed = 4, .code = 100});
  }
  void open() {
    store.drawingsaved = true;
    form.open(Modality::Modal);
  }
  void goTo(int row) {
    form.txtps.setText(std::to_string(row));
    form.txtps.onLeave();
  }
  void answer(std::deque<Answer> answers) { test.recording.prompts.answers = std::move(answers); }
  // The only message since the last call.
  Message message() {
    if (messages().size() != 1)
      return {.text = std::to_string(messages().size()) + " messages", .title = {}};
    Message shown = messages().front();
    messages().clear();
    return shown;
  }
  std::vector<float> column(const Column<float>& values) const {
    return {values.rows().begin() + 1, values.rows().begin() + 1 + store.NumPathSegments};
  }
  std::vector<int> codes() const {
    std::vector<int> codes;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) codes.push_back(store.pscode[ps]);
    return codes;
  }
  std::vector<bool> visible() const {
    std::vector<bool> rows;
    for (int ps = 1; ps <= store.NumPathSegments; ++ps) rows.push_back(store.psvisible[ps]);
    return rows;
  }
  void hide(int ps) {
    Change change(context.changes);
    change.paths.show(ps, false);
    change.keep();
  }

  dlgEditPath form{cam};
};

}  // namespace tess::testing
