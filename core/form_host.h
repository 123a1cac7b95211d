// The windows that stay open beside the main one, by name.
// Owns: FormHostObserver, FormHost.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/form.h"
#include "core/observer_list.h"

namespace tess {

// Whoever gives the open forms their windows.
class FormHostObserver {
 public:
  virtual ~FormHostObserver() = default;
  // Before the form loads.
  virtual void formOpened(Form& /*form*/) {}
  // Closed or destroyed; only the name may be relied on.
  virtual void formClosed(const std::string& /*name*/) {}
};

// Knows the modeless forms that are open; their owners keep them alive.
class FormHost {
 public:
  FormHost();
  ~FormHost();
  FormHost(const FormHost&) = delete;
  FormHost& operator=(const FormHost&) = delete;

  // Opens the form without waiting for it; raises it when it is open.
  void show(Form& form);
  // The open form of that name, or null.
  Form* find(std::string_view name) const;
  // In the order they were opened.
  std::vector<Form*> openForms() const;
  // Closes all, the latest first, as at the program's end; false when one refuses.
  bool closeAll();

  Subscription observe(FormHostObserver& observer) { return observers_.add(observer); }

 private:
  class Entry;
  bool holds(const Form& form) const;
  void drop(const Form& form);

  std::vector<std::unique_ptr<Entry>> entries_;
  ObserverList<FormHostObserver> observers_;
};

}  // namespace tess
