// The kinds of controls. A form declares them as members, in tab order:
//   TextBox txtNumPasses{*this, "txtNumPasses"};
//   ControlArray<Option> OptCutWidth{*this, "OptCutWidth", {1, 2}};
// Owns: Frame, Label, Picture, Button, TextBox, CheckBox, Option, Slider, ItemsControl, ListBox,
//       ComboStyle, ComboBox, ControlArray.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/control.h"
#include "core/runtime_failure.h"

namespace tess {

// A titled box round other controls, which it disables and hides together. Options inside one
// frame form a group.
class Frame : public Control {
 public:
  Frame(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::Frame; }
  bool takesFocus() const override { return false; }
};

class Label : public Control {
 public:
  Label(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::Label; }
  bool takesFocus() const override { return false; }
};

// An area that a room above paints, by a class derived from this one.
class Picture : public Control {
 public:
  Picture(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::Picture; }
  bool takesFocus() const override { return false; }
  // Asks for a new painting.
  void invalidate() { announce(Property::Content); }
};

// Property `value`: false; setting it to true clicks the button.
class Button : public Control {
 public:
  Button(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::Button; }
  void click() { fire(onClick); }
  std::vector<std::string> properties() const override;

 protected:
  std::optional<PropertyValue> ownProperty(std::string_view property) const override;
  bool setOwnProperty(std::string_view property, const PropertyValue& value) override;
};

// A text that differs raises onChange. A single-line box selects its whole text when the focus
// comes, unless told otherwise.
class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::TextBox; }

  std::string text() const override { return text_; }
  void setText(std::string text) override;
  // The operator's typing: takes the focus, counts as a key, and sets the text. False when the box
  // is read-only or out of reach.
  bool type(std::string text);
  // Marks the whole text; any change of the text ends that.
  void selectAll();
  bool isAllSelected() const { return allSelected_; }

  // Fixed when the form is built: no event tells of them.
  bool multiLine = false;
  bool readOnly = false;
  bool selectsOnFocus = true;

 protected:
  void focusCame() override;

 private:
  std::string text_;
  bool allSelected_ = false;
};

// Value 0 unchecked, 1 checked, 2 greyed; a value that differs raises onClick.
class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::CheckBox; }

  int value() const { return value_; }
  bool isChecked() const { return value_ == 1; }
  void setValue(int value);
  void setChecked(bool checked) { setValue(checked ? 1 : 0); }
  std::vector<std::string> properties() const override;

 protected:
  void pressed() override { setChecked(value_ == 0); }
  std::optional<PropertyValue> ownProperty(std::string_view property) const override;
  bool setOwnProperty(std::string_view property, const PropertyValue& value) override;

 private:
  int value_ = 0;
};

// One choice of a group: the options of one control array, or the single ones within one frame (or
// directly on the form). Becoming true clears the others without an event and raises onClick; an
// option that is true already is not clicked again, and clearing one raises nothing.
class Option : public Control {
 public:
  Option(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::Option; }

  bool value() const { return value_; }
  void setValue(bool value);
  std::vector<std::string> properties() const override;

 protected:
  void pressed() override { setValue(true); }
  std::optional<PropertyValue> ownProperty(std::string_view property) const override;
  bool setOwnProperty(std::string_view property, const PropertyValue& value) override;

 private:
  bool isOfGroup(const Option& other) const;
  std::vector<Option*> othersSet() const;

  bool value_ = false;
};

// A number within its range; a value that differs raises onChange.
class Slider : public Control {
 public:
  Slider(Form& form, std::string name, ControlPlace place = {})
      : Control(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::Slider; }

  double minimum() const { return minimum_; }
  double maximum() const { return maximum_; }
  // A value outside the new range moves to its nearer end.
  void setRange(double minimum, double maximum);
  double value() const { return value_; }
  // Raises Invalid procedure call outside the range.
  void setValue(double value);
  // The operator's move. False when the slider is out of reach.
  bool slide(double value);
  std::vector<std::string> properties() const override;

 protected:
  std::optional<PropertyValue> ownProperty(std::string_view property) const override;
  bool setOwnProperty(std::string_view property, const PropertyValue& value) override;

 private:
  double minimum_ = 0;
  double maximum_ = 10;
  double value_ = 0;
};

// Items counted from 0 with one selected or none (-1). An index that differs raises onClick;
// changes of the items raise nothing, and the selected item stays selected while it is there.
class ItemsControl : public Control {
 public:
  // The text of an item, made when it is asked for.
  using ItemSource = std::function<std::string(int index)>;

  // Of a source they are made anew by every call.
  const std::vector<std::string>& items() const;
  int count() const { return source_ ? sourceCount_ : static_cast<int>(items_.size()); }
  // Raises Subscript out of range.
  std::string item(int index) const;
  void addItem(std::string item);
  void setItem(int index, std::string item);
  void removeItem(int index);
  void clear();
  // Replaces all; nothing is selected then.
  void setItems(std::vector<std::string> items);
  // Replaces all by a long list, of which only what is seen is ever made. Any of the changes above
  // makes it a list of its own texts. Nothing is selected then.
  void setSource(int count, ItemSource source);
  // The source has other texts, and so many of them. The index stays while there is an item.
  void sourceChanged(int count);
  // Another number after each change of the items: a view need not compare a long list.
  unsigned revision() const { return revision_; }
  // Keeps the items in alphabetic order without regard to case from now on.
  void keepSorted();
  // The first item that equals `text`, or -1.
  int indexOf(std::string_view text) const;

  int index() const { return index_; }
  // Raises Invalid procedure call outside -1 to count - 1.
  void setIndex(int index);
  // The operator's choice: a click even when the item is selected already. False when the control
  // is out of reach.
  bool pick(int index);
  std::vector<std::string> properties() const override;

 protected:
  using Control::Control;
  // Selects without an event; false when the form was destroyed.
  bool select(int index);
  // The same without telling anybody.
  void markIndex(int index) { index_ = index; }
  // Selects the item that equals `text`, none for an empty text.
  void selectText(std::string_view text);
  virtual bool selectionChanged() { return announce(Property::Index); }
  std::optional<PropertyValue> ownProperty(std::string_view property) const override;
  bool setOwnProperty(std::string_view property, const PropertyValue& value) override;

 private:
  void requireItem(int index) const;
  void requireIndex(int index) const;
  bool isItem(int index, std::string_view text) const;
  void takeSource();
  bool itemsChanged();

  mutable std::vector<std::string> items_;
  ItemSource source_;  // in their place
  int sourceCount_ = 0;
  unsigned revision_ = 0;
  int index_ = -1;
  bool sorted_ = false;
};

// The text is that of the selected item, "" for none. Setting it selects the item; any other text
// raises Invalid procedure call.
class ListBox : public ItemsControl {
 public:
  ListBox(Form& form, std::string name, ControlPlace place = {})
      : ItemsControl(form, std::move(name), place) {}
  ControlKind kind() const override { return ControlKind::List; }
  std::string text() const override;
  void setText(std::string text) override;
  // The operator opens the selected item, by a double click or the Enter key. False when the list
  // is out of reach, has nothing to open, or nobody opens its items.
  bool open();

  Handler onOpen;
};

enum class ComboStyle { Editable, ListOnly };

// A text with a list to choose from. In an editable combo a text that differs raises onChange and
// quietly selects the item that equals it; choosing an item sets the text and raises onClick alone.
// In one that is list-only the text is always an item, or "" while none is selected.
class ComboBox : public ItemsControl {
 public:
  ComboBox(Form& form, std::string name, ComboStyle style = ComboStyle::ListOnly,
           ControlPlace place = {})
      : ItemsControl(form, std::move(name), place), style_(style) {}
  ControlKind kind() const override { return ControlKind::Combo; }
  ComboStyle style() const { return style_; }

  std::string text() const override;
  void setText(std::string text) override;
  // The operator's typing; false when the combo is list-only or out of reach.
  bool type(std::string text);
  // The operator drops the list down. False when the combo is out of reach.
  bool open();

  Handler onDropDown;

 protected:
  bool selectionChanged() override;

 private:
  ComboStyle style_;
  std::string text_;  // of an editable combo
};

// Controls under one name, told apart by an index. Events of the elements arrive at the array's
// handlers with that index.
template <class Kind>
class ControlArray {
 public:
  using IndexHandler = std::function<void(int)>;

  ControlArray(Form& form, const std::string& name, const std::vector<int>& indices,
               ControlPlace place = {})
      : indices_(indices) {
    for (const int index : indices_) {
      elements_.push_back(std::make_unique<Kind>(form, name, place.at(index)));
      forwardEvents(*elements_.back(), index);
    }
  }
  ControlArray(const ControlArray&) = delete;
  ControlArray& operator=(const ControlArray&) = delete;

  // Raises Subscript out of range for an index that is not of the array.
  Kind& operator[](int index) const {
    for (const auto& element : elements_) {
      if (element->arrayIndex() == index) return *element;
    }
    throw subscriptOutOfRange();
  }
  const std::vector<int>& indices() const { return indices_; }
  int count() const { return static_cast<int>(indices_.size()); }

  IndexHandler onClick;
  IndexHandler onChange;
  IndexHandler onFocus;
  IndexHandler onLeave;

 private:
  void forwardEvents(Kind& element, int index) {
    element.onClick = forwarding(onClick, index);
    element.onChange = forwarding(onChange, index);
    element.onFocus = forwarding(onFocus, index);
    element.onLeave = forwarding(onLeave, index);
  }
  // A copy is called, so that a handler may replace itself or destroy the form.
  static Control::Handler forwarding(const IndexHandler& handler, int index) {
    return [&handler, index] {
      if (const IndexHandler called = handler) called(index);
    };
  }

  std::vector<int> indices_;
  std::vector<std::unique_ptr<Kind>> elements_;
};

}  // namespace tess
