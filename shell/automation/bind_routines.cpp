// `call`: the other public routines whose arguments are numbers, texts and flags. A room that
// brings more of them adds a line for each.
#include "cnc/cnc_line.h"
#include "cnc/program_text.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/setup_file.h"
#include "core/units.h"
#include "display/drawing_extents.h"
#include "drafting/row_edits.h"
#include "shell/automation/bindings.h"
#include "shell/automation/editing_routines.h"
#include "shell/automation/lua_routines.h"
#include "shell/automation/tool_chest_routines.h"
#include "shell/automation/toolpath_routines.h"
#include "shell/automation/transform_routines.h"
#include "shell/printing.h"

namespace tess {
namespace {

using std::optional;
using std::string;
using std::tuple;

// The line without its end, "" for none, and then what the former leaves of its arguments.
tuple<string, string, float, float, float> formCncLine(Application& application, MotionLine line) {
  string text;
  const LineFormat format(application.session, application.definition);
  FormCncLine(text, format, application.cnc.lastmove, line);
  if (text.ends_with(kLineEnd)) text.resize(text.size() - kLineEnd.size());
  return {text, line.g, line.i, line.j, line.k};
}

constexpr Routine kRoutines[] = {
    // Pictures of the disk.
    routine("store_Picture",
            [](Application& application) {
              Interaction& interaction = application.interaction;
              interaction.pictures.store_Picture(interaction.statusBar);
            }),
    routine("mnuFileViewPic_Click",
            [](Application& application) { mnuFileViewPic_Click(application); }),
    // The store.
    routine("AddSeg",
            [](Application& application, int type, Int16 attr, float x0, float y0, float x1,
               float y1, float xc, float yc) {
              Change change(application.interaction.context.changes);
              change.segments.append({type, attr, x0, y0, x1, y1, xc, yc}, Entry::Unmarked);
              change.keep();
            }),
    routine(
        "AddSegLine",
        [](Application& application, int type, Int16 attr, float y0, float x0, float y1, float x1) {
          Change change(application.interaction.context.changes);
          change.segments.appendLine(type, attr, y0, x0, y1, x1, Entry::Unmarked);
          change.keep();
        }),
    routine("addPathSegment",
            [](Application& application, Int16 type, float x0, float y0, float x1, float y1,
               float xc, float yc, float z, float feed, Int16 code) {
              Change change(application.interaction.context.changes);
              change.paths.append({type, x0, y0, x1, y1, xc, yc, z, feed, code}, Entry::Unlogged);
              change.keep({.redraws = false});
            }),
    routine("ensureSegmentCapacity",
            [](DrawingStore& store, Int16 n) { ensureSegmentCapacity(store, n); }),
    routine("ensurePathCapacity",
            [](DrawingStore& store, Int16 n) { ensurePathCapacity(store, n); }),
    routine("findSegment",
            [](DrawingStore& store, Int16 type, float x0, float y0, float x1, float y1, float xc,
               float yc) {
              clsSegment record;
              record.SetSegment({type, kOrdinaryClass, x0, y0, x1, y1, xc, yc}, "A", false);
              return findSegment(store, record);
            }),
    routine("nextPathGroup", [](DrawingStore& store) { return nextPathGroup(store); }),
    routine("roundall",
            [](Application& application) { roundRows(application.interaction.context.changes); }),

    // Numbers and texts.
    routine("formatNumber",
            [](float value, const string& pattern) { return formatNumber(value, pattern); }),
    routine("roundTo", [](double value, Int16 places) { return roundTo(value, places); }),
    routine("Val", [](const string& text) { return Val(text); }),
    routine("splitPath",
            [](string folder, const string& path, const string& ext) {
              string name = splitPath(folder, path, ext);
              return tuple{std::move(name), std::move(folder)};
            }),

    // Setups and the drawing's life.
    command("SetupTESS", [](Session& session, const string& word) { SetupTESS(session, word); }),
    command("load_defaults", [](Session& session) { load_defaults(session); }),
    command("load_setup", [](Session& session) { load_setup(session); }),
    command(
        "load_xsetup",
        [](Application& application) { load_xsetup(application.session, application.definition); }),
    command("applydefaults", [](Session& session) { applydefaults(session); }),
    command("new_drawing", [](Session& session) { new_drawing(session); }),
    command("readcfg", [](Session& session) { readcfg(session); }),
    command("showDrawingName", [](Session& session) { showDrawingName(session); }),
    command("askUser",
            [](Session& session, const string& text, int kind) {
              int answer = 0;
              askUser(session, text, kind, answer);
              return answer;
            }),
    command("set_num_formats", [](Session& session) { set_num_formats(session); }),
    command("convert", [](Session& session) { convert(session); }),

    // The display: how far the drawing reaches, with -1 for success in front.
    routine("GetDrawingExtents",
            [](DrawingStore& store) {
              const optional<DrawingExtents> found = GetDrawingExtents(store);
              const DrawingExtents box = found.value_or(DrawingExtents{});
              return tuple{Flag(found.has_value()), box.minx, box.miny, box.maxx, box.maxy};
            }),

    // Programs: one line by its words; what is left out at the end is false or 0.
    routine("FormCncLine",
            [](Application& application, const string& g, float x, float y, float z, float i,
               float j, float k, float frx, float d, optional<bool> newfile, optional<bool> useY,
               optional<bool> forceXY, optional<bool> zOnly, optional<bool> resetOnly,
               optional<float> r) {
              return formCncLine(application, {.g = g,
                                               .x = x,
                                               .y = y,
                                               .z = z,
                                               .i = i,
                                               .j = j,
                                               .k = k,
                                               .feed = frx,
                                               .d = d,
                                               .r = r.value_or(0),
                                               .newfile = newfile.value_or(false),
                                               .useY = useY.value_or(false),
                                               .forceXY = forceXY.value_or(false),
                                               .zOnly = zOnly.value_or(false),
                                               .resetOnly = resetOnly.value_or(false)});
            }),
};

}  // namespace

void bindRoutines(lua_State* L) {
  std::vector<Routine> routines(std::begin(kRoutines), std::end(kRoutines));
  for (const std::span<const Routine> more :
       {editingRoutines(), transformRoutines(), toolChestRoutines(), toolpathRoutines()}) {
    routines.insert(routines.end(), more.begin(), more.end());
  }
  setRoutines(L, "call", routines);
}

}  // namespace tess
