-- A mounting plate, drawn with the tools and the pointer as an operator draws it: a rectangle, a
-- bore in the middle and four screw holes, on the cursor grid. Saves the drawing and a picture of
-- it beside this script.
--
--     ./run --run examples/plate_drawing.lua [WIDTH HEIGHT]
local folder = arg[0]:match("^.*/") or "./"
local width, height = tonumber(arg[1] or 4), tonumber(arg[2] or 3)
local edge, bore, screw = 0.5, 0.75, 0.125

setting["drawing title"] = "Mounting plate"
setting["part dim x"], setting["part dim y"] = width, height
tool("miFullView")

-- From the marker, which the right button puts down, to the click.
local function circle(x, y, radius)
  tool("miCircleC+1P")
  rightclick(x, y)
  click(x + radius, y)
end

-- A position that is typed lands exactly, whatever the grid is.
local function typePosition(x, y)
  on_form("dlgPositionCursor", function(form)
    form.txtx:change(x)
    form.txty:change(y)
    form.cmdAccept:click()
  end)
  tool("miEnterPosition")
end

rightclick(0, 0)
tool("miRectangle")
typePosition(width, height)
key("Enter")

circle(width / 2, height / 2, bore)
for _, x in ipairs { edge, width - edge } do
  for _, y in ipairs { edge, height - edge } do circle(x, y, screw) end
end

rightclick(0, 0)
tool("miZoomExtents")
save(folder .. "plate.cdm")
plot(folder .. "plate.png", 800, 600)
print(store.NumSegments .. " segments, " .. state.changecount .. " records to undo")
