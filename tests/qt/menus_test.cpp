// The menus as the window folds them, and the choice of the theme in them.
#include <QMenuBar>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "core/file_system.h"
#include "shell/qt/menu_groups.h"
#include "tests/qt/plate_program.h"

namespace tess {
namespace {

class Menus : public testing::PlateProgram {
 protected:
  ToolBars& bars() { return program->window().toolBars(); }
  ToolHost& tools() { return program->application().interaction.tools; }

  // A menu and all below it.
  static void walk(const QMenu& menu, const std::function<void(const QMenu&)>& look) {
    look(menu);
    for (const QAction* entry : menu.actions()) {
      if (entry->menu() != nullptr) walk(*entry->menu(), look);
    }
  }

  static std::multiset<std::string> toolsIn(const QMenu& menu) {
    std::multiset<std::string> found;
    walk(menu, [&](const QMenu& part) {
      for (const QAction* entry : part.actions()) {
        const bool tool = !entry->isSeparator() && entry->menu() == nullptr;
        if (tool && !entry->objectName().isEmpty()) found.insert(entry->objectName().toStdString());
      }
    });
    return found;
  }

  static std::multiset<std::string> toolsOf(const Band& band) {
    std::multiset<std::string> found(band.tools.begin(), band.tools.end());
    found.erase("");
    return found;
  }

  static QMenu* submenu(const QMenu& menu, const QString& title) {
    for (const QAction* entry : menu.actions()) {
      if (entry->menu() != nullptr && entry->menu()->title() == title) return entry->menu();
    }
    return nullptr;
  }
};

TEST_F(Menus, EveryToolOfABandHasItsEntryOnce) {
  for (const Band& band : tools().bands()) {
    if (band.kind != BandKind::Menu) continue;
    EXPECT_EQ(toolsIn(*bars().menu(band.name)), toolsOf(band)) << band.name;
  }
}

// The beginning of its path and the name of the file stay, however deep its folder lies.
TEST_F(Menus, ALongPathIsShortenedInTheMiddle) {
  const std::string folder = "/home/ada/" + std::string(150, 'p') + '/';
  const std::string names[] = {"gear & housing.cdm", "the cover of the gear housing.cdm",
                               std::string(150, 'n') + ".cdm"};
  tools().setVisible("miRecentFile1", true);
  for (const std::string& name : names) {
    tools().setCaption("miRecentFile1", "1 - " + folder + name);
    const QString entry = bars().action("miRecentFile1")->text().replace("&&", "&");
    EXPECT_TRUE(entry.startsWith("1 - /home/")) << entry.toStdString();
    EXPECT_TRUE(entry.endsWith(QString::fromStdString(name).right(20))) << entry.toStdString();
    EXPECT_LT(bars().menu("miFile")->sizeHint().width(), 683);
  }
}

// An entry without an icon is as high as the others.
TEST_F(Menus, EntriesAreEquallyHigh) {
  for (const Band& band : tools().bands()) {
    if (band.kind != BandKind::Menu) continue;
    std::set<int> heights;
    QMenu& menu = *bars().menu(band.name);
    menu.ensurePolished();
    for (QAction* entry : menu.actions()) {
      if (entry->isVisible() && !entry->isSeparator()) {
        heights.insert(menu.actionGeometry(entry).height());
      }
    }
    EXPECT_EQ(heights.size(), 1U) << band.name;
  }
}

TEST_F(Menus, LongMenusAreFolded) {
  for (const auto& [band, title] : {std::pair{"miEdit", "&Segments"},
                                    {"miEdit", "&Arcs and Direction"},
                                    {"miEdit", "Trans&form"},
                                    {"miCAM", "&Change Paths"}}) {
    EXPECT_NE(submenu(*bars().menu(band), title), nullptr) << title;
  }
  for (const char* const band : {"miEdit", "miCAM"}) {
    EXPECT_LE(bars().menu(band)->actions().size(), 22) << band;
  }
}

TEST_F(Menus, AFoldedEntryRunsItsCommand) {
  QMenu* segments = submenu(*bars().menu("miEdit"), "&Segments");
  ASSERT_NE(segments, nullptr);
  QAction* trim = bars().action("miTrimEntity");
  ASSERT_TRUE(segments->actions().contains(trim));
  trim->trigger();
  EXPECT_EQ(program->application().interaction.context.state.pendingaction(), 16);
}

TEST_F(Menus, NoTwoEntriesOfAMenuHaveTheSameLetter) {
  for (const QAction* top : program->window().menuBar()->actions()) {
    walk(*top->menu(), [](const QMenu& menu) {
      std::map<QChar, QString> taken;
      for (const QAction* entry : menu.actions()) {
        const QString text = entry->text().section('\t', 0, 0);
        const qsizetype at = QString(text).replace("&&", "  ").indexOf('&');
        if (at < 0 || !entry->isVisible()) continue;
        const QChar letter = text[at + 1].toUpper();
        EXPECT_FALSE(taken.contains(letter))
            << text.toStdString() << " and " << taken[letter].toStdString();
        taken[letter] = text;
      }
    });
  }
}

TEST_F(Menus, AMenuThatChangesIsFoldedAnew) {
  std::vector<std::string> fewer = tools().band("miEdit")->tools;
  std::erase(fewer, "miTrimEntity");
  tools().setBandTools("miEdit", fewer);
  EXPECT_EQ(toolsIn(*bars().menu("miEdit")), toolsOf(*tools().band("miEdit")));
  tools().setBandTools("miOptions", {"miControl"});
  EXPECT_EQ(bars().menu("miOptions")->actions().size(), 3) << "the theme stays at its end";
}

TEST(MenuParts, KeepTheOrderAndWhatNoSeparatorParts) {
  const Band band{.name = "miEdit",
                  .caption = "Edit",
                  .kind = BandKind::Menu,
                  .tools = {"miUndo", "", "", "miFlipArc", "miRevPath", ""}};
  const std::vector<MenuPart> parts = menuParts(band);
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].caption, "");
  EXPECT_EQ(parts[0].tools, std::vector<std::string>{"miUndo"});
  EXPECT_EQ(parts[1].caption, "&Arcs and Direction");
  EXPECT_EQ(parts[1].tools, (std::vector<std::string>{"miFlipArc", "miRevPath"}));
}

// ---- The theme

class Themes : public Menus {
 protected:
  ~Themes() override { applyTheme(testing::toolkit(), /*dark=*/false); }
  static bool isDarkNow() { return isDark(testing::toolkit().palette()); }
  QAction& entry(int at) { return *program->theme().menu().actions()[at]; }
};

TEST_F(Themes, AreChosenInTheMenuAndKeptForTheUser) {
  EXPECT_TRUE(entry(0).isChecked()) << "like the system until something is chosen";
  entry(2).trigger();
  EXPECT_TRUE(isDarkNow());
  EXPECT_TRUE(entry(2).isChecked());
  EXPECT_FALSE(entry(0).isChecked());
  EXPECT_EQ(readFile(user("theme.cfg")), "dark\n");

  applyTheme(testing::toolkit(), /*dark=*/false);
  const DesktopProgram again(home(), /*jetReader=*/"", user());
  EXPECT_TRUE(isDarkNow()) << "the next start has it";
}

TEST_F(Themes, AFileOfAnythingElseIsNoChoice) {
  user.write("theme.cfg", std::string("dark\0dark", 9));
  DesktopProgram again(home(), /*jetReader=*/"", user());
  EXPECT_EQ(again.theme().choice(), ThemeChoice::System);
  EXPECT_FALSE(isDarkNow());
}

TEST_F(Themes, ChangeInTheMiddleOfADrag) {
  Application& application = program->application();
  application.clickTool("miLine");
  application.press({.Button = kLeftButton, .Shift = 0, .X = 1, .Y = 1});
  application.move({.Button = kLeftButton, .Shift = 0, .X = 2, .Y = 2});
  program->theme().choose(ThemeChoice::Dark);
  QCoreApplication::processEvents();
  const int rows = application.store.NumSegments;
  application.release({.Button = kLeftButton, .Shift = 0, .X = 2, .Y = 2});
  application.press({.Button = kLeftButton, .Shift = 0, .X = 3, .Y = 2});
  program->theme().choose(ThemeChoice::Light);
  application.release({.Button = kLeftButton, .Shift = 0, .X = 3, .Y = 2});
  EXPECT_EQ(application.store.NumSegments, rows + 2) << "one for each drag";
}

}  // namespace
}  // namespace tess
