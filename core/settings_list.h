// The settings of a drawing, one line each, in the order of the setup file. Everything that deals
// with settings is made from this list: the variables of the store, the reader and the writer of
// setup files, the fields of the drawing file and `setting[...]` of the scripts.
// Owns: TESSIMO_SETTINGS.
#pragma once

// SETTING(variable, width, kind, key, goes to, reading)
//   width    Int16, float, Flag (16-bit boolean) or std::string
//   kind     how the setup file writes it: S number with a sign blank, F number without one,
//            B True or False, T text
//   goes to  Live: in force as soon as it is read; Default: held for the next new drawing;
//            Both: default and live
//   reading  Plain, or the one departure from it:
//            OnlyOne     1 when the value's text is "1", else 0
//            Bars        commas are written as bars and come back
//            Lower/Upper the text is changed to that case
//            WhenSet     written only when it is not 0; a setup without it means 0
// AGAIN(variable, kind, key)  an entry that the writer repeats at this place
// COLOR(slot, key)            a slot of colortable
// Fixed: the key tolerence is spelled so; setups hold it.
// Fixed: the key final depth is written twice; programs that read setups by place count on it.
#define TESSIMO_SETTINGS(SETTING, AGAIN, COLOR)                                              \
  SETTING(xorigin, Int16, S, "x origin", Default, Plain)                                     \
  SETTING(yorigin, Int16, S, "y origin", Default, Plain)                                     \
  SETTING(zorigin, Int16, S, "z origin", Default, Plain)                                     \
  SETTING(drawingtitle, std::string, T, "drawing title", Default, Plain)                     \
  SETTING(designername, std::string, T, "designer name", Default, Plain)                     \
  SETTING(drawingrevision, std::string, T, "drawing revision", Default, Plain)               \
  SETTING(partmaterial, std::string, T, "part material", Default, Bars)                      \
  SETTING(parthardness, std::string, T, "part hardness", Live, Plain)                        \
  SETTING(materialcondition, std::string, T, "material condition", Live, Plain)              \
  SETTING(materialcategory, std::string, T, "material category", Live, Plain)                \
  SETTING(roundstock, Flag, B, "round stock", Live, Plain)                                   \
  SETTING(partdimx, float, S, "part dim x", Default, Plain)                                  \
  SETTING(partdimy, float, S, "part dim y", Default, Plain)                                  \
  SETTING(partdimz, float, S, "part dim z", Default, Plain)                                  \
  SETTING(cfg_final_depth, float, S, "final depth", Live, Plain)                             \
  SETTING(xstartpos, float, S, "x start pos", Live, Plain)                                   \
  SETTING(ystartpos, float, S, "y start pos", Live, Plain)                                   \
  SETTING(zstartpos, float, S, "z start pos", Live, Plain)                                   \
  SETTING(xchange, float, S, "x change", Live, Plain)                                        \
  SETTING(ychange, float, S, "y change", Live, Plain)                                        \
  SETTING(zchange, float, S, "z change", Live, Plain)                                        \
  SETTING(cfg_min_rough_clearance, float, S, "minimum roughing clearance", Live, Plain)      \
  SETTING(cfg_tool_spacing, float, S, "tool spacing", Live, Plain)                           \
  SETTING(cfg_tool_spacing_distance, float, S, "tool spacing distance", Live, Plain)         \
  AGAIN(cfg_final_depth, S, "final depth")                                                   \
  SETTING(cfg_start_depth, float, S, "start depth", Live, Plain)                             \
  SETTING(cfg_z_cut_per_pass, float, S, "z cut per pass", Live, Plain)                       \
  SETTING(cfg_min_z_finish, float, S, "minimum z finish", Live, Plain)                       \
  SETTING(cfg_rough_feedrate, float, S, "roughing feedrate", Live, Plain)                    \
  SETTING(cfg_finish_feedrate, float, S, "finishing feedrate", Live, Plain)                  \
  SETTING(cfg_z_plunge_rate, float, S, "z plunge rate", Live, Plain)                         \
  SETTING(highestspindle, float, S, "highest spindle speed", Live, WhenSet)                  \
  SETTING(cfg_rapid_rate, float, S, "rapid rate", Live, WhenSet)                             \
  SETTING(cfg_acceleration, float, S, "acceleration", Live, WhenSet)                         \
  SETTING(cfg_junction_deviation, float, S, "junction deviation", Live, WhenSet)             \
  SETTING(cfg_cutting_mode, Int16, S, "cutting mode", Live, Plain)                           \
  SETTING(cfg_pocketing_style, Int16, S, "pocketing style", Live, Plain)                     \
  SETTING(cfg_lathe_style_pocketing, Flag, S, "lathe style pocketing", Live, Plain)          \
  SETTING(lathesetup, Flag, S, "lathe setup", Live, WhenSet)                                 \
  SETTING(cfg_cut_width_type, Int16, S, "cut width type", Live, Plain)                       \
  SETTING(cfg_gouge_avoidance, Flag, S, "gouge avoidance", Live, Plain)                      \
  SETTING(cfg_connect_pocketing_paths, Flag, S, "connect pocketing paths", Live, Plain)      \
  SETTING(cfg_pocket_dist_from_center, float, S, "pocket distance from center", Live, Plain) \
  SETTING(cfg_auto_place_finish_path, Flag, S, "auto place finish path", Live, Plain)        \
  SETTING(cfg_true_paths, Flag, S, "true paths", Live, WhenSet)                              \
  SETTING(cfg_holding_tabs, Flag, S, "holding tabs", Live, WhenSet)                          \
  SETTING(cfg_tab_number, Int16, S, "tab number", Live, WhenSet)                             \
  SETTING(cfg_tab_spacing, float, S, "tab spacing", Live, WhenSet)                           \
  SETTING(cfg_tab_width, float, S, "tab width", Live, WhenSet)                               \
  SETTING(cfg_tab_height, float, S, "tab height", Live, WhenSet)                             \
  SETTING(cfg_finish_what_is_left, Flag, S, "finish what is left", Live, WhenSet)            \
  SETTING(cfg_corner_overcut, Int16, S, "corner overcut", Live, WhenSet)                     \
  SETTING(exactgeometry, Flag, S, "exact geometry", Live, WhenSet)                           \
  SETTING(cfg_entry_kind, Int16, S, "entry kind", Live, WhenSet)                             \
  SETTING(cfg_entry_angle, float, S, "entry angle", Live, WhenSet)                           \
  SETTING(cfg_entry_radius, float, S, "entry radius", Live, WhenSet)                         \
  SETTING(cfg_entry_feedrate, float, S, "entry feedrate", Live, WhenSet)                     \
  SETTING(cfg_engagement_limit, float, S, "engagement limit", Live, WhenSet)                 \
  SETTING(cfg_tolerance, float, F, "tolerence", Live, Plain)                                 \
  SETTING(userparamforarcs, Flag, B, "use r-param for arcs", Live, Plain)                    \
  SETTING(cfg_lead_in_path, Flag, B, "lead in path", Live, Plain)                            \
  SETTING(cfg_lead_in_arc, Flag, B, "lead in arc", Live, Plain)                              \
  SETTING(cfg_lead_in_length, float, F, "lead in length", Live, Plain)                       \
  SETTING(cfg_lead_in_angle, Int16, F, "lead in angle", Live, Plain)                         \
  SETTING(selectedtool, Int16, S, "selected tool", Live, Plain)                              \
  SETTING(autocomments, Int16, S, "auto comments", Live, OnlyOne)                            \
  SETTING(usingchuck, Int16, S, "using chuck", Live, OnlyOne)                                \
  SETTING(cncoutputpath, std::string, T, "cnc output path", Live, Lower)                     \
  SETTING(endmarkers, Int16, S, "end markers", Live, OnlyOne)                                \
  SETTING(parttemplate, Int16, S, "part template", Live, OnlyOne)                            \
  SETTING(tooloutline, Int16, S, "tool outline", Live, OnlyOne)                              \
  SETTING(pathdirection, Int16, S, "path direction", Live, WhenSet)                          \
  SETTING(pathcolors, Int16, S, "path colors", Live, WhenSet)                                \
  SETTING(screenlook, Int16, S, "screen look", Live, WhenSet)                                \
  SETTING(desktopkeys, Flag, S, "desktop keys", Live, WhenSet)                               \
  SETTING(visualgrid, float, S, "visual grid", Default, Plain)                               \
  SETTING(visualgridf, Int16, S, "visual grid f", Default, Plain)                            \
  SETTING(cursorgrid, float, S, "cursor grid", Default, Plain)                               \
  SETTING(cursorgridf, Int16, S, "cursor grid f", Default, Plain)                            \
  SETTING(hoverpreview, Flag, S, "hover preview", Live, WhenSet)                             \
  SETTING(units, std::string, T, "units of measure", Both, Upper)                            \
  COLOR(1, "background color")                                                               \
  COLOR(2, "stock color")                                                                    \
  COLOR(3, "draw color")                                                                     \
  COLOR(4, "select color")                                                                   \
  COLOR(5, "verified color")                                                                 \
  COLOR(6, "grid color")                                                                     \
  COLOR(7, "marker color")
