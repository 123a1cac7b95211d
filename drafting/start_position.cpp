// New Start Position.
#include "drafting/start_position.h"

namespace tess {

void clickStartPosition(Desk& desk) {
  desk.store.xstartpos = desk.pointer.MouseX;
  desk.store.ystartpos = desk.pointer.MouseY;
  desk.store.drawingsaved = false;
}

}  // namespace tess
