// What all controls of a form have in common: name, caption, state, focus, events, and properties
// by name. Events arise from assignments in the program as they do from the operator's input;
// handlers may change or even destroy the form they belong to.
// Owns: ControlKind, Property, PropertyValue, Bounds, Validation, ControlPlace, Control.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tess {

class Form;
class Frame;
class Control;

enum class ControlKind {
  TextBox,
  Button,
  CheckBox,
  Option,
  List,
  Combo,
  Label,
  Slider,
  Picture,
  Frame
};

// What an observer is told has changed.
enum class Property {
  Text,
  Value,
  Items,  // and perhaps index and text with them
  Index,
  Caption,
  Enabled,
  Visible,
  Hint,
  Color,
  Bounds,
  Selection,  // the whole text has just been selected
  Range,      // of a slider
  Content     // of a picture: paint it anew
};

// A property as scripts see it: flag, number, text, or list of texts.
using PropertyValue = std::variant<bool, double, std::string, std::vector<std::string>>;

// A place on the form in pixels; without one the layout decides.
struct Bounds {
  int left = 0, top = 0, width = 0, height = 0;
  bool operator==(const Bounds&) const = default;
};

// The question whether the focus may leave a control.
struct Validation {
  const Control* goingTo = nullptr;  // null when the focus leaves the form
  bool refused = false;
  void refuse() { refused = true; }
};

// Where a control stands on its form: directly on it or inside a frame, which is given as it is
// (`Option optMove{*this, "optMove", fraAction}`), and with which index in a control array.
struct ControlPlace {
  ControlPlace() = default;
  ControlPlace(Frame& around) : frame(&around) {}  // NOLINT(google-explicit-constructor)
  ControlPlace at(int element) const {
    ControlPlace place = *this;
    place.index = element;
    return place;
  }

  Frame* frame = nullptr;
  std::optional<int> index;
};

// Assigning a value that a property already has does nothing and raises no event.
class Control {
 public:
  using Handler = std::function<void()>;

  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual ControlKind kind() const = 0;
  Form& form() const { return form_; }
  const std::string& name() const { return name_; }
  std::optional<int> arrayIndex() const { return place_.index; }
  Frame* frame() const { return place_.frame; }

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  // Controls without a text of their own have their caption as text.
  virtual std::string text() const { return caption_; }
  virtual void setText(std::string text) { setCaption(std::move(text)); }

  // The control's own flags; a frame that is disabled or hidden does not change those inside it.
  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);
  bool isVisible() const { return visible_; }
  void setVisible(bool visible);
  // True when the operator can reach it: enabled and visible with all frames around it.
  bool acceptsInput() const;

  const std::string& hint() const { return hint_; }
  void setHint(std::string hint);
  // Colour of the text (of a picture: of its area) as blue * 65536 + green * 256 + red; none is
  // the toolkit's own.
  std::optional<int> color() const { return color_; }
  void setColor(std::optional<int> color);
  const std::optional<Bounds>& bounds() const { return bounds_; }
  void setBounds(std::optional<Bounds> bounds);

  virtual bool takesFocus() const { return true; }
  bool hasFocus() const;
  // Moves the focus here: the control that has it is validated and left, then this one is focused.
  // False when the focus stays where it was.
  bool focus();
  // Takes the focus away, after taking it if it was elsewhere: validates and leaves. False when a
  // validation refuses.
  bool leave();

  // An operator's click: moves the focus here and then does what a click on this kind does. False
  // when the control is out of reach or the focus could not come.
  bool press();
  // An operator's key that goes to this control.
  void key();

  // Properties by name: text, caption, enabled, visible, hint, and by kind value, items, index,
  // count. Unknown names, read-only ones and impossible values raise Invalid procedure call, values
  // of the wrong type Type mismatch.
  PropertyValue get(std::string_view property) const;
  void set(std::string_view property, const PropertyValue& value);
  virtual std::vector<std::string> properties() const;

  // True: moving the focus here validates the control that loses it.
  bool causesValidation = true;

  Handler onClick;
  Handler onChange;
  Handler onFocus;
  Handler onLeave;
  Handler onKey;
  std::function<void(Validation&)> onValidate;

 protected:
  Control(Form& form, std::string name, ControlPlace place);

  // Tells the observers; false when the form was destroyed by it.
  bool announce(Property property);
  // Runs a handler; false when the form was destroyed by it. The handler may replace itself.
  bool fire(const Handler& handler);
  // Brings the operator's input here: false when the control is out of reach, or the focus could
  // not come, or the handlers of its move closed the way.
  bool reach();
  // What an operator's click does once the focus is here.
  virtual void pressed() { fire(onClick); }
  // Called when the focus has come, before onFocus.
  virtual void focusCame() {}
  // Properties beyond those of all controls; nothing or false for a name not known.
  virtual std::optional<PropertyValue> ownProperty(std::string_view property) const;
  virtual bool setOwnProperty(std::string_view property, const PropertyValue& value);

  // An Invalid procedure call that names the control.
  [[noreturn]] void refuse(std::string_view property, const std::string& reason) const;
  double numberIn(std::string_view property, const PropertyValue& value) const;
  int integerIn(std::string_view property, const PropertyValue& value) const;
  bool flagIn(std::string_view property, const PropertyValue& value) const;
  std::string textIn(std::string_view property, const PropertyValue& value) const;
  std::vector<std::string> textsIn(std::string_view property, const PropertyValue& value) const;

 private:
  friend class Form;
  std::string qualified(std::string_view property) const;
  [[noreturn]] void mismatch(std::string_view property) const;

  Form& form_;
  std::string name_;
  ControlPlace place_;
  std::string caption_;
  std::string hint_;
  std::optional<int> color_;
  std::optional<Bounds> bounds_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace tess
