// A session with a folder of drawings: rows to save, files to look at, and other sessions on the
// same files, as other starts of the program have them.
// Owns: OtherStart, DrawingFolder.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "tests/support/recording_session.h"
#include "tests/support/write_file.h"

namespace tess::testing {

// Another start of the program in the same folder.
struct OtherStart {
  explicit OtherStart(const std::string& appfolder) {
    session.appfolder = appfolder;
    store.drawingpath = appfolder + "CNC/";
    store.drawingsaved = true;
  }

  void load(const std::string& name) {
    session.selectedfolder = store.drawingpath;
    session.selectedname = name;
    load_Drawing(session);
  }
  std::vector<std::string> texts() const { return textsOf(recording); }

  static std::vector<std::string> textsOf(const RecordingHost& host) {
    std::vector<std::string> texts;
    for (const Message& message : host.prompts.messages) texts.push_back(message.text);
    return texts;
  }

  DrawingStore store;
  RecordingHost recording;
  RecordingListener listener;
  Session session{store, recording.host, listener};
};

struct DrawingFolder {
  void addLine(float x1) {
    AddSeg(store, {.type = kLine, .x0 = 0, .y0 = 0, .x1 = x1, .y1 = 1}, nullptr);
    store.drawingsaved = false;
  }
  void addPath(float x1 = 2) {
    addPathSegment(store, {.type = kLine, .x1 = x1, .z = -0.5F, .feed = 8, .code = 102});
  }
  void saveAs(const std::string& name) {
    test.name(name);
    save_Drawing(session);
  }
  void load(const std::string& name) {
    session.selectedfolder = cnc("");
    session.selectedname = name;
    load_Drawing(session);
  }

  std::string cnc(const std::string& name) const { return test.home("CNC/" + name); }
  std::string read(const std::string& name) const { return test.home.read("CNC/" + name); }
  void write(const std::string& name, std::string_view content) const {
    writeFile(cnc(name), content);
  }
  bool has(const std::string& name) const { return std::filesystem::exists(cnc(name)); }
  // Every entry of the folder, sorted: nothing may be left behind.
  std::vector<std::string> entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(cnc(""))) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  // What the operator was told and asked since the last call.
  std::vector<std::string> takeTexts() {
    std::vector<std::string> texts = OtherStart::textsOf(test.recording);
    test.messages().clear();
    return texts;
  }

  TestSession test;
  Session& session = test.session;
  DrawingStore& store = test.store;
};

}  // namespace tess::testing
