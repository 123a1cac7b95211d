-- A strap clamp of 3/8 inch plate: a stepped slot cleared with a 3/16 end mill, the outline and two
-- chamfered corners cut round with a 3/8 end mill. Four tabs hold the clamp in the plate until they
-- are sawn through. Two tools, one program. Writes the drawing clamp.cdm, the program clamp.CNC and
-- the picture clamp.png beside itself:
--
--     ./run --run examples/clamp.lua
--     ./run --run examples/clamp.lua LENGTH WIDTH SLOT       (inches; SLOT is the slot's width)

local here = arg[0]:match("^(.*[/\\])") or "./"
local length, width = tonumber(arg[1] or 4), tonumber(arg[2] or 1.5)
local slot = tonumber(arg[3] or 0.4375)

local plate, margin, retract = 0.375, 0.75, 0.5
local through = plate + 0.01
local chamfer = width / 4

-- Tools by their numbers in the setup mill_inch.
local slotMill, outlineMill = 5, 6
assert(slot > 2 * store.toolradius[slotMill - 1] + 0.05, "the slot mill does not fit the slot")
assert(length > 6 * slot and width > 2.5 * slot, "the clamp is too small for its slot")

setting["drawing title"] = "Strap clamp"
setting["designer name"] = "clamp.lua"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"], setting["part dim y"] = length + 2 * margin, width + 2 * margin
setting["part dim z"] = plate
setting["z start pos"] = retract
setting["final depth"] = through
setting["lead in path"], setting["lead in arc"] = false, true
setting["lead in length"], setting["lead in angle"] = 0.25, 45
store.cursorgridf = 0 -- clicks count as they are
view { 0, 0, setting["part dim x"], setting["part dim y"] }

-- The drawing ------------------------------------------------------------------------------------

local left, right = margin, margin + length
local bottom, top = margin, margin + width
local middle = (bottom + top) / 2

-- Lines go on from where the last one ended.
local function outline(...)
  local corners = { ... }
  key("L")
  rightclick(table.unpack(corners[1]))
  for corner = 2, #corners do click(table.unpack(corners[corner])) end
  click(table.unpack(corners[1]))
  key("Esc")
end


outline({ left, bottom }, { right - chamfer, bottom }, { right, bottom + chamfer },
  { right, top - chamfer }, { right - chamfer, top }, { left, top })

local slotLeft, slotRight = left + length * 0.3, left + length * 0.7
local lower, upper = middle - slot / 2, middle + slot / 2
add_segment { type = 1, x0 = slotLeft, y0 = lower, x1 = slotRight, y1 = lower }
add_segment { type = 3, x0 = slotRight, y0 = lower, x1 = slotRight, y1 = upper,
  xc = slotRight, yc = middle }
add_segment { type = 1, x0 = slotRight, y0 = upper, x1 = slotLeft, y1 = upper }
add_segment { type = 3, x0 = slotLeft, y0 = upper, x1 = slotLeft, y1 = lower,
  xc = slotLeft, yc = middle }

-- The tool path ----------------------------------------------------------------------------------

-- After a tool change the machine goes down to the depth of the first row at rapid speed; a rapid
-- at the retract height as the first row makes that harmless.
local function change(number, x, y)
  store.selectedtool = number - 1
  add_path { type = 0, x0 = x, y0 = y, x1 = x, y1 = y, z = retract,
    code = 100 * call.nextPathGroup() + number - 1 }
end

local function finish(passes, start, way, side)
  on_form("frmFinishPath", function(dialog)
    dialog.txtNumPasses.text = passes
    dialog.cmdOK:click()
  end)
  tool("miPlaceFinishPath")
  click(table.unpack(start))
  click(table.unpack(way))
  click(table.unpack(side))
end

change(slotMill, slotLeft, middle)
setting["z cut per pass"], setting["minimum z finish"] = 0.05, 0.005
setting["roughing feedrate"], setting["finishing feedrate"] = 10, 8
setting["pocketing style"], setting["minimum roughing clearance"] = 1, 0.01
tool("miSelectContiguous")
click((slotLeft + slotRight) / 2, lower)
key("Esc")
tool("miVerify/AcceptPocket")
tool("miRoughCutPocket")
setting["lead in arc"] = false -- no room for leads in the slot
finish(1, { slotLeft, lower }, { slotRight, lower }, { slotRight, middle })
tool("miUnselectAll")

change(outlineMill, left - margin / 2, middle)
setting["lead in arc"] = true
setting["z cut per pass"] = 0.08
setting["roughing feedrate"], setting["finishing feedrate"] = 14, 11
setting["holding tabs"] = true
on_form("frmHoldingTabs", function(dialog)
  dialog.txtTabNumber.text, dialog.txtTabWidth.text, dialog.txtTabHeight.text = 4, 0.15, 0.08
  dialog.cmdOK:click()
end)
finish(2, { left, top }, { left, middle }, { left - 1, middle })

-- Up and away, so that the part can be taken off.
add_path { type = 0, x0 = 0, y0 = 0, x1 = 0, y1 = 0, z = retract,
  code = store.pscode[store.NumPathSegments] }

tool("miZoomExtents")
save(here .. "clamp.cdm")
make_cnc("mill", here .. "clamp.CNC")
plot(here .. "clamp.png", 1000, 600)
print(store.NumSegments .. " segments, " .. store.NumPathSegments .. " path rows")
