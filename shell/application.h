// The whole program without a window: one of each of its parts, introduced to one another. It is
// the only place that knows them all and holds no rules of its own.
// Owns: Application.
#pragma once

#include <string_view>

#include "cnc/cnc_program.h"
#include "cnc/post_definition.h"
#include "core/drawing_store.h"
#include "core/session.h"

namespace tess {

class Application {
 public:
  // The ports must outlive the application.
  explicit Application(Host& host);

  // Brings the program up as `Main` does, with the drawing named, "" for none. Raises what it does.
  void start(std::string_view drawing, std::string_view appfolder);

  DrawingStore store;
  PostDefinition definition;
  CncState cnc;
  ProgramViewer viewer;

 private:
  // What the core announces, passed on to the rooms that carry it out.
  class Listener : public SessionListener {
   public:
    explicit Listener(Application& application) : application_(application) {}
    void load_xsetup() override;

   private:
    Application& application_;
  };
  Listener listener_{*this};

 public:
  Session session;
};

}  // namespace tess
