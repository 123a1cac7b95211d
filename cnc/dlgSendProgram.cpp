// The choice of a program.
#include "cnc/dlgSendProgram.h"

#include "cnc/send_program.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/start_program.h"

namespace tess {

dlgSendProgram::dlgSendProgram(const HandOver& handOver)
    : Form("dlgSendProgram", "Send To"), handOver_(handOver) {
  lblProgram.setCaption("&Program that files are sent to:");
  cmdBrowse.setCaption("&Browse");
  cmdAccept.setCaption("&Accept");
  cmdCancel.setCaption("&Cancel");
  txtProgram.setHint("The full path of a program. It is started with the file as its argument.");
  setDefaultButton(cmdAccept);
  setCancelButton(cmdCancel);
  onLoad = [this] { txtProgram.setText(readSendChoice(handOver_).program); };
  txtProgram.onChange = [this] { lblNotice.setCaption(""); };
  cmdBrowse.onClick = [this] { browse(); };
  cmdAccept.onClick = [this] { take(); };
  cmdCancel.onClick = [this] { close(); };
}

void dlgSendProgram::browse() {
  FileRequest request{.title = "Send To", .pattern = "All Files (*)|*", .folder = {}, .name = {}};
  splitPath(request.folder, txtProgram.text(), "");
  const auto chosen = handOver_.session.host.prompts.chooseFile(request);
  if (chosen && !chosen->empty()) txtProgram.setText(*chosen);
}

// An empty path is the wish for no program.
void dlgSendProgram::take() {
  const Procedure here("dlgSendProgram.cmdAccept_Click()");
  const std::string path = txtProgram.text();
  const auto problem = path.empty() ? std::nullopt : programProblem(path);
  if (problem) {
    lblNotice.setCaption("This " + *problem + ".");
    txtProgram.focus();
    return;
  }
  SendChoice choice = readSendChoice(handOver_);
  choice.program = path;
  writeSendChoice(handOver_, choice);
  accept();
}

}  // namespace tess
