// The manual and the search in it.
#include "shell/frmPDFHelp.h"

#include <optional>
#include <utility>

#include "core/file_system.h"

namespace tess {
namespace {

constexpr char kManual[] = "tsmo_manual.pdf";
constexpr char kUnreadable[] = "The manual cannot be read:\n";

// Nothing for what is no file: who shows the document would wait for a pipe.
std::optional<std::string> contentOf(const std::string& path) {
  try {
    return readFile(path, kLargestManual);
  } catch (const RuntimeFailure&) {
    takeCallChain();
    return std::nullopt;
  }
}

std::string countText(std::size_t findings) {
  if (findings == 0) return "Nothing found";
  return std::to_string(findings) + " found";
}

}  // namespace

void PdfViewer::open(std::string path) {
  if (path == document_) return;
  document_ = std::move(path);
  findings_.clear();
  shownFinding_ = -1;
  wantedPage_ = 0;
  invalidate();
}

void PdfViewer::setThumbnails(bool on) {
  if (std::exchange(thumbnails_, on) != on) invalidate();
}

void PdfViewer::search(std::string words) {
  if (words == searched_) return;
  searched_ = std::move(words);
  tellFindings({});
  invalidate();
}

void PdfViewer::showFinding(int index) {
  if (index >= static_cast<int>(findings_.size())) throw subscriptOutOfRange();
  shownFinding_ = index;
  invalidate();
}

void PdfViewer::showPage(int page) {
  wantedPage_ = page;
  invalidate();
}

void PdfViewer::tellFindings(std::vector<PdfFinding> findings) {
  findings_ = std::move(findings);
  shownFinding_ = -1;
  fire(onFindings);
}

void PdfViewer::tellUnreadable() {
  fire(onUnreadable);
}

frmPDFHelp::frmPDFHelp(const Session& session, std::string shipped)
    : Form("frmPDFHelp"), session_(session), shipped_(std::move(shipped)) {
  setCaption(session.productname + " - Manual");
  txtSearch.setHint("Words to look for in the manual");
  onLoad = [this] { showManual(); };
  txtSearch.onChange = [this] { Pdf1.search(txtSearch.text()); };
  lstFound.onClick = [this] {
    if (lstFound.index() >= 0) Pdf1.showFinding(lstFound.index());
  };
  Pdf1.onFindings = [this] { showFindings(); };
  Pdf1.onUnreadable = [this] { notice(kUnreadable + Pdf1.document()); };
}

void frmPDFHelp::prepareContents() {
  showSearch(false);
}

void frmPDFHelp::prepareSearch() {
  showSearch(true);
  txtSearch.selectAll();
}

void frmPDFHelp::showTopic(std::string_view topic) {
  const auto place = places_.find(topic);
  if (place != places_.end()) Pdf1.showPage(place->second);
}

void frmPDFHelp::showSearch(bool on) {
  txtSearch.setVisible(on);
  lblFound.setVisible(on);
  lstFound.setVisible(on);
  Pdf1.setThumbnails(!on);
  if (on && isShown()) txtSearch.focus();
}

void frmPDFHelp::showManual() {
  setCaption(session_.productname + " - Manual");
  const std::string path = manualPath();
  if (!fileExists(path)) return notice("There is no manual. It would be here:\n" + path);
  const std::optional<std::string> content = contentOf(path);
  if (!content) return notice(kUnreadable + path);
  places_ = manualPlaces(*content);
  lblNotice.setVisible(false);
  Pdf1.setVisible(true);
  txtSearch.setEnabled(true);
  Pdf1.open(path);
}

std::string frmPDFHelp::manualPath() const {
  std::string own = resolvePath(session_.appfolder + kManual);
  return fileExists(own) || shipped_.empty() ? own : shipped_;
}

void frmPDFHelp::notice(const std::string& text) {
  lblNotice.setCaption(text);
  lblNotice.setVisible(true);
  Pdf1.setVisible(false);
  txtSearch.setEnabled(false);
  places_.clear();
  Pdf1.open("");
}

void frmPDFHelp::showFindings() {
  std::vector<std::string> lines;
  for (const PdfFinding& finding : Pdf1.findings()) {
    lines.push_back("Page " + std::to_string(finding.page) + ": " + finding.text);
  }
  lblFound.setCaption(Pdf1.searched().empty() ? "" : countText(lines.size()));
  lstFound.setItems(lines);
}

}  // namespace tess
