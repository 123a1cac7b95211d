-- A part drawn by tools, keys and the pointer: undo, redo, window, snap, save and open.
-- out: rectangle 4, circle 5, arc 6, line 7
-- out: undone 6, redone 7
-- out: selected 1 5
-- out: title Drawing:SESSION.CDM
-- out: rows as they were drawn: true
-- out: snapped 0 0
local function rows()
  local lines = {}
  for s in segments() do
    lines[#lines + 1] = string.format("%d %g %g %g %g %g %g", s.type, s.x0, s.y0, s.x1, s.y1, s.xc,
                                      s.yc)
  end
  return table.concat(lines, "\n")
end

local counts = {}
local function count(name) counts[#counts + 1] = name .. " " .. store.NumSegments end

-- A rectangle to a typed position, accepted by Enter.
on_form("dlgPositionCursor", function(form)
  form.txtx:change("4")
  form.txty:change("3")
  form.cmdAccept:click()
end)
rightclick(0, 0)
key("R")
key("E")
key("Enter")
count("rectangle")

tool("miCircleC+1P")
rightclick(2, 1.5)
click(2.5, 1.5)
count("circle")

tool("miArc3P")
rightclick(1, 1)
click(2, 2)
click(1.5, 1.875)
count("arc")

key("L")
rightclick(3, 0.5)
click(3.5, 1)
count("line")
print(table.concat(counts, ", "))

tool("miUndo")
local undone = store.NumSegments
tool("miRedo")
print("undone " .. undone .. ", redone " .. store.NumSegments)
assert(not tool_state("miRedo").enabled and tool_state("miUndo").enabled)

-- Of the window's rows only the circle lies in it as a whole.
tool("miSelect")
drag(1.25, 0.75, 2.75, 2.25, 1)
local selected = {}
for row = 1, store.NumSegments do
  if store.segattr[row] ~= 8 then selected[#selected + 1] = row end
end
print("selected " .. #selected .. " " .. selected[1])
tool("miUnselectAll")

local drawn = rows()
save("session")
on_message(function() return "No" end)
tool("miNew")
assert(store.NumSegments == 0 and state.panel[1] == "Drawing:<Untitled>")
open("session.cdm")
print("title " .. state.panel[1])
assert(state.zoomfactor == 1 and #messages >= 1)
print("rows as they were drawn: " .. tostring(rows() == drawn))

-- A click near the corner takes the corner itself.
tool("OSnap")
key("Esc")
key("L")
rightclick(1, 0.5)
click(0.05, 0.04)
print(string.format("snapped %g %g", state.MouseX, state.MouseY))
