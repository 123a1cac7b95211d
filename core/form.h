// Dialogs and panels as models: named controls with properties and events, free of any toolkit. A
// view binds them to widgets by name, a script works them by name, a test runs them as they are.
// Owns: Modality, CloseReason, CloseQuery, FormProperty, FormObserver, Form.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/control.h"
#include "core/controls.h"
#include "core/observer_list.h"

namespace tess {

class Form;

enum class Modality { Modal, Modeless };
enum class CloseReason { Program, Accepted, Operator };

// The question whether a form may close.
struct CloseQuery {
  CloseReason reason = CloseReason::Program;
  bool refused = false;
  void refuse() { refused = true; }
};

enum class FormProperty { Caption, Size, Focus, Shown, Raised, Hidden, Closed };

// A view of a form. It may call back into the form, and cancel its own or other observations.
class FormObserver {
 public:
  virtual ~FormObserver() = default;
  virtual void controlChanged(Control& /*control*/, Property /*property*/) {}
  virtual void formChanged(Form& /*form*/, FormProperty /*property*/) {}
  // The last call: form and controls are being destroyed and must not be touched any more.
  virtual void formGone() {}
};

// A derived class declares its controls as members and wires their handlers in its constructor:
//
//   class dlgDepth : public Form {
//    public:
//     dlgDepth() : Form("dlgDepth", "Depth") {
//       setDefaultButton(cmdAccept);
//       cmdAccept.onClick = [this] { accept(); };
//     }
//     TextBox txtDepth{*this, "txtDepth"};
//     Button cmdAccept{*this, "cmdAccept"};
//   };
//
// Controls declared first come first in the tab order; a frame is declared before its controls.
class Form {
 public:
  using Handler = std::function<void()>;
  using Life = std::weak_ptr<const void>;

  explicit Form(std::string name, std::string caption = {});
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);

  // Loads the form if it is not loaded and shows it; the first control that takes the focus has it
  // then. A form on show is raised. Waiting for a modal form is the affair of Prompts::showModal.
  void open(Modality modality);
  // Runs onLoad once, until the form is closed.
  void load();
  bool isShown() const { return shown_; }
  bool isLoaded() const { return loaded_; }
  Modality modality() const { return modality_; }

  // Runs onAccept and closes as accepted; a failure in onAccept leaves the form as it is.
  void accept();
  // True when the last showing ended by accept().
  bool accepted() const { return accepted_; }
  // Asks onQueryClose, hides the form, runs onClose. False when the query refuses. Neither
  // validates nor leaves the control with the focus.
  bool close(CloseReason reason = CloseReason::Program);
  // Out of sight but loaded: no query, no onClose.
  void hide();

  const std::vector<Control*>& controls() const { return controls_; }  // in tab order
  // The control of that name; null for an unknown one, and for the bare name of an array.
  Control* control(std::string_view name) const;
  Control* control(std::string_view name, int index) const;
  // The indices of a control array in their order; empty for anything else.
  std::vector<int> arrayIndices(std::string_view name) const;
  // All names in order, that of an array once.
  std::vector<std::string> controlNames() const;

  Control* focused() const { return focused_; }
  // Moves the focus to `control`, or nowhere with null. See Control::focus.
  bool moveFocus(Control* control);
  // Tab and Shift+Tab: the next control that takes the focus, round the ends.
  bool focusNext(bool backwards = false);

  void setDefaultButton(Button& button) { defaultButton_ = &button; }
  void setCancelButton(Button& button) { cancelButton_ = &button; }
  Button* defaultButton() const { return defaultButton_; }
  Button* cancelButton() const { return cancelButton_; }
  // The Enter key: opens the item selected in the list that has the focus, if it opens any; presses
  // the button that has the focus, else the default one, which takes the focus so that the field
  // being edited is validated and left; closes a modal form without buttons, which has been read.
  // False when nothing happened, as in a text of several lines that is being written.
  bool pressDefault();
  // The keys PgUp and PgDn click these.
  void setPageButtons(Button& up, Button& down) {
    pageUpButton_ = &up;
    pageDownButton_ = &down;
  }
  // What they do: the field with the focus is validated and left, the button clicked, and the field
  // has the focus again. False when nothing happened.
  bool pressPage(bool down);
  // The Esc key: clicks the cancel button where it stands, so that no field can hold the operator
  // back, or closes a form that has none. The window's closing button calls close instead.
  void pressCancel();

  // While this form waits modally, the drawing alone stays in the operator's reach: the program
  // decides what a click in it means. Fixed when the form is built.
  bool leavesDrawingInReach = false;

  int width() const { return width_; }
  int height() const { return height_; }
  // The inner size in pixels, told by the view; runs onResize when it differs.
  void setSize(int width, int height);

  Subscription observe(FormObserver& observer) { return observers_.add(observer); }
  // Expires as the form, or its first control, is destroyed.
  Life life() const { return life_; }

  Handler onLoad;
  Handler onAccept;
  Handler onClose;
  Handler onResize;
  std::function<void(CloseQuery&)> onQueryClose;

 private:
  friend class Control;
  void enter(Control& control);
  void forget(Control& control);
  void beginDestruction();
  bool announce(FormProperty property);
  bool announce(Control& control, Property property);
  bool fire(const Handler& handler);
  bool mayLeave(Control& from, const Control* to);
  bool leaveFocused();
  void focusFirst();
  bool onlyTells() const;

  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  ObserverList<FormObserver> observers_;
  std::shared_ptr<const void> life_;
  Control* focused_ = nullptr;
  Button* defaultButton_ = nullptr;
  Button* cancelButton_ = nullptr;
  Button* pageUpButton_ = nullptr;
  Button* pageDownButton_ = nullptr;
  Modality modality_ = Modality::Modal;
  int width_ = 0;
  int height_ = 0;
  bool loaded_ = false;
  bool shown_ = false;
  bool accepted_ = false;
  bool closing_ = false;
  bool validating_ = false;
};

}  // namespace tess
