-- An engraved name plate: letters of lines and arcs cut on their outlines with an engraver, 0.01
-- inch deep, and a border cut round with a 1/4 end mill. Writes the drawing name_plate.cdm, the
-- program name_plate.CNC and the picture name_plate.png beside itself:
--
--     ./run --run examples/name_plate.lua
--     ./run --run examples/name_plate.lua TEXT       (letters A C E I L M O S T and blanks)

local here = arg[0]:match("^(.*[/\\])") or "./"
local text = (arg[1] or "TESSIMO MILL"):upper()

local height, gap, margin, retract = 0.5, 0.15, 0.5, 0.25
local engraver, endMill = 20, 2 -- by their numbers in the setup mill_inch

-- The letters in a square of one unit: strokes of points, or arcs {x0, y0, x1, y1, xc, yc, kind}
-- with kind 2 clockwise and 3 counter-clockwise.
local letters = {
  A = { width = 0.8, strokes = { { 0, 0, 0.4, 1, 0.8, 0 }, { 0.16, 0.4, 0.64, 0.4 } } },
  C = { width = 0.75, arcs = { { 0.75, 0.85, 0.75, 0.15, 0.5, 0.5, 3 } } },
  E = { width = 0.6, strokes = { { 0.6, 0, 0, 0, 0, 1, 0.6, 1 }, { 0, 0.5, 0.5, 0.5 } } },
  I = { width = 0.2, strokes = { { 0.1, 0, 0.1, 1 } } },
  L = { width = 0.6, strokes = { { 0, 1, 0, 0, 0.6, 0 } } },
  M = { width = 0.9, strokes = { { 0, 0, 0, 1, 0.45, 0.3, 0.9, 1, 0.9, 0 } } },
  O = { width = 1, arcs = { { 1, 0.5, 1, 0.5, 0.5, 0.5, 2 } } },
  S = { width = 0.5, arcs = { { 0.5, 0.75, 0.25, 0.5, 0.25, 0.75, 3 },
    { 0.25, 0.5, 0, 0.25, 0.25, 0.25, 2 } } },
  T = { width = 0.7, strokes = { { 0, 1, 0.7, 1 }, { 0.35, 1, 0.35, 0 } } },
  [" "] = { width = 0.4 },
}

local function letterAt(x, y, letter)
  for _, points in ipairs(letter.strokes or {}) do
    for at = 1, #points - 3, 2 do
      add_segment { type = 1, x0 = x + height * points[at], y0 = y + height * points[at + 1],
        x1 = x + height * points[at + 2], y1 = y + height * points[at + 3] }
    end
  end
  for _, arc in ipairs(letter.arcs or {}) do
    add_segment { type = arc[7], x0 = x + height * arc[1], y0 = y + height * arc[2],
      x1 = x + height * arc[3], y1 = y + height * arc[4],
      xc = x + height * arc[5], yc = y + height * arc[6] }
  end
end

local function widthOf(words)
  local width = -gap
  for letter in words:gmatch(".") do
    assert(letters[letter], "there is no letter '" .. letter .. "'")
    width = width + height * letters[letter].width + gap
  end
  return width
end

local left, bottom = margin, margin
local right, top = left + widthOf(text) + 2 * margin, bottom + height + 2 * margin

setting["drawing title"] = "Name plate"
setting["designer name"] = "name_plate.lua"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"], setting["part dim y"], setting["part dim z"] = right + margin, top + margin, 0.125
setting["z start pos"] = retract
store.cursorgridf = 0 -- clicks count as they are
view { 0, 0, setting["part dim x"], setting["part dim y"] }

local x = left + margin
for letter in text:gmatch(".") do
  letterAt(x, bottom + margin, letters[letter])
  x = x + height * letters[letter].width + gap
end
local letterRows = store.NumSegments
tool("miRectangle")
rightclick(left, bottom)
click(right, top)
key("Esc")

-- The tool path: a rapid row first for each tool, since after a tool change the machine would go
-- down at rapid speed.
local function change(number)
  store.selectedtool = number - 1
  add_path { type = 0, x0 = left, y0 = 0, x1 = left, y1 = 0, z = retract,
    code = 100 * call.nextPathGroup() + number - 1 }
end

-- On the letters themselves, one level deep.
change(engraver)
setting["start depth"], setting["final depth"] = 0.01, 0.01
setting["minimum z finish"], setting["finishing feedrate"] = 0.005, 6
setting["connect pocketing paths"] = false
tool("miSelect")
drag(left + margin / 2, bottom + margin / 2, right - margin / 2, top - margin / 2)
key("Esc")
tool("miQuickPlace")
tool("miUnselectAll")

-- Round the border, in levels.
change(endMill)
setting["start depth"], setting["final depth"], setting["minimum z finish"] = 0, 0.13, 0
setting["z cut per pass"] = 0.045
setting["roughing feedrate"], setting["finishing feedrate"] = 12, 12
setting["lead in path"], setting["lead in arc"] = false, true
setting["lead in length"], setting["lead in angle"] = 0.2, 60
on_form("frmFinishPath", function(dialog)
  dialog.txtNumPasses.text = 1
  dialog.cmdOK:click()
end)
tool("miPlaceFinishPath")
click(left, bottom)
click(left, top)
click(left - 1, (bottom + top) / 2)

-- Up and away, so that the plate can be taken off.
add_path { type = 0, x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = retract,
  code = store.pscode[store.NumPathSegments] }

tool("miZoomExtents")
save(here .. "name_plate.cdm")
make_cnc("mill", here .. "name_plate.CNC")
plot(here .. "name_plate.png", 900, 420)
print(store.NumSegments .. " segments, " .. store.NumPathSegments .. " path rows")
