-- A turned shaft end: bar of 1 inch, roughed in the lathe style and finished along its profile. x is
-- the length, with zero at the face, and y the radius. Writes the drawing lathe_profile.cdm, the
-- program lathe_profile.CNC and the picture lathe_profile.png beside itself:
--
--     ./run --run examples/lathe_profile.lua
--     ./run --run examples/lathe_profile.lua JOURNAL SHOULDER     (diameters in inches)

local here = arg[0]:match("^(.*[/\\])") or "./"
local journal, shoulder = tonumber(arg[1] or 0.25), tonumber(arg[2] or 0.7)
local bar = 1
assert(journal < shoulder - 0.25 and shoulder < bar, "the diameters must grow towards the chuck")

-- The lathe's tools, cycles and program header; the setup stands in the program's folder.
on_file(function(title, pattern, initial) return "lathe.msu" end)
tool("miLoadSetup")
assert(store.cfg_lathe_style_pocketing ~= 0, "the setup lathe.msu was not loaded")
local roughing, finishing = 1, 2 -- tools by their numbers

setting["drawing title"] = "Shaft end"
setting["designer name"] = "lathe_profile.lua"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"], setting["part dim y"] = 2, bar / 2
setting["minimum roughing clearance"] = 0.01
store.cursorgridf = 0 -- clicks count as they are
view { -2.25, -0.25, 0.5, 1.25 }

-- The drawing: what is to be turned off, as a closed outline. Its lower edge is the profile. A
-- lathe program takes a move straight away from the axis for a retract and makes it rapid, so the
-- shoulders lean by a thousandth: they are cut at the feed then.
local j, s, free = journal / 2, shoulder / 2, 0.05
local chamfer, fillet, lean = 0.03, 0.06, 0.001
local function line(x0, y0, x1, y1) add_segment { type = 1, x0 = x0, y0 = y0, x1 = x1, y1 = y1 } end
line(free, j - chamfer, 0, j - chamfer)
line(0, j - chamfer, -chamfer, j)
line(-chamfer, j, -0.75 + fillet, j)
add_segment { type = 2, x0 = -0.75 + fillet, y0 = j, x1 = -0.75, y1 = j + fillet,
  xc = -0.75 + fillet, yc = j + fillet }
line(-0.75, j + fillet, -0.75 - lean, s - chamfer)
line(-0.75 - lean, s - chamfer, -0.75 - lean - chamfer, s)
line(-0.75 - lean - chamfer, s, -1.25, s)
line(-1.25, s, -1.25 - lean, bar / 2)
local profile = store.NumSegments
line(-1.25 - lean, bar / 2, free, bar / 2)
line(free, bar / 2, free, j - chamfer)

-- Roughing leaves the clearance on the profile.
store.selectedtool = roughing - 1
tool("miSelectAll")
tool("miVerify/AcceptPocket")
tool("miRoughCutPocket")
tool("miUnselectAll")

-- The finish runs on the profile itself.
store.selectedtool = finishing - 1
setting["start depth"], setting["final depth"], setting["z cut per pass"] = 0, 0, 0
tool("miSelect")
for row = 1, profile do
  click((store.x0[row] + store.x1[row]) / 2, (store.y0[row] + store.y1[row]) / 2)
end
key("Esc")
tool("miQuickPlace")
tool("miUnselectAll")

tool("miZoomExtents")
save(here .. "lathe_profile.cdm")
make_cnc("lathe", here .. "lathe_profile.CNC")
plot(here .. "lathe_profile.png", 900, 500)
print(store.NumSegments .. " segments, " .. store.NumPathSegments .. " path rows")
