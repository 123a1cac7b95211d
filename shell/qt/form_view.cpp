// The view of a form.
#include "shell/qt/form_view.h"

#include <QEvent>
#include <QLayout>

#include "shell/qt/spoken_names.h"
#include "shell/qt/tab_order.h"

namespace tess {

FormView::FormView(Form& form, Gateway& gateway, QWidget& parent)
    : form_(form), actions_(form, gateway), layout_(makeFormLayout(form, &parent)) {
  giveRolesToPanes();
  actions_.onFocusKept = [this] { showFocus(); };
  for (Control* control : form.controls()) {
    const auto found = layout_.widgets.find(control);
    if (found == layout_.widgets.end()) continue;
    if (auto binding = makeBinding(*control, *found->second, actions_)) {
      bindings_.emplace(control, std::move(binding));
    }
  }
  arrangeTabOrder(*layout_.root);
  units_ = std::make_unique<UnitMarks>(*layout_.root, gateway.isMetric);
  showAll();
  subscription_ = form.observe(*this);
  measure(*layout_.root);
}

void FormView::measure(QWidget& whole) {
  if (measured_ != nullptr) measured_->removeEventFilter(this);
  measured_ = &whole;
  whole.installEventFilter(this);
}

void FormView::showAll() {
  if (!actions_.formLives()) return;
  for (const auto& [control, binding] : bindings_) binding->showAll();
  units_->show();
  // Captions are there by now; places are once the layout has been done.
  layout_.root->layout()->activate();
  for (const auto& [control, binding] : bindings_) nameForReaders(binding->widget(), *control);
}

void FormView::showFocus() {
  if (!actions_.formLives() || form_.focused() == nullptr) return;
  const auto found = bindings_.find(form_.focused());
  if (found != bindings_.end()) found->second->takeFocus();
}

void FormView::controlChanged(Control& control, Property property) {
  const auto found = bindings_.find(&control);
  if (found != bindings_.end()) found->second->show(property);
  if (control.kind() == ControlKind::Frame) showContents(control, property);
  if (property == Property::Text || property == Property::Value) units_->show();
}

// A frame takes the controls inside with it.
void FormView::showContents(const Control& frame, Property property) {
  if (property != Property::Enabled && property != Property::Visible) return;
  for (const auto& [control, binding] : bindings_) {
    for (const Control* around = control->frame(); around != nullptr; around = around->frame()) {
      if (around == &frame) binding->show(property);
    }
  }
}

void FormView::formChanged(Form& /*form*/, FormProperty property) {
  if (property == FormProperty::Focus || property == FormProperty::Shown) showFocus();
}

void FormView::formGone() {
  for (const auto& [control, binding] : bindings_) binding->detach();
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && actions_.formLives()) {
    const QSize size = measured_->size();
    actions_.run("Form_Resize", [&] { form_.setSize(size.width(), size.height()); });
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tess
