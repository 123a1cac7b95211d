// The view of a form.
#include "shell/qt/form_view.h"

#include <QEvent>

namespace tess {

FormView::FormView(Form& form, Gateway& gateway, QWidget& parent)
    : form_(form), actions_(form, gateway), layout_(makeFormLayout(form, &parent)) {
  actions_.onFocusKept = [this] { showFocus(); };
  QWidget* before = nullptr;
  for (Control* control : form.controls()) {
    const auto found = layout_.widgets.find(control);
    if (found == layout_.widgets.end()) continue;
    if (auto binding = makeBinding(*control, *found->second, actions_)) {
      bindings_.emplace(control, std::move(binding));
    }
    if (before != nullptr) QWidget::setTabOrder(before, found->second);
    before = found->second;
  }
  showAll();
  subscription_ = form.observe(*this);
  layout_.root->installEventFilter(this);
}

void FormView::showAll() {
  if (!actions_.formLives()) return;
  for (const auto& [control, binding] : bindings_) binding->showAll();
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
    const QSize size = layout_.root->size();
    actions_.run("Form_Resize", [&] { form_.setSize(size.width(), size.height()); });
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace tess
