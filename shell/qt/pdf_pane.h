// A document page by page, beside it its pages in small, and the search in it.
// Owns: PdfPane.
#pragma once

#include <QAbstractItemModel>
#include <QListView>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/frmPDFHelp.h"

class QPdfDocument;
class QPdfSearchModel;
class QPdfView;

namespace tess {

class PdfPane : public QWidget {
 public:
  explicit PdfPane(QWidget* parent);
  ~PdfPane() override;

  // False when the file is no document that can be read; "" shows none.
  bool open(const std::string& path);
  void setThumbnails(bool on);
  void search(const std::string& words);
  // A finding of the last search, from 0.
  void showFinding(int index);
  // From 0.
  void showPage(int page);

  int pageCount() const;
  int currentPage() const;  // from 0

  std::function<void(const std::vector<PdfFinding>&)> onFindings;

 private:
  class Thumbnails;
  void markPage(int page);
  void tellFindings();

  std::unique_ptr<QPdfDocument> document_;
  std::unique_ptr<QPdfSearchModel> found_;
  std::unique_ptr<Thumbnails> thumbnails_;
  QListView* small_;
  QPdfView* pages_;
  std::string path_;
};

}  // namespace tess
