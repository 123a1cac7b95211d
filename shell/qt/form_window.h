// The window of a form, modal or not, and the windows of all forms that stay open.
// Owns: FormWindow, FormWindows.
#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>
#include <map>
#include <string>

#include "core/form_host.h"
#include "shell/qt/content_area.h"
#include "shell/qt/form_view.h"

namespace tess {

class FormWindow : public QDialog, public FormObserver {
 public:
  FormWindow(Form& form, Gateway& gateway, QWidget* owner);

  // Opens the form and serves events until it is hidden, closed or gone.
  void runModal();
  FormView& view() { return view_; }
  // Takes the size that the form wants, as far as its screen has room for that.
  void takeSizeAnew();

  void formChanged(Form& form, FormProperty property) override;
  void formGone() override;

  // Esc and the closing button ask the form, which may refuse.
  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void layOut();
  void fitToScreen();
  void moveButtonsTogether();
  void takeWantedSize();
  void showTitle();
  void present();
  void standAside();

  FormView view_;
  ContentArea* content_ = nullptr;
  QLayout* buttons_ = nullptr;  // those that end the form; null when they are part of the content
  Subscription subscription_;
};

// Gives each modeless form its window, except those that a docked panel shows.
class FormWindows : public FormHostObserver {
 public:
  FormWindows(FormHost& host, Gateway& gateway, QWidget& owner);

  void formOpened(Form& form) override;
  void formClosed(const std::string& name) override;

  // True for a form that has its place in the main window.
  std::function<bool(const Form&)> isDocked;

 private:
  Gateway& gateway_;
  QWidget& owner_;
  std::map<std::string, QPointer<FormWindow>> windows_;
  Subscription subscription_;
};

}  // namespace tess
