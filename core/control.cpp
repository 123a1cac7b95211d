// What all controls share: state that tells its changes, focus and clicks, properties by name.
#include "core/control.h"

#include <utility>

#include "core/controls.h"
#include "core/form.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/runtime_failure.h"

namespace tess {

Control::Control(Form& form, std::string name, ControlPlace place)
    : form_(form), name_(std::move(name)), place_(place) {
  form_.enter(*this);
}

Control::~Control() {
  form_.forget(*this);
}

void Control::setCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  announce(Property::Caption);
}

void Control::setEnabled(bool enabled) {
  if (std::exchange(enabled_, enabled) != enabled) announce(Property::Enabled);
}

void Control::setVisible(bool visible) {
  if (std::exchange(visible_, visible) != visible) announce(Property::Visible);
}

void Control::setHint(std::string hint) {
  if (hint == hint_) return;
  hint_ = std::move(hint);
  announce(Property::Hint);
}

void Control::setColor(std::optional<int> color) {
  if (std::exchange(color_, color) != color) announce(Property::Color);
}

void Control::setBounds(std::optional<Bounds> bounds) {
  if (std::exchange(bounds_, bounds) != bounds) announce(Property::Bounds);
}

bool Control::acceptsInput() const {
  if (!enabled_ || !visible_) return false;
  return place_.frame == nullptr || place_.frame->acceptsInput();
}

bool Control::hasFocus() const {
  return form_.focused() == this;
}

bool Control::focus() {
  return form_.moveFocus(this);
}

bool Control::leave() {
  return focus() && form_.moveFocus(nullptr);
}

bool Control::reach() {
  if (!acceptsInput()) return false;
  const Form::Life life = form_.life();
  if (takesFocus() && !focus()) return false;
  return !life.expired() && acceptsInput();
}

bool Control::press() {
  if (!reach()) return false;
  pressed();
  return true;
}

void Control::key() {
  fire(onKey);
}

bool Control::announce(Property property) {
  return form_.announce(*this, property);
}

bool Control::fire(const Handler& handler) {
  return form_.fire(handler);
}

PropertyValue Control::get(std::string_view property) const {
  if (property == "text") return text();
  if (property == "caption") return caption_;
  if (property == "enabled") return enabled_;
  if (property == "visible") return visible_;
  if (property == "hint") return hint_;
  if (auto own = ownProperty(property)) return *std::move(own);
  refuse(property, "No such property");
}

void Control::set(std::string_view property, const PropertyValue& value) {
  if (property == "text") return setText(textIn(property, value));
  if (property == "caption") return setCaption(textIn(property, value));
  if (property == "enabled") return setEnabled(flagIn(property, value));
  if (property == "visible") return setVisible(flagIn(property, value));
  if (property == "hint") return setHint(textIn(property, value));
  if (!setOwnProperty(property, value)) refuse(property, "No such property");
}

std::vector<std::string> Control::properties() const {
  return {"text", "caption", "enabled", "visible", "hint"};
}

std::optional<PropertyValue> Control::ownProperty(std::string_view /*property*/) const {
  return std::nullopt;
}

bool Control::setOwnProperty(std::string_view /*property*/, const PropertyValue& /*value*/) {
  return false;
}

std::string Control::qualified(std::string_view property) const {
  const std::string element =
      place_.index ? name_ + "[" + std::to_string(*place_.index) + "]" : name_;
  return form_.name() + "." + element + "." + std::string(property);
}

void Control::refuse(std::string_view property, const std::string& reason) const {
  throw RuntimeFailure(FailureNumber::InvalidProcedureCall, qualified(property), reason);
}

void Control::mismatch(std::string_view property) const {
  throw RuntimeFailure(FailureNumber::TypeMismatch, qualified(property));
}

double Control::numberIn(std::string_view property, const PropertyValue& value) const {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? 1 : 0;
  mismatch(property);
}

int Control::integerIn(std::string_view property, const PropertyValue& value) const {
  return roundHalfEven(numberIn(property, value));
}

bool Control::flagIn(std::string_view property, const PropertyValue& value) const {
  return numberIn(property, value) != 0;
}

std::string Control::textIn(std::string_view property, const PropertyValue& value) const {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* number = std::get_if<double>(&value)) {
    return plainText(static_cast<float>(*number));
  }
  mismatch(property);
}

std::vector<std::string> Control::textsIn(std::string_view property,
                                          const PropertyValue& value) const {
  if (const auto* texts = std::get_if<std::vector<std::string>>(&value)) return *texts;
  mismatch(property);
}

}  // namespace tess
