// The edits that a change has made to one table so far, with what it takes to undo them.
// Owns: EditList.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "drafting/row_edit.h"

namespace tess {

template <class Row>
class EditList {
 public:
  // How far the list had come at some moment.
  using Mark = std::size_t;

  bool empty() const { return numbers_.empty(); }
  Mark mark() const { return numbers_.size(); }

  // Whether the rows that come are held too, for those who will read the list.
  void holdNewRows(bool hold) { holdsNew_ = hold; }
  bool holdsNewRows() const { return holdsNew_; }

  // So that `rows` more can be recorded without a failure.
  void makeRoomFor(std::size_t rows) {
    reserve(edits_, rows);
    reserve(numbers_, rows);
    reserve(before_, rows);
    if (holdsNew_) reserve(after_, rows);
  }

  // Takes note of an edit that was just done; `before` are the rows that were replaced or erased.
  void record(const RowEdit<Row>& edit, std::span<const Row> before) {
    if (edit.numbers.empty()) return;
    if (goesOn(edit)) {
      edits_.back().count += edit.numbers.size();
    } else {
      edits_.push_back(
          {edit.kind, numbers_.size(), edit.numbers.size(), before_.size(), after_.size()});
    }
    numbers_.insert(numbers_.end(), edit.numbers.begin(), edit.numbers.end());
    before_.insert(before_.end(), before.begin(), before.end());
    if (holdsNew_) after_.insert(after_.end(), edit.rows.begin(), edit.rows.end());
  }

  // Undoes what was done since `mark` and forgets it.
  void takeBack(DrawingStore& store, Mark mark) {
    while (numbers_.size() > mark) {
      Edit& edit = edits_.back();
      const std::size_t kept = std::max(mark, edit.number) - edit.number;
      performEdit(store, inverse(edit, kept));
      cutTo(edit, kept);
      if (kept == 0) edits_.pop_back();
    }
  }

  // The edits in their order; good until the list changes. The rows are there if they were held.
  std::vector<RowEdit<Row>> edits() const {
    std::vector<RowEdit<Row>> all;
    all.reserve(edits_.size());
    for (const Edit& edit : edits_) {
      const std::size_t rows = edit.kind == EditKind::Erase || !holdsNew_ ? 0 : edit.count;
      all.push_back({edit.kind, numbersOf(edit, 0), {after_.data() + edit.after, rows}});
    }
    return all;
  }

  void clear() {
    edits_.clear();
    numbers_.clear();
    before_.clear();
    after_.clear();
  }

 private:
  // One edit by the places of its first number and rows in the lists below.
  struct Edit {
    EditKind kind;
    std::size_t number, count;
    std::size_t before, after;
  };

  template <typename T>
  static void reserve(std::vector<T>& list, std::size_t more) {
    const std::size_t wanted = list.size() + more;
    if (wanted > list.capacity()) list.reserve(std::max(wanted, 2 * list.capacity()));
  }

  // Rows that come behind those that came last are part of the same edit, since they move none of
  // them; so are others that are replaced.
  bool goesOn(const RowEdit<Row>& edit) const {
    return !edits_.empty() && edits_.back().kind == edit.kind && edit.kind != EditKind::Erase &&
           edit.numbers.front() > numbers_.back();
  }

  RowNumbers numbersOf(const Edit& edit, std::size_t from) const {
    return {numbers_.data() + edit.number + from, edit.count - from};
  }

  // Of all numbers but the first `kept`, which by the rule above stand for an edit too.
  RowEdit<Row> inverse(const Edit& edit, std::size_t kept) const {
    const RowNumbers numbers = numbersOf(edit, kept);
    if (edit.kind == EditKind::Insert) return {EditKind::Erase, numbers, {}};
    const auto kind = edit.kind == EditKind::Erase ? EditKind::Insert : EditKind::Replace;
    return {kind, numbers, {before_.data() + edit.before + kept, numbers.size()}};
  }

  void cutTo(Edit& edit, std::size_t kept) {
    edit.count = kept;
    numbers_.resize(edit.number + kept);
    before_.resize(edit.before + (edit.kind == EditKind::Insert ? 0 : kept));
    if (holdsNew_) after_.resize(edit.after + (edit.kind == EditKind::Erase ? 0 : kept));
  }

  std::vector<Edit> edits_;
  std::vector<std::int16_t> numbers_;
  std::vector<Row> before_, after_;
  bool holdsNew_ = false;
};

}  // namespace tess
