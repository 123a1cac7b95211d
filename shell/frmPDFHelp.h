// The window of the manual: a PDF document of the program's folder, beside it either its pages in
// small or what a search has found.
// Owns: PdfFinding, PdfViewer, frmPDFHelp.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/controls.h"
#include "core/form.h"
#include "core/session.h"
#include "shell/help_topics.h"

namespace tess {

struct PdfFinding {
  int page = 0;      // from 1
  std::string text;  // the found words with those around them
};

// The area that shows a document, page by page and each fitted to it. What stands in the document
// only the view knows; it tells what it found.
class PdfViewer : public Picture {
 public:
  using Picture::Picture;

  // The full path; "" for none.
  const std::string& document() const { return document_; }
  void open(std::string path);
  bool showsThumbnails() const { return thumbnails_; }
  void setThumbnails(bool on);
  // The words to look for; "" ends the search.
  const std::string& searched() const { return searched_; }
  void search(std::string words);
  // The finding to be seen, from 0; -1 for none.
  int shownFinding() const { return shownFinding_; }
  void showFinding(int index);
  // The page to be seen, from 1; 0 once the view has gone there.
  int wantedPage() const { return wantedPage_; }
  void showPage(int page);
  void tellPageShown() { wantedPage_ = 0; }

  // Told by the view.
  void tellFindings(std::vector<PdfFinding> findings);
  void tellUnreadable();
  const std::vector<PdfFinding>& findings() const { return findings_; }

  Handler onFindings;
  Handler onUnreadable;

 private:
  std::string document_;
  std::string searched_;
  std::vector<PdfFinding> findings_;
  int shownFinding_ = -1;
  int wantedPage_ = 0;
  bool thumbnails_ = false;
};

class frmPDFHelp : public Form {
 public:
  // The manual lies in the program's folder, else where `shipped` says.
  frmPDFHelp(const Session& session, std::string shipped);

  // Before the form is opened: the pages in small, or the search.
  void prepareContents();
  void prepareSearch();
  // Once it is open: the page of a topic, if the manual has one; "" for none.
  void showTopic(std::string_view topic);

  TextBox txtSearch{*this, "txtSearch"};
  Label lblFound{*this, "lblFound"};
  ListBox lstFound{*this, "lstFound"};
  Label lblNotice{*this, "lblNotice"};  // instead of the manual, when there is none
  PdfViewer Pdf1{*this, "Pdf1"};

 private:
  void showManual();
  void showSearch(bool on);
  void showFindings();
  void notice(const std::string& text);
  std::string manualPath() const;

  const Session& session_;
  const std::string shipped_;
  ManualPlaces places_;
};

}  // namespace tess
