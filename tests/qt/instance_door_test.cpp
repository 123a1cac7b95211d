// A second start hands its file to the window that is open, and files of any kind are dropped on
// it.
#include "shell/qt/instance_door.h"

#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <filesystem>
#include <functional>
#include <future>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include "core/drawing_store.h"
#include "tests/qt/dialog_test_support.h"
#include "tests/qt/plate_program.h"
#include "tests/support/write_file.h"

namespace tess {
namespace {

using testing::waitFor;

// What a second process does while this one serves its events.
bool handsOver(const std::string& door, const std::string& file) {
  auto answer = std::async(std::launch::async, [&] { return handToRunning(door, file); });
  waitFor([&] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
  return answer.get();
}

sockaddr_un addressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

bool reach(const Descriptor& peer, const std::string& path) {
  const sockaddr_un address = addressOf(path);
  return ::connect(peer.number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

Descriptor knock(const std::string& path) {
  Descriptor peer(::socket(AF_UNIX, SOCK_STREAM, 0));
  EXPECT_TRUE(reach(peer, path));
  return peer;
}

// Waits until he is shown out.
bool isOut(const Descriptor& peer) {
  return waitFor([&] {
    char answer = 0;
    return ::recv(peer.number(), &answer, 1, MSG_DONTWAIT) == 0 || errno == ECONNRESET;
  });
}

class Door : public ::testing::Test {
 protected:
  Door() {
    door.onFile = [this](const std::string& file) {
      files.push_back(file);
      return takes;
    };
  }
  testing::TempFolder folder;
  std::string path = folder("door");
  InstanceDoor door{path};
  std::vector<std::string> files;
  bool takes = true;
};

TEST_F(Door, TakesAFileWithAnyName) {
  EXPECT_TRUE(handsOver(path, "/parts/Fräse \"1\".cdm"));
  EXPECT_EQ(files, std::vector<std::string>{"/parts/Fräse \"1\".cdm"});
}

TEST_F(Door, IsTheUsersAlone) {
  struct stat state {};
  ASSERT_EQ(::stat(path.c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777U, 0700U);
}

TEST_F(Door, MayRefuse) {
  takes = false;
  EXPECT_FALSE(handsOver(path, "/parts/a.cdm"));
  EXPECT_EQ(files.size(), 1U);
}

TEST_F(Door, PathsThatAreNoneAreNotSent) {
  EXPECT_FALSE(handsOver(path, ""));
  EXPECT_FALSE(handsOver(path, "/parts/a\nb.cdm"));
  EXPECT_FALSE(handsOver(path, std::string(5000, 'a')));
  EXPECT_TRUE(handsOver(path, std::string(4095, 'a')));
  EXPECT_EQ(files.size(), 1U);
}

TEST_F(Door, WhoSendsAnythingElseIsIgnored) {
  for (const std::string& text : {std::string("no end"), std::string("a\0b\n", 4),
                                  std::string("two\nlines\n"), std::string(9000, 'x')}) {
    const Descriptor peer = knock(path);
    ASSERT_GT(::send(peer.number(), text.data(), text.size(), MSG_NOSIGNAL), 0);
    EXPECT_TRUE(isOut(peer));
  }
  EXPECT_TRUE(files.empty());
  EXPECT_TRUE(handsOver(path, "/parts/a.cdm")) << "the next one is heard";
}

// The window goes on working for its operator meanwhile, and others are heard.
TEST_F(Door, WhoSaysNothingIsNotWaitedFor) {
  const Descriptor silent = knock(path);
  QCoreApplication::processEvents();
  EXPECT_TRUE(handsOver(path, "/parts/a.cdm"));
  EXPECT_TRUE(isOut(silent));
}

TEST_F(Door, ALineMayComeInParts) {
  const Descriptor slow = knock(path);
  ASSERT_EQ(::send(slow.number(), "/parts/", 7, MSG_NOSIGNAL), 7);
  for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
  EXPECT_TRUE(files.empty());
  ASSERT_EQ(::send(slow.number(), "a.cdm\n", 6, MSG_NOSIGNAL), 6);
  EXPECT_TRUE(waitFor([&] { return files.size() == 1; }));
  EXPECT_EQ(files, std::vector<std::string>{"/parts/a.cdm"});
}

TEST_F(Door, OfManyWhoSayNothingTheFirstGo) {
  std::vector<Descriptor> silent;
  for (int each = 0; each < 50; ++each) {
    silent.push_back(knock(path));
    QCoreApplication::processEvents();
  }
  EXPECT_TRUE(isOut(silent.front()));
  EXPECT_TRUE(handsOver(path, "/parts/a.cdm"));
}

// As when the program that listens stands still.
TEST(DoorOfAProgramThatStandsStill, KeepsNobodyWaiting) {
  const testing::TempFolder folder;
  const std::string path = folder("door");
  const InstanceDoor door(path);
  std::vector<Descriptor> waiting;
  for (int each = 0; each < 20; ++each) {
    Descriptor peer(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
    if (!reach(peer, path)) break;
    waiting.push_back(std::move(peer));
  }
  EXPECT_LT(waiting.size(), 20U) << "there is no room for another";
  EXPECT_FALSE(handToRunning(path, "/parts/a.cdm"));
}

TEST_F(Door, OfADeadProcessIsReplaced) {
  QFile::link("/nowhere", QString::fromStdString(folder("old")));
  const InstanceDoor again(folder("old"));
  EXPECT_TRUE(again.isOpen());
}

TEST(DoorWithoutListener, IsClosed) {
  const testing::TempFolder folder;
  EXPECT_FALSE(handToRunning(folder("nobody"), "/parts/a.cdm"));
  EXPECT_FALSE(handToRunning(std::string(300, 'a'), "/parts/a.cdm"));
  EXPECT_FALSE(InstanceDoor(std::string(300, 'a')).isOpen());
}

class HandedFiles : public testing::PlateProgram {
 protected:
  Application& application() { return program->application(); }
  // Another drawing than the plate, with one row.
  std::string otherDrawing() {
    std::filesystem::copy(TESSIMO_SOURCE_DIR "/examples/clamp.cdm", home("other.cdm"));
    return home("other.cdm");
  }
  void drop(const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&program->window(), &enter);
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&program->window(), &event);
  }
  // The text of the box that the next event brings.
  void expectMessage(std::string& text) {
    testing::whenModal([&text](QWidget& box) {
      text = box.findChild<QLabel*>("qt_msgbox_label")->text().toStdString();
      box.close();
    });
  }
};

TEST_F(HandedFiles, OpenAsThoughDropped) {
  EXPECT_TRUE(program->takeFile(otherDrawing()));
  EXPECT_TRUE(waitFor([&] { return application().store.drawingname == "other.cdm"; }));
}

TEST_F(HandedFiles, ABareNameMayBeOneOfTheDrawings) {
  std::filesystem::rename(otherDrawing(), home("CNC/other.cdm"));
  EXPECT_TRUE(program->takeFile("/nowhere/other"));
  EXPECT_TRUE(waitFor([&] {
    return application().store.drawingname == "other.CDM" ||
           application().store.drawingname == "other.cdm";
  }));
}

TEST_F(HandedFiles, AreRefusedWhileADialogIsOpen) {
  bool looked = false;
  testing::whenModal([&](QWidget& dialog) {
    looked = true;
    EXPECT_FALSE(program->takeFile("/parts/a.cdm"));
    dialog.close();
  });
  program->window().toolBars().action("miMirror")->trigger();
  EXPECT_TRUE(looked);
}

TEST_F(HandedFiles, DropsOfOtherKindsAreTold) {
  std::string text;
  expectMessage(text);
  drop({QUrl::fromLocalFile("/etc/hostname")});
  EXPECT_EQ(text, "/etc/hostname is neither a drawing nor a DXF file.");
  expectMessage(text);
  drop({QUrl::fromLocalFile("/etc"), QUrl::fromLocalFile(QString::fromStdString(home("no.png")))});
  EXPECT_EQ(text, "None of these files is a drawing or a DXF file.");
  expectMessage(text);
  drop({QUrl("http://example.org/x.cdm"), QUrl("file:///%00/x.cdm")});
  EXPECT_EQ(text, "Only files of this computer can be opened.");
  expectMessage(text);
  drop({QUrl::fromLocalFile("/nowhere/gone.cdm")});
  EXPECT_EQ(text, "There is no file /nowhere/gone.cdm.");
  EXPECT_EQ(application().store.drawingname, "plate.cdm");
}

TEST_F(HandedFiles, OfAnyNumberTheFirstDrawingIsTaken) {
  QList<QUrl> urls;
  for (int file = 0; file < 20000; ++file) {
    urls << QUrl::fromLocalFile(QString("/nowhere/photo %1.png").arg(file));
  }
  urls << QUrl::fromLocalFile(QString::fromStdString(otherDrawing()));
  drop(urls);
  EXPECT_EQ(application().store.drawingname, "other.cdm");
}

TEST_F(HandedFiles, AreNotTakenFromUnderACommand) {
  const QList<QUrl> other{QUrl::fromLocalFile(QString::fromStdString(otherDrawing()))};
  program->gateway().enter("a command", [&] { drop(other); });
  EXPECT_EQ(application().store.drawingname, "plate.cdm");
  bool looked = false;
  testing::whenModal([&](QWidget& dialog) {
    looked = true;
    drop(other);
    dialog.close();
  });
  program->window().toolBars().action("miMirror")->trigger();
  EXPECT_TRUE(looked);
  EXPECT_EQ(application().store.drawingname, "plate.cdm");
  drop(other);
  EXPECT_EQ(application().store.drawingname, "other.cdm");
}

TEST_F(HandedFiles, AreTakenWhileACommandWaitsForAClick) {
  program->window().toolBars().action("miLine")->trigger();
  drop({QUrl::fromLocalFile(QString::fromStdString(otherDrawing()))});
  EXPECT_EQ(application().store.drawingname, "other.cdm");
  EXPECT_GT(application().store.NumSegments, 0);
}

// What boxes and reports say until `act` is done; each is closed at once.
std::string saidDuring(const std::function<void()>& act) {
  QStringList said;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&said] {
    QWidget* const box = QApplication::activeModalWidget();
    if (box == nullptr) return;
    for (const QLabel* label : box->findChildren<QLabel*>()) {
      if (!label->text().isEmpty()) said << label->text();
    }
    box->close();
  });
  look.start(1);
  act();
  return said.join('|').toStdString();
}

// What has the name of a drawing and is none: the drawing that is open stays, and why is said.
struct Oddity {
  const char* name;
  std::function<void(const std::string& path)> make;
  const char* reason;
};

class DroppedOddity : public HandedFiles, public ::testing::WithParamInterface<Oddity> {};

TEST_P(DroppedOddity, IsRefusedWithAReason) {
  const std::string path = home("odd.cdm");
  GetParam().make(path);
  const std::string said =
      saidDuring([&] { drop({QUrl::fromLocalFile(QString::fromStdString(path))}); });
  EXPECT_EQ(said, std::string("Couldn't revert to saved drawing.\n\n") + GetParam().reason);
  EXPECT_EQ(application().store.drawingname, "plate.cdm");
  EXPECT_GT(application().store.NumSegments, 0);
}

void makePipe(const std::string& path) {
  ASSERT_EQ(::mkfifo(path.c_str(), S_IRUSR | S_IWUSR), 0);
}

void makeDevice(const std::string& path) {
  std::filesystem::create_symlink("/dev/zero", path);
}

void makeHuge(const std::string& path) {
  testing::writeFile(path, "");
  std::filesystem::resize_file(path, 1ULL << 31U);  // of which nothing is on the disk
}

const Oddity kOddities[] = {
    {"Pipe", makePipe, "Path/File access error (it is a pipe)"},
    {"Device", makeDevice, "Path/File access error (it is a device)"},
    {"Huge", makeHuge, "The file is too large (2147483648 bytes, at most 67108864)"}};

INSTANTIATE_TEST_SUITE_P(Files, DroppedOddity, ::testing::ValuesIn(kOddities),
                         [](const auto& oddity) { return oddity.param.name; });

// Reading has begun by then, and with it the drawing that was open has been left.
TEST_F(HandedFiles, AnEmptyDrawingIsReported) {
  home.write("odd.cdm", "");
  const std::string said =
      saidDuring([&] { drop({QUrl::fromLocalFile(QString::fromStdString(home("odd.cdm")))}); });
  EXPECT_NE(said, "");
  EXPECT_EQ(application().store.drawingname, "");
  EXPECT_EQ(application().store.NumSegments, 0);
  drop({QUrl::fromLocalFile(QString::fromStdString(home("CNC/plate.cdm")))});
  EXPECT_EQ(application().store.drawingname, "plate.cdm");
}

TEST_F(HandedFiles, AFolderIsNoDrawing) {
  std::filesystem::create_directory(home("odd.cdm"));
  std::string text;
  expectMessage(text);
  drop({QUrl::fromLocalFile(QString::fromStdString(home("odd.cdm")))});
  EXPECT_EQ(text, home("odd.cdm") + " is neither a drawing nor a DXF file.");
  EXPECT_EQ(application().store.drawingname, "plate.cdm");
}

}  // namespace
}  // namespace tess
