// What opening or saving a drawing came to.
#include "core/drawing_result.h"

#include "core/count_text.h"
#include "core/drawing_store.h"
#include "core/session.h"

namespace tess {

void tellDrawing(Session& session, const std::string& what) {
  const DrawingStore& store = session.store;
  std::string text = what + ": " + store.drawingname + ", " + countText(store.NumSegments, "row");
  if (store.NumPathSegments > 0) text += ", " + countText(store.NumPathSegments, "path row");
  session.results.tell(text);
}

}  // namespace tess
