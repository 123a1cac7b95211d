// Inch and millimetre.
#include "core/units.h"

#include "core/drawing_store.h"
#include "core/runtime_failure.h"

namespace tess {
namespace {

// What a change of units multiplies, beside the drawing itself.
// Fixed: feeds, tools and the tolerance keep their numbers; setups are written for one unit.
constexpr float DrawingSettings::*kConverted[] = {&DrawingSettings::xstartpos,
                                                  &DrawingSettings::ystartpos,
                                                  &DrawingSettings::zstartpos,
                                                  &DrawingSettings::xchange,
                                                  &DrawingSettings::ychange,
                                                  &DrawingSettings::zchange,
                                                  &DrawingSettings::cfg_min_rough_clearance,
                                                  &DrawingSettings::cfg_final_depth,
                                                  &DrawingSettings::cfg_start_depth,
                                                  &DrawingSettings::cfg_z_cut_per_pass,
                                                  &DrawingSettings::cfg_min_z_finish,
                                                  &DrawingSettings::cfg_tab_spacing,
                                                  &DrawingSettings::cfg_tab_width,
                                                  &DrawingSettings::cfg_tab_height,
                                                  &DrawingSettings::visualgrid,
                                                  &DrawingSettings::cursorgrid};

}  // namespace

void set_num_formats(Session& session) {
  NumberFormats& formats = session.formats;
  const bool metric = isMetric(session.store);
  formats.coordfmt = metric ? formats.numfmtmm : formats.numfmtinch;
  formats.dimfmt = metric ? "####0.0000" : "##0.00000";
  formats.cncfmt = metric ? formats.cncfmtmm : formats.cncfmtinch;
}

void convert(Session& session) {
  const Procedure here("convert()");
  const float factor = session.store.unitfactor;
  for (const auto setting : kConverted) session.store.*setting *= factor;
  session.listener.scaleDrawing(factor);
}

}  // namespace tess
