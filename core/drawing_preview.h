// Drawing rows to be seen in small before they are taken: of a file in a dialog, or of an import.
// Owns: PreviewRows, previewOfDrawing, RowsPreview.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/controls.h"
#include "core/drawing_rows.h"

namespace tess {

struct PreviewRows {
  std::vector<SegmentRow> rows;
  std::string note;  // a line below them
};

// The rows of a drawing file and how many they are. A file that cannot be read has none, and the
// note says why; nothing is raised.
PreviewRows previewOfDrawing(const std::string& path);

// The rows are made when a view asks for them, once for every showing.
class RowsPreview : public Picture {
 public:
  using Source = std::function<PreviewRows()>;
  using Picture::Picture;

  // Null: nothing is shown.
  void show(Source source) {
    source_ = std::move(source);
    made_.reset();
    invalidate();
  }
  const PreviewRows& rows() {
    if (!made_) made_ = source_ ? source_() : PreviewRows{};
    return *made_;
  }

 private:
  Source source_;
  std::optional<PreviewRows> made_;
};

}  // namespace tess
