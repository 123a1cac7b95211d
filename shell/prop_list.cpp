// The list of named values.
#include "shell/prop_list.h"

#include <algorithm>
#include <utility>

#include "core/number_text.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kNoCategory[] = "Misc";

bool contains(const Bounds& area, int x, int y) {
  return x >= area.left && x < area.left + area.width && y >= area.top &&
         y < area.top + area.height;
}

std::string contentText(const PropertyContent& content) {
  const auto* const number = std::get_if<float>(&content);
  return number != nullptr ? plainText(*number) : std::get<std::string>(content);
}

}  // namespace

// ---- One row

void CPropListItem::QuickSet(std::string name, std::string value, std::string description,
                             std::string category) {
  Name = std::move(name);
  Value = std::move(value);
  Description = std::move(description);
  Category = std::move(category);
}

Bounds CPropListItem::nameField() const {
  return {0, Top, IsCategory ? Width : Width / 2, Height};
}

Bounds CPropListItem::valueField() const {
  const int left = nameField().width;
  return {left, Top, Width - left, Height};
}

PropField CPropListItem::HitTestField(int x, int y) const {
  if (contains(nameField(), x, y)) return PropField::Name;
  return contains(valueField(), x, y) ? PropField::Value : PropField::None;
}

void CPropListItem::Paint(PropCanvas& canvas, const PropColors& colors) const {
  const Bounds row{0, Top, Width, Height};
  canvas.fill(row, IsCategory ? colors.BackColorCategory : colors.BackColor);
  if (Selected) canvas.fill(nameField(), colors.BackColorSelected);
  canvas.text(nameField(), Name, Selected ? colors.ForeColorSelected : colors.ForeColor,
              IsCategory);
  if (IsCategory) return;
  canvas.text(valueField(), Value, Enabled ? colors.ForeColor : colors.ForeColorDisabled,
              /*heading=*/false);
}

// ---- All rows

void CPropListItems::Clear() {
  *this = [this] {
    CPropListItems fresh;
    fresh.style_ = style_;
    fresh.first_ = first_;
    fresh.width_ = width_;
    fresh.height_ = height_;
    fresh.rowHeight_ = rowHeight_;
    return fresh;
  }();
}

void CPropListItems::AddCategory(const std::string& name) {
  const bool known = std::any_of(items_.begin(), items_.end(), [&](const CPropListItem& item) {
    return item.IsCategory && item.Name == name;
  });
  if (known) return;
  CPropListItem heading;
  heading.QuickSet(name, {}, {}, name);
  heading.IsCategory = true;
  heading.Enabled = false;
  items_.push_back(std::move(heading));
}

void CPropListItems::Add(CPropListItem item) {
  if (item.Category.empty()) item.Category = kNoCategory;
  AddCategory(item.Category);
  items_.push_back(std::move(item));
}

const CPropListItem& CPropListItems::Item(int index) const {
  if (index < 0 || index >= VisibleCount()) {
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, {}, "Invalid index");
  }
  return items_[shown_[static_cast<std::size_t>(index)]];
}

CPropListItem& CPropListItems::at(int index) {
  return items_[shown_[static_cast<std::size_t>(index)]];
}

const CPropListItem* CPropListItems::find(std::string_view name) const {
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const CPropListItem& item) {
    return !item.IsCategory && item.Name == name;
  });
  return found == items_.end() ? nullptr : &*found;
}

void CPropListItems::setListStyle(ListStyle style) {
  style_ = style;
}

void CPropListItems::Refresh() {
  order();
  selected_ = selected_ < VisibleCount() ? selected_ : -1;
  place();
}

void CPropListItems::order() {
  shown_.clear();
  for (std::size_t n = 0; n < items_.size(); ++n) {
    CPropListItem& item = items_[n];
    item.Visible = style_ == ListStyle::Categorized || !item.IsCategory;
    if (item.Visible) shown_.push_back(n);
  }
  const auto groups = [this](const std::string& category) {
    return std::find_if(items_.begin(), items_.end(),
                        [&](const CPropListItem& item) {
                          return item.IsCategory && item.Name == category;
                        }) -
           items_.begin();
  };
  std::stable_sort(shown_.begin(), shown_.end(), [&](std::size_t left, std::size_t right) {
    const CPropListItem& a = items_[left];
    const CPropListItem& b = items_[right];
    if (style_ == ListStyle::Categorized) return groups(a.Category) < groups(b.Category);
    if (a.Enabled != b.Enabled) return a.Enabled;
    return lowerCased(a.Name) < lowerCased(b.Name);
  });
}

void CPropListItems::place() {
  const int last = std::max(0, VisibleCount() - TargetHeightInItems());
  first_ = std::clamp(first_, 0, last);
  for (int n = 0; n < VisibleCount(); ++n) {
    CPropListItem& item = at(n);
    item.Top = (n - first_) * rowHeight_;
    item.Height = rowHeight_;
    item.Width = width_;
    item.Selected = n == selected_;
  }
}

void CPropListItems::setSelectedItemIndex(int index) {
  selected_ = index < VisibleCount() ? index : -1;
  if (selected_ >= 0) {
    first_ = std::min(first_, selected_);
    first_ = std::max(first_, selected_ - TargetHeightInItems() + 1);
  }
  place();
}

const CPropListItem* CPropListItems::SelectedItem() const {
  return selected_ < 0 ? nullptr : &Item(selected_);
}

int CPropListItems::nextRow(int from, int step) const {
  for (int n = from + step; n >= 0 && n < VisibleCount(); n += step) {
    if (!Item(n).IsCategory) return n;
  }
  return -1;
}

int CPropListItems::SelectNext() const {
  const int next = nextRow(selected_, 1);
  return next < 0 ? selected_ : next;
}

int CPropListItems::SelectPrev() const {
  const int before = nextRow(selected_ < 0 ? VisibleCount() : selected_, -1);
  return before < 0 ? selected_ : before;
}

void CPropListItems::setMetrics(int width, int height, int rowHeight) {
  width_ = width;
  height_ = height;
  rowHeight_ = std::max(1, rowHeight);
  place();
}

int CPropListItems::TargetHeightInItems() const {
  return std::max(1, height_ / rowHeight_);
}

void CPropListItems::Scroll(int rows) {
  first_ += rows;
  place();
}

int CPropListItems::HitTest(int x, int y) const {
  int place = 0;
  for (const CPropListItem& item : NewEnum()) {
    if (item.HitTest(x, y)) return place;
    ++place;
  }
  return -1;
}

PropField CPropListItems::HitTestField(int x, int y) const {
  const int index = HitTest(x, y);
  return index < 0 ? PropField::None : Item(index).HitTestField(x, y);
}

void CPropListItems::Paint(PropCanvas& canvas, const PropColors& colors) const {
  for (const CPropListItem& item : NewEnum()) {
    if (item.Top >= 0 && item.Top < height_) item.Paint(canvas, colors);
  }
}

// ---- The control

void PropList::AddProperty(const std::string& name, const PropertyContent& value,
                           const std::string& description, const std::string& category) {
  CPropListItem item;
  item.QuickSet(name, contentText(value), description, category);
  rows_.Add(std::move(item));
}

void PropList::addTotal(const std::string& name, const std::string& value,
                        const std::string& category) {
  CPropListItem item;
  item.QuickSet(name, value, {}, category);
  item.Enabled = false;
  rows_.Add(std::move(item));
}

void PropList::setListStyle(ListStyle style) {
  rows_.setListStyle(style);
  NeedRefresh();
}

void PropList::NeedRefresh() {
  const std::string selected = text();
  rows_.Refresh();
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(rows_.VisibleCount()));
  for (const CPropListItem& item : rows_.NewEnum()) names.push_back(item.Name);
  setItems(std::move(names));
  const int index = selected.empty() ? -1 : indexOf(selected);
  rows_.setSelectedItemIndex(index);
  select(index);
}

void PropList::leaveValue(const std::string& name, const std::string& text) {
  const CPropListItem* const row = std::as_const(rows_).find(name);
  if (row != nullptr && row->Validate(text) && onChange) onChange(name, text);
}

bool PropList::selectionChanged() {
  rows_.setSelectedItemIndex(index());
  return ListBox::selectionChanged();
}

}  // namespace tess
