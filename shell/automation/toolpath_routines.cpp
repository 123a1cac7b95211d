// `call` for the tool paths: verification, offsetting, roughing and placement by their names.
#include "shell/automation/toolpath_routines.h"

#include "core/text.h"
#include "drafting/row_edits.h"
#include "geometry/float_angles.h"
#include "toolpath/chain_walk.h"
#include "toolpath/contour_offset.h"
#include "toolpath/gouge_avoidance.h"
#include "toolpath/parallel_spiral.h"
#include "toolpath/path_groups.h"
#include "toolpath/path_placement.h"
#include "toolpath/pocket_side.h"
#include "toolpath/rough_pocket.h"
#include "toolpath/scan_lathe.h"
#include "toolpath/scan_lines.h"
#include "toolpath/verification.h"
#include "toolpath/working_outlines.h"

namespace tess {
namespace {

using std::optional;
using std::string;
using std::tuple;

CamContext& camOf(Application& application) {
  return application.interaction.cam;
}

Changes& changesOf(Application& application) {
  return application.interaction.context.changes;
}

// The click of a call is where the pointer stands.
Point clickOf(Application& application) {
  const PointerRecord& pointer = application.interaction.context.pointer;
  return {pointer.MouseX, pointer.MouseY};
}

// What scripts are told of a clearing: fixed, since they compare it.
int codeOf(Clearing clearing) {
  return clearing == Clearing::NothingToCut ? -1 : 0;
}

// The row found, 0 for none, and its other end.
tuple<int, float, float> stepResult(const optional<ChainStep>& step) {
  const ChainStep found = step.value_or(ChainStep{});
  return {found.row, found.end.x, found.end.y};
}

ChainKind chainKind(const string& kind) {
  return lowerCased(kind).find("segs") != string::npos ? ChainKind::Segs : ChainKind::Path;
}

constexpr Routine kRoutines[] = {
    // Verification.
    routine("verifypocket",
            [](Application& application) {
              const OutlineSize size = verifypocket(camOf(application));
              return tuple{size.width, size.height};
            }),
    routine("arcBounds",
            [](DrawingStore& store, Int16 sg) {
              const Box box = arcBounds(store, sg);
              return tuple{box.minX, box.maxX, box.minY, box.maxY};
            }),

    // Chains and their offsets.
    routine("nextChainSeg",
            [](DrawingStore& store, Int16 from, float x, float y) {
              return stepResult(nextChainSeg(store, from, {x, y}));
            }),
    routine("nextChainSegWithAttr",
            [](DrawingStore& store, Int16 from, float x, float y, Int16 attr) {
              return stepResult(nextChainSegWithAttr(store, from, {x, y}, attr));
            }),
    routine("pocketSideOf",
            [](DrawingStore& store, float x0, float y0, float x1, float y1) {
              return signOf(pocketSideOf(store, {x0, y0}, {x1, y1}));
            }),
    routine("arcSweep",
            [](float a, float b, Int16 direction) { return ArcSweep(a, b, direction); }),
    routine("offsetPathChain",
            [](Application& application, Int16 sg, float xs, float ys, float xd, float yd, float z,
               float feed, bool chain, bool pocketMode, bool exactMode, float radius) {
              offsetPathChain(camOf(application), {.sg = sg,
                                                   .start = {xs, ys},
                                                   .direction = {xd, yd},
                                                   .click = clickOf(application),
                                                   .z = z,
                                                   .feed = feed,
                                                   .chain = chain,
                                                   .pocketMode = pocketMode,
                                                   .exactMode = exactMode,
                                                   .radius = radius});
            }),

    routine("offsetSegChain",
            [](Application& application, Int16 sg, float xs, float ys, float xd, float yd,
               Int16 attr, float distance) {
              ChainWalk rows(application.store);
              offsetSegChain(camOf(application), rows,
                             {sg, {xs, ys}, {xd, yd}, clickOf(application), attr, distance});
              return tuple{sg, xs, ys, xd, yd};
            }),

    // Roughing.
    routine("roughCutLevel",
            [](Application& application, float z, float feed, float radius) {
              return tuple{codeOf(roughCutLevel(camOf(application), z, feed, radius)), z, feed};
            }),
    routine("scanPocketHorizontal",
            [](Application& application, float z, float feed) {
              return tuple{codeOf(scanPocketHorizontal(camOf(application), z, feed)), z, feed};
            }),
    routine("scanPocketVertical",
            [](Application& application, float z, float feed) {
              return tuple{codeOf(scanPocketVertical(camOf(application), z, feed)), z, feed};
            }),
    routine("scanPocketLathe",
            [](Application& application, float feed) {
              return tuple{codeOf(scanPocketLathe(camOf(application), feed)), feed};
            }),
    routine("restoreParkedRows",
            [](Application& application) { restoreParkedRows(changesOf(application)); }),
    routine("parallelSpiralPocket", [](Application& application,
                                       Int16 sg) { parallelSpiralPocket(camOf(application), sg); }),

    // Gouge avoidance.
    routine("removeSelfIntersections",
            [](Application& application, Int16 first, const string& kind) {
              removeSelfIntersections(camOf(application), first, chainKind(kind));
            }),

    // Placement.
    routine("insertPathSegment",
            [](Application& application, Int16 index, Int16 type, float x0, float y0, float x1,
               float y1, float xc, float yc, float z, float feed, Int16 tool) {
              insertPathSegment(changesOf(application), index,
                                {type, x0, y0, x1, y1, xc, yc, z, feed}, tool);
            }),
    routine("replicatePathAtZ",
            [](Application& application, float z, float feed) {
              replicatePathAtZ(camOf(application), z, feed);
              return tuple{z, feed};
            }),
    routine("connectPathSegs",
            [](Application& application, Int16 first, Int16 last) {
              connectPathSegs(camOf(application), first, last);
            }),
    routine("pathInsertIndex",
            [](DrawingStore& store, Int16 mode, Int16 group) {
              return pathInsertIndex(store, static_cast<PathInsertMode>(int{mode}), group);
            }),
    routine("firstOfPathGroup",
            [](DrawingStore& store, Int16 ps) { return firstOfPathGroup(store, ps); }),
    routine("lastOfPathGroup",
            [](DrawingStore& store, Int16 ps) { return lastOfPathGroup(store, ps); }),
    routine("deletePathGroup", [](Application& application,
                                  Int16 group) { deletePathGroup(changesOf(application), group); }),
};

}  // namespace

std::span<const Routine> toolpathRoutines() {
  return kRoutines;
}

}  // namespace tess
