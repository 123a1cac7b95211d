// Whole rows by their columns without a check of each, for passes over a table within its bounds.
// Owns: SegmentColumns, PathColumns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "core/drawing_store.h"

namespace tess {

// The columns of the drawing rows; Store is DrawingStore, const to read alone. Good until the
// tables grow. Rows count from 1.
template <class Store>
class SegmentColumns {
 public:
  explicit SegmentColumns(Store& store)
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
  void set(int sg, const SegmentRow& row) const {
    type_[sg] = row.type;
    attr_[sg] = row.attr;
    x0_[sg] = row.x0;
    y0_[sg] = row.y0;
    x1_[sg] = row.x1;
    y1_[sg] = row.y1;
    xc_[sg] = row.xc;
    yc_[sg] = row.yc;
  }

 private:
  template <typename T>
  using Values = std::conditional_t<std::is_const_v<Store>, const T, T>*;

  Values<int> type_;
  Values<Int16> attr_;
  Values<float> x0_, y0_, x1_, y1_, xc_, yc_;
};

// The same of the path rows.
template <class Store>
class PathColumns {
 public:
  explicit PathColumns(Store& store) : store_(store) {}
  PathRow row(int ps) const { return pathRow(store_, ps); }
  void set(int ps, const PathRow& row) const { setPathRow(store_, ps, row); }

 private:
  Store& store_;
};

}  // namespace tess
