// The look of the program: a light and a dark palette over the toolkit's plain style, spacing, and
// the colours that icons are drawn in.
// Owns: IconColors, systemPrefersDark, ThemeChoice, startTheme, applyTheme, isDark, iconColors.
#pragma once

#include <QColor>
#include <QPalette>

class QApplication;

namespace tess {

// What replaces the placeholder colours of the icon files.
struct IconColors {
  QColor ink;     // outlines
  QColor accent;  // what a command acts on
  QColor path;    // tool paths
};

// From the environment variable TESSIMO_THEME ("light", "dark") or, without it, from the palette
// that the system brought.
bool systemPrefersDark(const QPalette& system);

// As the system prefers it, or as the operator wants it whatever that is.
enum class ThemeChoice { System, Light, Dark };

// The theme of the process's start: what the system prefers is remembered for good.
void startTheme(QApplication& application);
void applyTheme(QApplication& application, ThemeChoice choice);
// May be called again at run time; all windows follow.
void applyTheme(QApplication& application, bool dark);

// True when a palette is light on dark.
bool isDark(const QPalette& palette);
IconColors iconColors(const QPalette& palette);

}  // namespace tess
