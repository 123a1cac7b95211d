// The kinds of controls: what an assignment, a click and a key do to each.
#include "core/controls.h"

#include <algorithm>
#include <optional>

#include "core/form.h"
#include "core/text.h"

namespace tess {
namespace {

std::vector<std::string> with(std::vector<std::string> names,
                              std::initializer_list<const char*> more) {
  names.insert(names.end(), more.begin(), more.end());
  return names;
}

bool precedes(const std::string& a, const std::string& b) {
  return lowerCased(a) < lowerCased(b);
}

}  // namespace

// Buttons

std::vector<std::string> Button::properties() const {
  return with(Control::properties(), {"value"});
}

std::optional<PropertyValue> Button::ownProperty(std::string_view property) const {
  if (property == "value") return false;
  return std::nullopt;
}

bool Button::setOwnProperty(std::string_view property, const PropertyValue& value) {
  if (property != "value") return false;
  if (flagIn(property, value)) click();
  return true;
}

// Text boxes

void TextBox::setText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  allSelected_ = false;
  if (announce(Property::Text)) fire(onChange);
}

bool TextBox::type(std::string text) {
  if (readOnly || !reach()) return false;
  if (fire(onKey)) setText(std::move(text));
  return true;
}

void TextBox::selectAll() {
  allSelected_ = true;
  announce(Property::Selection);
}

void TextBox::focusCame() {
  if (selectsOnFocus && !multiLine) selectAll();
}

// Check boxes

void CheckBox::setValue(int value) {
  if (value < 0 || value > 2) refuse("value", "A check box is 0, 1 or 2");
  if (std::exchange(value_, value) == value) return;
  if (announce(Property::Value)) fire(onClick);
}

std::vector<std::string> CheckBox::properties() const {
  return with(Control::properties(), {"value"});
}

std::optional<PropertyValue> CheckBox::ownProperty(std::string_view property) const {
  if (property == "value") return static_cast<double>(value_);
  return std::nullopt;
}

bool CheckBox::setOwnProperty(std::string_view property, const PropertyValue& value) {
  if (property != "value") return false;
  setValue(integerIn(property, value));
  return true;
}

// Options

bool Option::isOfGroup(const Option& other) const {
  if (frame() != other.frame() || arrayIndex().has_value() != other.arrayIndex().has_value()) {
    return false;
  }
  return !arrayIndex().has_value() || name() == other.name();
}

std::vector<Option*> Option::othersSet() const {
  std::vector<Option*> others;
  for (Control* control : form().controls()) {
    auto* other = dynamic_cast<Option*>(control);
    if (other != nullptr && other != this && other->value_ && isOfGroup(*other)) {
      others.push_back(other);
    }
  }
  return others;
}

// All values are right before anybody hears of one.
void Option::setValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  const std::vector<Option*> cleared = value ? othersSet() : std::vector<Option*>();
  for (Option* other : cleared) other->value_ = false;
  for (Option* other : cleared) {
    if (!other->announce(Property::Value)) return;
  }
  if (announce(Property::Value) && value) fire(onClick);
}

std::vector<std::string> Option::properties() const {
  return with(Control::properties(), {"value"});
}

std::optional<PropertyValue> Option::ownProperty(std::string_view property) const {
  if (property == "value") return value_;
  return std::nullopt;
}

bool Option::setOwnProperty(std::string_view property, const PropertyValue& value) {
  if (property != "value") return false;
  setValue(flagIn(property, value));
  return true;
}

// Sliders

void Slider::setRange(double minimum, double maximum) {
  if (!(minimum <= maximum)) refuse("value", "The range of a slider must not be empty");
  minimum_ = minimum;
  maximum_ = maximum;
  if (announce(Property::Range)) setValue(std::clamp(value_, minimum_, maximum_));
}

void Slider::setValue(double value) {
  const bool within = value >= minimum_ && value <= maximum_;
  if (!within) refuse("value", "Outside the slider's range");
  if (std::exchange(value_, value) == value) return;
  if (announce(Property::Value)) fire(onChange);
}

bool Slider::slide(double value) {
  if (!reach()) return false;
  setValue(value);
  return true;
}

std::vector<std::string> Slider::properties() const {
  return with(Control::properties(), {"value"});
}

std::optional<PropertyValue> Slider::ownProperty(std::string_view property) const {
  if (property == "value") return value_;
  return std::nullopt;
}

bool Slider::setOwnProperty(std::string_view property, const PropertyValue& value) {
  if (property != "value") return false;
  setValue(numberIn(property, value));
  return true;
}

// Lists and combos

void ItemsControl::requireItem(int index) const {
  if (index < 0 || index >= count()) throw subscriptOutOfRange();
}

std::string ItemsControl::item(int index) const {
  requireItem(index);
  return source_ ? source_(index) : items_[static_cast<std::size_t>(index)];
}

const std::vector<std::string>& ItemsControl::items() const {
  if (!source_) return items_;
  items_.clear();
  for (int index = 0; index < sourceCount_; ++index) items_.push_back(source_(index));
  return items_;
}

// The items become texts of the list's own, which can be changed one by one.
void ItemsControl::takeSource() {
  if (!source_) return;
  items();
  source_ = nullptr;
}

bool ItemsControl::itemsChanged() {
  ++revision_;
  return announce(Property::Items);
}

void ItemsControl::addItem(std::string item) {
  takeSource();
  const auto place =
      sorted_ ? std::upper_bound(items_.begin(), items_.end(), item, precedes) : items_.end();
  if (place - items_.begin() <= index_) ++index_;
  items_.insert(place, std::move(item));
  itemsChanged();
}

void ItemsControl::setItem(int index, std::string item) {
  requireItem(index);
  takeSource();
  items_[static_cast<std::size_t>(index)] = std::move(item);
  itemsChanged();
}

void ItemsControl::removeItem(int index) {
  requireItem(index);
  takeSource();
  items_.erase(items_.begin() + index);
  if (index == index_) {
    index_ = -1;
  } else if (index < index_) {
    --index_;
  }
  itemsChanged();
}

void ItemsControl::clear() {
  setItems({});
}

void ItemsControl::setItems(std::vector<std::string> items) {
  source_ = nullptr;
  items_ = std::move(items);
  index_ = -1;
  if (sorted_) std::stable_sort(items_.begin(), items_.end(), precedes);
  itemsChanged();
}

void ItemsControl::setSource(int count, ItemSource source) {
  items_.clear();
  source_ = std::move(source);
  sourceCount_ = count;
  index_ = -1;
  itemsChanged();
}

void ItemsControl::sourceChanged(int count) {
  sourceCount_ = count;
  if (index_ >= count) index_ = -1;
  itemsChanged();
}

void ItemsControl::keepSorted() {
  const std::string selected = index_ < 0 ? std::string() : item(index_);
  takeSource();
  sorted_ = true;
  std::stable_sort(items_.begin(), items_.end(), precedes);
  if (index_ >= 0) index_ = indexOf(selected);
  itemsChanged();
}

int ItemsControl::indexOf(std::string_view text) const {
  int index = 0;
  while (index < count() && !isItem(index, text)) ++index;
  return index < count() ? index : -1;
}

bool ItemsControl::isItem(int index, std::string_view text) const {
  return source_ ? source_(index) == text : items_[static_cast<std::size_t>(index)] == text;
}

void ItemsControl::setIndex(int index) {
  requireIndex(index);
  if (index != index_ && select(index)) fire(onClick);
}

bool ItemsControl::pick(int index) {
  if (!reach()) return false;
  requireIndex(index);
  if (index == index_ || select(index)) fire(onClick);
  return true;
}

void ItemsControl::requireIndex(int index) const {
  if (index < -1 || index >= count()) refuse("index", "No item has this index");
}

bool ItemsControl::select(int index) {
  index_ = index;
  return selectionChanged();
}

void ItemsControl::selectText(std::string_view text) {
  const int found = indexOf(text);
  if (found < 0 && !text.empty()) refuse("text", "No item is \"" + std::string(text) + "\"");
  setIndex(found);
}

std::vector<std::string> ItemsControl::properties() const {
  return with(Control::properties(), {"items", "index", "count"});
}

std::optional<PropertyValue> ItemsControl::ownProperty(std::string_view property) const {
  if (property == "items") return items();
  if (property == "index") return static_cast<double>(index_);
  if (property == "count") return static_cast<double>(count());
  return std::nullopt;
}

bool ItemsControl::setOwnProperty(std::string_view property, const PropertyValue& value) {
  if (property == "count") refuse(property, "Read-only property");
  if (property == "index") {
    setIndex(integerIn(property, value));
    return true;
  }
  if (property != "items") return false;
  setItems(textsIn(property, value));
  return true;
}

std::string ListBox::text() const {
  return index() < 0 ? std::string() : item(index());
}

void ListBox::setText(std::string text) {
  selectText(text);
}

bool ListBox::open() {
  if (!onOpen || index() < 0 || !reach()) return false;
  fire(onOpen);
  return true;
}

std::string ComboBox::text() const {
  if (style_ == ComboStyle::Editable) return text_;
  return index() < 0 ? std::string() : item(index());
}

void ComboBox::setText(std::string text) {
  if (style_ == ComboStyle::ListOnly) return selectText(text);
  if (text == text_) return;
  text_ = std::move(text);
  markIndex(indexOf(text_));
  if (announce(Property::Text)) fire(onChange);
}

bool ComboBox::type(std::string text) {
  if (style_ == ComboStyle::ListOnly || !reach()) return false;
  if (fire(onKey)) setText(std::move(text));
  return true;
}

bool ComboBox::open() {
  if (!reach()) return false;
  fire(onDropDown);
  return true;
}

bool ComboBox::selectionChanged() {
  if (style_ == ComboStyle::Editable && index() >= 0) text_ = item(index());
  return announce(Property::Index) && announce(Property::Text);
}

}  // namespace tess
