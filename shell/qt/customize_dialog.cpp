// The customising dialog.
#include "shell/qt/customize_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QVBoxLayout>
#include <array>
#include <utility>

namespace tess {

namespace {

struct IconSize {
  const char* name;
  int pixels;
};

constexpr std::array kIconSizes{IconSize{"Small", 18}, IconSize{"Medium", 22},
                                IconSize{"Large", 28}, IconSize{"Extra large", 36}};

struct ButtonStyle {
  const char* name;
  Qt::ToolButtonStyle style;
};

constexpr std::array kButtonStyles{ButtonStyle{"Icons only", Qt::ToolButtonIconOnly},
                                   ButtonStyle{"Icons with names", Qt::ToolButtonTextUnderIcon}};

QGroupBox* makeBandBox(MainWindow& window, Gateway& gateway, BandKind kind, const QString& title) {
  auto* box = new QGroupBox(title);
  auto* column = new QVBoxLayout(box);
  ToolHost& tools = window.tools();
  for (const Band& band : tools.bands()) {
    if (band.kind != kind) continue;
    auto* mark = new QCheckBox(QString::fromStdString(band.caption).remove('&'));
    mark->setChecked(band.open);
    QObject::connect(mark, &QCheckBox::toggled, box,
                     [&tools, &gateway, name = band.name](bool open) {
                       gateway.enter("frmMain.miCustomize_Click()",
                                     [&] { open ? tools.openBand(name) : tools.closeBand(name); });
                     });
    column->addWidget(mark);
  }
  column->addStretch();
  return box;
}

QComboBox* makeSizeBox(MainWindow& window) {
  auto* box = new QComboBox;
  for (const IconSize& size : kIconSizes) {
    box->addItem(size.name, size.pixels);
    if (window.iconSize().width() == size.pixels) box->setCurrentIndex(box->count() - 1);
  }
  QObject::connect(box, &QComboBox::activated, box, [&window, box] {
    const int pixels = box->currentData().toInt();
    window.setIconSize(QSize(pixels, pixels));
  });
  return box;
}

QComboBox* makeStyleBox(MainWindow& window) {
  auto* box = new QComboBox;
  for (const ButtonStyle& style : kButtonStyles) {
    box->addItem(style.name, static_cast<int>(style.style));
    if (window.toolButtonStyle() == style.style) box->setCurrentIndex(box->count() - 1);
  }
  QObject::connect(box, &QComboBox::activated, box, [&window, box] {
    window.setToolButtonStyle(static_cast<Qt::ToolButtonStyle>(box->currentData().toInt()));
  });
  return box;
}

}  // namespace

void customizeWindow(MainWindow& window, Gateway& gateway) {
  QDialog dialog(&window);
  dialog.setWindowTitle("Customize");
  auto* whole = new QVBoxLayout(&dialog);
  auto* bands = new QHBoxLayout;
  bands->addWidget(makeBandBox(window, gateway, BandKind::ToolBar, "Tool bars"));
  bands->addWidget(makeBandBox(window, gateway, BandKind::Panel, "Panels"));
  whole->addLayout(bands);
  auto* look = new QFormLayout;
  look->addRow("Icon &size:", makeSizeBox(window));
  look->addRow("&Buttons:", makeStyleBox(window));
  whole->addLayout(look);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::accept);
  whole->addWidget(buttons);
  dialog.exec();
}

}  // namespace tess
