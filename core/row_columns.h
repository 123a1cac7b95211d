// Whole rows read from their columns without a check of each, for passes over a table within its
// bounds.
// Owns: SegmentColumns, PathColumns.
#pragma once

#include "core/drawing_store.h"

namespace tess {

// The columns of the drawing rows, good until the tables grow. Rows count from 1.
class SegmentColumns {
 public:
  explicit SegmentColumns(const DrawingStore& store)
      : type_(store.segtype.rows().data()),
        attr_(store.segattr.rows().data()),
        x0_(store.x0.rows().data()),
        y0_(store.y0.rows().data()),
        x1_(store.x1.rows().data()),
        y1_(store.y1.rows().data()),
        xc_(store.centerx.rows().data()),
        yc_(store.centery.rows().data()) {}

  SegmentRow row(int sg) const {
    return {type_[sg], attr_[sg], x0_[sg], y0_[sg], x1_[sg], y1_[sg], xc_[sg], yc_[sg]};
  }

 private:
  const int* type_;
  const Int16* attr_;
  const float *x0_, *y0_, *x1_, *y1_, *xc_, *yc_;
};

// The same of the path rows.
class PathColumns {
 public:
  explicit PathColumns(const DrawingStore& store) : store_(store) {}
  PathRow row(int ps) const { return pathRow(store_, ps); }

 private:
  const DrawingStore& store_;
};

}  // namespace tess
