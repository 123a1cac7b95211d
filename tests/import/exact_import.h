// An exact conversion for tests: entities and blocks as short lines of groups in, drawing rows out.
// Owns: VertexText, polylineText, ExactImport.
#pragma once

#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "import/exact_geometry.h"
#include "tests/import/dxf_content.h"
#include "tests/support/curves.h"
#include "tests/support/drafting_test_context.h"
#include "tests/support/plain_edits.h"

namespace tess::testing {

// "x y bulge" of each vertex as an LWPOLYLINE.
struct VertexText {
  std::string x, y, bulge = "0";
};
inline std::string polylineText(const std::vector<VertexText>& vertices, int flags = 0) {
  std::string text = "0 LWPOLYLINE, 70 " + std::to_string(flags);
  for (const auto& [x, y, bulge] : vertices) text += ", 10 " + x + ", 20 " + y + ", 42 " + bulge;
  return text;
}

class ExactImport : public ::testing::Test {
 protected:
  // The rows that come of the entities; `blocks` stand before them as they are.
  std::vector<std::string> convert(const std::string& entities, const std::string& blocks = {}) {
    read(entities, blocks);
    return convertDocument();
  }

  void read(const std::string& entities, const std::string& blocks = {}) {
    std::string text;
    if (!units.empty()) text += "0 SECTION, 2 HEADER, 9 $INSUNITS, 70 " + units + ", 0 ENDSEC, ";
    if (!blocks.empty()) text += "0 SECTION, 2 BLOCKS, " + blocks + ", 0 ENDSEC, ";
    readDxf(document, inTextForm(text + entitySection(entities)), "part.dxf");
  }

  std::vector<std::string> convertDocument() {
    LooseChange loose(store);
    DxfRows rows(loose.change, prompts, document);
    convertDxfExactly(document, rows, options);
    unconverted = rows.unconverted();
    lost = rows.lost();
    return segmentTexts(store);
  }

  std::vector<Curve> curves() const {
    std::vector<Curve> all;
    for (int sg = 1; sg <= store.NumSegments; ++sg) all.push_back(curveOf(segmentRow(store, sg)));
    return all;
  }

  std::string units;  // of the file
  ExactGeometry options{.connectPoints = false, .metric = true, .tolerence = 0.001F};
  DrawingStore store;
  RecordingPrompts prompts;
  DxfDocument document;
  std::vector<std::string> unconverted;
  int lost = 0;
};

}  // namespace tess::testing
