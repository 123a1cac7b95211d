// A session for tests.
#include "tests/support/recording_session.h"

#include <filesystem>

#include "core/drawing_store.h"

namespace tess::testing {

RecordingListener::~RecordingListener() = default;

TestSession::TestSession() {
  std::filesystem::create_directory(home("CNC"));
  session.appfolder = home();
  store.drawingpath = home("CNC/");
  store.drawingsaved = true;
}

TestSession::~TestSession() = default;

}  // namespace tess::testing
