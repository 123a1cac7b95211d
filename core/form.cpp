// The form: its controls, the road of the focus, showing and closing. Every step after a handler or
// an observer asks first whether the form is still there.
#include "core/form.h"

#include <algorithm>
#include <utility>

#include "core/runtime_failure.h"

namespace tess {
namespace {

// A flag that is up while a step runs, and comes down unless its owner went meanwhile.
class Raised {
 public:
  Raised(bool& flag, Form::Life life) : flag_(flag), life_(std::move(life)) { flag_ = true; }
  ~Raised() {
    if (!life_.expired()) flag_ = false;
  }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  Form::Life life_;
};

bool canTakeFocus(const Control& control) {
  return control.takesFocus() && control.acceptsInput();
}

}  // namespace

Form::Form(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)), life_(std::make_shared<char>()) {}

Form::~Form() {
  beginDestruction();
}

// Members of the derived class go before the form does, so the first control to go ends its life.
void Form::beginDestruction() {
  if (!life_) return;
  life_.reset();
  observers_.tell([](FormObserver& observer) { observer.formGone(); });
}

void Form::enter(Control& control) {
  for (const Control* other : controls_) {
    if (other->name() != control.name()) continue;
    if (other->arrayIndex() && control.arrayIndex() && other->arrayIndex() != control.arrayIndex())
      continue;
    throw RuntimeFailure(FailureNumber::InvalidProcedureCall, name_ + "." + control.name(),
                         "Two controls of one name");
  }
  controls_.push_back(&control);
}

void Form::forget(Control& control) {
  beginDestruction();
  std::erase(controls_, &control);
  if (focused_ == &control) focused_ = nullptr;
}

bool Form::announce(FormProperty property) {
  const Life alive = life_;
  observers_.tell([&](FormObserver& observer) { observer.formChanged(*this, property); });
  return !alive.expired();
}

bool Form::announce(Control& control, Property property) {
  const Life alive = life_;
  observers_.tell([&](FormObserver& observer) { observer.controlChanged(control, property); });
  return !alive.expired();
}

bool Form::fire(const Handler& handler) {
  const Life alive = life_;
  if (const Handler called = handler) called();
  return !alive.expired();
}

void Form::setCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  announce(FormProperty::Caption);
}

void Form::setSize(int width, int height) {
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  if (announce(FormProperty::Size)) fire(onResize);
}

// Showing and closing

void Form::open(Modality modality) {
  if (shown_) {
    announce(FormProperty::Raised);
    return;
  }
  modality_ = modality;
  accepted_ = false;
  const Life alive = life_;
  load();
  if (alive.expired() || !loaded_) return;
  shown_ = true;
  if (announce(FormProperty::Shown) && shown_) focusFirst();
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  const Life alive = life_;
  try {
    fire(onLoad);
  } catch (...) {
    if (!alive.expired()) loaded_ = false;
    throw;
  }
}

void Form::accept() {
  if (!fire(onAccept)) return;
  accepted_ = true;
  const Life alive = life_;
  if (!close(CloseReason::Accepted) && !alive.expired()) accepted_ = false;
}

bool Form::close(CloseReason reason) {
  if (!loaded_) return true;
  if (closing_) return false;
  const Life alive = life_;
  CloseQuery query{.reason = reason};
  {
    const Raised closing(closing_, life_);
    if (const auto ask = onQueryClose) ask(query);
  }
  if (query.refused) return false;
  if (alive.expired()) return true;
  loaded_ = false;
  shown_ = false;
  focused_ = nullptr;
  if (announce(FormProperty::Closed)) fire(onClose);
  return true;
}

void Form::hide() {
  if (std::exchange(shown_, false)) announce(FormProperty::Hidden);
}

// Controls by name

Control* Form::control(std::string_view name) const {
  for (Control* control : controls_) {
    if (control->name() == name && !control->arrayIndex()) return control;
  }
  return nullptr;
}

Control* Form::control(std::string_view name, int index) const {
  for (Control* control : controls_) {
    if (control->name() == name && control->arrayIndex() == index) return control;
  }
  return nullptr;
}

std::vector<int> Form::arrayIndices(std::string_view name) const {
  std::vector<int> indices;
  for (const Control* control : controls_) {
    const std::optional<int> index = control->arrayIndex();
    if (index && control->name() == name) indices.push_back(*index);
  }
  return indices;
}

std::vector<std::string> Form::controlNames() const {
  std::vector<std::string> names;
  for (const Control* control : controls_) {
    if (std::find(names.begin(), names.end(), control->name()) == names.end()) {
      names.push_back(control->name());
    }
  }
  return names;
}

// Focus

// A move that a validation asks for itself (a message box takes and gives the focus) is ignored.
bool Form::moveFocus(Control* control) {
  if (control == focused_) return true;
  if (validating_ || (control != nullptr && !canTakeFocus(*control))) return false;
  if (focused_ != nullptr && (!mayLeave(*focused_, control) || !leaveFocused())) return false;
  if (control == nullptr) return announce(FormProperty::Focus);
  if (!canTakeFocus(*control)) return false;
  const Life alive = life_;
  focused_ = control;
  control->focusCame();
  if (alive.expired() || !announce(FormProperty::Focus)) return false;
  return focused_ != control || fire(control->onFocus);
}

// A refusal is told, so that a view takes its own focus back.
bool Form::mayLeave(Control& from, const Control* to) {
  if (to != nullptr && !to->causesValidation) return true;
  const Life alive = life_;
  Validation validation{.goingTo = to};
  {
    const Raised validating(validating_, life_);
    if (const auto validate = from.onValidate) validate(validation);
  }
  if (alive.expired()) return false;
  if (validation.refused) announce(FormProperty::Focus);
  return !validation.refused;
}

// False when the form went, or when the handler sent the focus elsewhere.
bool Form::leaveFocused() {
  Control* left = std::exchange(focused_, nullptr);
  return left == nullptr || (fire(left->onLeave) && focused_ == nullptr);
}

void Form::focusFirst() {
  if (focused_ == nullptr) focusNext();
}

bool Form::focusNext(bool backwards) {
  std::vector<Control*> order = controls_;
  if (backwards) std::reverse(order.begin(), order.end());
  const auto present = std::find(order.begin(), order.end(), focused_);
  if (present != order.end()) std::rotate(order.begin(), present + 1, order.end());
  const auto next = std::find_if(order.begin(), order.end(),
                                 [](const Control* control) { return canTakeFocus(*control); });
  return next != order.end() && moveFocus(*next);
}

// Keys

bool Form::pressDefault() {
  const auto* text = dynamic_cast<const TextBox*>(focused_);
  if (text != nullptr && text->multiLine && !text->readOnly) return false;
  if (auto* list = dynamic_cast<ListBox*>(focused_); list != nullptr && list->open()) return true;
  if (auto* button = dynamic_cast<Button*>(focused_)) return button->press();
  if (defaultButton_ != nullptr) return defaultButton_->press();
  return onlyTells() && close(CloseReason::Operator);
}

bool Form::onlyTells() const {
  return modality_ == Modality::Modal &&
         std::none_of(controls_.begin(), controls_.end(), [](const Control* control) {
           return control->kind() == ControlKind::Button;
         });
}

// The button itself takes no focus, so that the same field can be filled row after row.
bool Form::pressPage(bool down) {
  Button* const button = down ? pageDownButton_ : pageUpButton_;
  if (button == nullptr) return false;
  Control* const field = focused_;
  const Life alive = life_;
  if (!moveFocus(nullptr) || alive.expired() || !button->acceptsInput()) {
    if (!alive.expired() && shown_) moveFocus(field);
    return false;
  }
  button->click();
  if (!alive.expired() && shown_) moveFocus(field);
  return true;
}

void Form::pressCancel() {
  if (cancelButton_ == nullptr) {
    close(CloseReason::Operator);
  } else if (cancelButton_->acceptsInput()) {
    cancelButton_->click();
  }
}

}  // namespace tess
