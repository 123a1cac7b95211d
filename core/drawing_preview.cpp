// Reading a drawing for a look at it.
#include "core/drawing_preview.h"

#include "core/drawing_format.h"
#include "core/drawing_store.h"
#include "core/field_reader.h"

namespace tess {

PreviewRows previewOfDrawing(const std::string& path) {
  DrawingStore store;
  PreviewRows preview;
  try {
    FieldReader fields = FieldReader::open(path, kLargestDrawing);
    readfileheader(store, fields);
    readSegments(store, fields);
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    preview.note = failure.description();
  }
  for (int sg = 1; sg <= store.NumSegments; ++sg) preview.rows.push_back(segmentRow(store, sg));
  if (preview.note.empty()) preview.note = std::to_string(store.NumSegments) + " rows";
  return preview;
}

}  // namespace tess
