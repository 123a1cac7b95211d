// The choice of the theme.
#include "shell/qt/theme_menu.h"

#include <QActionGroup>
#include <QApplication>
#include <array>
#include <filesystem>
#include <string_view>
#include <utility>

#include "core/file_system.h"
#include "core/file_writer.h"
#include "core/runtime_failure.h"

namespace tess {

namespace {

struct Theme {
  ThemeChoice choice;
  std::string_view word;  // in the file
  const char* caption;
};

constexpr std::array kThemes{Theme{ThemeChoice::System, "system", "Like the &System"},
                             Theme{ThemeChoice::Light, "light", "&Light"},
                             Theme{ThemeChoice::Dark, "dark", "&Dark"}};

}  // namespace

ThemeMenu::ThemeMenu(QWidget& window, Host& host, std::string userfolder)
    : host_(host), userfolder_(std::move(userfolder)), list_(new QMenu("T&heme", &window)) {
  list_->setObjectName("theme");
  auto* group = new QActionGroup(list_);
  for (const Theme& theme : kThemes) {
    QAction* entry = list_->addAction(theme.caption);
    entry->setCheckable(true);
    group->addAction(entry);
    QObject::connect(entry, &QAction::triggered, list_,
                     [this, choice = theme.choice] { choose(choice); });
  }
  choice_ = remembered();
  if (choice_ != ThemeChoice::System) applyTheme(*qApp, choice_);
  showChoice();
}

void ThemeMenu::choose(ThemeChoice choice) {
  choice_ = choice;
  applyTheme(*qApp, choice);
  showChoice();
  remember();
}

void ThemeMenu::showChoice() {
  for (std::size_t at = 0; at < kThemes.size(); ++at) {
    list_->actions()[static_cast<qsizetype>(at)]->setChecked(kThemes[at].choice == choice_);
  }
}

// Any other content counts as none.
ThemeChoice ThemeMenu::remembered() const {
  if (userfolder_.empty() || !fileExists(file())) return ThemeChoice::System;
  try {
    const std::string text = readFile(file(), kLargestSettings);
    for (const Theme& theme : kThemes) {
      if (text == std::string(theme.word) + "\n") return theme.choice;
    }
  } catch (const RuntimeFailure& failure) {
    host_.failures.report(failure);
  }
  return ThemeChoice::System;
}

void ThemeMenu::remember() {
  if (userfolder_.empty()) return;
  try {
    std::error_code ignored;
    std::filesystem::create_directories(userfolder_, ignored);
    for (const Theme& theme : kThemes) {
      if (theme.choice != choice_) continue;
      writeFile(host_.guard, file(), FileKind::Record, std::string(theme.word) + "\n");
    }
  } catch (const RuntimeFailure& failure) {
    host_.failures.report(failure);
  }
}

}  // namespace tess
