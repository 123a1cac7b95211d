// The guard and its report: template and call chain, the log, stops and retries in step mode, and
// reporting that goes on when display or folder fail.
#include "shell/error_reporting.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <functional>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "gtest/gtest.h"

#include "core/session.h"
#include "shell/frmShowError.h"
#include "tests/support/recording_host.h"
#include "tests/support/temp_folder.h"

namespace tess {
namespace {

using testing::RecordingHost;
using testing::RecordingPrompts;
using testing::TempFolder;
using Texts = std::vector<std::string>;

constexpr char kRetryOffer[] = "Do you want to retry the operation in step mode?";

ErrorReporting settings(const std::string& folder, bool offersRetry = false) {
  ErrorReporting reporting;
  reporting.folder = folder;
  reporting.app = "Tessimo Mill";
  reporting.version = "1.2.3";
  reporting.computer = "BENCH";
  reporting.offersRetry = offersRetry;
  return reporting;
}

struct Fixture {
  explicit Fixture(bool offersRetry = false)
      : reporter(host.prompts, host.clock, settings(folder(), offersRetry)) {}

  Texts messageTexts() const {
    Texts texts;
    for (const Message& message : host.prompts.messages) texts.push_back(message.text);
    return texts;
  }

  TempFolder folder;
  RecordingHost host;
  HuntERR reporter;
};

void divide() {
  const Procedure here("frmMain.divide(a,b)");
  errno = 0;
  throw divisionByZero();
}

void redraw() {
  const Procedure here("frmMain.redrawscreen(target,ShowGrid,FillPartTemplate,DisableEvents)");
  divide();
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// How often `part` stands in `text`.
int countOf(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

// The report

TEST(ErrorReport, FollowsItsTemplateToTheBlank) {
  Fixture f;
  EXPECT_FALSE(f.reporter.guarded("mnuViewReDraw_Click()", [] {
    errno = 0;
    throw RuntimeFailure(FailureNumber::InputPastEnd, "part.cdm");
  }));
  const std::string& report = f.reporter.lastReport();
  EXPECT_TRUE(report.starts_with(
      "Input past end of file \n"
      "  Time='03/09/26 14:05:07' App='Tessimo Mill:1.2.3' ADO-version='' Computer='BENCH' \n"
      "  Method: mnuViewReDraw_Click() \n"
      "  Number: 62 = &H3E = vbObjectError +2147221566 = ERRMAP_APP_FIRST +2147221054 \n"
      "  Source: part.cdm \n"
      "  Description: Input past end of file\n"
      "  Call Stack: \n"
      "    mnuViewReDraw_Click()  at Line "))
      << report;
  EXPECT_FALSE(contains(report, "API Error"));
}

TEST(ErrorReport, TwoNestedProceduresGiveTwoLinesTheLowerPropagated) {
  Fixture f;
  EXPECT_FALSE(f.reporter.guarded(
      "frmMain.redrawscreen(target,ShowGrid,FillPartTemplate,DisableEvents)", redraw));
  const std::string& report = f.reporter.lastReport();
  const std::size_t stack = report.find("  Call Stack: \n");
  ASSERT_NE(stack, std::string::npos);
  const std::string lines = report.substr(stack + 15);
  EXPECT_TRUE(lines.starts_with("    frmMain.divide(a,b)  at Line ")) << lines;
  EXPECT_TRUE(lines.ends_with(
      "\n    frmMain.redrawscreen(target,ShowGrid,FillPartTemplate,DisableEvents) (Propagated)\n"))
      << lines;
  EXPECT_EQ(countOf(lines, "\n"), 2);
  EXPECT_EQ(countOf(report, "Call Stack"), 1);
  EXPECT_EQ(countOf(report, "(Propagated)"), 1);
  EXPECT_TRUE(contains(report, "  Method: frmMain.divide(a,b) \n"));
}

TEST(ErrorReport, EntryPointIsTheLastLevel) {
  Fixture f;
  f.reporter.guarded("tmrTaskQueue_Timer()", redraw);
  EXPECT_TRUE(f.reporter.lastReport().ends_with("    tmrTaskQueue_Timer() (Propagated)\n"));
  EXPECT_EQ(countOf(f.reporter.lastReport(), "(Propagated)"), 2);
}

TEST(ErrorReport, NumbersAboveTheBasesAreRelatedToThem) {
  Fixture f;
  f.reporter.guarded("run()", [] {
    throw RuntimeFailure(static_cast<FailureNumber>(ERRMAP_APP_FIRST + 7), "", "Own");
  });
  EXPECT_TRUE(contains(f.reporter.lastReport(),
                       "  Number: -2147220985 = &H80040207 = vbObjectError +519 = "
                       "ERRMAP_APP_FIRST +7 \n"));
  f.reporter.guarded("run()", [] {
    throw RuntimeFailure(static_cast<FailureNumber>(vbObjectError - 3), "", "Below");
  });
  EXPECT_TRUE(contains(f.reporter.lastReport(), "vbObjectError -3 = ERRMAP_APP_FIRST -515 \n"));
}

TEST(ErrorReport, FailureWithoutNumberIsGeneral) {
  Fixture f;
  f.reporter.guarded("run()",
                     [] { throw std::runtime_error("The lathe is full of %Time% chips"); });
  EXPECT_TRUE(f.reporter.lastReport().starts_with("The lathe is full of %Time% chips \n"));
  EXPECT_TRUE(contains(f.reporter.lastReport(),
                       "  Number: -2147220992 = &H80040200 = vbObjectError +512 = "
                       "ERRMAP_APP_FIRST +0 = ERR_GENERAL\n"));
  EXPECT_FALSE(contains(f.reporter.lastReport(), "  at Line "));
}

TEST(ErrorReport, LastSystemErrorIsToldWithItsText) {
  Fixture f;
  f.reporter.guarded("run()", [] {
    errno = ENOENT;
    throw RuntimeFailure(FailureNumber::FileNotFound, "part.cdm");
  });
  EXPECT_TRUE(f.reporter.lastReport().ends_with("  API Error: (2) No such file or directory\n"))
      << f.reporter.lastReport();
}

TEST(ErrorReport, SystemErrorOfAnEarlierRunIsForgotten) {
  Fixture f;
  errno = ENOENT;
  f.reporter.guarded("run()", [] { throw overflow(); });
  EXPECT_FALSE(contains(f.reporter.lastReport(), "API Error"));
}

TEST(ErrorReport, LevelsOfASwallowedEarlierFailureAreForgotten) {
  Fixture f;
  EXPECT_THROW(redraw(), RuntimeFailure);
  f.reporter.guarded("run()", [] { throw overflow(); });
  EXPECT_FALSE(contains(f.reporter.lastReport(), "divide"));
}

TEST(ErrorReport, ComputerIsThisHostByDefault) {
  EXPECT_EQ(ErrorReporting{}.computer, hostName());
  EXPECT_EQ(ErrorReporting{}.app, "Tessimo Mill");
  EXPECT_TRUE(ErrorReporting{}.offersRetry);
}

// Steps of a handler

TEST(ErrorHandler, WithoutErrPreserveTheInformationIsLost) {
  Fixture f;
  try {
    divide();
  } catch (const RuntimeFailure&) {
    f.reporter.ErrorIn("frmMain.careless()");
    f.reporter.HandleError();
  }
  EXPECT_TRUE(f.reporter.lastReport().starts_with(
      "ErrorIn: Error information was lost. "
      "To fix: call ErrPreserve before doing anything in error handler. \n"));
  EXPECT_TRUE(f.reporter.lastReport().ends_with("  Call Stack: \n    frmMain.careless()\n"));
  takeCallChain();
}

TEST(ErrorHandler, ErrPreserveFirstKeepsTheInformation) {
  Fixture f;
  try {
    divide();
  } catch (const RuntimeFailure&) {
    f.reporter.ErrPreserve();
    EXPECT_FALSE(f.reporter.ShouldRetry());
    f.reporter.ErrorIn("frmMain.inner(a,b)", {"1", "0"});
    f.reporter.ErrorIn("frmMain.outer()");
    f.reporter.HandleError();
  }
  const std::string& report = f.reporter.lastReport();
  EXPECT_TRUE(report.starts_with("Division by zero \n"));
  EXPECT_TRUE(contains(report, "  Method: frmMain.inner(a,b) \n"));
  EXPECT_TRUE(contains(report, "    frmMain.inner(a,b) [1] [0]  at Line "));
  EXPECT_TRUE(report.ends_with("    frmMain.outer() (Propagated)\n"));
}

TEST(ErrorHandler, FirstPreservedFailureIsKept) {
  Fixture f;
  try {
    throw overflow();
  } catch (...) {
    f.reporter.ErrPreserve();
  }
  try {
    throw typeMismatch();
  } catch (...) {
    f.reporter.ErrPreserve();
  }
  f.reporter.ErrorIn("run()");
  f.reporter.HandleError();
  EXPECT_TRUE(f.reporter.lastReport().starts_with("Overflow \n"));
}

TEST(ErrorHandler, OutsideAHandlerThereIsNothingToReport) {
  Fixture f;
  f.reporter.ErrPreserve();
  EXPECT_FALSE(f.reporter.ShouldRetry());
  f.reporter.HandleError();
  EXPECT_EQ(f.reporter.lastReport(), "");
  EXPECT_EQ(f.host.prompts.modalForms, 0);
  EXPECT_FALSE(f.folder.has("Errors.txt"));
}

TEST(ErrorHandler, ExceptionOfAnUnknownKindIsPreserved) {
  Fixture f;
  try {
    throw 7;
  } catch (...) {
    f.reporter.ErrPreserve();
    f.reporter.ErrorIn("run()");
    f.reporter.HandleError();
  }
  EXPECT_TRUE(f.reporter.lastReport().starts_with("Unknown exception \n"));
}

// The guard

TEST(Guard, RunThatEndsWellReportsNothing) {
  Fixture f(/*offersRetry=*/true);
  int runs = 0;
  EXPECT_TRUE(f.reporter.guarded("run()", [&] { ++runs; }));
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(f.host.prompts.modalForms, 0);
  EXPECT_TRUE(f.host.prompts.messages.empty());
}

TEST(Guard, FailureIsShownInTheReportWindowAndLogged) {
  Fixture f;
  std::string shown;
  bool readOnly = false;
  f.host.prompts.onForm = [&](Form& form) {
    auto& text = dynamic_cast<TextBox&>(*form.control("txtError"));
    shown = text.text();
    readOnly = text.readOnly && text.multiLine;
    EXPECT_FALSE(f.folder.has("Errors.txt"));
  };
  f.reporter.guarded("run()", redraw);
  EXPECT_EQ(f.host.prompts.formNames, Texts{"frmShowError"});
  EXPECT_EQ(shown, f.reporter.lastReport());
  EXPECT_TRUE(readOnly);
  EXPECT_EQ(f.folder.read("Errors.txt"), "\n" + shown + "\n");
  EXPECT_TRUE(f.host.prompts.messages.empty());
}

TEST(Guard, LogIsAppendedTo) {
  Fixture f;
  f.folder.write("Errors.txt", "kept\n");
  f.reporter.guarded("run()", redraw);
  f.reporter.guarded("run()", redraw);
  const std::string report = f.reporter.lastReport();
  EXPECT_EQ(f.folder.read("Errors.txt"), "kept\n\n" + report + "\n\n" + report + "\n");
}

TEST(Guard, LogThatHasGrownLargeIsPutAside) {
  Fixture f;
  const std::string large((4 << 20) + 1, 'x');
  f.folder.write("Errors.txt", large);
  f.folder.write("Errors.txt~", "the one before");
  f.reporter.guarded("run()", redraw);
  EXPECT_EQ(f.folder.read("Errors.txt"), "\n" + f.reporter.lastReport() + "\n");
  EXPECT_TRUE(f.folder.read("Errors.txt~") == large);
}

TEST(Guard, LogThatDiffersInCaseIsTheOneMeant) {
  Fixture f;
  f.folder.write("ERRORS.TXT", "kept\n");
  f.reporter.guarded("run()", redraw);
  EXPECT_FALSE(f.folder.has("Errors.txt"));
  EXPECT_TRUE(f.folder.read("ERRORS.TXT").starts_with("kept\n\nDivision by zero"));
}

TEST(Guard, FolderMayBecomeKnownLater) {
  TempFolder folder;
  RecordingHost host;
  HuntERR reporter(host.prompts, host.clock, settings(""));
  reporter.guarded("run()", redraw);
  EXPECT_NE(reporter.lastReport(), "");
  reporter.setFolder(folder());
  reporter.guarded("run()", redraw);
  EXPECT_TRUE(folder.has("Errors.txt"));
}

TEST(Guard, ReportShowsWithoutAFolderToLogIn) {
  RecordingHost host;
  TempFolder folder;
  // A folder in the log's place cannot be written by anybody, the superuser included.
  std::filesystem::create_directory(folder("Errors.txt"));
  HuntERR reporter(host.prompts, host.clock, settings(folder()));
  EXPECT_FALSE(reporter.guarded("run()", redraw));
  EXPECT_EQ(host.prompts.formNames, Texts{"frmShowError"});
}

TEST(Guard, ReportShowsWithAReadOnlyFolder) {
  RecordingHost host;
  TempFolder folder;
  std::filesystem::permissions(
      folder(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  HuntERR reporter(host.prompts, host.clock, settings(folder()));
  EXPECT_FALSE(reporter.guarded("run()", redraw));
  EXPECT_EQ(host.prompts.formNames, Texts{"frmShowError"});
  std::filesystem::permissions(folder(), std::filesystem::perms::owner_all);
}

TEST(Guard, MessageBoxStandsInWhereThereAreNoWindows) {
  RecordingHost host;
  ErrorReporting reporting = settings("");
  reporting.display = ReportDisplay::MessageBox;
  HuntERR reporter(host.prompts, host.clock, reporting);
  reporter.guarded("run()", redraw);
  ASSERT_EQ(host.prompts.messages.size(), 1U);
  EXPECT_EQ(host.prompts.messages[0].text, reporter.lastReport());
  EXPECT_EQ(host.prompts.messages[0].icon, MessageIcon::Error);
  EXPECT_EQ(host.prompts.modalForms, 0);
}

TEST(Guard, NoDisplayLeavesLogAndText) {
  RecordingHost host;
  TempFolder folder;
  ErrorReporting reporting = settings(folder());
  reporting.display = ReportDisplay::None;
  HuntERR reporter(host.prompts, host.clock, reporting);
  reporter.guarded("run()", redraw);
  EXPECT_EQ(host.prompts.modalForms, 0);
  EXPECT_TRUE(host.prompts.messages.empty());
  EXPECT_EQ(folder.read("Errors.txt"), "\n" + reporter.lastReport() + "\n");
}

// Prompts whose windows, and if so told also message boxes, cannot be shown.
class BrokenPrompts : public RecordingPrompts {
 public:
  void showModal(Form&) override { throw std::runtime_error("no display"); }
  Answer showMessage(const Message& message) override {
    if (boxesFail) throw std::runtime_error("no boxes");
    return RecordingPrompts::showMessage(message);
  }
  bool boxesFail = false;
};

TEST(Guard, FailingWindowFallsBackToAMessageBox) {
  BrokenPrompts prompts;
  testing::FixedClock clock;
  TempFolder folder;
  HuntERR reporter(prompts, clock, settings(folder()));
  EXPECT_FALSE(reporter.guarded("run()", redraw));
  ASSERT_EQ(prompts.messages.size(), 1U);
  EXPECT_EQ(prompts.messages[0].text, reporter.lastReport());
  EXPECT_EQ(prompts.messages[0].title, "Error");
  EXPECT_EQ(prompts.messages[0].icon, MessageIcon::Error);
  EXPECT_EQ(prompts.messages[0].buttons, MessageButtons::Ok);
}

TEST(Guard, WithoutAnyDisplayTheLogStillGetsTheReport) {
  BrokenPrompts prompts;
  prompts.boxesFail = true;
  testing::FixedClock clock;
  TempFolder folder;
  HuntERR reporter(prompts, clock, settings(folder(), /*offersRetry=*/true));
  EXPECT_FALSE(reporter.guarded("run()", redraw));
  EXPECT_EQ(folder.read("Errors.txt"), "\n" + reporter.lastReport() + "\n");
}

TEST(Guard, FailureOfTheClockLeavesTheDescription) {
  struct BrokenClock : Clock {
    DateTime now() override { throw overflow(); }
    double elapsedMilliseconds() override { return 0; }
    void sleep(double /*milliseconds*/) override {}
  } clock;
  RecordingPrompts prompts;
  HuntERR reporter(prompts, clock, settings(""));
  EXPECT_FALSE(reporter.guarded("run()", redraw));
  EXPECT_EQ(reporter.lastReport(), "Division by zero");
  EXPECT_EQ(prompts.modalForms, 1);
  EXPECT_TRUE(takeCallChain().empty());
}

TEST(Guard, EndOfTheProgramPassesThrough) {
  Fixture f(/*offersRetry=*/true);
  try {
    f.reporter.guarded("run()", [] { throw EndProgram("tess.def is missing"); });
    ADD_FAILURE();
  } catch (const EndProgram& end) {
    EXPECT_STREQ(end.what(), "tess.def is missing");
  }
  EXPECT_EQ(f.reporter.lastReport(), "");
  EXPECT_TRUE(f.host.prompts.messages.empty());
}

TEST(Guard, RunsMayNest) {
  Fixture f;
  EXPECT_TRUE(f.reporter.guarded("outer()", [&] {
    EXPECT_FALSE(f.reporter.guarded("inner()", redraw));
    EXPECT_TRUE(f.reporter.lastReport().ends_with("    inner() (Propagated)\n"));
  }));
  EXPECT_EQ(f.host.prompts.modalForms, 1);
}

TEST(Guard, FailureInAnEventOfTheReportWindowIsReportedToo) {
  Fixture f;
  bool first = true;
  f.host.prompts.onForm = [&](Form&) {
    if (std::exchange(first, false)) f.reporter.guarded("event()", [] { throw overflow(); });
  };
  f.reporter.guarded("run()", redraw);
  EXPECT_EQ(f.host.prompts.modalForms, 2);
  const std::string log = f.folder.read("Errors.txt");
  EXPECT_LT(log.find("Overflow"), log.find("Division by zero"));
}

// Failures that a routine survives

TEST(FailureSink, ReportsWithTheLevelsPassedAndGoesOn) {
  Fixture f(/*offersRetry=*/true);
  const bool finished = f.reporter.guarded("load()", [&] {
    try {
      redraw();
    } catch (const RuntimeFailure& failure) {
      f.reporter.report(failure);
    }
  });
  EXPECT_TRUE(finished);
  const std::string& report = f.reporter.lastReport();
  EXPECT_TRUE(report.starts_with("Division by zero \n"));
  EXPECT_TRUE(contains(report, "    frmMain.divide(a,b)  at Line "));
  EXPECT_EQ(countOf(report, "(Propagated)"), 1);
  EXPECT_EQ(f.host.prompts.modalForms, 1);
  EXPECT_TRUE(f.host.prompts.messages.empty());
  EXPECT_EQ(f.folder.read("Errors.txt"), "\n" + report + "\n");
}

TEST(FailureSink, FailureThatPassedNoLevelHasAnEmptyStack) {
  Fixture f;
  takeCallChain();
  errno = 0;
  f.reporter.report(RuntimeFailure(FailureNumber::DiskFull, "part.cdm"));
  EXPECT_TRUE(f.reporter.lastReport().ends_with("  Call Stack: \n"));
}

// Exceptions of the language and the system

struct ExceptionCase {
  const char* name;
  std::function<void()> raise;
  std::string number;
  std::string description;
};

TEST(ExceptionFilter, StandardExceptionsGetTheirCodeAndName) {
  const std::vector<ExceptionCase> cases = {
      {"memory", [] { throw std::bad_alloc(); }, "-1073741801 = &HC0000017",
       "(&HC0000017) No memory"},
      {"argument", [] { throw std::invalid_argument("a"); }, "-1073741811 = &HC000000D",
       "(&HC000000D) Invalid parameter"},
      {"range", [] { std::vector<int>().at(1); }, "-1073741684 = &HC000008C",
       "(&HC000008C) Array bounds exceeded"},
      {"length", [] { throw std::length_error("l"); }, "-1073741684 = &HC000008C",
       "(&HC000008C) Array bounds exceeded"},
      {"domain", [] { throw std::domain_error("d"); }, "-1073741680 = &HC0000090",
       "(&HC0000090) Float invalid operation"},
      {"overflow", [] { throw std::overflow_error("o"); }, "-1073741679 = &HC0000091",
       "(&HC0000091) Float overflow"},
      {"underflow", [] { throw std::underflow_error("u"); }, "-1073741677 = &HC0000093",
       "(&HC0000093) Float underflow"},
      {"bad exception", [] { throw std::bad_exception(); }, "-1073741787 = &HC0000025",
       "(&HC0000025) Noncontinuable exception"},
      {"system", [] { throw std::system_error(EACCES, std::generic_category()); }, "13 = &HD",
       "(&HD) Permission denied"},
  };
  for (const ExceptionCase& each : cases) {
    Fixture f;
    EXPECT_FALSE(f.reporter.guarded("run()", each.raise));
    const std::string& report = f.reporter.lastReport();
    EXPECT_TRUE(report.starts_with(each.description + " \n")) << each.name << ": " << report;
    EXPECT_TRUE(contains(report, "  Number: " + each.number + " = ")) << each.name << report;
  }
}

TEST(ExceptionFilter, InnermostChainedExceptionCounts) {
  Fixture f;
  f.reporter.guarded("run()", [] {
    try {
      throw std::overflow_error("inner");
    } catch (...) {
      std::throw_with_nested(std::runtime_error("outer"));
    }
  });
  EXPECT_TRUE(f.reporter.lastReport().starts_with("(&HC0000091) Float overflow \n"));
  EXPECT_TRUE(contains(f.reporter.lastReport(), "  Source: inner \n"));
}

TEST(ExceptionFilter, NumberedFailureInsideAChainKeepsItsNumber) {
  Fixture f;
  f.reporter.guarded("run()", [] {
    try {
      throw typeMismatch();
    } catch (...) {
      std::throw_with_nested(std::runtime_error("outer"));
    }
  });
  EXPECT_TRUE(f.reporter.lastReport().starts_with("Type mismatch \n"));
}

TEST(ExceptionFilter, ChainThatEndsInNoExceptionTellsTheLastThatIsOne) {
  Fixture f;
  f.reporter.guarded("run()", [] {
    try {
      throw 7;
    } catch (...) {
      std::throw_with_nested(std::runtime_error("outer"));
    }
  });
  EXPECT_TRUE(f.reporter.lastReport().starts_with("outer \n"));
}

TEST(ExceptionFilter, IsInstalledByGuardAndWinErrorAndRemoved) {
  Fixture f;
  EXPECT_FALSE(f.reporter.isFilterInstalled());
  f.reporter.WinError(2);
  EXPECT_TRUE(f.reporter.isFilterInstalled());
  f.reporter.WinError(2);
  EXPECT_TRUE(f.reporter.isFilterInstalled());
  f.reporter.SysExcHandler();
  EXPECT_FALSE(f.reporter.isFilterInstalled());
  f.reporter.guarded("run()", [] {});
  EXPECT_TRUE(f.reporter.isFilterInstalled());
}

TEST(ExceptionFilter, RemovedItLeavesTheExceptionsOwnWords) {
  Fixture f;
  f.reporter.guarded("run()", [&] {
    f.reporter.SysExcHandler();
    throw std::overflow_error("too much");
  });
  EXPECT_TRUE(f.reporter.lastReport().starts_with("too much \n"));
  EXPECT_TRUE(contains(f.reporter.lastReport(), "= ERR_GENERAL\n"));
}

TEST(WinError, GivesTheSystemsTextWithinItsLength) {
  Fixture f;
  EXPECT_EQ(f.reporter.WinError(ENOENT), "No such file or directory");
  EXPECT_EQ(f.reporter.WinError(EACCES), "Permission denied");
  EXPECT_LE(f.reporter.WinError(123456).size(), 256U);
}

// Step mode

TEST(StepMode, IsNotOfferedWhereNobodyAnswers) {
  Fixture f(/*offersRetry=*/false);
  int runs = 0;
  f.reporter.guarded("run()", [&] {
    ++runs;
    throw overflow();
  });
  EXPECT_EQ(runs, 1);
  EXPECT_TRUE(f.host.prompts.messages.empty());
}

TEST(StepMode, IsOfferedOnceAfterTheReportAndDeclined) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::No};
  int runs = 0;
  EXPECT_FALSE(f.reporter.guarded("run()", [&] {
    ++runs;
    throw overflow();
  }));
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(f.messageTexts(), Texts{kRetryOffer});
  EXPECT_EQ(f.host.prompts.messages[0].buttons, MessageButtons::YesNo);
  EXPECT_EQ(f.host.prompts.modalForms, 1);
}

TEST(StepMode, RunsTheEntryAgainAndMaySucceed) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes};
  int runs = 0;
  EXPECT_TRUE(f.reporter.guarded("run()", [&] {
    if (++runs == 1) throw overflow();
  }));
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(f.messageTexts(), Texts{kRetryOffer});
}

TEST(StepMode, StopAsksWithDescriptionAndTime) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes, Answer::No};
  f.reporter.guarded("run()", [] { throw overflow(); });
  ASSERT_EQ(f.host.prompts.messages.size(), 2U);
  const Message& stop = f.host.prompts.messages[1];
  EXPECT_EQ(stop.text,
            "Stopped on error: Overflow\n\n14:05:07\n"
            "Click YES to retry, NO to move to the caller, CANCEL for no more stops");
  EXPECT_EQ(stop.title, "Stopped on Error");
  EXPECT_EQ(stop.buttons, MessageButtons::YesNoCancel);
}

TEST(StepMode, NoMovesToTheCallerLevelByLevelThenReportsAgain) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes, Answer::No, Answer::No, Answer::No};
  int runs = 0;
  EXPECT_FALSE(f.reporter.guarded("mnuViewReDraw_Click()", [&] {
    ++runs;
    redraw();
  }));
  EXPECT_EQ(runs, 2);
  // The offer, and a stop at divide, redrawscreen and the entry; the offer is not repeated.
  EXPECT_EQ(f.host.prompts.messages.size(), 4U);
  EXPECT_EQ(f.host.prompts.modalForms, 2);
}

TEST(StepMode, YesAtAnyLevelRunsTheEntryAgain) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes, Answer::No, Answer::Yes, Answer::Yes};
  int runs = 0;
  EXPECT_TRUE(f.reporter.guarded("run()", [&] {
    if (++runs < 4) redraw();
  }));
  EXPECT_EQ(runs, 4);
  EXPECT_EQ(f.host.prompts.modalForms, 1);
}

TEST(StepMode, CancelSilencesFurtherStopsInThisRunOfTheProgram) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes, Answer::Cancel};
  int runs = 0;
  EXPECT_FALSE(f.reporter.guarded("run()", [&] {
    ++runs;
    redraw();
  }));
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(f.reporter.stopMode(), "NoStop");
  EXPECT_EQ(f.host.prompts.messages.size(), 2U);
  EXPECT_FALSE(f.reporter.guarded("run()", redraw));
  EXPECT_EQ(f.host.prompts.messages.size(), 2U);
  EXPECT_EQ(f.host.prompts.modalForms, 3);
}

// What the test programs rely on: an entry that fails each time ends, with its report.
TEST(StepMode, EndsWhereNobodyPreparedAnAnswer) {
  Fixture f(/*offersRetry=*/true);
  int runs = 0;
  EXPECT_FALSE(f.reporter.guarded("frmMain.click", [&] {
    ++runs;
    divide();
  }));
  EXPECT_EQ(runs, 2) << "once, and once more in step mode";
  EXPECT_TRUE(contains(f.reporter.lastReport(), "Division by zero"));
  const Texts texts = f.messageTexts();
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[0], kRetryOffer);
  EXPECT_TRUE(texts[1].starts_with("Stopped on error: Division by zero"));
  EXPECT_TRUE(texts[2].starts_with("Stopped on error: Division by zero"));
}

TEST(StepMode, EndsWithTheGuardedRun) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes};
  int runs = 0;
  f.reporter.guarded("run()", [&] {
    if (++runs == 1) throw overflow();
  });
  f.host.prompts.answers = {Answer::No};
  f.reporter.guarded("run()", redraw);
  EXPECT_EQ(f.messageTexts(), (Texts{kRetryOffer, kRetryOffer}));
}

TEST(StepMode, FailureWithinAStopDoesNotStopInItsTurn) {
  struct EventfulPrompts : RecordingPrompts {
    Answer showMessage(const Message& message) override {
      const Answer answer = RecordingPrompts::showMessage(message);
      if (message.title == "Stopped on Error" && onStop) onStop();
      return answer;
    }
    std::function<void()> onStop;
  } prompts;
  testing::FixedClock clock;
  HuntERR reporter(prompts, clock, settings("", /*offersRetry=*/true));
  prompts.answers = {Answer::Yes, Answer::No};
  prompts.onStop = [&] { EXPECT_FALSE(reporter.guarded("timer()", [] { throw typeMismatch(); })); };
  reporter.guarded("run()", [] { throw overflow(); });
  EXPECT_EQ(prompts.messages.size(), 2U);
  EXPECT_EQ(prompts.modalForms, 3);
  EXPECT_TRUE(reporter.lastReport().starts_with("Overflow \n"));
}

TEST(StepMode, NestedRunOfARetriedOneStopsToo) {
  Fixture f(/*offersRetry=*/true);
  f.host.prompts.answers = {Answer::Yes, Answer::Yes};
  int runs = 0;
  int innerRuns = 0;
  EXPECT_TRUE(f.reporter.guarded("outer()", [&] {
    if (++runs == 1) throw overflow();
    EXPECT_TRUE(f.reporter.guarded("inner()", [&] {
      if (++innerRuns == 1) throw typeMismatch();
    }));
  }));
  EXPECT_EQ(innerRuns, 2);
  EXPECT_EQ(runs, 2);
}

// The report window

TEST(ShowError, TextFillsTheFormOnResize) {
  RecordingPrompts prompts;
  frmShowError form(prompts);
  form.setSize(640, 480);
  EXPECT_EQ(form.txtError.bounds(), (Bounds{0, 0, 640, 480}));
}

TEST(ShowError, TextCannotBeTypedOver) {
  RecordingPrompts prompts;
  frmShowError form(prompts);
  prompts.onForm = [](Form& shown) {
    EXPECT_FALSE(dynamic_cast<TextBox&>(*shown.control("txtError")).type("gone"));
  };
  form.ErrorReport("A report");
  EXPECT_EQ(form.txtError.text(), "A report");
  EXPECT_FALSE(form.isShown());
}

}  // namespace
}  // namespace tess
