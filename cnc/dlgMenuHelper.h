// View File: a CNC program to be read, and the ways on from it: to the machine-control program, to
// another program of the operator's, to another folder.
// Owns: dlgMenuHelper.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cnc/file_text.h"
#include "cnc/hand_over.h"
#include "cnc/row_places.h"
#include "core/controls.h"
#include "core/form.h"

namespace tess {

class dlgMenuHelper : public Form {
 public:
  explicit dlgMenuHelper(const HandOver& handOver);

  Label lblNotice{*this, "lblNotice"};  // what has to be said about the file
  FileText txtFile{*this, "txtFile"};
  Label lblFind{*this, "lblFind"};
  TextBox txtFind{*this, "txtFind"};
  Button cmdFindNext{*this, "cmdFindNext"};
  Button cmdFindPrevious{*this, "cmdFindPrevious"};
  Label lblPlace{*this, "lblPlace"};  // the line at hand, or that nothing was found
  Button cmdCopy{*this, "cmdCopy"};
  Button cmdCopyToFolder{*this, "cmdCopyToFolder"};
  Button cmdSend{*this, "cmdSend"};
  Button cmdSendProgram{*this, "cmdSendProgram"};
  Button cmdAutoLoad2GTXFW{*this, "cmdAutoLoad2GTXFW"};
  Button cmdExit{*this, "cmdExit"};

  // Shows the file anew, with `notice` above it. Raises the file failures, and then shows nothing.
  void showFile(const std::string& file, const std::string& notice = {});
  const std::string& file() const { return file_; }  // a full path; "" while none is shown

  // ---- The path rows that have made the lines
  // Of the file that is shown.
  void linkRows(RowPlaces rows);
  // The drawing has become another one than that of the file.
  void unlinkRows();
  bool hasRows() const { return rows_.rows() > 0; }
  // Marks the lines of these rows, given in ascending order.
  void markRows(const std::vector<int>& rows);
  // The operator has chosen a line of that row.
  std::function<void(int row)> onPickRow;

  // Text for the clipboard; where there is none nothing is copied.
  std::function<void(const std::string& text)> onCopyText;

 private:
  void setCaptions();
  void wire();
  void clear();
  void enableButtons();
  void showContent(std::string content);
  void showPlace();
  void showFound(bool found);
  void find(bool backwards);
  void pickLine();
  bool isAsShown();
  void copyToFolder();
  void send();
  void transfer();

  const HandOver& handOver_;
  std::string file_;
  RowPlaces rows_;
  std::string copyFolder_;  // where the last copy went
};

}  // namespace tess
