// The viewer and the drawing.
#include "shell/cnc_viewer.h"

#include <utility>

#include "core/drawing_store.h"
#include "display/pointer.h"
#include "drafting/selection.h"

namespace tess {

CncViewer::CncViewer(const HandOver& handOver, FormHost& forms, DraftingContext& context,
                     CncState& made)
    : form(handOver),
      forms_(forms),
      context_(context),
      made_(made),
      subscription_(context.changes.listen(*this)) {
  made_.keepsMade = true;
  form.onPickRow = [this](int row) { pickRow(row); };
}

void CncViewer::showFile(const std::string& file, const std::string& notice) {
  const Procedure here("showFile(file$)");
  const BusyPointer busy(context_.systemPointer);
  forms_.show(form);
  form.showFile(file, notice);
  link();
}

// Only the program that was made last is known by its rows.
void CncViewer::link() {
  if (made_.made.rows.rows() != context_.store.NumPathSegments) return;
  if (checksumOf(form.txtFile.lines().text()) != made_.made.text) return;
  form.linkRows(made_.made.rows);
  isBehind_ = true;
}

void CncViewer::unlink() {
  made_.made = {};
  form.unlinkRows();
}

void CncViewer::settle() {
  if (!std::exchange(isBehind_, false) || !form.hasRows()) return;
  form.markRows(selectedRows());
}

// A selection is a change too, but one that leaves the drawing what it is.
void CncViewer::changed(const KeptChange& change) {
  if (change.paths.empty()) return;
  if (change.unsaved) unlink();
  isBehind_ = true;
}

// The rounding of a save leaves every row its number.
void CncViewer::rewritten() {
  if (made_.made.rows.rows() != context_.store.NumPathSegments) unlink();
  isBehind_ = true;
}

std::vector<int> CncViewer::selectedRows() const {
  std::vector<int> rows;
  for (int ps = 1; ps <= context_.store.NumPathSegments; ++ps) {
    if (hasSelectionMark(context_.store.pscode[ps])) rows.push_back(ps);
  }
  return rows;
}

void CncViewer::pickRow(int row) {
  selectOnlyPath(context_, row);
  settle();
}

}  // namespace tess
