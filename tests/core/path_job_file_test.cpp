// The file of path jobs: what is written comes back, and what is damaged is refused where it is.
#include "core/path_job_file.h"

#include <cmath>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "tests/support/failure_of.h"

namespace tess {
namespace {

using testing::failureOf;
using ::testing::HasSubstr;

const SavedWith kFiles{.drawing = checksumOf("drawing"), .paths = checksumOf("paths")};

std::vector<PathJob> sampleJobs() {
  const JobWall line{.x0 = 0.1, .y0 = -2, .x1 = 1.0 / 3, .y1 = 1e-7};
  const JobWall arc{.x0 = 1.0 / 3,
                    .y0 = 1e-7,
                    .x1 = 0.1,
                    .y1 = -2,
                    .xc = 1e6 + 1e-9,
                    .yc = std::sqrt(2),
                    .turn = -1};
  return {{.group = 2,
           .kind = JobKind::Clearing,
           .toolRadius = 0.25,
           .distance = 0.3,
           .loops = {{.walls = {line, arc}}, {.walls = {line}}}},
          {.group = 0, .kind = JobKind::OnTheLine, .toolRadius = 0.1},
          {.group = 327,
           .kind = JobKind::Contour,
           .isUnbounded = true,
           .loops = {{.walls = {arc, line}, .isClosed = false}},
           .tabs = {{.x0 = 1.0 / 7, .y0 = 2, .x1 = 3, .y1 = -4, .top = -0.1}},
           .overcuts = {{.x = 1e-3, .y = 2.0 / 3}}},
          {.group = 5, .kind = JobKind::Lathe, .distance = 0.02},
          {.group = 6, .kind = JobKind::None}};
}

std::string sampleText() {
  const std::vector<PathJob> jobs = sampleJobs();
  std::vector<const PathJob*> all;
  for (const PathJob& job : jobs) all.push_back(&job);
  return jobFileText(all, kFiles);
}

std::optional<std::vector<PathJob>> readText(const std::string& text,
                                             const SavedWith& files = kFiles) {
  FieldReader fields("PART.TPJ", text);
  return readJobFile(fields, files);
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  return text.replace(text.find(what), what.size(), by);
}

TEST(PathJobFile, IsNamedAfterTheDrawing) {
  EXPECT_EQ(jobFileName("part.cdm"), "PART.TPJ");
  EXPECT_EQ(jobFileName("part.dxf"), "");
  EXPECT_EQ(jobFileName("my.tpm.cdm"), "MY.TPM.TPJ");
}

TEST(PathJobFile, GivesBackWhatWasWrittenToTheLastDigit) {
  EXPECT_EQ(readText(sampleText()), sampleJobs());
}

TEST(PathJobFile, IsTextWithOneBlockForEachJob) {
  const PathJob job{.group = 3,
                    .kind = JobKind::Clearing,
                    .toolRadius = 0.25,
                    .distance = 0.5,
                    .loops = {{.walls = {{.x0 = 0, .y0 = 0, .x1 = 2, .y1 = 0},
                                         {.x0 = 2, .x1 = 0, .xc = 1, .turn = 1}}}}};
  EXPECT_EQ(jobFileText({&job}, {}),
            "Tessimo path jobs 1\r\n"
            "drawing,none\r\n"
            "paths,none\r\n"
            "job,3,clearing,0.25,0.5,bounded\r\n"
            "loop,closed\r\n"
            "line,0,0,2,0\r\n"
            "left,2,0,0,0,1,0\r\n"
            "end\r\n");
}

TEST(PathJobFile, SavedWithOtherFilesSaysNothing) {
  EXPECT_EQ(readText(sampleText(), {.drawing = kFiles.drawing, .paths = checksumOf("other")}),
            std::nullopt);
  EXPECT_EQ(readText(sampleText(), {.drawing = std::nullopt, .paths = kFiles.paths}), std::nullopt);
}

struct Damage {
  const char* what;
  const char* by;
  const char* source;
  const char* description;
};

class DamagedPathJobFile : public ::testing::TestWithParam<Damage> {};

TEST_P(DamagedPathJobFile, IsRefusedWithItsPlace) {
  const Damage& damage = GetParam();
  const auto failure = failureOf([&] { readText(replaced(sampleText(), damage.what, damage.by)); });
  EXPECT_EQ(failure.source(), damage.source);
  EXPECT_EQ(failure.description(), damage.description);
}

INSTANTIATE_TEST_SUITE_P(
    All, DamagedPathJobFile,
    ::testing::Values(
        Damage{"Tessimo path jobs 1", "PK", "PART.TPJ line 1 field 1",
               "\"PK\" stands where \"Tessimo path jobs 1\" belongs"},
        Damage{"paths,", "path,", "PART.TPJ line 3 field 1",
               "\"path\" stands where \"paths\" belongs"},
        Damage{"drawing,xxh3-", "drawing,md5-", "PART.TPJ line 2 field 2",
               "\"md5-6d187aea6fa01a54-7\" is no checksum"},
        Damage{"clearing", "cleaning", "PART.TPJ line 4 field 3",
               "\"cleaning\" does not belong here"},
        Damage{"job,2", "job,2.5", "PART.TPJ line 4 field 2", "a group that no path row has"},
        Damage{"job,2", "job,328", "PART.TPJ line 4 field 2", "a group that no path row has"},
        Damage{"0.25", "nan", "PART.TPJ line 4 field 4", "\"nan\" is no number"},
        Damage{"0.25", "-1", "PART.TPJ line 4 field 4", "a length below 0"},
        Damage{"0.25", "1e39", "PART.TPJ line 4 field 4", "\"1e39\" is too large a number"},
        Damage{"0.25", "1e999", "PART.TPJ line 4 field 4", "\"1e999\" is too large a number"},
        Damage{"line,0.1,-2,", "line,0.1,-2x,", "PART.TPJ line 6 field 3", "\"-2x\" is no number"},
        Damage{"loop,closed\r\n", "", "PART.TPJ line 5 field 1", "\"line\" does not belong here"},
        Damage{"line", "curve", "PART.TPJ line 6 field 1", "\"curve\" does not belong here"},
        Damage{"line,0.1,-2,", "line,7,8,7,8\r\nline,0.1,-2,", "PART.TPJ line 6 field 1",
               "a wall without length"},
        Damage{"tab,", "tabs,", "PART.TPJ line 15 field 1", "\"tabs\" does not belong here"},
        Damage{",-4,-0.1", ",-4,0", "PART.TPJ line 15 field 1", "a tab that is not below Z 0"},
        Damage{"tab,", "tab,1,1,1,1,-1\r\ntab,", "PART.TPJ line 15 field 1", "a tab without width"},
        Damage{"overcut,0.001", "overcut,x", "PART.TPJ line 16 field 2", "\"x\" is no number"},
        Damage{"overcut,0.001,", "overcut,0.001,1e39,", "PART.TPJ line 16 field 3",
               "\"1e39\" is too large a number"},
        Damage{"job,2", "tab,0,0,1,1,-1\r\njob,2", "PART.TPJ line 4 field 1",
               "\"tab\" does not belong here"},
        Damage{"job,2", "overcut,0,0\r\njob,2", "PART.TPJ line 4 field 1",
               "\"overcut\" does not belong here"},
        Damage{"end\r\n", "", "PART.TPJ line 19 field 1", "Input past end of file"}));

TEST(PathJobFile, WithMoreWallsThanADrawingHasIsRefused) {
  std::string text =
      "Tessimo path jobs 1\ndrawing,none\npaths,none\njob,1,contour,1,1,bounded\nloop,closed\n";
  for (int wall = 0; wall <= 4 * 32767; ++wall) text += "line,0,0,1,1\n";
  const auto failure = failureOf([&] { readText(text + "end\n", {}); });
  EXPECT_EQ(failure.description(), "more walls than a drawing has");
  EXPECT_THAT(failure.source(), HasSubstr("line 131074"));
}

TEST(PathJobFile, WithMoreTabsOrCornersThanAnOutlineHasIsRefused) {
  const auto failureWith = [](int lines, const std::string& line) {
    std::string text = "Tessimo path jobs 1\ndrawing,none\npaths,none\njob,1,contour,1,1,bounded\n";
    for (int k = 0; k < lines; ++k) text += line;
    return failureOf([&] { readText(text + "end\n", {}); }).description();
  };
  EXPECT_EQ(failureWith(1001, "tab,0,0,1,1,-1\n"), "more tabs than an outline has");
  EXPECT_EQ(failureWith(4 * 32767 + 1, "overcut,0,0\n"), "more corners than a drawing has");
}

}  // namespace
}  // namespace tess
