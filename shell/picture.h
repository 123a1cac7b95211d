// A picture of the drawing beside the one on the screen, and the port to whoever makes files of it.
// Owns: paintPicture, PictureWriter.
#pragma once

#include <functional>
#include <string>

#include "shell/application.h"
#include "shell/pixel_size.h"

namespace tess {

// Paints the drawing on a surface of its own: all that the present view shows, and beside it what
// a surface of other proportions has room for. View and screen stay as they are. For paper the
// colours are those of the numbers, whatever the look of the screen.
void paintPicture(Application& application, DrawingSurface& surface, bool onPaper = false);

// Writes such a picture as a PNG file. Raises what writeFile raises.
using PictureWriter =
    std::function<void(Application& application, const std::string& path, PixelSize size)>;

}  // namespace tess
