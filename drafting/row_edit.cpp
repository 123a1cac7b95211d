// Edits of the two tables.
#include "drafting/row_edit.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/drawing_store.h"

namespace tess {
namespace {

// What the edits need to know of each table.
struct SegmentTable {
  static Int16& counter(DrawingStore& store) { return store.NumSegments; }
  static void reach(DrawingStore& store, int n) { ensureSegmentCapacity(store, n); }
  // Into the columns without a check of each value: prepareEdit has made sure of all.
  static auto setter(DrawingStore& store) {
    return [type = store.segtype.rows(), attr = store.segattr.rows(), x0 = store.x0.rows(),
            y0 = store.y0.rows(), x1 = store.x1.rows(), y1 = store.y1.rows(),
            xc = store.centerx.rows(), yc = store.centery.rows()](int sg, const SegmentRow& row) {
      const auto at = static_cast<std::size_t>(sg);
      type[at] = row.type;
      attr[at] = row.attr;
      x0[at] = row.x0;
      y0[at] = row.y0;
      x1[at] = row.x1;
      y1[at] = row.y1;
      xc[at] = row.xc;
      yc[at] = row.yc;
    };
  }
  static void requireFits(const SegmentRow& row) { Int16{row.attr}; }
  template <typename Visit>
  static void visitColumns(DrawingStore& store, Visit visit) {
    visitSegmentColumns(store, visit);
  }
};

struct PathTable {
  static Int16& counter(DrawingStore& store) { return store.NumPathSegments; }
  static void reach(DrawingStore& store, int n) { ensurePathCapacity(store, n); }
  static auto setter(DrawingStore& store) {
    return [&store](int ps, const PathRow& row) { setPathRow(store, ps, row); };
  }
  static void requireFits(const PathRow& row) {
    Int16{row.type};
    Int16{row.code};
  }
  template <typename Visit>
  static void visitColumns(DrawingStore& store, Visit visit) {
    visitPathColumns(store, visit);
  }
};

void requireAscending(RowNumbers numbers, int last) {
  int before = 0;
  for (const int number : numbers) {
    if (number <= before || number > last) throw subscriptOutOfRange();
    before = number;
  }
}

// ---- Moving the rows that stay; `count` rows are in use before

// Rows beside one another, and by how many places they move.
struct Run {
  int first, end;  // from the first one to before the end
  int places;
};

// Many at once go to each column, without memory of their own: an edit that was prepared does not
// fail.
template <class Move>
class Runs {
 public:
  explicit Runs(const Move& move) : move_(move) {}
  ~Runs() { flush(); }
  Runs(const Runs&) = delete;
  Runs& operator=(const Runs&) = delete;

  void add(const Run& run) {
    if (run.first == run.end) return;
    if (held_ == runs_.size()) flush();
    runs_[held_++] = run;
  }

 private:
  void flush() {
    move_(std::span<const Run>(runs_).first(held_));
    held_ = 0;
  }

  const Move& move_;
  std::array<Run, 128> runs_;
  std::size_t held_ = 0;
};

// From the last row down.
template <class Table>
void openGaps(DrawingStore& store, int count, RowNumbers gaps) {
  const auto move = [&store](std::span<const Run> runs) {
    Table::visitColumns(store, [runs](auto& column) {
      const auto rows = column.rows().begin();
      for (const Run& run : runs) {
        std::move_backward(rows + run.first, rows + run.end, rows + run.end + run.places);
      }
    });
  };
  Runs runs(move);
  int end = count + 1;
  for (auto wider = static_cast<int>(gaps.size()); wider > 0; --wider) {
    const int first = gaps[static_cast<std::size_t>(wider) - 1] - (wider - 1);
    runs.add({first, end, wider});
    end = first;
  }
}

template <class Table>
void closeGaps(DrawingStore& store, int count, RowNumbers gaps) {
  const auto move = [&store](std::span<const Run> runs) {
    Table::visitColumns(store, [runs](auto& column) {
      const auto rows = column.rows().begin();
      for (const Run& run : runs) {
        std::move(rows + run.first, rows + run.end, rows + run.first - run.places);
      }
    });
  };
  Runs runs(move);
  for (std::size_t gap = 0; gap < gaps.size(); ++gap) {
    const int end = gap + 1 < gaps.size() ? gaps[gap + 1] : count + 1;
    runs.add({gaps[gap] + 1, end, static_cast<int>(gap) + 1});
  }
}

// ---- The edits

template <class Table, class Row>
void prepare(DrawingStore& store, const RowEdit<Row>& edit) {
  const int count = Table::counter(store);
  const bool grows = edit.kind == EditKind::Insert;
  const Int16 last = grows ? count + edit.numbers.size() : static_cast<std::size_t>(count);
  requireAscending(edit.numbers, last);
  for (const Row& row : edit.rows) Table::requireFits(row);
  if (grows) Table::reach(store, last);
}

template <class Table, class Row>
void setRows(DrawingStore& store, const RowEdit<Row>& edit) {
  const auto set = Table::setter(store);
  for (std::size_t k = 0; k < edit.numbers.size(); ++k) set(edit.numbers[k], edit.rows[k]);
}

template <class Table, class Row>
void perform(DrawingStore& store, const RowEdit<Row>& edit) {
  if (edit.numbers.empty()) return;
  Int16& counter = Table::counter(store);
  const int count = counter;
  const int rows = static_cast<int>(edit.numbers.size());
  switch (edit.kind) {
    case EditKind::Insert:
      openGaps<Table>(store, count, edit.numbers);
      setRows<Table>(store, edit);
      counter = count + rows;
      break;
    case EditKind::Replace:
      setRows<Table>(store, edit);
      break;
    case EditKind::Erase:
      closeGaps<Table>(store, count, edit.numbers);
      counter = count - rows;
      break;
  }
}

}  // namespace

void prepareEdit(DrawingStore& store, const RowEdit<SegmentRow>& edit) {
  prepare<SegmentTable>(store, edit);
}
void prepareEdit(DrawingStore& store, const RowEdit<PathRow>& edit) {
  prepare<PathTable>(store, edit);
}

void performEdit(DrawingStore& store, const RowEdit<SegmentRow>& edit) {
  perform<SegmentTable>(store, edit);
}
void performEdit(DrawingStore& store, const RowEdit<PathRow>& edit) {
  perform<PathTable>(store, edit);
}

}  // namespace tess
