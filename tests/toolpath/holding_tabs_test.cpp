// Holding tabs: they stand where the operator has them, as wide as asked by a sweep that shares
// nothing with what makes them, over outlines of every kind; the proof knows them, and messages
// tell what cannot be.
#include "toolpath/holding_tabs.h"

#include <cmath>
#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "gtest/gtest.h"

#include "drafting/undo.h"
#include "tests/support/proof_of.h"
#include "tests/toolpath/pocket_job.h"
#include "toolpath/frmHoldingTabs.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

using namespace tess::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr double kWidthSlack = 0.001;

// A part that is cut free, begun at its longest row.
class PartJob : public RecordedCam {
 public:
  explicit PartJob(const TestPocket& outline) : part_(outline.part) {
    store.cfg_true_paths = true;
    store.cfg_holding_tabs = true;
    store.cfg_z_cut_per_pass = 0.125F;
    store.cfg_tab_number = 4;
    store.cfg_tab_width = 0.2F;
    store.cfg_tab_height = 0.1F;
    store.zstartpos = 1;
    for (SegmentRow row : outline.outline) {
      if (row.type == kCircle) row.type = kClockwiseArc;
      add(row);
    }
    test.recording.prompts.onForm = [this](Form& form) {
      if (form.name() != "frmHoldingTabs") return form.accept();
      onTabs(form);
    };
  }

  void finish() {
    int best = 1;
    const auto lengthOfRow = [&](int sg) { return lengthOf(curveOf(segmentRow(store, sg))); };
    for (int sg = 1; sg <= store.NumSegments; ++sg) {
      if (lengthOfRow(sg) > lengthOfRow(best) + 1e-6) best = sg;
    }
    const testing::Curve row = curveOf(segmentRow(store, best));
    mnuCAMPlaceFinishPath_Click(cam);
    for (const Vec at : {row.start, pointOn(row, 0.5), outsideOf(row)}) {
      click(static_cast<float>(at.x), static_cast<float>(at.y));
    }
  }

  PathProof proof() const { return proofOf(store, cam.context.session.pathJobs); }

  // What each form does; OK unless told otherwise.
  std::function<void(Form&)> onTabs = [](Form& form) { form.pressDefault(); };

 private:
  Vec outsideOf(const testing::Curve& row) const {
    const Vec middle = pointOn(row, 0.5);
    const Vec normal = row.isArc ? middle - row.center : leftOf(row.end - row.start);
    const Vec aside = (0.07 / lengthOf(normal)) * normal;
    return isAllowed(part_, middle + 0.01 * aside) ? middle - aside : middle + aside;
  }

  PartShape part_;
};

struct Tab {
  Vec from, to;  // of what is raised
};

// Each run of rows above the deepest level, of the rows of that level.
std::vector<Tab> tabsOf(const DrawingStore& store, float floor, float top) {
  std::vector<Tab> tabs;
  bool raised = false;
  int first = 1;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (store.psz[ps] == floor) {
      first = ps;
      break;
    }
  }
  for (int ps = first; ps <= store.NumPathSegments; ++ps) {
    const testing::Curve row = curveOf(pathRow(store, ps));
    const bool up = store.psz[ps] == top;
    if (up && !raised) tabs.push_back({row.start, row.end});
    if (up) tabs.back().to = row.end;
    raised = up;
  }
  return tabs;
}

bool isCut(const std::vector<testing::Curve>& path, double radius, Vec at) {
  return std::any_of(path.begin(), path.end(), [&](const testing::Curve& curve) {
    return distanceBetween(curve, at) < radius;
  });
}

// Of what no row at the floor cuts, along the line between the ends.
double widthOf(const Tab& tab, const std::vector<testing::Curve>& path, double radius) {
  const Vec along = tab.to - tab.from;
  const double length = lengthOf(along);
  const auto at = [&](double share) { return tab.from + share * along; };
  if (isCut(path, radius, at(0.5))) return 0;
  const auto edge = [&](double out) {
    double in = 0.5;
    for (int step = 0; step < 40; ++step) {
      const double middle = (in + out) / 2;
      (isCut(path, radius, at(middle)) ? out : in) = middle;
    }
    return in;
  };
  return (edge(1) - edge(0)) * length;
}

std::vector<testing::Curve> pathAt(const DrawingStore& store, float floor) {
  std::vector<testing::Curve> path;
  for (int ps = 1; ps <= store.NumPathSegments; ++ps) {
    if (store.psz[ps] == floor) path.push_back(curveOf(pathRow(store, ps)));
  }
  return path;
}

TestPocket rectangle(float width, float height) {
  return pocketOfRows(polygonRows({{0, 0}, {width, 0}, {width, height}, {0, height}}));
}

TEST(HoldingTabs, StandAsWideAsAskedOverGeneratedOutlines) {
  int tabs = 0, jobs = 0;
  for (int number = 0; number < 150; ++number) {
    const TestPocket outline = pocketOf(number);
    SCOPED_TRACE(outline.name);
    PartJob job(outline);
    job.store.toolradius[0] = outline.toolRadius;
    job.store.cfg_tab_number = 1 + number % 7;
    job.store.cfg_tab_width = 0.1F + 0.05F * static_cast<float>(number % 4);
    job.store.cfg_lead_in_path = number % 3 != 0;
    job.store.cfg_lead_in_arc = number % 3 == 2;
    job.store.cfg_lead_in_length = 0.2F;
    job.store.cfg_lead_in_angle = 40;
    job.finish();
    constexpr float kFloor = -0.5F;
    const auto found = tabsOf(job.store, kFloor, -0.4F);
    const auto path = pathAt(job.store, kFloor);
    for (const Tab& tab : found) {
      EXPECT_NEAR(widthOf(tab, path, outline.toolRadius), job.store.cfg_tab_width, kWidthSlack)
          << tab.from.x << ", " << tab.from.y;
    }
    const PathProof proof = job.proof();
    EXPECT_EQ(proof.tabs.size(), found.size());
    for (const TabFinding& tab : proof.tabs) EXPECT_TRUE(tab.standsAsAsked()) << tab.width;
    EXPECT_FALSE(proof.isBeyondLimits()) << proofText(proof);
    tabs += static_cast<int>(found.size());
    if (!found.empty()) ++jobs;
  }
  EXPECT_GT(jobs, 120);
  EXPECT_GT(tabs, 400);
}

TEST(HoldingTabs, OnARectangleLieInTheMiddleOfItsSides) {
  PartJob job(rectangle(4, 2));
  job.finish();
  std::vector<Point> middles;
  for (const Tab& tab : tabsOf(job.store, -0.5F, -0.4F)) {
    const Vec middle = 0.5 * (tab.from + tab.to);
    middles.push_back({static_cast<float>(middle.x), static_cast<float>(middle.y)});
    EXPECT_NEAR(lengthOf(tab.to - tab.from), 0.7, 1e-5);
  }
  EXPECT_THAT(middles, ::testing::UnorderedElementsAre(Point{2, -0.25F}, Point{4.25F, 1},
                                                       Point{2, 2.25F}, Point{-0.25F, 1}));
}

TEST(HoldingTabs, RaiseOnlyTheLevelsBelowTheirTop) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_tab_height = 0.2F;
  job.finish();
  std::vector<int> raised(4, 0);
  const float levels[] = {-0.125F, -0.25F, -0.375F, -0.5F};
  int level = 0;
  for (int ps = 1; ps <= job.store.NumPathSegments; ++ps) {
    const float z = job.store.psz[ps];
    for (int k = 0; k < 4; ++k) {
      if (z == levels[k]) level = k;
    }
    if (z == -0.3F) ++raised[static_cast<std::size_t>(level)];
  }
  EXPECT_THAT(raised, ElementsAre(0, 0, 4, 4));
}

// The program goes up and down where it stands, at the plunge rate.
TEST(HoldingTabs, LeaveTheWayWithoutAGap) {
  PartJob job(rectangle(4, 2));
  job.finish();
  for (int ps = 2; ps <= job.store.NumPathSegments; ++ps) {
    const PathRow before = pathRow(job.store, ps - 1), row = pathRow(job.store, ps);
    EXPECT_NEAR(std::hypot(row.x0 - before.x1, row.y0 - before.y1), 0, 1e-6) << ps;
  }
}

TEST(HoldingTabs, AreNoneInAPocketAndNoneWithoutTheirKey) {
  const TestPocket pocket = rectangle(4, 2);
  JobSettings settings;
  settings.truePaths = true;
  PocketJob inside(pocket, settings);
  inside.store.cfg_holding_tabs = true;
  inside.finish();
  EXPECT_THAT(inside.test.recording.prompts.formNames, Not(::testing::Contains("frmHoldingTabs")));
  PartJob job(pocket);
  job.store.cfg_holding_tabs = false;
  job.finish();
  EXPECT_THAT(job.test.recording.prompts.formNames, ElementsAre("frmFinishPath"));
  EXPECT_THAT(tabsOf(job.store, -0.5F, -0.4F), IsEmpty());
}

TEST(HoldingTabs, AtSeveralPassesStandInAll) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_min_rough_clearance = 0.1F;
  job.store.cfg_tool_spacing_distance = 0.2F;
  job.test.recording.prompts.onForm = [&](Form& form) {
    if (form.name() == "frmFinishPath") form.control("txtNumPasses")->set("text", "3");
    form.pressDefault();
  };
  job.finish();
  const PathProof proof = job.proof();
  EXPECT_THAT(proof.tabs, SizeIs(12));
  for (const TabFinding& tab : proof.tabs) EXPECT_NEAR(tab.width, 0.2, 1e-4);
}

TEST(HoldingTabs, AreOneStepOfUndo) {
  PartJob job(rectangle(4, 2));
  job.finish();
  EXPECT_GT(job.store.NumPathSegments, 0);
  Undo_Last_Change(job.context);
  EXPECT_EQ(job.store.NumPathSegments, 0);
}

TEST(HoldingTabs, KeepOffTheLeads) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_lead_in_path = true;
  job.store.cfg_lead_in_length = 0.5F;
  job.store.cfg_lead_in_angle = 30;
  job.store.cfg_tab_number = 12;
  job.finish();
  const Vec begin{2, -0.25};
  const auto tabs = tabsOf(job.store, -0.5F, -0.4F);
  EXPECT_GT(tabs.size(), 5U);
  for (const Tab& tab : tabs) {
    EXPECT_GE(std::min(lengthOf(tab.from - begin), lengthOf(tab.to - begin)), 0.75 - 1e-6);
  }
}

TEST(HoldingTabs, OfARoundPartLieOnItsArcs) {
  PartJob job(pocketOfRows({{.type = kCircle, .x0 = 3, .y0 = 0, .x1 = 3, .y1 = 0, .xc = 2}}));
  job.finish();
  const auto tabs = tabsOf(job.store, -0.5F, -0.4F);
  ASSERT_THAT(tabs, SizeIs(4));
  for (const Tab& tab : tabs) {
    EXPECT_NEAR(widthOf(tab, pathAt(job.store, -0.5F), 0.25), 0.2, 1e-5);
  }
}

// ---- The form

struct Complaint {
  const char* control;
  const char* text;
  const char* message;
};

class TabComplaints : public ::testing::TestWithParam<Complaint> {};

TEST_P(TabComplaints, KeepTheFormAndPlaceNothing) {
  PartJob job(rectangle(4, 2));
  job.onTabs = [&](Form& form) {
    form.control(GetParam().control)->set("text", GetParam().text);
    form.pressDefault();
    EXPECT_TRUE(form.isShown());
    form.pressCancel();
  };
  job.finish();
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text, GetParam().message);
  EXPECT_EQ(job.messages()[0].title, "Holding Tabs");
  EXPECT_EQ(job.store.NumPathSegments, 0);
  EXPECT_EQ(job.store.cfg_tab_number, 4) << "the settings stay";
}

INSTANTIATE_TEST_SUITE_P(
    All, TabComplaints,
    ::testing::Values(
        Complaint{"txtTabNumber", "0", "There must be at least one tab."},
        Complaint{"txtTabNumber", "four", "There must be at least one tab."},
        Complaint{"txtTabWidth", "0", "The width of the tabs must be above 0."},
        Complaint{"txtTabWidth", "-1", "The width of the tabs must be above 0."},
        Complaint{"txtTabHeight", "", "The height of the tabs must be above 0."},
        Complaint{"txtTabHeight", "0.6",
                  "Tabs 0.6 high are higher than the part: it is cut 0.5 deep."},
        Complaint{"txtTabWidth", "4",
                  "Tabs 4 wide fit nowhere on the outline: beside corners and leads no row is long "
                  "enough."},
        Complaint{
            "txtTabWidth", "1e9",
            "Tabs 1000000000 wide fit nowhere on the outline: beside corners and leads no row "
            "is long enough."}));

TEST(HoldingTabsForm, TellsHowManyFitAndPlacesThese) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_tab_number = 100;
  job.finish();
  ASSERT_THAT(job.messages(), SizeIs(1));
  EXPECT_EQ(job.messages()[0].text, "Only 12 of 100 tabs fit on the outline.");
  EXPECT_THAT(tabsOf(job.store, -0.5F, -0.4F), SizeIs(12));
  EXPECT_THAT(job.proof().tabs, SizeIs(12));
}

TEST(HoldingTabsForm, BySpacingTakesAsManyAsTheOutlineAsksFor) {
  PartJob job(rectangle(4, 2));
  job.onTabs = [&](Form& form) {
    form.control("optTabs", 2)->set("value", true);
    form.control("txtTabSpacing")->set("text", "2.5");
    EXPECT_FALSE(form.control("txtTabNumber")->isEnabled());
    form.pressDefault();
  };
  job.finish();
  EXPECT_THAT(tabsOf(job.store, -0.5F, -0.4F), SizeIs(6)) << "13.57 round";
  EXPECT_EQ(job.store.cfg_tab_spacing, 2.5F);
}

TEST(HoldingTabsForm, ShowsTheTabsAndFollowsADrag) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_tab_number = 1;
  job.onTabs = [&](Form& form) {
    EXPECT_EQ(dynamic_cast<frmHoldingTabs&>(form).lblTabs.caption(),
              "1 tab. Drag it along the outline.");
    EXPECT_THAT(job.context.formPreview.rows, SizeIs(4));
    const Point at = {2, job.context.formPreview.rows[0].y0 < 1 ? -0.25F : 2.25F};
    job.drag(at, {4.2F, 0.9F});
    form.pressDefault();
  };
  job.finish();
  const auto tabs = tabsOf(job.store, -0.5F, -0.4F);
  ASSERT_THAT(tabs, SizeIs(1));
  const Vec middle = 0.5 * (tabs[0].from + tabs[0].to);
  EXPECT_NEAR(middle.x, 4.25, 1e-5);
  EXPECT_NEAR(middle.y, 0.9, 1e-5);
  EXPECT_THAT(job.context.formPreview.rows, IsEmpty());
  EXPECT_FALSE(job.context.onFormClick);
  EXPECT_FALSE(job.context.onFormDrag);
}

TEST(HoldingTabsForm, KeepsADraggedTabOffCornersAndOtherTabs) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_tab_number = 2;
  job.onTabs = [&](Form& form) {
    job.drag({2, -0.25F}, {4, -0.25F});
    job.drag({2, 2.25F}, {3.4F, -0.3F});
    form.pressDefault();
  };
  job.finish();
  std::vector<double> xs;
  for (const Tab& tab : tabsOf(job.store, -0.5F, -0.4F)) {
    EXPECT_NEAR(tab.from.y, -0.25, 1e-6);
    xs.push_back((tab.from.x + tab.to.x) / 2);
  }
  std::sort(xs.begin(), xs.end());
  ASSERT_THAT(xs, SizeIs(2));
  EXPECT_NEAR(xs[1], 3.65, 1e-5) << "what is raised ends where the corner begins";
  EXPECT_NEAR(xs[0], 2.7, 1e-5) << "and the next one a radius beside it";
}

TEST(HoldingTabsForm, CancelPlacesNothing) {
  PartJob job(rectangle(4, 2));
  job.onTabs = [](Form& form) { form.pressCancel(); };
  job.finish();
  EXPECT_EQ(job.store.NumPathSegments, 0);
  EXPECT_THAT(job.messages(), IsEmpty());
}

// ---- The proof

TEST(ProofOfTabs, NamesThemAndFindsNoFault) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_tab_number = 1;
  job.finish();
  const std::string text = proofText(job.proof());
  EXPECT_THAT(text, HasSubstr(": left by tabs 0.2000 wide, 0.1000 high at X = "));
  EXPECT_THAT(text, Not(HasSubstr("meant to be")));
  EXPECT_EQ(gradeOf(job.proof()), ProofGrade::Clean);
}

TEST(ProofOfTabs, TellsATabThatARowCutsAway) {
  PartJob job(rectangle(4, 2));
  job.store.cfg_tab_number = 1;
  job.finish();
  const PathProof before = job.proof();
  ASSERT_THAT(before.tabs, SizeIs(1));
  const auto x = static_cast<float>(before.tabs[0].x), y = static_cast<float>(before.tabs[0].y);
  addPathSegment(job.store, {.type = kLine,
                             .x0 = x - 0.5F,
                             .y0 = y,
                             .x1 = x + 0.5F,
                             .y1 = y,
                             .z = -0.45F,
                             .code = job.store.pscode[1]});
  const PathProof low = job.proof();
  EXPECT_NEAR(low.tabs[0].height, 0.05, 1e-6);
  EXPECT_THAT(proofText(low), HasSubstr("meant to be 0.2000 wide, 0.1000 high"));
  job.store.psz[job.store.NumPathSegments] = -0.5F;
  EXPECT_EQ(job.proof().tabs[0].width, 0);
}

// A note alone is no tab, and what no row of its own group passes over is missed.
TEST(ProofOfTabs, ANoteDoesNotExcuseWhatOthersLeave) {
  JobSettings settings;
  settings.truePaths = true;
  PocketJob pocket(rectangle(4, 2), settings);
  pocket.rough();
  PathJobs jobs = pocket.cam.context.session.pathJobs;
  PathJob job = *jobs.inForce(pocket.store).at(0);
  job.tabs = {{.x0 = -10, .y0 = 1, .x1 = 10, .y1 = 1, .top = -0.1}};
  jobs.clear();
  jobs.add(job);
  for (int ps = 1; ps <= 4; ++ps) pocket.store.pscode[ps] += 100;
  for (int ps = 1; ps <= 4; ++ps) pocket.store.psz[ps] = -0.2F;
  const PathProof proof = proofOf(pocket.store, jobs);
  ASSERT_THAT(proof.missed, SizeIs(1));
  EXPECT_GT(proof.missed[0].atClearance.share(), 0.05);
  EXPECT_TRUE(proof.isBeyondLimits());
}

}  // namespace
}  // namespace tess
