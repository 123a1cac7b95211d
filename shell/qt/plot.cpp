// Painting into memory, and the file.
#include "shell/qt/plot.h"

#include <QBuffer>
#include <QByteArray>

#include "core/file_writer.h"
#include "shell/qt/raster_surface.h"
#include "shell/qt/toolkit.h"

namespace tess {

QtPictureWriter::QtPictureWriter() : toolkit_(std::make_shared<OffscreenToolkit>()) {}

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
