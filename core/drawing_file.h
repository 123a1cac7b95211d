// Loading, saving and choosing drawings: the commands of the file menu around the drawing files.
// Owns: load_Drawing, save_Drawing, smart_save, save_file_As, select_file, mnuFileRevert_Click.
#pragma once

#include "core/drawing_format.h"
#include "core/session.h"

namespace tess {

// Loads selectedfolder plus selectedname. A file that does not open gives a message and leaves the
// drawing alone; what fails later raises its file failure and leaves the rows read so far, in an
// untitled drawing. Tells of a save that was cut off, of damage, and of other processes.
void load_Drawing(Session& session);

// Saves to drawingpath plus drawingname, the path rows beside it; nothing for an untitled drawing.
// The pair that was there stays as a backup with a tilde behind its names. Asks first where that
// would lose the path rows, or what others have changed; `drawingsaved` tells whether it was saved.
// A failed write raises its file failure and leaves the old pair in place.
void save_Drawing(Session& session);

// save_Drawing for a named drawing, save_file_As for an untitled one.
void smart_save(Session& session);

// Asks for a name and saves under it.
void save_file_As(Session& session);

// Asks for a drawing; true when one was chosen, which is then selectedfolder and selectedname.
// `okCaption` is that of the button, "" for the usual one.
bool select_file(Session& session, const char* okCaption = "");

// Loads the last chosen file again, without a question.
void mnuFileRevert_Click(Session& session);

}  // namespace tess
