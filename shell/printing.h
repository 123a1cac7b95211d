// What the program prints: the page of the screen, the drawing to scale, and where either goes.
// Owns: pageSetupOf, deliverDocument, mnuFilePrint_Click, mnuPrintPreview_Click,
//       mnuFilePrinterOptions_Click, mnuFilePrintToScale_Click, scaledDocument, isVectorPicture,
//       writeVectorPicture, mnuFileViewPic_Click.
#pragma once

#include <string>
#include <string_view>

#include "core/session.h"
#include "display/paper.h"
#include "display/scaled_print.h"

namespace tess {

class Application;

// The page set-up that the operator of this program's folder keeps; PageSetup{} where there is
// none.
PageSetup pageSetupOf(const Session& session);

// A finished document goes where it was made for: to the printer, where there is none into a PDF
// file that the operator names, or on show. Raises what the file does.
void deliverDocument(Application& application, PrintOutput output);

void mnuFilePrint_Click(Application& application);
void mnuPrintPreview_Click(Application& application);
// Asks for the page set-up and keeps it.
void mnuFilePrinterOptions_Click(Application& application);
// Asks for scale and paper, and prints as often as the operator wants.
void mnuFilePrintToScale_Click(Application& application);

// All sheets of the drawing to scale. Raises what planSheets does.
SheetPrint scaledDocument(const Session& session, const ScaledPrint& print);

// Whether a path names a picture of vectors, by its ending.
bool isVectorPicture(std::string_view path);
// Writes the drawing to it, in real units. Raises what the file does.
void writeVectorPicture(const Session& session, const std::string& path);

// Picks a picture of the disk, which shows nothing, waits for a key and redraws.
void mnuFileViewPic_Click(Application& application);

}  // namespace tess
