-- The main job, from a file that another program drew to the program of the machine: a cover plate of
-- 3/8 inch with a pocket round two islands and four holes. Reads plate.dxf beside this script; writes
-- the drawing plate.cdm, the program plate.CNC and the picture plate.png there, and says what it made:
--
--     ./run --run examples/plate.lua

local here = arg[0]:match("^(.*[/\\])") or "./"
local margin, thickness, retract = 0.75, 0.375, 0.5

-- Tools by their numbers in the setup mill_inch.
local spotDrill, drill, pocketMill, outlineMill = 1, 13, 4, 6

setting["drawing title"] = "Cover plate"
setting["designer name"] = "plate.lua"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"], setting["part dim y"] = 5 + 2 * margin, 3.5 + 2 * margin
setting["part dim z"], setting["z start pos"] = thickness, retract
store.cursorgridf = 0 -- clicks count as they are

-- The drawing lies at zero in the file; on the machine it lies inside the stock.
print(import_dxf(here .. "plate.dxf") .. " rows imported")
for row = 1, store.NumSegments do
  for _, x in ipairs { "x0", "x1", "centerx" } do store[x][row] = store[x][row] + margin end
  for _, y in ipairs { "y0", "y1", "centery" } do store[y][row] = store[y][row] + margin end
end
call.roundall()
view { 0, 0, setting["part dim x"], setting["part dim y"] }

-- Places on the part, as the DXF file counts them.
local function at(x, y) return { x + margin, y + margin } end
local outline, pocket = at(2.5, 0), at(2.5, 0.75)
local islands = { at(1.875, 1.375), at(3.25, 1.375) }
local holes = { at(0.375, 0.375), at(4.625, 0.375), at(4.625, 3.125), at(0.375, 3.125) }

local function select(tool_, places)
  tool(tool_)
  for _, place in ipairs(places) do click(place[1], place[2]) end
  key("Esc")
end

-- After a tool change the machine goes down to the depth of the first row at rapid speed; a rapid
-- at the retract height as the first row makes that harmless.
local function change(number, place)
  store.selectedtool = number - 1
  add_path { type = 0, x0 = place[1], y0 = place[2], x1 = place[1], y1 = place[2], z = retract,
    code = 100 * call.nextPathGroup() + number - 1 }
end

local function cycles(number, template, depth, peck, feed)
  store.selectedtool = number - 1
  on_form("dlgSelectCycle", function(dialog)
    for index = 0, dialog.List1.count - 1 do
      if store.cycletext[index]:sub(1, 3) == template then dialog.List1.index = index end
    end
    for field, value in pairs { txtcyclefinaldepth = depth, txtcycleincrdepth = peck,
      txtcyclefeedrate = feed } do
      dialog[field]:change(value)
      dialog[field]:leave()
    end
    dialog.chkSelectedCircles.value = 1
    dialog.cmdAccept:click()
  end)
  tool("miAddMachineCycle")
end

local function finish(start, way, side)
  on_form("frmFinishPath", function(dialog)
    dialog.txtNumPasses.text = 1
    dialog.cmdOK:click()
  end)
  tool("miPlaceFinishPath")
  click(table.unpack(start))
  click(table.unpack(way))
  click(table.unpack(side))
end

-- Holes ------------------------------------------------------------------------------------------

local radius = store.toolradius[drill - 1]
local edges = {}
for hole, place in ipairs(holes) do edges[hole] = { place[1] + radius, place[2] } end
select("miSelect", edges)
cycles(spotDrill, "G81", 0.11, 0, 8)
cycles(drill, "G83", thickness + 0.07, 0.1, 12)
tool("miUnselectAll")

-- The pocket round its islands -------------------------------------------------------------------

setting["start depth"], setting["final depth"], setting["z cut per pass"] = 0, 0.2, 0.05
setting["minimum z finish"], setting["minimum roughing clearance"] = 0.005, 0.01
setting["roughing feedrate"], setting["finishing feedrate"] = 10, 8
setting["pocketing style"], setting["tool spacing"] = 1, 55
setting["lead in path"], setting["lead in arc"] = false, false
select("miSelectContiguous", { pocket })
tool("miVerify/AcceptPocket")
for _, island in ipairs(islands) do
  select("miSelectContiguous", { island })
  tool("miVerify/AcceptIsland")
end
change(pocketMill, pocket)
tool("miRoughCutPocket")
tool("miUnselectAll")
finish(at(1.125, 0.75), pocket, at(2.5, 1))
finish(at(1.625, 1.375), islands[1], at(1.875, 1.25))
finish(at(3.625, 1.75), islands[2], at(3.25, 1.2))

-- The outline, cut free --------------------------------------------------------------------------

setting["final depth"], setting["z cut per pass"] = thickness + 0.01, 0.08
setting["minimum z finish"] = 0
setting["roughing feedrate"], setting["finishing feedrate"] = 14, 11
setting["lead in arc"], setting["lead in length"], setting["lead in angle"] = true, 0.25, 45
change(outlineMill, at(2.5, -0.5))
finish(at(0.25, 0), outline, at(2.5, -0.5))
add_path { type = 0, x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = retract,
  code = store.pscode[store.NumPathSegments] }

tool("miZoomExtents")
save(here .. "plate.cdm")
make_cnc("mill", here .. "plate.CNC")
plot(here .. "plate.png", 900, 640)
for _, message in ipairs(messages) do
  if message.kind == "message" then print(message.text) end
end
print(report().text)
print("written: " .. here .. "plate.CNC")
