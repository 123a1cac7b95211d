// The commands of the help menu.
// Owns: mnuHelpContents_Click, mnuHelpIndex_Click, mnuHelpAbout_Click, helpOnForm.
#pragma once

#include "core/form.h"

namespace tess {

class Application;

// The manual with its pages in small, on the page of the armed command, and the manual with a
// search.
void mnuHelpContents_Click(Application& application);
void mnuHelpIndex_Click(Application& application);
void mnuHelpAbout_Click(Application& application);

// The manual on the page of a form that has the keyboard. While that form waits, the manual stands
// before it and waits too.
void helpOnForm(Application& application, const Form& form);

}  // namespace tess
