// Saves that are cut off at each of their system calls: the drawing and its paths are afterwards
// those before the save or those behind it, never one of each, and opening the drawing leaves
// nothing lying about.
#include <algorithm>
#include <filesystem>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/drawing_file.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "tests/support/interrupted_process.h"
#include "tests/support/recording_session.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

namespace fs = std::filesystem;
using testing::Interruption;
using testing::TestSession;
using testing::writeFile;

// The files of a drawing as content; an absent file has none.
struct Pair {
  std::optional<std::string> drawing, paths, jobs;
  friend bool operator==(const Pair&, const Pair&) = default;
};

std::optional<std::string> contentOf(const std::string& path) {
  if (!fs::exists(path)) return std::nullopt;
  return readFile(path);
}

void putBack(const std::string& path, const std::optional<std::string>& content) {
  fs::remove(path);
  if (content) writeFile(path, *content);
}

// One kind of save: what is in the folder before, and the rows that are then saved.
struct SaveCase {
  const char* name;
  int rowsBefore, pathsBefore;  // below 0 rows: there is no drawing
  bool backupBefore;
  int rowsSaved, pathsSaved;
  bool hasJobs = false;  // of the paths, in a file of their own
};

class InterruptedSave : public ::testing::TestWithParam<SaveCase> {
 protected:
  InterruptedSave() {
    const SaveCase& how = GetParam();
    test_.store.cfg_true_paths = how.hasJobs;
    if (how.backupBefore) backup_ = pairOf(7, 7);
    if (how.rowsBefore >= 0) old_ = pairOf(how.rowsBefore, how.pathsBefore);
    prepare();
    save_Drawing(test_.session);
    new_ = pairOnDisk("");
  }

  std::string cnc(const std::string& name) const { return test_.home("CNC/" + name); }

  void fill(int rows, int paths) {
    DrawingStore& store = test_.store;
    store.NumSegments = 0;
    store.NumPathSegments = 0;
    for (int row = 1; row <= rows; ++row) {
      AddSeg(store, {.type = kLine, .x1 = static_cast<float>(row), .y1 = 1}, nullptr);
    }
    for (int path = 1; path <= paths; ++path) {
      addPathSegment(store, {.type = kLine, .x1 = static_cast<float>(path), .code = 102});
    }
    if (GetParam().hasJobs) {
      test_.session.pathJobs.note(store, {.group = 1, .toolRadius = paths * 0.125});
    }
    store.drawingsaved = false;
  }

  Pair pairOnDisk(const std::string& suffix) const {
    return {contentOf(cnc("PART.CDM" + suffix)), contentOf(cnc("PART.TPM" + suffix)),
            contentOf(cnc("PART.TPJ" + suffix))};
  }

  // A drawing of so many rows.
  Pair pairOf(int rows, int paths) {
    new_drawing(test_.session);
    clearFolder();
    fill(rows, paths);
    test_.name("PART.CDM");
    save_Drawing(test_.session);
    return pairOnDisk("");
  }

  void clearFolder() {
    fs::remove_all(cnc(""));
    fs::create_directory(cnc(""));
  }

  // The old pair is open, and the rows to be saved are drawn.
  void prepare() {
    clearFolder();
    fs::remove(test_.home("said"));
    putBack(cnc("PART.CDM"), old_.drawing);
    putBack(cnc("PART.TPM"), old_.paths);
    putBack(cnc("PART.TPJ"), old_.jobs);
    putBack(cnc("PART.CDM~"), backup_.drawing);
    putBack(cnc("PART.TPM~"), backup_.paths);
    putBack(cnc("PART.TPJ~"), backup_.jobs);
    new_drawing(test_.session);
    test_.name("PART.CDM");
    if (old_.drawing) load_Drawing(test_.session);
    fill(GetParam().rowsSaved, GetParam().pathsSaved);
  }

  // Opens the drawing as the next start of the program does.
  void openAnew() {
    DrawingStore store;
    testing::RecordingHost recording;
    testing::RecordingListener listener;
    Session session(store, recording.host, listener);
    session.appfolder = test_.home();
    session.selectedfolder = cnc("");
    session.selectedname = "PART.CDM";
    load_Drawing(session);
    const Pair now = pairOnDisk("");
    EXPECT_EQ(store.NumSegments > 0, now.drawing.has_value());
    EXPECT_EQ(store.NumPathSegments > 0, now.paths.has_value());
    EXPECT_EQ(session.pathJobs.inForce(store).empty(), !now.jobs.has_value());
  }

  // The save, and what the operator was told of it.
  void save() {
    const std::string said = test_.home("said");
    try {
      save_Drawing(test_.session);
      writeFile(said, test_.store.drawingsaved ? "saved" : "not saved");
    } catch (const RuntimeFailure&) {
      writeFile(said, "failed");
    }
  }

  void check() {
    openAnew();
    const Pair now = pairOnDisk("");
    EXPECT_TRUE(now == old_ || now == new_) << "one of each";
    const std::string said = contentOf(test_.home("said")).value_or("");
    EXPECT_NE(said, "not saved");
    EXPECT_TRUE(said != "saved" || now == new_);
    EXPECT_TRUE(said != "failed" || now == old_);
    const Pair kept = pairOnDisk("~");
    EXPECT_TRUE(kept == backup_ || kept == old_) << "a backup of two saves";
    for (const auto& entry : fs::directory_iterator(cnc(""))) {
      EXPECT_THAT(entry.path().filename().string(), ::testing::StartsWith("PART."));
    }
  }

  void interrupt(Interruption how) {
    const int points = testing::pointsWithin(how, {.prepare = [this] { prepare(); },
                                                   .work = [this] { save(); },
                                                   .check = [this] { check(); }});
    EXPECT_GT(points, 0);
    RecordProperty("points", points);
  }

  TestSession test_;
  Pair old_, new_, backup_;
};

TEST_P(InterruptedSave, KilledAtAnyCallLeavesTheOldPairOrTheNew) {
  interrupt(Interruption::Killed);
}

TEST_P(InterruptedSave, KilledInAnyWriteLeavesTheOldPairOrTheNew) {
  interrupt(Interruption::KilledInMidWrite);
}

TEST_P(InterruptedSave, FaultyDiskAtAnyCallLeavesTheOldPairOrTheNew) {
  interrupt(Interruption::InputOutputError);
}

class FullDiskSave : public InterruptedSave {};

TEST_P(FullDiskSave, AtAnyCallLeavesTheOldPairOrTheNew) {
  interrupt(Interruption::NoSpace);
}

constexpr SaveCase kCases[] = {
    {"NewDrawing", -1, 0, false, 2, 2},     {"NewDrawingWithoutPaths", -1, 0, false, 2, 0},
    {"BothFilesChange", 3, 3, false, 2, 2}, {"BothFilesAndTheirBackup", 3, 3, true, 2, 2},
    {"PathsAreGone", 3, 3, true, 2, 0},     {"PathsAreNew", 3, 0, true, 2, 2},
    {"NeverHadPaths", 3, 0, true, 2, 0},    {"JobsOfPaths", 3, 3, true, 2, 2, true},
    {"JobsAreNew", 3, 0, true, 2, 2, true},
};
std::string nameOf(const ::testing::TestParamInfo<SaveCase>& shown) {
  return shown.param.name;
}

INSTANTIATE_TEST_SUITE_P(Cases, InterruptedSave, ::testing::ValuesIn(kCases), nameOf);
// A full disk takes the same ways as a faulty one: a new pair and an old one will do.
INSTANTIATE_TEST_SUITE_P(Cases, FullDiskSave, ::testing::Values(kCases[0], kCases[3], kCases[7]),
                         nameOf);

}  // namespace
}  // namespace tess
