// The desktop's ports: timers, events, message boxes, pointer, and the door into the program.
#include "shell/qt/ports.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

#include "core/cancellable_work.h"
#include "tests/qt/desktop_test_support.h"
#include "tests/support/recording_host.h"

namespace tess {
namespace {

void wait(int milliseconds) {
  QElapsedTimer time;
  time.start();
  testing::waitFor([&] { return time.elapsed() >= milliseconds; });
}

TEST(DesktopTimers, AOneShotTicksOnceAndIsOffByThen) {
  Gateway gateway(testing::passThrough());
  DesktopTimers timers(gateway);
  std::unique_ptr<Timer> timer;
  std::vector<bool> enabledAtTick;
  timer = timers.create({"tmrEventEnable", 5, /*oneShot=*/true},
                        [&] { enabledAtTick.push_back(timer->enabled()); });
  EXPECT_FALSE(timer->enabled());
  timer->setEnabled(true);
  EXPECT_TRUE(testing::waitFor([&] { return !enabledAtTick.empty(); }));
  wait(60);
  EXPECT_EQ(enabledAtTick, std::vector<bool>{false});
}

TEST(DesktopTimers, ATimerTicksUntilItIsOffAndMayEndItself) {
  Gateway gateway(testing::passThrough());
  DesktopTimers timers(gateway);
  int ticks = 0;
  std::unique_ptr<Timer> timer;
  timer = timers.create({"tmrTaskQueue", 5}, [&] {
    if (++ticks == 3) timer.reset();
  });
  timer->setEnabled(true);
  EXPECT_TRUE(testing::waitFor([&] { return timer == nullptr; }));
  wait(60);
  EXPECT_EQ(ticks, 3);
}

TEST(Gateway, CountsWhatTheOperatorDoesButNotTimers) {
  Gateway gateway(testing::passThrough());
  std::vector<bool> busy;
  gateway.enter("command", [&] { busy.push_back(gateway.isBusy()); });
  gateway.pass("timer", [&] { busy.push_back(gateway.isBusy()); });
  EXPECT_EQ(busy, (std::vector<bool>{true, false}));
}

TEST(Gateway, LetsNothingThroughOnceItIsClosed) {
  Gateway gateway(testing::passThrough());
  gateway.close();
  gateway.enter("press", [] { FAIL() << "the operator came through"; });
  gateway.pass("timer", [] { FAIL() << "a timer came through"; });
  EXPECT_FALSE(gateway.isBusy());
}

TEST(Gateway, TellsThatTheProgramCannotGoOn) {
  Gateway gateway(testing::passThrough());
  std::string told;
  gateway.onEnd = [&](const std::string& line) { told = line; };
  gateway.enter("load", [] { throw EndProgram("no setup"); });
  EXPECT_EQ(told, "no setup");
  EXPECT_FALSE(gateway.isBusy());
}

TEST(DesktopSurroundings, ServesTimersWhileACommandRunsButKeepsTheOperatorWaiting) {
  Gateway gateway(testing::passThrough());
  DesktopSurroundings surroundings(gateway);
  bool ticked = false;
  QTimer::singleShot(0, [&] { ticked = true; });
  gateway.enter("command", [&] {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 30) surroundings.serveEvents();
  });
  EXPECT_TRUE(ticked);
}

QKeyEvent* keyPress(int key) {
  return new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier);
}

// Hears the keys that reach it.
class KeyListener : public QObject {
 public:
  std::vector<int> keys;
  bool event(QEvent* event) override {
    if (event->type() == QEvent::KeyPress) keys.push_back(static_cast<QKeyEvent*>(event)->key());
    return true;
  }
};

// Work that the operator can end, in a command of the desktop.
class DesktopWork : public ::testing::Test {
 protected:
  void run(const std::function<void(CancellableWork&)>& work) {
    gateway.enter("command", [&] {
      CancellableWork cancellable(host);
      work(cancellable);
    });
  }
  // Long enough that events are served a few times.
  static void breatheFor(CancellableWork& work, int milliseconds = 30) {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < milliseconds) work.breathe();
  }
  // Answers the box that is open by the keyboard.
  static void pressEscInBox() {
    QWidget* const box = QApplication::activeModalWidget();
    ASSERT_NE(box, nullptr);
    QCoreApplication::postEvent(box, keyPress(Qt::Key_Escape));
  }
  Answer ask() {
    return prompts.showMessage(
        {.text = "Shorter leads?", .title = "Leads", .buttons = MessageButtons::YesNoCancel});
  }

  Gateway gateway{testing::passThrough()};
  DesktopSurroundings surroundings{gateway};
  DesktopPrompts prompts{gateway};
  KeyListener listener;

 private:
  testing::RecordingHost recording_;
  Host host{prompts, recording_.clock, surroundings, recording_.failures, recording_.guard};
};

TEST_F(DesktopWork, EndsWithEscAndNoOtherDoes) {
  run([&](CancellableWork& work) {
    work.breathe();
    QCoreApplication::postEvent(&listener, keyPress(Qt::Key_Escape));
    EXPECT_THROW(breatheFor(work, 5000), WorkCancelled);
  });
  EXPECT_FALSE(surroundings.isCancelled());
  QCoreApplication::processEvents();
  EXPECT_TRUE(listener.keys.empty());
}

TEST_F(DesktopWork, OtherInputWaitsForItsEnd) {
  run([&](CancellableWork& work) {
    QCoreApplication::postEvent(&listener, keyPress(Qt::Key_L));
    breatheFor(work);
    EXPECT_TRUE(listener.keys.empty());
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(listener.keys, std::vector<int>{Qt::Key_L});
}

TEST_F(DesktopWork, ABoxThatItShowsHearsTheOperator) {
  run([&](CancellableWork& work) {
    breatheFor(work);
    QTimer::singleShot(0, pressEscInBox);
    EXPECT_EQ(ask(), Answer::Cancel);
    EXPECT_NO_THROW(breatheFor(work)) << "the Esc was the box's";
  });
}

TEST_F(DesktopWork, ABoxThatATimerShowsMeanwhileHearsTheOperator) {
  bool asked = false;
  run([&](CancellableWork& work) {
    QTimer::singleShot(0, [&] {
      QTimer::singleShot(0, pressEscInBox);
      EXPECT_EQ(ask(), Answer::Cancel);
      asked = true;
    });
    EXPECT_NO_THROW(breatheFor(work)) << "the Esc was the box's";
    QCoreApplication::postEvent(&listener, keyPress(Qt::Key_L));
    breatheFor(work);
    EXPECT_TRUE(listener.keys.empty()) << "the box is gone";
  });
  EXPECT_TRUE(asked);
}

TEST_F(DesktopWork, WithinOtherWorkLeavesThatAbleToEnd) {
  run([&](CancellableWork& work) {
    run([](CancellableWork& inner) { breatheFor(inner); });
    QCoreApplication::postEvent(&listener, keyPress(Qt::Key_Escape));
    EXPECT_THROW(breatheFor(work, 5000), WorkCancelled);
  });
  EXPECT_FALSE(surroundings.isCancelled());
}

struct BoxCase {
  const char* name;
  MessageButtons buttons;
  QMessageBox::StandardButton pressed;
  Answer answer;
};

TEST(DesktopPrompts, ShowTheTextAndGiveTheButtonsAnswer) {
  Gateway gateway(testing::passThrough());
  DesktopPrompts prompts(gateway);
  const BoxCase cases[] = {
      {"ok", MessageButtons::Ok, QMessageBox::Ok, Answer::Ok},
      {"cancel", MessageButtons::OkCancel, QMessageBox::Cancel, Answer::Cancel},
      {"yes", MessageButtons::YesNo, QMessageBox::Yes, Answer::Yes},
      {"no", MessageButtons::YesNoCancel, QMessageBox::No, Answer::No},
      {"neither", MessageButtons::YesNoCancel, QMessageBox::Cancel, Answer::Cancel},
  };
  for (const BoxCase& row : cases) {
    SCOPED_TRACE(row.name);
    QTimer::singleShot(0, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->text(), "Drawing not saved! <b>Save</b> now?");
      EXPECT_EQ(box->windowTitle(), "Tessimo Mill");
      box->button(row.pressed)->click();
    });
    EXPECT_EQ(prompts.showMessage({.text = "Drawing not saved! <b>Save</b> now?",
                                   .title = "Tessimo Mill",
                                   .icon = MessageIcon::Question,
                                   .buttons = row.buttons}),
              row.answer);
  }
}

Message messageOf(const char* text, MessageButtons buttons = MessageButtons::Ok) {
  return {.text = text, .title = {}, .icon = MessageIcon::None, .buttons = buttons};
}

// Closes every box; how many there were.
class ClosedBoxes {
 public:
  ClosedBoxes() {
    QObject::connect(&look_, &QTimer::timeout, [this] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      ++count;
      box->buttons().first()->click();
    });
    look_.start(1);
  }
  int count = 0;

 private:
  QTimer look_;
};

// As of a drawing with thousands of rows that cannot be drawn.
TEST(DesktopPrompts, ShowThreeOfMessagesThatComeOneRightBehindTheOther) {
  Gateway gateway(testing::passThrough());
  DesktopPrompts prompts(gateway);
  ClosedBoxes closed;
  for (int row = 0; row < 1000; ++row) {
    EXPECT_EQ(prompts.showMessage(messageOf("one kind of row")), Answer::Ok);
    EXPECT_EQ(prompts.showMessage(messageOf("another kind of row")), Answer::Ok);
  }
  EXPECT_GE(closed.count, 6);
  EXPECT_LT(closed.count, 100) << "more than 6 only where the machine stands still in between";
}

TEST(DesktopPrompts, ShowAMessageAgainThatCameBefore) {
  Gateway gateway(testing::passThrough());
  DesktopPrompts prompts(gateway);
  ClosedBoxes closed;
  for (int time = 0; time < 5; ++time) {
    prompts.showMessage(messageOf("No Path Segments Placed!"));
    wait(150);
  }
  EXPECT_EQ(closed.count, 5);
}

TEST(DesktopPrompts, ShowEveryQuestion) {
  Gateway gateway(testing::passThrough());
  DesktopPrompts prompts(gateway);
  ClosedBoxes closed;
  for (int time = 0; time < 5; ++time) {
    prompts.showMessage(messageOf("Save now?", MessageButtons::YesNo));
  }
  EXPECT_EQ(closed.count, 5);
}

TEST(DesktopPointer, KeepsItsShape) {
  SurfaceWidget surface;
  DesktopPointer pointer(surface);
  pointer.setMouseIcon("/no/such/pansmall.ico");
  pointer.setMousePointer(kCustomShape);
  EXPECT_EQ(pointer.MousePointer(), kCustomShape);
  EXPECT_EQ(surface.cursor().shape(), Qt::OpenHandCursor) << "a missing icon has a stand-in";
  pointer.setMousePointer(kDefaultShape);
  EXPECT_EQ(surface.cursor().shape(), Qt::ArrowCursor);
}

TEST(DesktopPointer, ShowsAnHourglassOnlyWhenTheWaitIsLong) {
  SurfaceWidget surface;
  DesktopPointer pointer(surface);
  pointer.setMousePointer(kHourglassShape);
  EXPECT_EQ(surface.cursor().shape(), Qt::ArrowCursor);
  EXPECT_TRUE(testing::waitFor([&] { return surface.cursor().shape() == Qt::WaitCursor; }));
  pointer.setMousePointer(kDefaultShape);
  EXPECT_EQ(surface.cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
}  // namespace tess
