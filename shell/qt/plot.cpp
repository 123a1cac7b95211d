// Painting into memory, and the file.
#include "shell/qt/plot.h"

#include <QBuffer>
#include <QByteArray>
#include <QGuiApplication>
#include <array>

#include "core/file_writer.h"
#include "shell/qt/plain_numbers.h"
#include "shell/qt/raster_surface.h"
#include "shell/qt/toolkit_messages.h"

namespace tess {

// Letters need the fonts of a running toolkit.
class QtPictureWriter::Toolkit {
 public:
  // What it has to say about the desktop that is not there is of no interest.
  void start() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QtMessageHandler before = qInstallMessageHandler(passOverWarnings);
    application_ = std::make_unique<QGuiApplication>(count_, arguments_.data());
    keepPlainNumbers();
    qInstallMessageHandler(before);
  }

 private:
  std::string name_ = "tessimo";
  std::array<char*, 2> arguments_{name_.data(), nullptr};
  int count_ = 1;
  std::unique_ptr<QGuiApplication> application_;
};

QtPictureWriter::QtPictureWriter() : toolkit_(std::make_shared<Toolkit>()) {}

void QtPictureWriter::operator()(Application& application, const std::string& path,
                                 PixelSize size) const {
  const Procedure here("writePicture(application,path,size)");
  toolkit_->start();
  RasterSurface surface({0, 0, static_cast<float>(size.width), static_cast<float>(size.height)});
  paintPicture(application, surface);
  QByteArray file;
  QBuffer buffer(&file);
  if (surface.picture().isNull() || !surface.picture().save(&buffer, "PNG")) {
    throw RuntimeFailure(FailureNumber::DeviceInputOutput, path);
  }
  writeFile(application.session.host.guard, path, FileKind::Picture,
            {file.constData(), static_cast<std::size_t>(file.size())});
}

}  // namespace tess
