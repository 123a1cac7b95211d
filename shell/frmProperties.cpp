// The property window.
#include "shell/frmProperties.h"

#include <algorithm>
#include <utility>

#include "core/drawing_store.h"
#include "shell/outline_totals.h"

namespace tess {
namespace {

constexpr char kTotals[] = "Totals";
constexpr int kFirstThatBlinks = kClockwiseArc;

// Collects the rows that several objects have in common: a value in which they differ is blank.
class SharedRows : public PropertyAdder {
 public:
  void AddProperty(const std::string& name, const PropertyContent& value,
                   const std::string& description, const std::string& category) override {
    if (objects_ == 1) rows_.push_back({name, description, category, value});
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [&](const Row& shared) { return shared.name == name; });
    if (row == rows_.end()) return;
    ++row->objects;
    if (row->value != value) row->value = std::string();
  }

  void nextObject() { ++objects_; }

  void addTo(PropertyAdder& list) const {
    for (const Row& row : rows_) {
      if (row.objects < objects_) continue;
      list.AddProperty(row.name, row.value, row.description, row.category);
    }
  }

 private:
  struct Row {
    std::string name, description, category;
    PropertyContent value;
    int objects = 0;
  };

  std::vector<Row> rows_;  // of the first object
  int objects_ = 0;
};

}  // namespace

frmProperties::frmProperties(DraftingContext& context)
    : Form("frmProperties", "Properties"),
      context_(context),
      segment_(context.session, context.changes, Step::Continued),
      blink_(context),
      subscription_(context.changes.listen(*this)) {
  TabStrip.setItems({"Alphabetic", "Categorized"});
  TabStrip.setIndex(static_cast<int>(ListStyle::Alphabetic));
  wire();
}

void frmProperties::wire() {
  onLoad = [this] { load(); };
  cboObject.onClick = [this] { objectChosen(); };
  TabStrip.onClick = [this] {
    PropList1.setListStyle(static_cast<ListStyle>(std::max(0, TabStrip.index())));
  };
  PropList1.onClick = [this] { rowChosen(); };
  PropList1.onOpen = [this] { txtValue.focus(); };
  PropList1.onRestore = [this] { showValue(); };
  PropList1.onChange = [this](const std::string& name, const std::string& value) {
    PropList1_Change(name, value);
  };
  txtValue.onLeave = [this] { commit(); };
}

// ---- Following the drawing

void frmProperties::changed(const KeptChange& change) {
  stale_ = stale_ || (!objects_.empty() && !change.segments.empty());
}

void frmProperties::UpdatePropertyWindow() {
  const bool selection = std::exchange(context_.state.updateProperties, false);
  if (!isLoaded()) return;
  if (selection) {
    load();
  } else if (stale_) {
    fillObjects();
    fillRows();
  }
}

void frmProperties::SelectEntity(int sg) {
  picked_ = sg;
  if (isLoaded()) load();
}

void frmProperties::load() {
  showsAll_ = false;
  Clear();
  for (const int sg : context_.state.Selected.rows()) {
    if (sg >= 1 && sg <= context_.store.NumSegments) AddObject(sg);
  }
  const bool holds = std::find(objects_.begin(), objects_.end(), picked_) != objects_.end();
  if (!holds) picked_ = 0;  // its number may be another row's by the next time
  fillObjects();
  fillRows();
}

void frmProperties::Clear() {
  objects_.clear();
}

void frmProperties::AddObject(int sg) {
  objects_.push_back(sg);
}

// Their names, and behind them an entry for all of several.
void frmProperties::fillObjects() {
  std::erase_if(objects_, [this](int sg) { return sg > context_.store.NumSegments; });
  std::vector<std::string> names;
  names.reserve(objects_.size() + 1);
  for (const int sg : objects_) {
    segment_.setSegmentNumber(sg);
    names.push_back(segment_.SegmentName());
  }
  if (objects_.size() > 1) names.push_back("All " + std::to_string(objects_.size()) + " Entities");
  filling_ = true;
  if (names != cboObject.items()) cboObject.setItems(std::move(names));
  cboObject.setIndex(presentObject());
  filling_ = false;
}

int frmProperties::presentObject() const {
  if (showsAll_ && objects_.size() > 1) return static_cast<int>(objects_.size());
  const auto picked = std::find(objects_.begin(), objects_.end(), picked_);
  if (picked != objects_.end()) return static_cast<int>(picked - objects_.begin());
  return objects_.empty() ? -1 : 0;
}

std::vector<int> frmProperties::shownRows() const {
  if (cboObject.index() < 0) return {};
  const auto place = static_cast<std::size_t>(cboObject.index());
  return place < objects_.size() ? std::vector<int>{objects_[place]} : objects_;
}

// ---- The rows

void frmProperties::fillRows() {
  stale_ = false;
  PropList1.Clear();
  fillShared();
  fillTotals();
  filling_ = true;
  PropList1.NeedRefresh();
  filling_ = false;
  showValue();
}

void frmProperties::fillShared() {
  SharedRows shared;
  for (const int sg : shownRows()) {
    segment_.setSegmentNumber(sg);
    shared.nextObject();
    segment_.EnumerateProperties(shared);
  }
  shared.addTo(PropList1);
}

void frmProperties::fillTotals() {
  const auto totals = totalsOfOutline(context_.store, objects_);
  if (!totals) return;
  const auto add = [this](const char* name, double value) {
    PropList1.addTotal(name, CoordinateAsString(context_.session, narrow(value)), kTotals);
  };
  add("Total Length", totals->length);
  add("Total Area", totals->area);
}

void frmProperties::objectChosen() {
  if (filling_ || cboObject.index() < 0) return;
  const std::vector<int> rows = shownRows();
  showsAll_ = rows.size() > 1;
  if (!showsAll_) picked_ = rows.front();
  fillRows();
  if (!showsAll_ && context_.store.segtype[picked_] >= kFirstThatBlinks) blink_.start(picked_);
}

// What was typed over the value of the row before counts for that row.
void frmProperties::rowChosen() {
  if (filling_) return;
  commit();
  showValue();
}

void frmProperties::showValue() {
  const CPropListItem* const row = PropList1.PropListItems().SelectedItem();
  const bool hasValue = row != nullptr && !row->IsCategory;
  edited_ = hasValue && row->Enabled ? row->Name : "";
  shownValue_ = hasValue ? row->Value : "";
  txtValue.setVisible(hasValue);
  txtValue.setEnabled(!edited_.empty());
  txtValue.setText(shownValue_);
  lblDescription.setCaption(LineSegmentDescription());
}

// The text of the description strip: of the chosen row, else what is shown at all.
std::string frmProperties::LineSegmentDescription() const {
  const CPropListItem* const row = PropList1.PropListItems().SelectedItem();
  return row != nullptr ? row->Description : cboObject.text();
}

// ---- Editing

void frmProperties::commit() {
  if (edited_.empty() || txtValue.text() == shownValue_) return;
  shownValue_ = txtValue.text();  // whatever comes of it, it is not taken twice
  PropList1.leaveValue(edited_, txtValue.text());
}

void frmProperties::PropList1_Change(const std::string& name, const std::string& value) {
  try {
    change(name, value);
  } catch (const RuntimeFailure&) {
    showValue();
    throw;
  }
  fillObjects();
  fillRows();
}

void frmProperties::change(const std::string& name, const std::string& text) {
  const Procedure here("frmProperties.PropList1_Change(name,value)");
  Change change(context_.changes);
  Flag cancel;
  for (const int sg : shownRows()) {
    std::string value = text;
    segment_.setSegmentNumber(sg);
    segment_.PropertyChange(name, value, cancel);
  }
  change.keep({.redraws = !cancel});
}

}  // namespace tess
