// Forms without a window: showing and closing, those without an end of their own, and forms that go
// while their events run.
#include <memory>
#include <string>
#include <vector>

#include "gtest/gtest.h"

#include "core/form.h"
#include "core/form_host.h"
#include "core/runtime_failure.h"
#include "tests/support/sample_form.h"

namespace tess {
namespace {

using testing::dlgSample;
using testing::expectFailure;
using testing::FormRecorder;
using Log = testing::FormLog;

// Showing and closing

TEST(FormLife, OpenLoadsShowsAndFocusesTheFirstControl) {
  dlgSample form;
  EXPECT_FALSE(form.isShown());
  form.open(Modality::Modal);
  EXPECT_TRUE(form.isShown());
  EXPECT_TRUE(form.isLoaded());
  EXPECT_EQ(form.modality(), Modality::Modal);
  EXPECT_EQ(form.taken(), (Log{"load", "txtFirst focus"}));
}

TEST(FormLife, FocusSetWhileLoadingIsKept) {
  dlgSample form;
  form.onLoad = [&] { form.txtSecond.focus(); };
  form.open(Modality::Modal);
  EXPECT_EQ(form.focused(), &form.txtSecond);
}

TEST(FormLife, AcceptRunsItsHandlerThenCloses) {
  dlgSample form;
  form.open(Modality::Modal);
  form.taken();
  form.accept();
  EXPECT_TRUE(form.accepted());
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.isLoaded());
  EXPECT_EQ(form.taken(), (Log{"accept", "close"}));
}

TEST(FormLife, FailureInAcceptLeavesTheFormOpen) {
  dlgSample form;
  form.open(Modality::Modal);
  form.onAccept = [] { throw typeMismatch(); };
  EXPECT_THROW(form.accept(), RuntimeFailure);
  EXPECT_FALSE(form.accepted());
  EXPECT_TRUE(form.isShown());
}

TEST(FormLife, CloseIsNotAccepted) {
  dlgSample form;
  form.open(Modality::Modal);
  EXPECT_TRUE(form.close());
  EXPECT_FALSE(form.accepted());
  form.taken();
  EXPECT_TRUE(form.close());
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormLife, OpeningAgainLoadsAgainAndForgetsTheAcceptance) {
  dlgSample form;
  form.open(Modality::Modal);
  form.accept();
  form.taken();
  form.open(Modality::Modeless);
  EXPECT_FALSE(form.accepted());
  EXPECT_EQ(form.modality(), Modality::Modeless);
  EXPECT_EQ(form.taken().front(), "load");
}

TEST(FormLife, QueryMayRefuseByReason) {
  dlgSample form;
  form.open(Modality::Modal);
  form.onQueryClose = [&](CloseQuery& query) {
    EXPECT_FALSE(form.close());  // within the question
    if (query.reason != CloseReason::Program) query.refuse();
  };
  EXPECT_FALSE(form.close(CloseReason::Operator));
  form.accept();
  EXPECT_FALSE(form.accepted());
  EXPECT_TRUE(form.isShown());
  EXPECT_TRUE(form.close());
}

TEST(FormLife, FormThatClosesWhileLoadingIsNeverShown) {
  dlgSample form;
  form.onLoad = [&] { form.close(); };
  form.open(Modality::Modal);
  EXPECT_FALSE(form.isShown());
  EXPECT_FALSE(form.isLoaded());
}

TEST(FormLife, FailureWhileLoadingLeavesItUnloaded) {
  dlgSample form;
  form.onLoad = [] { throw overflow(); };
  EXPECT_THROW(form.open(Modality::Modal), RuntimeFailure);
  EXPECT_FALSE(form.isLoaded());
  EXPECT_FALSE(form.isShown());
}

TEST(FormLife, HiddenFormStaysLoaded) {
  dlgSample form;
  form.open(Modality::Modeless);
  form.hide();
  EXPECT_FALSE(form.isShown());
  EXPECT_TRUE(form.isLoaded());
  form.taken();
  form.open(Modality::Modeless);
  EXPECT_EQ(form.taken(), Log{});
}

TEST(FormLife, NewSizeRunsResizeOnce) {
  dlgSample form;
  form.setSize(200, 100);
  form.setSize(200, 100);
  EXPECT_EQ(form.taken(), Log{"resize"});
  EXPECT_EQ(form.width(), 200);
  EXPECT_EQ(form.height(), 100);
}

// Destruction while events run

struct Destruction {
  const char* name;
  void (*wire)(std::unique_ptr<dlgSample>&);
  void (*act)(dlgSample&);
};

TEST(FormDestruction, MayHappenInAnyEvent) {
  using Owner = std::unique_ptr<dlgSample>;
  const std::vector<Destruction> cases = {
      {"click", [](Owner& f) { f->cmdCancel.onClick = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.cmdCancel.press(); }},
      {"array click", [](Owner& f) { f->OptCutWidth.onClick = [&f](int) { f.reset(); }; },
       [](dlgSample& f) { f.OptCutWidth[1].press(); }},
      {"change", [](Owner& f) { f->txtFirst.onChange = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.txtFirst.type("1"); }},
      {"key", [](Owner& f) { f->txtFirst.onKey = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.txtFirst.type("1"); }},
      {"combo key", [](Owner& f) { f->cboSize.onKey = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.cboSize.type("1"); }},
      {"focus", [](Owner& f) { f->txtFirst.onFocus = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.txtFirst.type("1"); }},
      {"leave",
       [](Owner& f) {
         f->txtFirst.onLeave = [&f] { f.reset(); };
         f->txtFirst.focus();
       },
       [](dlgSample& f) { f.cmdAccept.press(); }},
      {"validate",
       [](Owner& f) {
         f->txtFirst.onValidate = [&f](Validation&) { f.reset(); };
         f->txtFirst.focus();
       },
       [](dlgSample& f) { f.cmdAccept.press(); }},
      {"load", [](Owner& f) { f->onLoad = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.open(Modality::Modal); }},
      {"accept",
       [](Owner& f) {
         f->open(Modality::Modal);
         f->onAccept = [&f] { f.reset(); };
       },
       [](dlgSample& f) { f.accept(); }},
      {"query",
       [](Owner& f) {
         f->open(Modality::Modal);
         f->onQueryClose = [&f](CloseQuery&) { f.reset(); };
       },
       [](dlgSample& f) { f.accept(); }},
      {"close",
       [](Owner& f) {
         f->open(Modality::Modal);
         f->onClose = [&f] { f.reset(); };
       },
       [](dlgSample& f) { f.accept(); }},
      {"pick", [](Owner& f) { f->lstNames.onClick = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.lstNames.pick(0); }},
      {"slide", [](Owner& f) { f->Slider1.onChange = [&f] { f.reset(); }; },
       [](dlgSample& f) { f.Slider1.slide(3); }},
  };
  for (const Destruction& each : cases) {
    auto form = std::make_unique<dlgSample>();
    each.wire(form);
    each.act(*form);
    EXPECT_EQ(form, nullptr) << each.name;
  }
}

TEST(FormDestruction, MayHappenWhileObserversAreTold) {
  struct Destroyer : FormObserver {
    explicit Destroyer(std::unique_ptr<dlgSample>& owner) : form(owner) {}
    void controlChanged(Control&, Property) override { form.reset(); }
    void formChanged(Form&, FormProperty) override { form.reset(); }
    std::unique_ptr<dlgSample>& form;
  };
  const std::vector<void (*)(dlgSample&)> acts = {
      [](dlgSample& f) { f.txtFirst.setText("1"); },
      [](dlgSample& f) { f.chkGrid.setValue(1); },
      [](dlgSample& f) { f.optMove.setValue(true); },
      [](dlgSample& f) { f.lstNames.setIndex(0); },
      [](dlgSample& f) { f.cboSize.setIndex(0); },
      [](dlgSample& f) { f.Slider1.setRange(0, 4); },
      [](dlgSample& f) { f.txtFirst.focus(); },
      [](dlgSample& f) { f.cmdAccept.focus(); },
      [](dlgSample& f) { f.setSize(1, 1); },
      [](dlgSample& f) { f.open(Modality::Modal); },
  };
  for (const auto act : acts) {
    auto form = std::make_unique<dlgSample>();
    form->optCopy.setValue(true);
    Destroyer destroyer(form);
    const Subscription watch = form->observe(destroyer);
    FormRecorder later(*form);
    act(*form);
    EXPECT_EQ(form, nullptr);
    EXPECT_TRUE(later.gone);
    EXPECT_TRUE(later.heard.empty());
  }
}

// Modeless forms

class HostRecorder : public FormHostObserver {
 public:
  explicit HostRecorder(FormHost& host) : watch(host.observe(*this)) {}
  void formOpened(Form& form) override {
    EXPECT_FALSE(form.isLoaded());
    log.push_back("opened " + form.name());
  }
  void formClosed(const std::string& name) override { log.push_back("closed " + name); }

  Log log;
  Subscription watch;
};

TEST(FormHost, KnowsAFormWhileItIsOpen) {
  FormHost host;
  HostRecorder recorder(host);
  dlgSample form;
  host.show(form);
  EXPECT_EQ(host.find("dlgSample"), &form);
  EXPECT_EQ(form.modality(), Modality::Modeless);
  host.show(form);
  EXPECT_EQ(host.openForms(), std::vector<Form*>{&form});
  EXPECT_EQ(host.find("frmOther"), nullptr);
  form.close();
  EXPECT_EQ(host.find("dlgSample"), nullptr);
  EXPECT_EQ(recorder.log, (Log{"opened dlgSample", "closed dlgSample"}));
}

TEST(FormHost, ForgetsAFormThatIsDestroyed) {
  FormHost host;
  HostRecorder recorder(host);
  auto form = std::make_unique<dlgSample>();
  host.show(*form);
  form.reset();
  EXPECT_EQ(host.find("dlgSample"), nullptr);
  EXPECT_EQ(recorder.log, (Log{"opened dlgSample", "closed dlgSample"}));
}

TEST(FormHost, ForgetsAFormThatClosesOrFailsWhileLoading) {
  FormHost host;
  HostRecorder recorder(host);
  dlgSample form;
  form.onLoad = [&] { form.close(); };
  host.show(form);
  EXPECT_TRUE(host.openForms().empty());
  form.onLoad = [] { throw overflow(); };
  EXPECT_THROW(host.show(form), RuntimeFailure);
  EXPECT_TRUE(host.openForms().empty());
  EXPECT_EQ(recorder.log,
            (Log{"opened dlgSample", "closed dlgSample", "opened dlgSample", "closed dlgSample"}));
}

TEST(FormHost, ClosesAllFromTheLatestUntilOneRefuses) {
  FormHost host;
  Form first("frmFirst");
  Form second("frmSecond");
  Form third("frmThird");
  for (Form* form : {&first, &second, &third}) host.show(*form);
  second.onQueryClose = [](CloseQuery& query) { query.refuse(); };
  EXPECT_FALSE(host.closeAll());
  EXPECT_EQ(host.openForms(), (std::vector<Form*>{&first, &second}));
  second.onQueryClose = nullptr;
  EXPECT_TRUE(host.closeAll());
  EXPECT_TRUE(host.openForms().empty());
}

TEST(FormHost, HiddenFormStaysKnown) {
  FormHost host;
  dlgSample form;
  host.show(form);
  form.hide();
  EXPECT_EQ(host.find("dlgSample"), &form);
  host.show(form);
  EXPECT_TRUE(form.isShown());
}

TEST(FormHost, FormMayOutliveTheHost) {
  dlgSample form;
  {
    FormHost host;
    host.show(form);
  }
  EXPECT_TRUE(form.close());
}

}  // namespace
}  // namespace tess
