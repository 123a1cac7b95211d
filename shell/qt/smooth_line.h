// A solid line with smooth edges, straight into the pixels of a picture. The toolkit's own way
// takes many times as long for the short lines that drawings are made of.
// Owns: blendLine.
#pragma once

#include <QImage>
#include <QLineF>

namespace tess {

// Blends an opaque line of so many pixels' width into a picture of the format RGB32. Ends are
// square and reach out by half of the width; 0.5 is the middle of the first pixel. What lies
// outside the picture is cut off. The line must not lead far outside.
void blendLine(QImage& picture, const QLineF& line, double width, QRgb ink);

}  // namespace tess
