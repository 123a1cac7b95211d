-- A drawing made as by hand: tools, keys and clicks where an operator would use them.
-- A plate with two holes and a slot. plate_drawing.cdm and plate_drawing.png, a picture of it, land
-- beside this script.
local here = arg[0]:match("^(.*[/\\])") or "./"

-- A right click places the marker, from which the next entity starts.
local function from(x, y) rightclick(x, y) end

tool("miNew")
setting["part dim x"], setting["part dim y"] = 6, 4
view { -1, -1, 7, 5 }

key("R")                    -- rectangle: two corners
from(0, 0)
click(6, 4)

for _, x in ipairs { 1.5, 4.5 } do
  tool("miCircleC+1P")      -- circle: centre and a point on it
  from(x, 1)
  click(x + 0.5, 1)
end

key("L")                    -- lines go on from where the last one ended
from(1, 3)
click(5, 3)
click(5, 3.5)
click(1, 3.5)
click(1, 3)
key("Esc")

tool("miZoomExtents")
save(here .. "plate_drawing.cdm")
plot(here .. "plate_drawing.png", 800, 640)
print(store.NumSegments .. " segments; " .. table.concat({ extents() }, " "))
