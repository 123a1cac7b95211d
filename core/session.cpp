// What the process keeps beside the drawing.
#include "core/session.h"

namespace tess {

Session::Session(DrawingStore& drawing, Host& platform, SessionListener& above)
    : store(drawing), host(platform), listener(above) {}

Session::~Session() = default;

}  // namespace tess
