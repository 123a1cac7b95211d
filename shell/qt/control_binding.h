// One control of a form and the widget that shows it, kept alike in both directions.
// Owns: DropDownBox, FormActions, ControlBinding, makeBinding.
#pragma once

#include <QComboBox>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "core/form.h"
#include "shell/qt/gateway.h"

namespace tess {

// A combo that tells before its list drops down.
class DropDownBox : public QComboBox {
 public:
  using QComboBox::QComboBox;
  void showPopup() override {
    if (onDropDown) onDropDown();
    QComboBox::showPopup();
  }
  std::function<void()> onDropDown;
};

// The road of the operator's input to a form that may go while it is on its way.
class FormActions {
 public:
  FormActions(Form& form, Gateway& gateway) : form_(form), life_(form.life()), gateway_(gateway) {}

  bool formLives() const { return !life_.expired(); }
  // Runs an event of a control inside the guard; false when the form has gone.
  bool run(const std::string& event, const std::function<void()>& action) {
    if (!formLives()) return false;
    gateway_.enter(form_.name() + "." + event, action);
    return formLives();
  }

  // The operator wants to know about the form.
  void help() {
    if (!formLives() || !gateway_.onHelp) return;
    gateway_.enter(form_.name() + ".Form_Help", [this] { gateway_.onHelp(form_); });
  }

  // The control that has the focus kept it: the keyboard has to go back there.
  std::function<void()> onFocusKept;

 private:
  Form& form_;
  Form::Life life_;
  Gateway& gateway_;
};

class ControlBinding : public QObject {
 public:
  ~ControlBinding() override = default;

  Control& control() const { return control_; }
  QWidget& widget() const { return *widget_; }

  // Brings the widget up to one property of the control, or to all of them.
  void show(Property property);
  void showAll();
  // The widget shall have the keyboard.
  void takeFocus();
  // The control is gone: the widget stays as it is and does nothing any more.
  void detach();

 protected:
  ControlBinding(Control& control, QWidget& widget, FormActions& actions);

  // What a kind shows beyond flags, hint, colour and place. Signals of the widget are blocked.
  virtual void showOwn(Property property) = 0;
  virtual void showCaption(const QString& /*caption*/) {}
  // The control is gone, for widgets that look at it while they are painted.
  virtual void forgetModel() {}

  bool formLives() const { return actions_.formLives(); }
  // Runs an event of the operator, then shows what the control made of it.
  void act(const char* event, const std::function<void()>& action);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void focusArrived();
  void focusWasKept();
  void showColor();
  void showPlace();

  Control& control_;
  QPointer<QWidget> widget_;
  FormActions& actions_;
  bool colored_ = false;  // the widget shows a colour of the control's own
};

// The binding of a control's kind, or null when the widget is of no class that fits it.
std::unique_ptr<ControlBinding> makeBinding(Control& control, QWidget& widget,
                                            FormActions& actions);

}  // namespace tess
