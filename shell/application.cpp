// The composition of the program.
#include "shell/application.h"

#include "core/lifecycle.h"

namespace tess {

Application::Application(Host& host) : session(store, host, listener_) {}

void Application::start(std::string_view drawing, std::string_view appfolder) {
  Main(session, drawing, appfolder);
}

void Application::Listener::load_xsetup() {
  tess::load_xsetup(application_.session, application_.definition);
}

}  // namespace tess
