// The toolkit's viewer, and pages in small that are painted when they come into sight.
#include "shell/qt/pdf_pane.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfSearchModel>
#include <QPdfView>
#include <QPixmap>
#include <QTimer>
#include <map>

namespace tess {

namespace {

constexpr int kThumbnailWidth = 110;
constexpr int kThumbnailMargin = 24;  // of the column beyond the thumbnails, with its scroll bar
constexpr int kMaxFindings = 1000;

// The words found with a few around them, on one line; the toolkit marks the ends of lines.
std::string findingText(const QPdfLink& link, const QString& words) {
  constexpr QChar kLineEnd(0x23CE);
  QString text = link.contextBefore() + words + link.contextAfter();
  return text.replace(kLineEnd, ' ').simplified().toStdString();
}

}  // namespace

class PdfPane::Thumbnails : public QAbstractListModel {
 public:
  explicit Thumbnails(PdfPane& pane) : pane_(pane) {}

  void documentChanged() {
    beginResetModel();
    painted_.clear();
    endResetModel();
  }

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : pane_.pageCount();
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) return QString::number(index.row() + 1);
    if (role == Qt::DecorationRole) return thumbnail(index.row());
    return {};
  }

 private:
  QPixmap thumbnail(int page) const {
    const auto known = painted_.find(page);
    return known != painted_.end() ? known->second : painted_[page] = paint(page);
  }

  QPixmap paint(int page) const {
    const QSizeF points = pane_.document_->pagePointSize(page);
    const double density = pane_.devicePixelRatioF();
    const double width = kThumbnailWidth * density;
    const QSize size = (points * width / std::max(points.width(), 1.0)).toSize();
    QPixmap picture(size);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.drawImage(0, 0, pane_.document_->render(page, size));
    painter.setPen(Qt::lightGray);
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    painter.end();
    picture.setDevicePixelRatio(density);
    return picture;
  }

  PdfPane& pane_;
  mutable std::map<int, QPixmap> painted_;
};

PdfPane::PdfPane(QWidget* parent)
    : QWidget(parent),
      document_(std::make_unique<QPdfDocument>(nullptr)),
      found_(std::make_unique<QPdfSearchModel>(nullptr)),
      thumbnails_(std::make_unique<Thumbnails>(*this)),
      small_(new QListView(this)),
      pages_(new QPdfView(this)) {
  small_->setObjectName("thumbnails");
  small_->setModel(thumbnails_.get());
  small_->setViewMode(QListView::IconMode);
  small_->setFlow(QListView::TopToBottom);
  small_->setWrapping(false);
  small_->setMovement(QListView::Static);
  small_->setSpacing(6);
  small_->setIconSize(QSize(kThumbnailWidth, 2 * kThumbnailWidth));
  small_->setFixedWidth(kThumbnailWidth + 2 * kThumbnailMargin);
  pages_->setObjectName("pages");
  pages_->setPageMode(QPdfView::PageMode::MultiPage);
  pages_->setZoomMode(QPdfView::ZoomMode::FitInView);
  pages_->setDocument(document_.get());
  found_->setDocument(document_.get());
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(small_);
  row->addWidget(pages_, 1);
  connect(small_, &QListView::clicked, this, [this](const QModelIndex& at) { showPage(at.row()); });
  connect(small_, &QListView::activated, this,
          [this](const QModelIndex& at) { showPage(at.row()); });
  connect(pages_->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
          [this](int page) { markPage(page); });
  connect(found_.get(), &QAbstractItemModel::rowsInserted, this, [this] { tellFindings(); });
  connect(found_.get(), &QAbstractItemModel::modelReset, this, [this] { tellFindings(); });
}

// The views let go of the document before it goes.
PdfPane::~PdfPane() {
  found_->disconnect(this);
  pages_->pageNavigator()->disconnect(this);
  pages_->setDocument(nullptr);
  small_->setModel(nullptr);
  found_.reset();
}

bool PdfPane::open(const std::string& path) {
  if (path == path_) return true;
  path_ = path;
  document_->close();
  const bool reads =
      path.empty() || document_->load(QString::fromStdString(path)) == QPdfDocument::Error::None;
  thumbnails_->documentChanged();
  markPage(0);
  return reads;
}

void PdfPane::setThumbnails(bool on) {
  small_->setVisible(on);
}

void PdfPane::search(const std::string& words) {
  found_->setSearchString(QString::fromStdString(words));
}

void PdfPane::showFinding(int index) {
  if (index < 0 || index >= found_->rowCount({})) return;
  showPage(found_->resultAtIndex(index).page());
}

int PdfPane::pageCount() const {
  return document_->pageCount();
}

int PdfPane::currentPage() const {
  return pages_->pageNavigator()->currentPage();
}

// Each page is fitted, so all of it is seen from its top. A viewer that has no size yet forgets
// where it was sent.
void PdfPane::showPage(int page) {
  const auto jump = [this, page] { pages_->pageNavigator()->jump(page, {}); };
  jump();
  if (!isVisible()) QTimer::singleShot(0, this, jump);
}

void PdfPane::markPage(int page) {
  small_->setCurrentIndex(thumbnails_->index(page, 0));
}

void PdfPane::tellFindings() {
  const QString words = found_->searchString();
  std::vector<PdfFinding> findings;
  for (int row = 0; row < std::min(found_->rowCount({}), kMaxFindings); ++row) {
    const QPdfLink link = found_->resultAtIndex(row);
    findings.push_back({.page = link.page() + 1, .text = findingText(link, words)});
  }
  if (onFindings) onFindings(findings);
}

}  // namespace tess
