-- A round flange of 1/4 inch aluminium plate: six bolt holes, a bore and the outside. Everything is
-- done with the commands of the menus; the script only holds the mouse. It writes the drawing
-- flange.cdm, the program flange.CNC and the picture flange.png beside itself:
--
--     ./run --run examples/flange.lua
--     ./run --run examples/flange.lua OUTSIDE BORE BOLT_CIRCLE BOLTS    (diameters in inches)

local here = arg[0]:match("^(.*[/\\])") or "./"
local outside = tonumber(arg[1] or 4)
local bore = tonumber(arg[2] or 1.5)
local boltCircle = tonumber(arg[3] or 3)
local bolts = tonumber(arg[4] or 6)

local plate, margin, retract = 0.25, 0.75, 0.5
local through = plate + 0.01 -- into the waste board

-- Tools by their numbers in the setup mill_inch.
local spotDrill, endMill, drill = 1, 6, 13
local hole = 2 * store.toolradius[drill - 1]
local cutter = 2 * store.toolradius[endMill - 1]
assert(bore > 1.5 * cutter, "the end mill does not fit the bore")
assert(boltCircle - hole > bore and boltCircle + hole < outside, "the bolt holes leave the flange")

setting["drawing title"] = "Flange"
setting["designer name"] = "flange.lua"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"], setting["part dim y"] = outside + 2 * margin, outside + 2 * margin
setting["part dim z"] = plate
setting["z start pos"] = retract
setting["final depth"] = through
setting["z cut per pass"] = 0.065
setting["minimum z finish"] = 0.005
setting["roughing feedrate"], setting["finishing feedrate"] = 14, 11
store.cursorgridf = 0 -- clicks count as they are
view { 0, 0, setting["part dim x"], setting["part dim y"] }

-- The drawing ------------------------------------------------------------------------------------

local cx, cy = outside / 2 + margin, outside / 2 + margin

local function circle(x, y, diameter)
  tool("miCircleC+1P")
  rightclick(x, y)
  click(x + diameter / 2, y)
  key("Esc")
end

circle(cx, cy, outside)
circle(cx, cy, bore)
local holes = {}
for bolt = 1, bolts do
  local angle = 2 * math.pi * (bolt - 1) / bolts
  holes[bolt] = { cx + boltCircle / 2 * math.cos(angle), cy + boltCircle / 2 * math.sin(angle) }
  circle(holes[bolt][1], holes[bolt][2], hole)
end

-- The tool path ----------------------------------------------------------------------------------

local function select(x, y)
  tool("miSelect")
  click(x, y)
  key("Esc")
end

-- After a tool change the machine goes down to the depth of the first row at rapid speed; a rapid
-- at the retract height as the first row makes that harmless.
local function change(number, x, y)
  store.selectedtool = number - 1
  add_path { type = 0, x0 = x, y0 = y, x1 = x, y1 = y, z = retract,
    code = 100 * call.nextPathGroup() + number - 1 }
end

-- A cycle at every selected circle, from the template that begins with this G number.
local function cycles(number, template, depth, peck, feed)
  store.selectedtool = number - 1
  on_form("dlgSelectCycle", function(dialog)
    for index = 0, dialog.List1.count - 1 do
      if store.cycletext[index]:sub(1, 3) == template then dialog.List1.index = index end
    end
    dialog.txtcyclefinaldepth:change(depth)
    dialog.txtcyclefinaldepth:leave()
    dialog.txtcycleincrdepth:change(peck)
    dialog.txtcycleincrdepth:leave()
    dialog.txtcyclefeedrate:change(feed)
    dialog.txtcyclefeedrate:leave()
    dialog.chkSelectedCircles.value = 1
    dialog.cmdAccept:click()
  end)
  tool("miAddMachineCycle")
end

for _, at in ipairs(holes) do select(at[1] + hole / 2, at[2]) end
cycles(spotDrill, "G81", 0.11, 0, 8)
cycles(drill, "G83", through + 0.3 * hole, 0.1, 12)
tool("miUnselectAll")

-- The bore: cleared line by line, then its wall.
local function finish(passes, x, y, toX, toY, refX, refY)
  on_form("frmFinishPath", function(dialog)
    dialog.txtNumPasses.text = passes
    dialog.cmdOK:click()
  end)
  tool("miPlaceFinishPath")
  click(x, y)       -- where to start
  click(toX, toY)   -- which way
  click(refX, refY) -- on which side
end

change(endMill, cx, cy)
select(cx - bore / 2, cy)
tool("miVerify/AcceptPocket")
setting["pocketing style"] = 1
tool("miRoughCutPocket")
setting["lead in path"], setting["lead in arc"] = false, true
setting["lead in length"], setting["lead in angle"] = 0.2, 60
finish(1, cx + bore / 2, cy, cx, cy - bore / 2, cx, cy)
tool("miUnselectAll")

-- The outside, in two passes round the part.
finish(2, cx + outside / 2, cy, cx, cy - outside / 2, cx + outside, cy)

-- Up and away, so that the part can be taken off.
add_path { type = 0, x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = retract,
  code = store.pscode[store.NumPathSegments] }

tool("miZoomExtents")
save(here .. "flange.cdm")
make_cnc("mill", here .. "flange.CNC")
plot(here .. "flange.png", 900, 720)
print(store.NumSegments .. " segments, " .. store.NumPathSegments .. " path rows")
