// Import DXF: opens a DXF file and turns its entities into drawing rows behind those that are
// there.
// Owns: frmDXF, mnuFileImport_Click, importDroppedDxf.
#pragma once

#include <string>

#include "core/controls.h"
#include "core/drawing_preview.h"
#include "core/form.h"
#include "drafting/drafting_context.h"
#include "import/dxf_document.h"
#include "import/dxf_import.h"
#include "import/import_preview.h"
#include "import/remembered_options.h"

namespace tess {

class frmDXF : public Form {
 public:
  // The boxes begin as the operator left them.
  explicit frmDXF(DraftingContext& context);

  // Asks for a file and reads it.
  void cmdOpenDXF_Click();
  // Reads the file of that name in the folder `path`, which ends with its separator; a name without
  // the extension .DXF does nothing. A file that is damaged gives a message, and what stands before
  // the damage can be imported.
  void OpenDXFFile(const std::string& path, const std::string& name);
  // The same for a file by its full path.
  void OpenDXFFile_From_DragDrop(const std::string& file);
  // Converts what was read, names what could not be converted, shows the whole drawing, and closes.
  // When the operator stops it after a failure, the rows made so far stay and nothing else happens.
  void cmdImport2TESS_Click();

  // False: a script's hand. The boxes are not remembered.
  bool isWorkedByHand = true;

  const DxfDocument& DXFReader1() const { return reader_; }

  Button cmdOpenDXF{*this, "cmdOpenDXF"};
  Label lblFile{*this, "lblFile"};  // what was read
  CheckBox chkConnectPoints{*this, "chkConnectPoints"};
  CheckBox chkAutoAlign{*this, "chkAutoAlign"};
  CheckBox chkExactGeometry{*this, "chkExactGeometry"};
  CheckBox chkFileUnits{*this, "chkFileUnits"};  // an empty drawing takes those of the file
  CheckBox chkFitStock{*this, "chkFitStock"};    // the stock becomes as large as the drawing
  Label lblUnits{*this, "lblUnits"};             // what becomes of the file's lengths
  Label lblReport{*this, "lblReport"};           // what the import would bring
  RowsPreview picPreview{*this, "picPreview"};
  Button cmdImport2TESS{*this, "cmdImport2TESS"};

 private:
  void wire();
  void read(const std::string& file);
  void showFault(const std::string& trouble);
  void showLostRows(const DxfRows& rows);
  void showUnconverted(const DxfRows& rows);
  void finish(const DxfRows& rows, Change& change);
  void showDrawing();
  void boxClicked();
  void showPreview();
  void showUnits();
  bool takesFileUnits() const;
  void takeFileUnits();
  void tellImported(int first);  // the rows from that one on
  DxfImportOptions options() const;
  ImportBoxes boxes() const;

  DraftingContext& context_;
  DxfDocument reader_;
  std::string file_;         // the file read, with its path
  std::string name_;         // without path and extension: becomes the drawing's name
  bool looksAhead_ = false;  // somebody sees the form
};

void mnuFileImport_Click(DraftingContext& context);

// A file that was dropped on the drawing: the form with that file read.
void importDroppedDxf(DraftingContext& context, const std::string& file);

}  // namespace tess
