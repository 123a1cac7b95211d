-- A name plate with text from fonts: the upper line in single strokes, engraved with one pass of the
-- tool along them; the letters below in a bold outline font, cleared as pockets whose inner contours
-- are islands, and finished along every wall. Writes the drawing text_plate.cdm, the program
-- text_plate.CNC and the picture text_plate.png beside itself:
--
--     ./run --run examples/text_plate.lua
--     ./run --run examples/text_plate.lua TEXT BIG   (other words)

local here = arg[0]:match("^(.*[/\\])") or "./"
local words, big = arg[1] or "TESSIMO MILL", arg[2] or "CAD"

local engraver, endMill = 20, 4 -- by their numbers in the setup mill_inch; the end mill has 1/8 inch
local retract = 0.25

setting["drawing title"] = "Plate with text from fonts"
setting["designer name"] = "text_plate.lua"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"], setting["part dim y"], setting["part dim z"] = 6, 4, 0.25
setting["z start pos"] = retract
store.cursorgridf = 0 -- clicks count as they are
view { 0, 0, 6, 4 }

-- Places a text with the panel and gives the rows that came of it, first and last.
tool("miText")
local panel = form("frmText")
local function place(text, options, x, y)
  local first = store.NumSegments + 1
  panel.txtText.text = ""
  for name, value in pairs(options) do panel[name][name:match("^chk") and "value" or "text"] = value end
  panel.txtText.text = text
  panel.cmdPlaceText:click()
  wait(100)
  move(0, x, y)
  click(x, y)
  return first, store.NumSegments
end

local firstStroke, lastStroke = place(words, { cboFont = "Hershey Roman Simplex", cboFontSize = "48",
  cboResolution = "0.005" }, 0.6, 3)
local firstLetter = place(big, { cboFont = "DejaVu Sans", cboStyle = "Bold", cboFontSize = "144",
  chkUnite = 1 }, 0.6, 0.75)

-- The contours of the letters: rows that run head to tail, the inside to their left. One that runs
-- counter-clockwise is the wall of a pocket, one that runs clockwise that of an island.
local function contours()
  local all, sg = {}, firstLetter
  while sg <= store.NumSegments do
    local contour, area = { first = sg, left = math.huge, right = -math.huge }, 0
    repeat
      area = area + store.x0[sg] * store.y1[sg] - store.x1[sg] * store.y0[sg]
      contour.left = math.min(contour.left, store.x0[sg])
      contour.right = math.max(contour.right, store.x0[sg])
      contour.last = sg
      sg = sg + 1
    until store.x1[sg - 1] == store.x0[contour.first] and store.y1[sg - 1] == store.y0[contour.first]
    contour.island = area < 0
    all[#all + 1] = contour
  end
  return all
end

-- The longest line of a contour, where it is picked: its start, its middle, and a place on the free
-- side of it.
local function wallOf(contour)
  local longest, length = 0, 0
  for sg = contour.first, contour.last do
    local l = math.sqrt((store.x1[sg] - store.x0[sg]) ^ 2 + (store.y1[sg] - store.y0[sg]) ^ 2)
    if l > length then longest, length = sg, l end
  end
  local x0, y0, x1, y1 = store.x0[longest], store.y0[longest], store.x1[longest], store.y1[longest]
  local x, y = (x0 + x1) / 2, (y0 + y1) / 2
  return { start = { x0, y0 }, way = { x, y },
    free = { x - (y1 - y0) / length * 0.05, y + (x1 - x0) / length * 0.05 } }
end

local function change(number)
  store.selectedtool = number - 1
  -- A rapid row first: after a tool change the machine would go down at rapid speed.
  add_path { type = 0, x0 = 0.5, y0 = 0, x1 = 0.5, y1 = 0, z = retract,
    code = 100 * call.nextPathGroup() + number - 1 }
end

-- The strokes, one level deep.
change(engraver)
setting["start depth"], setting["final depth"] = 0.01, 0.01
setting["minimum z finish"], setting["finishing feedrate"] = 0.005, 6
setting["connect pocketing paths"] = false
tool("miSelect")
drag(0.3, 2.8, 5.9, 3.9)
key("Esc")
tool("miQuickPlace")
tool("miUnselectAll")

-- The letters.
change(endMill)
setting["start depth"], setting["final depth"], setting["minimum z finish"] = 0, 0.1, 0.01
setting["z cut per pass"], setting["pocketing style"] = 0.05, 1
setting["roughing feedrate"], setting["finishing feedrate"] = 12, 12
setting["lead in path"], setting["lead in arc"] = false, false
local walls = contours()
local function accept(wall, tool_name)
  tool("miSelectContiguous")
  click(table.unpack(wallOf(wall).way))
  key("Esc")
  tool(tool_name)
end
-- One pocket after the other, each with the islands that lie within it.
for _, pocket in ipairs(walls) do
  if not pocket.island then
    accept(pocket, "miVerify/AcceptPocket")
    for _, island in ipairs(walls) do
      if island.island and island.left > pocket.left and island.right < pocket.right then
        accept(island, "miVerify/AcceptIsland")
      end
    end
    tool("miRoughCutPocket")
    tool("miUnselectAll")
  end
end
for _, wall in ipairs(walls) do
  on_form("frmFinishPath", function(dialog)
    dialog.txtNumPasses.text = 1
    dialog.cmdOK:click()
  end)
  local at = wallOf(wall)
  tool("miPlaceFinishPath")
  click(table.unpack(at.start))
  click(table.unpack(at.way))
  click(table.unpack(at.free))
end

-- Up and away, so that the plate can be taken off.
add_path { type = 0, x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = retract,
  code = store.pscode[store.NumPathSegments] }

tool("miZoomExtents")
save(here .. "text_plate.cdm")
make_cnc("mill", here .. "text_plate.CNC")
plot(here .. "text_plate.png", 900, 620)
print(lastStroke - firstStroke + 1 .. " strokes, " .. #walls .. " contours, " ..
  store.NumPathSegments .. " path rows")
