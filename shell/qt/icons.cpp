// Vector icons that follow the theme. The files name three placeholder colours; what stands in for
// them is decided when an icon is painted, so a change of theme needs no new icons.
#include "shell/qt/icons.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <cctype>
#include <utility>

#include "shell/qt/theme.h"

namespace tess {

namespace {

constexpr const char* kInk = "currentColor";
constexpr const char* kAccent = "#2f7fd8";
constexpr const char* kPath = "#e0762b";
constexpr double kDisabledOpacity = 0.36;

class ThemedIcon : public QIconEngine {
 public:
  explicit ThemedIcon(QString file) : file_(std::move(file)) {}

  QIconEngine* clone() const override { return new ThemedIcon(*this); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
    QSvgRenderer(drawing()).render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QString key = QString("%1 %2x%3 %4 %5")
                            .arg(file_)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(mode)
                            .arg(isDark(QApplication::palette()));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
  }

 private:
  QByteArray drawing() {
    if (source_.isEmpty()) {
      QFile file(file_);
      if (file.open(QIODevice::ReadOnly)) source_ = file.readAll();
    }
    const IconColors colors = iconColors(QApplication::palette());
    QByteArray drawing = source_;
    drawing.replace(kInk, colors.ink.name().toLatin1());
    drawing.replace(kAccent, colors.accent.name().toLatin1());
    return drawing.replace(kPath, colors.path.name().toLatin1());
  }

  QString file_;
  QByteArray source_;
};

QIcon themedIcon(const QString& file) {
  return QFile::exists(file) ? QIcon(new ThemedIcon(file)) : QIcon();
}

}  // namespace

QString iconFile(const Tool& tool) {
  std::string name = tool.icon.empty() ? tool.name : tool.icon;
  for (char& letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) letter = '_';
  }
  return QString(":/icons/%1.svg").arg(QString::fromStdString(name));
}

QIcon toolIcon(const Tool& tool) {
  return themedIcon(iconFile(tool));
}

QIcon namedIcon(const QString& name) {
  return themedIcon(QString(":/icons/%1.svg").arg(name));
}

QIcon programIcon() {
  return QIcon(":/icons/tessimo.svg");
}

}  // namespace tess
