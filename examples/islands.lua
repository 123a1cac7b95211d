-- A pocket with three islands, cleared in each of the three styles by a 1/2 end mill; a 1/8 end mill
-- takes what that has left between two of the islands, and finishes along every wall.
-- Writes for each style the drawing islands_STYLE.cdm, the program islands_STYLE.CNC and the
-- picture islands_STYLE.png beside itself:
--
--     ./run --run examples/islands.lua
--     ./run --run examples/islands.lua vertical     (one style alone)
--
-- The rings of the spiral go round the islands until they meet, and leave nothing between them.

local here = arg[0]:match("^(.*[/\\])") or "./"
local only = arg[1]

local styles = { { "horizontal", 1 }, { "vertical", 2 }, { "spiral", 3 } }
local roughMill, endMill = 7, 4 -- 1/2 and 1/8 inch, in the setup mill_inch
local retract = 0.25

local function select(...)
  tool("miSelect")
  for _, at in ipairs { ... } do click(at[1], at[2]) end
  key("Esc")
end

-- A corner of `radius` turning left from the direction (dx, dy): the outlines run
-- counter-clockwise, line by line and arc by arc.
local function roundedRectangle(x0, y0, x1, y1, radius)
  local function line(ax, ay, bx, by) add_segment { type = 1, x0 = ax, y0 = ay, x1 = bx, y1 = by } end
  local function arc(ax, ay, bx, by, xc, yc)
    add_segment { type = 3, x0 = ax, y0 = ay, x1 = bx, y1 = by, xc = xc, yc = yc }
  end
  line(x0 + radius, y0, x1 - radius, y0)
  arc(x1 - radius, y0, x1, y0 + radius, x1 - radius, y0 + radius)
  line(x1, y0 + radius, x1, y1 - radius)
  arc(x1, y1 - radius, x1 - radius, y1, x1 - radius, y1 - radius)
  line(x1 - radius, y1, x0 + radius, y1)
  arc(x0 + radius, y1, x0, y1 - radius, x0 + radius, y1 - radius)
  line(x0, y1 - radius, x0, y0 + radius)
  arc(x0, y0 + radius, x0 + radius, y0, x0 + radius, y0 + radius)
end

-- Each outline with a place on its lowest line, where it is picked, and one on its free side.
local function draw()
  roundedRectangle(0.5, 0.5, 5.5, 3.5, 0.375) -- the pocket
  roundedRectangle(1.25, 1.5, 2.25, 2.5, 0.125)
  add_segment { type = 1, x0 = 3.75, y0 = 1.25, x1 = 4.75, y1 = 1.25 } -- a triangle
  add_segment { type = 1, x0 = 4.75, y0 = 1.25, x1 = 4.25, y1 = 2 }
  add_segment { type = 1, x0 = 4.25, y0 = 2, x1 = 3.75, y1 = 1.25 }
  add_segment { type = 2, x0 = 3.375, y0 = 2.5, x1 = 3.375, y1 = 2.5, xc = 3, yc = 2.5 } -- a disc
end

local walls = {
  { start = { 0.875, 0.5 }, way = { 3, 0.5 }, free = { 3, 1 } },
  { start = { 1.375, 1.5 }, way = { 1.75, 1.5 }, free = { 1.75, 1.25 } },
  { start = { 3.75, 1.25 }, way = { 4.25, 1.25 }, free = { 4.25, 1 } },
  { start = { 3.375, 2.5 }, way = { 3, 2.125 }, free = { 3, 1.875 } },
}

local function finish(wall)
  on_form("frmFinishPath", function(dialog)
    dialog.txtNumPasses.text = 1
    dialog.cmdOK:click()
  end)
  tool("miPlaceFinishPath")
  click(table.unpack(wall.start))
  click(table.unpack(wall.way))
  click(table.unpack(wall.free))
end

-- A rapid row first: after a tool change the machine would go down at rapid speed.
local function change(number)
  store.selectedtool = number - 1
  add_path { type = 0, x0 = 3, y0 = 0, x1 = 3, y1 = 0, z = retract,
    code = 100 * call.nextPathGroup() + number - 1 }
end

local function job(style, number)
  tool("miNew")
  store.cursorgridf = 0
  setting["drawing title"] = "Pocket with three islands - " .. style
  setting["designer name"] = "islands.lua"
  setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
  setting["part dim x"], setting["part dim y"], setting["part dim z"] = 6, 4, 0.5
  setting["z start pos"] = retract
  setting["final depth"], setting["z cut per pass"] = 0.25, 0.08
  setting["minimum z finish"] = 0.01
  setting["lead in path"], setting["lead in arc"] = false, false
  setting["pocketing style"] = number
  setting["tool spacing"] = 60
  view { 0, 0, 6, 4 }
  draw()

  tool("miSelectContiguous")
  click(3, 0.5)
  key("Esc")
  tool("miVerify/AcceptPocket")
  for island = 2, #walls do
    tool("miSelectContiguous")
    click(table.unpack(walls[island].way))
    key("Esc")
    tool("miVerify/AcceptIsland")
  end

  change(roughMill)
  tool("miRoughCutPocket")
  if number == 3 then click(3, 0.5) end -- the spiral asks where to start
  change(endMill)
  tool("miRoughWhatIsLeft")
  for _, wall in ipairs(walls) do finish(wall) end
  add_path { type = 0, x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = retract,
    code = store.pscode[store.NumPathSegments] }

  local name = here .. "islands_" .. style
  tool("miZoomExtents")
  save(name .. ".cdm")
  make_cnc("mill", name .. ".CNC")
  plot(name .. ".png", 900, 640)
  print(style .. ": " .. store.NumPathSegments .. " path rows")
end

for _, style in ipairs(styles) do
  if not only or only == style[1] then job(style[1], style[2]) end
end
