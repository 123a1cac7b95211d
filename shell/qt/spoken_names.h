// What screen readers say of a form's controls: a name for each, and a role for those that the
// program paints itself.
// Owns: nameForReaders, namePreviewForReaders, giveRolesToPanes.
#pragma once

#include <QWidget>

#include "core/control.h"

namespace tess {

// Gives a widget the name that it has not: of its label or caption where there is one, else what
// stands beside it, else what its control is called.
void nameForReaders(QWidget& widget, const Control& control);

// The same for the toolkit's print preview, whose tool buttons the Tab key then reaches.
void namePreviewForReaders(QWidget& dialog);

// From now on the panes of the program have the role of what they show. Once for the process.
void giveRolesToPanes();

}  // namespace tess
