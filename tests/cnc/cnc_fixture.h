// A drawing with everything that a program is made from, for the tests of the CNC output.
// Owns: RecordingViewer, linesOf, lineRow, arcRow, cycleRow, CncFixture.
#pragma once

#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "cnc/cnc_program.h"
#include "cnc/program_text.h"
#include "core/drawing_store.h"
#include "core/field_reader.h"
#include "core/units.h"
#include "geometry/float_points.h"
#include "tests/support/recording_host.h"
#include "tests/support/recording_session.h"

namespace tess::testing {

class RecordingViewer : public ProgramViewer {
 public:
  void showFile(const std::string& file, const std::string& notice) override {
    shown.push_back(file);
    notices.push_back(notice);
  }
  std::vector<std::string> shown;
  std::vector<std::string> notices;
};

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (std::size_t end; (end = text.find(kLineEnd, begin)) != std::string::npos;
       begin = end + kLineEnd.size()) {
    lines.push_back(text.substr(begin, end - begin));
  }
  EXPECT_EQ(begin, text.size()) << "the last line has no end";
  return lines;
}

inline PathRow lineRow(Point from, Point to, float z, float feed) {
  return {.type = kLine, .x0 = from.x, .y0 = from.y, .x1 = to.x, .y1 = to.y, .z = z, .feed = feed};
}

inline PathRow arcRow(int type, Point from, Point to, Point center, float z, float feed) {
  return {.type = type,
          .x0 = from.x,
          .y0 = from.y,
          .x1 = to.x,
          .y1 = to.y,
          .xc = center.x,
          .yc = center.y,
          .z = z,
          .feed = feed};
}

// A hole: increment depth and dwell stand in the centre fields.
inline PathRow cycleRow(int g, Point place, float increment, float dwell, float z, float feed) {
  return arcRow(g, place, place, {increment, dwell}, z, feed);
}

class CncFixture : public ::testing::Test {
 protected:
  CncFixture() {
    store.units = "I";
    store.cfg_tolerance = 0.001F;
    store.cfg_z_plunge_rate = 3;
    store.zstartpos = 0.5F;
    store.drawingname = "part.CDM";
    store.drawingsaved = true;
    set_num_formats(session);
  }

  void useMetric() {
    store.units = "M";
    set_num_formats(session);
  }

  void place(PathRow row, int toolNumber = 1) {
    row.code = 100 + toolNumber - 1;
    addPathSegment(store, row);
    store.savedpaths = store.NumPathSegments;
    store.drawingsaved = true;
  }

  void define(const std::string& text) {
    FieldReader reader("test.msx", text);
    readPostDefinition(session, definition, reader);
    set_num_formats(session);
  }

  std::string program(CncMode mode = CncMode::Mill) {
    state.cncfilename = "part.CNC";
    return programText(session, definition, state, mode);
  }

  // The program without its heading, from the units word on.
  std::vector<std::string> body(CncMode mode = CncMode::Mill) {
    const std::vector<std::string> lines = linesOf(program(mode));
    auto first = lines.begin();
    while (first != lines.end() && *first != "G70" && *first != "G71") ++first;
    return {first, lines.end()};
  }

  // The lines with a G word behind the three that open every program.
  std::vector<std::string> moves(CncMode mode = CncMode::Mill) {
    std::vector<std::string> found;
    for (const std::string& line : body(mode)) {
      if (line.starts_with('G')) found.push_back(line);
    }
    found.erase(found.begin(), found.begin() + 3);
    return found;
  }

  RecordingHost host;
  DrawingStore store;
  RecordingListener listener;
  Session session{store, host.host, listener};
  PostDefinition definition;
  CncState state;
  RecordingViewer viewer;
};

}  // namespace tess::testing
