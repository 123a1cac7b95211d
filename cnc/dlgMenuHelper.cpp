// The viewer of CNC programs.
#include "cnc/dlgMenuHelper.h"

#include <algorithm>
#include <utility>

#include "cnc/control_location.h"
#include "cnc/copy_program.h"
#include "cnc/dlgSendProgram.h"
#include "cnc/send_program.h"
#include "cnc/transfer.h"
#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kCaption[] = "View File";
constexpr char kToMill[] = "&Transfer to GantrixPro";
constexpr char kToLathe[] = "&Transfer to Lathrix Pro";
// Stands in the heading of every program for the lathe.
constexpr std::string_view kLatheMark = "Lathrix Pro (tm)";

bool isText(char letter) {
  const auto byte = static_cast<unsigned char>(letter);
  return byte >= ' ' || letter == '\t' || letter == '\f' || letter == '\x1A' || endsLine(letter);
}

// What is odd about a content, as a sentence; "" for an ordinary one.
std::string oddity(const TextLines& lines) {
  const std::string& text = lines.text();
  if (text.empty()) return "The file is empty.";
  if (!std::all_of(text.begin(), text.end(), isText)) {
    return "The file holds bytes that are no text.";
  }
  return lines.lastLineEnds() ? "" : "The last line has no line end.";
}

}  // namespace

dlgMenuHelper::dlgMenuHelper(const HandOver& handOver)
    : Form("dlgMenuHelper", kCaption), handOver_(handOver) {
  setCaptions();
  wire();
}

void dlgMenuHelper::setCaptions() {
  lblFind.setCaption("F&ind:");
  cmdFindNext.setCaption("&Next");
  cmdFindPrevious.setCaption("Pre&vious");
  cmdCopy.setCaption("C&opy");
  cmdCopyToFolder.setCaption("Copy to &Folder...");
  cmdSend.setCaption("&Send");
  cmdSendProgram.setCaption("Pro&gram...");
  cmdAutoLoad2GTXFW.setCaption(kToMill);
  cmdExit.setCaption("&Close");
  cmdCopy.setHint("Copies the chosen lines, or all");
  cmdCopyToFolder.setHint("Copies the file to another folder, and reads the copy back");
  cmdSend.setHint("Starts the program that you have chosen with this file");
  cmdSendProgram.setHint("Chooses the program that files are sent to");
  cmdAutoLoad2GTXFW.setHint("Automatically loads current CNC file into GantrixPro for Windows");
  setDefaultButton(cmdFindNext);
  setCancelButton(cmdExit);
}

void dlgMenuHelper::wire() {
  onLoad = [this] { clear(); };
  onClose = [this] { clear(); };
  txtFile.onPickLine = [this] { pickLine(); };
  txtFile.onFind = [this] { txtFind.focus(); };
  txtFind.onChange = [this] { showFound(txtFile.findOn(txtFind.text())); };
  cmdFindNext.onClick = [this] { find(/*backwards=*/false); };
  cmdFindPrevious.onClick = [this] { find(/*backwards=*/true); };
  cmdCopy.onClick = [this] {
    if (onCopyText) onCopyText(txtFile.copiedText());
  };
  cmdCopyToFolder.onClick = [this] { copyToFolder(); };
  cmdSend.onClick = [this] { send(); };
  cmdSendProgram.onClick = [this] {
    dlgSendProgram form(handOver_);
    handOver_.session.host.prompts.showModal(form);
  };
  cmdAutoLoad2GTXFW.onClick = [this] { transfer(); };
  cmdExit.onClick = [this] { close(); };
}

void dlgMenuHelper::clear() {
  file_.clear();
  rows_.clear();
  setCaption(kCaption);
  cmdAutoLoad2GTXFW.setCaption(kToMill);
  lblNotice.setCaption("");
  lblNotice.setVisible(false);
  txtFile.showLines(TextLines());
  enableButtons();
  showPlace();
}

void dlgMenuHelper::enableButtons() {
  const bool shows = !file_.empty();
  for (Button* const button : {&cmdCopy, &cmdCopyToFolder, &cmdSend}) button->setEnabled(shows);
  cmdAutoLoad2GTXFW.setEnabled(shows && controlExists(controlPath(handOver_.session)));
}

void dlgMenuHelper::showFile(const std::string& file, const std::string& notice) {
  const Procedure here("dlgMenuHelper.showFile(file$)");
  clear();
  std::string content = readFile(file, kLargestProgram);
  file_ = fullPath(file);
  if (content.find(kLatheMark) != std::string::npos) cmdAutoLoad2GTXFW.setCaption(kToLathe);
  setCaption(std::string(kCaption) + " - " + file);
  TextLines lines(std::move(content));
  const std::string odd = oddity(lines);
  const std::string both = notice + (notice.empty() || odd.empty() ? "" : "\n") + odd;
  lblNotice.setCaption(both);
  lblNotice.setVisible(!both.empty());
  txtFile.showLines(std::move(lines));
  enableButtons();
  showPlace();
}

// ---- Search

// Enter presses the button for Next; what is typed after it belongs to the words again.
void dlgMenuHelper::find(bool backwards) {
  showFound(txtFile.find(txtFind.text(), backwards));
  txtFind.focus();
}

void dlgMenuHelper::showFound(bool found) {
  if (found || txtFind.text().empty()) return showPlace();
  lblPlace.setCaption("Nothing found");
}

void dlgMenuHelper::showPlace() {
  const int count = txtFile.lines().count();
  if (file_.empty()) {
    lblPlace.setCaption("");
  } else if (txtFile.anchor() < 0) {
    lblPlace.setCaption(std::to_string(count) + (count == 1 ? " line" : " lines"));
  } else {
    lblPlace.setCaption("Line " + std::to_string(txtFile.chosenLast() + 1) + " of " +
                        std::to_string(count));
  }
}

// ---- Rows

void dlgMenuHelper::linkRows(RowPlaces rows) {
  rows_ = std::move(rows);
}

void dlgMenuHelper::unlinkRows() {
  rows_.clear();
  txtFile.mark({});
}

void dlgMenuHelper::markRows(const std::vector<int>& rows) {
  const TextLines& lines = txtFile.lines();
  std::vector<LineSpan> spans;
  for (const int row : rows) {
    if (row < 1 || row > rows_.rows() || rows_.begin(row) == rows_.end(row)) continue;
    const int first = lines.lineAt(rows_.begin(row));
    spans.push_back({first, lines.lineAt(rows_.end(row) - 1) - first + 1});
  }
  txtFile.mark(spans);
}

void dlgMenuHelper::pickLine() {
  showPlace();
  const int row = rows_.rowAt(txtFile.lines().placeOf(txtFile.chosenLast()));
  if (row > 0 && onPickRow) onPickRow(row);
}

// ---- Handing over

// What is handed over is what the operator has seen. A file that has become another one is shown.
bool dlgMenuHelper::isAsShown() {
  Prompts& prompts = handOver_.session.host.prompts;
  const auto tell = [&](const std::string& text) {
    prompts.showMessage({.text = toUtf8(text), .title = kCaption, .icon = MessageIcon::Warning});
  };
  try {
    if (readFile(file_, kLargestProgram) == txtFile.lines().text()) return true;
    showFile(std::string(file_));
    tell(file_ +
         " has changed since it was shown. It is shown as it is now: look at it before you hand it "
         "over.");
  } catch (const RuntimeFailure& failure) {
    takeCallChain();
    tell("The file can no longer be read: " + failure.description() + ": " + failure.source());
  }
  return false;
}

void dlgMenuHelper::copyToFolder() {
  const Procedure here("dlgMenuHelper.cmdCopyToFolder_Click()");
  if (!isAsShown()) return;
  std::string folder;
  const std::string name = splitPath(folder, file_, "");
  const auto target = handOver_.session.host.prompts.chooseFile(
      {.title = "Copy to Folder",
       .pattern = "*.CNC",
       .folder = copyFolder_.empty() ? folder : copyFolder_,
       .name = name,
       .forSaving = true});
  if (!target || target->empty()) return;
  if (isSameFile(*target, file_)) {
    handOver_.session.host.prompts.showMessage(
        {.text = "The copy would be the file itself. Choose another folder.",
         .title = "Copy to Folder",
         .icon = MessageIcon::Warning});
    return;
  }
  if (copyProgram(handOver_, txtFile.lines().text(), *target)) splitPath(copyFolder_, *target, "");
}

void dlgMenuHelper::send() {
  const Procedure here("dlgMenuHelper.cmdSend_Click()");
  if (isAsShown()) sendFile(handOver_, file_);
}

void dlgMenuHelper::transfer() {
  const Procedure here("dlgMenuHelper.cmdAutoLoad2GTXFW_Click()");
  if (!isAsShown()) return;
  const bool forLathe = cmdAutoLoad2GTXFW.caption() == kToLathe;
  transferProgram(handOver_.session, handOver_.others, forLathe ? CncMode::Lathe : CncMode::Mill,
                  file_);
}

}  // namespace tess
