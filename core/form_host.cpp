// The registry of modeless forms.
#include "core/form_host.h"

#include <algorithm>
#include <utility>

namespace tess {

// One open form under watch; it leaves the host by itself when the form closes or goes.
class FormHost::Entry : public FormObserver {
 public:
  Entry(FormHost& host, Form& form)
      : form_(form), name_(form.name()), host_(host), watch_(form.observe(*this)) {}

  Form& form() const { return form_; }
  const std::string& name() const { return name_; }

  void formChanged(Form& /*form*/, FormProperty property) override {
    if (property == FormProperty::Closed) host_.drop(form_);
  }
  void formGone() override { host_.drop(form_); }

 private:
  Form& form_;
  std::string name_;
  FormHost& host_;
  Subscription watch_;
};

FormHost::FormHost() = default;
FormHost::~FormHost() = default;

void FormHost::show(Form& form) {
  if (!holds(form)) {
    entries_.push_back(std::make_unique<Entry>(*this, form));
    observers_.tell([&](FormHostObserver& observer) { observer.formOpened(form); });
  }
  try {
    form.open(Modality::Modeless);
  } catch (...) {
    drop(form);
    throw;
  }
  // A form may close itself while it loads.
  if (holds(form) && !form.isLoaded()) drop(form);
}

bool FormHost::holds(const Form& form) const {
  return std::any_of(entries_.begin(), entries_.end(),
                     [&](const auto& entry) { return &entry->form() == &form; });
}

Form* FormHost::find(std::string_view name) const {
  for (const auto& entry : entries_) {
    if (entry->name() == name) return &entry->form();
  }
  return nullptr;
}

std::vector<Form*> FormHost::openForms() const {
  std::vector<Form*> forms;
  forms.reserve(entries_.size());
  for (const auto& entry : entries_) forms.push_back(&entry->form());
  return forms;
}

bool FormHost::closeAll() {
  while (!entries_.empty()) {
    if (!entries_.back()->form().close()) return false;
  }
  return true;
}

void FormHost::drop(const Form& form) {
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const auto& entry) { return &entry->form() == &form; });
  if (found == entries_.end()) return;
  const std::unique_ptr<Entry> dropped = std::move(*found);
  entries_.erase(found);
  observers_.tell([&](FormHostObserver& observer) { observer.formClosed(dropped->name()); });
}

}  // namespace tess
