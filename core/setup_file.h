// Setup files (settings, machine cycles, tool chest), the file that names the one in force, and the
// branding file, with the option menu's commands around them.
// Owns: SetupTESS, readSetup, setupText, load_defaults, load_setup, changeSetup, saveBeforeSetup,
//       save_defaults, save_setup_As, readcfg, readBranding, mnuOptionLoadSetup_Click,
//       mnuOptionsSaveSetup_Click, mnuOptionsSaveSetupAs_Click, mnuOptionsSaveAsDefault_Click,
//       mnuOptionsRevertSaved_Click.
#pragma once

#include <string>
#include <string_view>

#include "core/field_reader.h"
#include "core/session.h"

namespace tess {

// "L" reads and "S" writes the setup file `setupname` in the program's folder; any other word does
// nothing. Raises the file failures, and Overflow for a value that does not fit.
void SetupTESS(Session& session, std::string_view saveOrLoad);

// The two directions on content: all entries of a setup, in any order, and the text that is written
// for the live settings. A "part dim z" of 0 or less becomes 0.25 in the store when written.
void readSetup(Session& session, FieldReader& fields);
std::string setupText(Session& session);

// Reads tess.def, and then the setup that it names.
void load_defaults(Session& session);

// Reads the setup that `setuppath` names. Throws EndProgram when it is nowhere to be found.
void load_setup(Session& session);

// Puts another setup in force, for new drawings and for the one that is open. Throws EndProgram as
// load_setup does.
void changeSetup(Session& session, const std::string& path);

// Before another setup is loaded: asks about unsaved work; true when the drawing counts as saved
// then.
bool saveBeforeSetup(Session& session);

// Makes the setup in force the one of the next start, and saves it.
void save_defaults(Session& session);

void save_setup_As(Session& session);

// The product's and the company's name from tess.cfg, if it is there.
void readcfg(Session& session);
void readBranding(Session& session, FieldReader& fields);

void mnuOptionLoadSetup_Click(Session& session);
void mnuOptionsSaveSetup_Click(Session& session);
void mnuOptionsSaveSetupAs_Click(Session& session);
void mnuOptionsSaveAsDefault_Click(Session& session);
void mnuOptionsRevertSaved_Click(Session& session);

}  // namespace tess
