// The list of results.
#include "shell/qt/results_window.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace tess {

namespace {

constexpr QSize kFirstSize(460, 300);

}  // namespace

ResultsWindow::ResultsWindow(QWidget* owner) : QDialog(owner), list_(new QPlainTextEdit(this)) {
  setObjectName("frmResults");
  setWindowTitle("Results");
  list_->setObjectName("txtResults");
  list_->setReadOnly(true);
  list_->setTabChangesFocus(true);
  list_->setLineWrapMode(QPlainTextEdit::NoWrap);
  list_->setAccessibleName("Results, each with its time of day");
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* copy = buttons->addButton("&Copy All", QDialogButtonBox::ActionRole);
  copy->setObjectName("cmdCopyResults");
  QPushButton* close = buttons->addButton("C&lose", QDialogButtonBox::RejectRole);
  close->setDefault(true);
  connect(copy, &QPushButton::clicked, this,
          [this] { QApplication::clipboard()->setText(list_->toPlainText()); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(list_);
  whole->addWidget(buttons);
  resize(kFirstSize);
}

void ResultsWindow::showLog(const QString& log) {
  list_->setPlainText(log);
  list_->verticalScrollBar()->setValue(list_->verticalScrollBar()->maximum());
}

}  // namespace tess
