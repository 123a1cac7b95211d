// Jobs of paths between a save and the next load: beside the drawing, with the setup's consent
// alone, and never with another drawing than their own.
#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "core/lifecycle.h"
#include "core/path_job_file.h"
#include "tests/support/drawing_folder.h"
#include "tests/support/judged_square.h"

namespace tess {
namespace {

using testing::DrawingFolder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SavedPathJobs : public ::testing::Test, protected DrawingFolder {
 protected:
  SavedPathJobs() {
    store.cfg_true_paths = true;
    addLine(1);
    testing::clearSquare(store);
    session.pathJobs.note(store, testing::squareJob());
  }
  std::vector<const PathJob*> jobs() { return session.pathJobs.inForce(store); }
};

TEST_F(SavedPathJobs, ComeBackWithTheDrawing) {
  saveAs("PART.CDM");
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPJ", "PART.TPM"));
  new_drawing(session);
  EXPECT_TRUE(jobs().empty());
  load("PART.CDM");
  ASSERT_THAT(jobs(), SizeIs(1));
  EXPECT_EQ(*jobs()[0], testing::squareJob());
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(SavedPathJobs, WithoutTheKeyThereIsNoFileOfThem) {
  store.cfg_true_paths = false;
  saveAs("PART.CDM");
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM"));
}

TEST_F(SavedPathJobs, WithoutJobsThereIsNoFile) {
  session.pathJobs.clear();
  saveAs("PART.CDM");
  EXPECT_THAT(entries(), ElementsAre("PART.CDM", "PART.TPM"));
}

TEST_F(SavedPathJobs, AFileOfThemGoesWithTheLastJob) {
  saveAs("PART.CDM");
  session.pathJobs.clear();
  saveAs("PART.CDM");
  EXPECT_FALSE(has("PART.TPJ"));
  EXPECT_TRUE(has("PART.TPJ~"));
}

TEST_F(SavedPathJobs, ChangeNothingInTheDrawingItself) {
  saveAs("PART.CDM");
  const std::string drawing = read("PART.CDM");
  const std::string paths = read("PART.TPM");
  store.cfg_true_paths = false;
  saveAs("OTHER.CDM");
  EXPECT_EQ(read("OTHER.CDM"), drawing);
  EXPECT_EQ(read("OTHER.TPM"), paths);
}

TEST_F(SavedPathJobs, SayNothingOfADrawingThatWasSavedWithoutThem) {
  saveAs("PART.CDM");
  store.cfg_true_paths = false;
  store.psx1[1] += 1;
  saveAs("PART.CDM");
  load("PART.CDM");
  EXPECT_TRUE(has("PART.TPJ"));
  EXPECT_TRUE(jobs().empty());
  EXPECT_THAT(takeTexts(), IsEmpty());
}

TEST_F(SavedPathJobs, OfADamagedFileAreToldWithTheirPlace) {
  saveAs("PART.CDM");
  std::string text = read("PART.TPJ");
  text.replace(text.find("clearing"), 8, "cleaning");
  write("PART.TPJ", text);
  load("PART.CDM");
  EXPECT_THAT(
      takeTexts(),
      ElementsAre(cnc("PART.TPJ") +
                  " line 4 field 3: \"cleaning\" does not belong here. It says what the tool "
                  "path was placed for; without it the path proof goes by the rows."));
  EXPECT_TRUE(jobs().empty());
  EXPECT_EQ(store.NumSegments, 1);
  EXPECT_GT(store.NumPathSegments, 0);
}

TEST_F(SavedPathJobs, SavedTwiceKeepTheBackup) {
  saveAs("PART.CDM");
  store.psx1[1] += 1;
  saveAs("PART.CDM");
  const std::string backup = read("PART.TPJ~");
  saveAs("PART.CDM");
  EXPECT_EQ(read("PART.TPJ~"), backup);
}

TEST_F(SavedPathJobs, AreForgottenWithANewDrawing) {
  new_drawing(session);
  testing::clearSquare(store);
  EXPECT_TRUE(jobs().empty());
}

}  // namespace
}  // namespace tess
