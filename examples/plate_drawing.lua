-- A drawing made as an operator makes it: tools, clicks and typed positions. Writes plate.cdm and
-- plate.png into the drawing folder.
--
--   ./run --run examples/plate_drawing.lua [WIDTH [HEIGHT]]
--
-- A base plate with a large bore in its middle and a hole in each corner, in inches.

local width, height = tonumber(arg[1] or 5), tonumber(arg[2] or 3)
local margin, bore, hole = 0.5, 0.75, 0.125 -- corner to hole, and two radii
assert(width and height, "the sizes of the plate are numbers")
assert(width > 4 * margin and height > 2 * (bore + hole), "the plate is too small for its holes")

-- A new drawing starts with the setup's stock and grids; the cursor grid would pull the clicks to
-- its points.
tool("miNew")
setting["cursor grid f"] = 0
setting["part dim x"], setting["part dim y"] = width, height
setting["drawing title"] = "base plate"

-- The marker is the first point of every command; a right click puts it down.
tool("miRectangle")
rightclick(0, 0)
click(width, height)

tool("miCircleC+1P")
local function circle(x, y, radius)
  rightclick(x, y)
  click(x + radius, y)
end
circle(width / 2, height / 2, bore)
for _, x in ipairs { margin, width - margin } do
  for _, y in ipairs { margin, height - margin } do
    circle(x, y, hole)
  end
end

key("Esc")
tool("miZoomExtents")
save("plate.cdm")
plot("plate.png", 1000, 640)
print(store.drawingpath .. store.drawingname .. ": " .. store.NumSegments .. " rows")
