// A form and its widgets, kept alike in both directions by the names of the controls.
// Owns: FormView.
#pragma once

#include <QObject>
#include <memory>
#include <unordered_map>

#include "core/form.h"
#include "shell/qt/control_binding.h"
#include "shell/qt/figure_units.h"
#include "shell/qt/form_layout.h"

namespace tess {

class FormView : public QObject, public FormObserver {
 public:
  // The widgets become children of `parent`. The view must outlive neither parent nor gateway, but
  // may outlive the form.
  FormView(Form& form, Gateway& gateway, QWidget& parent);

  QWidget& root() { return *layout_.root; }
  // The form; null once it has gone.
  Form* form() const { return actions_.formLives() ? &form_ : nullptr; }
  FormActions& actions() { return actions_; }
  // The widget whose size is the form's, if that is not its root.
  void measure(QWidget& whole);
  // Shows every property anew.
  void showAll();
  // Gives the keyboard to the control that has the focus.
  void showFocus();

  void controlChanged(Control& control, Property property) override;
  void formChanged(Form& form, FormProperty property) override;
  void formGone() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showContents(const Control& frame, Property property);

  Form& form_;
  FormActions actions_;
  FormLayout layout_;
  std::unordered_map<const Control*, std::unique_ptr<ControlBinding>> bindings_;
  std::unique_ptr<UnitMarks> units_;
  QPointer<QWidget> measured_;
  Subscription subscription_;
};

}  // namespace tess
