// The commands of the help menu.
// Owns: mnuHelpContents_Click, mnuHelpIndex_Click, mnuHelpAbout_Click.
#pragma once

namespace tess {

class Application;

// The manual with its pages in small, and the manual with a search.
void mnuHelpContents_Click(Application& application);
void mnuHelpIndex_Click(Application& application);
void mnuHelpAbout_Click(Application& application);

}  // namespace tess
