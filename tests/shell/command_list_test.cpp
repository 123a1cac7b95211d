// Every descriptor of the list, whatever stands in it: that it is whole, and that menus, tool bars,
// hints, keys, prompts and modes are what it says.
#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "gtest/gtest.h"

#include "core/core_commands.h"
#include "core/drawing_store.h"
#include "core/file_system.h"
#include "display/display_commands.h"
#include "drafting/drafting_commands.h"
#include "drafting/draw_mode_tools.h"
#include "import/import_commands.h"
#include "shell/shell_commands.h"
#include "tests/support/running_program.h"
#include "tests/support/source_folder.h"
#include "toolpath/toolpath_commands.h"

namespace tess {
namespace {

using testing::RunningProgram;

// The descriptors themselves, each with the type of its room.
template <class Visit>
void visitDescriptors(const Visit& visit) {
#define VISIT(descriptor) visit(descriptor);
  TESSIMO_COMMANDS(VISIT, VISIT, VISIT, VISIT, VISIT, VISIT)
#undef VISIT
}

template <class Descriptor>
std::vector<PendingAction> actionsOf(const Descriptor& descriptor) {
  std::vector<PendingAction> numbers;
  for (const auto& action : descriptor.actions) numbers.push_back(action.text.action);
  return numbers;
}

// A program with a row and a path row to work on. Forms are accepted as they open, messages get
// their first button.
struct Workshop : RunningProgram {
  Workshop() {
    AddSeg(application.store, {.type = kLine, .x1 = 1}, nullptr);
    addPathSegment(application.store, {.type = kLine, .x1 = 1, .code = 100});
    platform.prompts.onForm = [](Form& form) { form.pressDefault(); };
    pass(1000);
  }
};

class CommandList : public ::testing::Test, public RunningProgram {
 protected:
  const Band& band(const char* name) {
    const Band* const found = tools().band(name);
    if (found == nullptr) throw std::out_of_range(name);
    return *found;
  }
};

TEST_F(CommandList, IsTheTableOfTheProgramInItsOrder) {
  std::vector<const CommandInfo*> listed, table;
  visitDescriptors([&](const auto& descriptor) { listed.push_back(&descriptor.info); });
  for (const CommandEntry& command : commands()) table.push_back(command.info);
  EXPECT_EQ(table, listed);
  EXPECT_GT(table.size(), 100U);
}

// A descriptor that is not declared by the list is nobody's, and the compiler does not mind.
TEST(CommandSources, EveryDescriptorOfTheTreeStandsInTheList) {
  std::set<std::string> listed;
#define NAME(descriptor) listed.insert(#descriptor);
  TESSIMO_COMMANDS(NAME, NAME, NAME, NAME, NAME, NAME)
#undef NAME
  const std::regex definition("constexpr \\w+Command (k\\w+)(\\{| =)");
  int found = 0;
  for (const char* const room :
       {"core", "display", "drafting", "toolpath", "cnc", "import", "tools", "shell"}) {
    const std::filesystem::path folder = TESSIMO_SOURCE_DIR "/" + std::string(room);
    for (const auto& file : std::filesystem::recursive_directory_iterator(folder)) {
      if (file.path().extension() != ".cpp") continue;
      const std::string text = readFile(file.path().string());
      for (std::sregex_iterator at(text.begin(), text.end(), definition), end; at != end; ++at) {
        ++found;
        EXPECT_TRUE(listed.contains((*at)[1])) << (*at)[1] << " of " << file.path().filename()
                                               << " has no line in core/command_list.h";
      }
    }
  }
  EXPECT_EQ(found, static_cast<int>(listed.size()));
}

TEST_F(CommandList, EachHasANameOfItsOwnAndACaption) {
  std::set<std::string> names;
  for (const CommandEntry& command : commands()) {
    EXPECT_TRUE(names.insert(command.info->tool).second) << command.info->tool;
    EXPECT_STRNE(command.info->caption, "") << command.info->tool;
  }
}

TEST_F(CommandList, EachStandsInAMenuAPopUpOrABarOfTheRightKind) {
  for (const CommandEntry& command : commands()) {
    const CommandInfo& info = *command.info;
    SCOPED_TRACE(info.tool);
    const bool inMenu = *info.menu.band != '\0', inBar = *info.bar.band != '\0';
    EXPECT_TRUE(inMenu || inBar);
    if (inMenu) {
      const BandKind kind = band(info.menu.band).kind;
      EXPECT_TRUE(kind == BandKind::Menu || kind == BandKind::PopUp);
    }
    if (inBar) {
      EXPECT_EQ(band(info.bar.band).kind, BandKind::ToolBar);
    }
    if (*info.popUp != '\0') {
      EXPECT_EQ(band(info.popUp).kind, BandKind::PopUp);
    }
  }
}

TEST_F(CommandList, NoTwoHaveOnePlace) {
  std::set<std::pair<std::string, int>> places;
  for (const CommandEntry& command : commands()) {
    for (const BandPlace& place : {command.info->menu, command.info->bar}) {
      if (*place.band == '\0') continue;
      EXPECT_GE(place.place, 100) << command.info->tool;
      EXPECT_TRUE(places.insert({place.band, place.place}).second) << command.info->tool;
    }
  }
}

bool isRecent(const std::string& tool) {
  return tool.starts_with("miRecentFile");
}

// What the list says of a band, recent files left out; an empty name parts the sections.
std::vector<std::string> listedTools(const std::string& band) {
  std::map<int, std::string> placed;
  for (const CommandEntry& command : commands()) {
    for (const BandPlace& place : {command.info->menu, command.info->bar}) {
      if (place.band == band) placed[place.place] = command.info->tool;
    }
  }
  std::vector<std::string> tools;
  int section = 0;
  for (const auto& [place, tool] : placed) {
    if (!tools.empty() && place / 100 != section) tools.emplace_back();
    section = place / 100;
    tools.push_back(tool);
  }
  return tools;
}

TEST_F(CommandList, BandsHoldWhatTheListPutsThere) {
  for (const Band& band : tools().bands()) {
    std::vector<std::string> shown = band.tools;
    std::erase_if(shown, isRecent);
    // The section of the recent files has gone with them, its separator has not.
    const auto doubled = [](const std::string& a, const std::string& b) {
      return a.empty() && b.empty();
    };
    shown.erase(std::unique(shown.begin(), shown.end(), doubled), shown.end());
    EXPECT_EQ(shown, listedTools(band.name)) << band.name;
  }
}

TEST_F(CommandList, RecentFilesStandInTheFileMenuBeforeItsLastEntry) {
  const std::vector<std::string>& file = band("miFile").tools;
  const auto first = std::find(file.begin(), file.end(), "miRecentFile1");
  ASSERT_NE(first, file.end());
  EXPECT_EQ(*(first - 1), "");
  EXPECT_EQ(std::vector<std::string>(first + 8, file.end()),
            (std::vector<std::string>{"miRecentFile9", "", "miExit"}));
}

TEST_F(CommandList, ToolsShowWhatTheListSays) {
  for (const CommandEntry& command : commands()) {
    const CommandInfo& info = *command.info;
    SCOPED_TRACE(info.tool);
    const Tool* const tool = tools().tool(info.tool);
    ASSERT_NE(tool, nullptr);
    EXPECT_EQ(tool->caption, info.caption);
    EXPECT_EQ(tool->icon, info.icon);
    EXPECT_EQ(tool->popUp, info.popUp);
    EXPECT_EQ(tool->tag, info.tag == 0 ? "" : std::to_string(info.tag));
    EXPECT_EQ(tool->key, shownKey(*info.key != '\0' ? info.key : info.sharedKey));
    std::string hint = info.caption;
    std::erase(hint, '&');
    EXPECT_EQ(tool->hint, tool->key.empty() ? hint : hint + " (" + tool->key + ")");
  }
}

TEST_F(CommandList, HasAllToolsButTheRecentFiles) {
  std::set<std::string> names;
  for (const CommandEntry& command : commands()) names.insert(command.info->tool);
  for (const std::string& tool : tools().toolNames()) {
    EXPECT_TRUE(isRecent(tool) || names.contains(tool)) << tool;
  }
}

TEST_F(CommandList, AnotherToolsIconIsThatOfATool) {
  for (const CommandEntry& command : commands()) {
    if (*command.info->icon == '\0') continue;
    EXPECT_NE(tools().tool(command.info->icon), nullptr) << command.info->tool;
  }
}

// ---- Keys

TEST_F(CommandList, EveryKeyIsOneAndHasOneMeaning) {
  std::set<std::tuple<SpecialKey, char>> keys;
  const auto expectNew = [&](const char* key) {
    const auto stroke = keyNamed(key);
    ASSERT_TRUE(stroke) << key;
    EXPECT_TRUE(keys.insert({stroke->special, stroke->ascii}).second) << key;
  };
  for (const CommandEntry& command : commands()) {
    if (*command.info->key != '\0') expectNew(command.info->key);
  }
  for (const char* const key : keysWithoutTool()) expectNew(key);
}

TEST_F(CommandList, ASharedKeyIsAmongTheKeysWithoutATool) {
  const std::vector<const char*> alone = keysWithoutTool();
  for (const CommandEntry& command : commands()) {
    const std::string shared = command.info->sharedKey;
    if (shared.empty()) continue;
    EXPECT_STREQ(command.info->key, "") << command.info->tool;
    EXPECT_NE(std::find(alone.begin(), alone.end(), shared), alone.end()) << shared;
  }
}

// ---- What a command leaves behind

struct Outcome {
  int pendingaction = 0, DrawMode = 0, LastCommand = 0;
  int segments = 0, paths = 0;
  float viewspan = 0;
  std::string prompt, report;
  std::vector<std::string> checked, forms, messages, files, openForms;
  bool operator==(const Outcome&) const = default;
};

Outcome outcomeOf(RunningProgram& program) {
  Application& application = program.application;
  Outcome outcome{.pendingaction = program.pendingaction(),
                  .DrawMode = program.DrawMode(),
                  .LastCommand = program.context().command.LastCommand,
                  .segments = application.store.NumSegments,
                  .paths = application.store.NumPathSegments,
                  .viewspan = application.interaction.view.viewspan,
                  .prompt = application.interaction.statusBar.text(),
                  .report = program.reporting.lastReport(),
                  .checked = {},
                  .forms = program.platform.prompts.formNames,
                  .messages = {},
                  .files = {},
                  .openForms = {}};
  for (const std::string& tool : program.tools().toolNames()) {
    if (program.tools().isChecked(tool)) outcome.checked.push_back(tool);
  }
  for (const Message& message : program.platform.prompts.messages) {
    outcome.messages.push_back(message.text);
  }
  for (const FileRequest& request : program.platform.prompts.fileRequests) {
    outcome.files.push_back(request.title);
  }
  for (const Form* const form : application.interaction.forms.openForms()) {
    outcome.openForms.push_back(form->name());
  }
  return outcome;
}

TEST_F(CommandList, ToolsStandEnabledButThoseThatWaitForSomething) {
  for (const CommandEntry& command : commands()) {
    const bool waits = command.info == &kUndoCommand.info || command.info == &kRedoCommand.info ||
                       command.info == &kPasteCommand.info;
    EXPECT_EQ(tools().isEnabled(command.info->tool), !waits) << command.info->tool;
  }
}

TEST_F(CommandList, EachRunsByItsToolAndNoneFails) {
  for (const CommandEntry& command : commands()) {
    Workshop program;
    program.tools().setEnabled(command.info->tool, true);
    EXPECT_TRUE(program.application.clickTool(command.info->tool)) << command.info->tool;
    EXPECT_EQ(program.reporting.lastReport(), "") << command.info->tool;
  }
}

TEST_F(CommandList, AKeyDoesAllThatItsToolDoes) {
  for (const CommandEntry& command : commands()) {
    if (*command.info->key == '\0') continue;
    SCOPED_TRACE(command.info->tool);
    Workshop byKey, byTool;
    byKey.application.key(*keyNamed(command.info->key));
    byTool.application.clickTool(command.info->tool);
    EXPECT_EQ(outcomeOf(byKey), outcomeOf(byTool));
  }
}

// ---- Pending actions

TEST_F(CommandList, EveryActionBelongsToOneCommandAndPrompts) {
  std::set<PendingAction> numbers;
  visitDescriptors([&](const auto& descriptor) {
    for (const auto& action : descriptor.actions) {
      EXPECT_TRUE(numbers.insert(action.text.action).second) << descriptor.info.tool;
      EXPECT_STRNE(action.text.prompt, "") << descriptor.info.tool;
      context().state.setPendingaction(static_cast<int>(action.text.action));
      EXPECT_EQ(application.interaction.statusBar.text(), action.text.prompt);
    }
  });
  EXPECT_GT(numbers.size(), 20U);
}

TEST_F(CommandList, NoNumberOfTheRepeatKeyIssuesTwoCommands) {
  std::set<PendingAction> numbers;
  visitDescriptors([&](const auto& descriptor) {
    for (const PendingAction number : descriptor.repeat.numbers) {
      if (number == PendingAction::None) continue;
      EXPECT_TRUE(numbers.insert(number).second) << descriptor.info.tool;
    }
  });
  EXPECT_GT(numbers.size(), 10U);
}

// Commands that share their clicks with another one arm what that one has.
TEST_F(CommandList, ACommandArmsNoneButItsOwnActions) {
  int armed = 0;
  visitDescriptors([&](const auto& descriptor) {
    Workshop program;
    program.application.clickTool(descriptor.info.tool);
    const auto action = static_cast<PendingAction>(program.pendingaction());
    if (action == PendingAction::None) return;
    ++armed;
    const bool sharesClicks = &descriptor.info == &kPlaceOnePathCommand.info;
    const auto own = sharesClicks ? actionsOf(kPlaceFinishPathCommand) : actionsOf(descriptor);
    EXPECT_NE(std::find(own.begin(), own.end(), action), own.end()) << descriptor.info.tool;
  });
  EXPECT_GT(armed, 20);
}

// ---- Drawing modes

TEST_F(CommandList, EveryModeShowsOnItsTool) {
  for (const DraftingCommand* const command : context().modes) {
    SCOPED_TRACE(command->info.tool);
    Workshop program;
    program.application.clickTool(command->info.tool);
    EXPECT_EQ(program.DrawMode(), command->mode.number);
    EXPECT_EQ(program.pendingaction(), 0);
    for (const char* const tool : drawModeTools(program.context())) {
      EXPECT_EQ(program.tools().isChecked(tool), std::string(tool) == command->info.tool) << tool;
    }
  }
}

TEST_F(CommandList, EveryModeOfADescriptorIsKnownToTheContext) {
  int known = 0;
  visitDescriptors([&](const auto& descriptor) {
    if constexpr (std::is_same_v<std::decay_t<decltype(descriptor)>, DraftingCommand>) {
      if (descriptor.mode.number == kNoMode) return;
      ++known;
      EXPECT_EQ(modeOf(context(), descriptor.mode.number), &descriptor.mode)
          << descriptor.info.tool;
    }
  });
  EXPECT_EQ(known, static_cast<int>(context().modes.size()));
  EXPECT_GE(known, 6);
}

}  // namespace
}  // namespace tess
