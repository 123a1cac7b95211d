// The whole program but its window: one of each of its parts, introduced to one another. It is the
// only place that knows them all and holds no rules of its own.
// Owns: Platform, GuardedTimers, Application.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "cnc/cnc_program.h"
#include "cnc/hand_over.h"
#include "cnc/post_definition.h"
#include "core/session.h"
#include "drafting/pointer_events.h"
#include "shell/cnc_viewer.h"
#include "shell/desktop_keys.h"
#include "shell/edit_journal.h"
#include "shell/error_reporting.h"
#include "shell/frmPDFHelp.h"
#include "shell/interaction.h"
#include "shell/operator_guide.h"
#include "shell/path_totals.h"
#include "shell/program_folder.h"
#include "shell/proof_watch.h"

namespace tess {

class ColorDialog;
class Paper;
struct DrawingStore;
struct KeyStroke;
class SpeedsFeeds;

// What a desktop, a script or a test brings; it outlives the application.
struct Platform {
  Host& host;
  HuntERR& reporting;
  ScreenPorts screen;
  std::string jetReader{};          // the program that reads Jet databases; none: they stay unread
  ColorDialog* colors = nullptr;    // null: a form asks
  OtherPrograms* others = nullptr;  // null: none is started
  std::string userfolder{};         // what belongs to this user alone; empty: nothing is kept
  Paper* paper = nullptr;           // null: nothing can be printed
  HelpFiles help{};                 // empty: the manual lies in the program's folder alone
};

// Timers whose ticks are entry points: a failure in one ends in the report.
class GuardedTimers : public Timers {
 public:
  GuardedTimers(Timers& timers, HuntERR& reporting) : timers_(timers), reporting_(reporting) {}
  std::unique_ptr<Timer> create(const TimerSpec& spec, std::function<void()> tick) override;

 private:
  Timers& timers_;
  HuntERR& reporting_;
};

class Application {
  // Apart, so that whoever only hands the application on need not know what a store is made of.
  std::unique_ptr<DrawingStore> ownStore_;
  std::unique_ptr<SpeedsFeeds> ownFeeds_;
  std::unique_ptr<ColorDialog> ownColors_;
  NoPrograms noPrograms_;

 public:
  explicit Application(const Platform& platform);
  ~Application();

  // Brings the program up as `Main` does, with the drawing named, "" for none, and the statistics
  // panel open. Raises what it does.
  void start(std::string_view drawing, std::string_view appfolder);
  // The same as the main window's load: with the layout and the recent files. Guarded.
  void load(std::string_view drawing, std::string_view appfolder);

  // The entry points of the operator and of scripts. Each runs in the guard; false when it failed.
  bool clickTool(std::string_view tool);
  bool key(const KeyStroke& key);
  bool press(const PointerEvent& event);
  bool move(const PointerEvent& event);
  bool release(const PointerEvent& event);
  bool wheel(int steps, int shift);
  // The wheel at a position in drawing units: where the setup has the keys of the desktop it zooms
  // there, while no text is being placed.
  bool wheelAt(int steps, int shift, Point at);
  // The view moves with the pointer from the beginning to the end of a drag, by positions in the
  // view current at each event. Nothing begins where the setup lacks the keys of the desktop.
  bool beginPan(Point at);
  bool movePan(Point at);
  bool endPan(Point at);
  // The pointer has left the drawing.
  void leave();
  // A position typed in the place of a click with that button; gives back what is wrong with it, ""
  // when the click was made.
  std::string typePosition(std::string_view text, int button = kLeftButton);
  bool guarded(std::string_view entry, const std::function<void()>& run);

  // From now on unsaved work is written down as it comes about. First the operator is asked about
  // what earlier runs of the program have left.
  void keepJournal();
  // What a command has changed besides rows is written down too; every entry point ends with it.
  void settleJournal();
  // The drawing has come from unsaved work at that path, whose journal goes on as that of this run.
  void continueJournal(const std::string& path);

  // The main window asks to be closed; true when it may.
  bool mayClose();
  // The main window has gone.
  void unload();

  void customizeTools();

  DrawingStore& store = *ownStore_;
  SpeedsFeeds& feeds = *ownFeeds_;
  ColorDialog& colors;
  Paper* const paper;
  const HelpFiles helpFiles;
  PostDefinition definition;
  CncState cnc;

  // What only a window can do; nothing without one.
  std::function<void()> onCloseMainWindow;
  std::function<void()> onCustomize;
  std::function<void()> onCaptionChanged;
  std::function<void()> onUnloadOtherWindows;
  std::function<void(const std::string& text)> onCopyText;
  std::function<std::string()> onDescribeSystem;

  // Lines about the toolkit and the system for who has to know them; "" without a window.
  std::string describeSystem() const { return onDescribeSystem ? onDescribeSystem() : ""; }
  // The main window's caption: product and version.
  std::string caption() const;

 private:
  // What the core announces, passed on to the rooms that carry it out.
  class Listener : public SessionListener {
   public:
    explicit Listener(Application& application) : application_(application) {}
    void clearUndoMenu() override;
    void resetUndoState() override;
    void UnselectAll() override;
    void Clear_Paste() override;
    void Update_menu_checks() override;
    void UpdateGridButtons() override;
    void SetUpdatePropertyFlag(bool update) override;
    void UpdatePropertyWindow() override;
    void resetObjectSnap() override;
    void moveMarker(float x, float y) override;
    void recover() override;
    void resetPendingAction() override;
    void DisplayedFilename(const std::string& text) override;
    void updateStatusDisplay() override;
    void rowsRewritten() override;
    void drawingReplaced() override;
    void recentFilesChanged() override;
    void brandingRead() override;
    void load_xsetup() override;
    void setupChosen() override;
    void scaleDrawing(float factor) override;
    void closeMainWindow() override;
    void importDxf(const std::string& path) override;
    void loadLayout() override;
    void saveLayout() override;
    void readPressedTools() override;
    void unloadOtherWindows() override;

   private:
    Application& application_;
  };

  void wireTools();
  void wireProof();
  void wirePaper();
  bool enter(std::string_view entry, const std::function<void()>& run);
  void showPropertiesAndTool();
  void showFigures();

  HuntERR& reporting_;
  GuardedTimers timers_;
  Listener listener_{*this};

 public:
  Session session;
  Interaction interaction;
  ProofWatch proofWatch{session, interaction, definition, timers_};
  frmPDFHelp help{session, helpFiles.manual};
  HandOver handOver;
  CncViewer viewer;
  PathTotals pathTotals{session, definition, interaction.context.changes, interaction.statusBar};
  OperatorGuide guide{session, interaction};

 private:
  DesktopKeyHints keyHints_{store, interaction.tools};
  std::unique_ptr<EditJournal> journal_;
};

}  // namespace tess
