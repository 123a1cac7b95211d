-- The tools of the edit menu: on drawing rows, and on path rows by "Edit Tool Paths".
local shop = ...

-- A level line from (0, 1) to (4, 1) and a wall across it at x 1, as rows 1 and 2.
local function cross()
  shop.chain { { 0, 1 }, { 4, 1 } }
  shop.chain { { 1, 0 }, { 1, 3 } }
end

-- A corner at the origin, rows 1 and 2, and a level line over it.
local function corner()
  shop.chain { { 4, 0 }, { 0, 0 }, { 0, 3 } }
  shop.chain { { 1, 3 }, { 4, 3 } }
end

-- A half circle of radius 1.5 on a base line.
local function dome()
  shop.chain { { 0, 0 }, { 4, 0 } }
  shop.chain { { 3.5, 1 }, { 0.5, 1, ccw = { 2, 1 } } }
end

-- A shallow arc, less than half a circle, over the same line.
local function cap()
  shop.chain { { 0, 0 }, { 4, 0 } }
  shop.chain { { 3.5, 1 }, { 0.5, 1, ccw = { 2, 0 } } }
end

-- The tool's clicks, one after the other.
local function clicks(name, ...)
  tool(name)
  for _, at in ipairs { ... } do click(table.unpack(at)) end
end

local function radius(value)
  on_form("dlgEditRadius", function(dialog)
    dialog.txtradius.text = tostring(value)
    dialog.cmdAccept:click()
  end)
end

local secondTool = { number = 2, radius = 0.25 }

-- Path rows where the drawing has its rows, of tool 2 and two groups, and the tools work on them.
local function onPaths(work)
  return function()
    for row = 1, store.NumSegments do
      add_path {
        type = store.segtype[row], x0 = store.x0[row], y0 = store.y0[row], x1 = store.x1[row],
        y1 = store.y1[row], xc = store.centerx[row], yc = store.centery[row], z = -0.125 * row,
        feed = 4 + row, code = 100 * row + 1,
      }
    end
    if not tool_state("miShowToolPaths").checked then tool("miShowToolPaths") end
    tool("miEditSegsOrPaths")
    work()
    tool("miEditSegsOrPaths")
  end
end

local function trimRight() clicks("miTrimEntity", { 3, 1 }, { 1, 2.5 }) end
local function breakLine() clicks("miBreakSegment", { 2.5, 1.25 }) end
local function moveCorner()
  tool("miMoveEndpoints")
  drag(0, 0, 1, 0.75)
end
local function roundCorner()
  radius(0.75)
  clicks("miAddFillet", { 2, 0 }, { 0, 2 })
end
local function removeCorner() clicks("miDeleteVertex", { 0.25, 0.25 }) end
local function joinCorners() clicks("miJoinEndpoints", { 0, 3 }, { 1, 3 }) end
local function joinByArc() clicks("miJoinEndPtsArc", { 0, 3 }, { 1, 3 }, { 0.5, 3.5 }) end
local function flip() clicks("miFlipArc", { 2, 2.5 }) end
local function reverse() clicks("miRevArcDir", { 2, 2.5 }) end
local function widen()
  radius(2.5)
  clicks("miChangeRadius", { 2, 2.5 })
end

return {
  {
    name = "edit_delete_click",
    why = "The wall goes by a click beside it.",
    draw = cross,
    work = function() clicks("miDelete", { 1.1, 2.5 }) end,
  },
  {
    name = "edit_delete_selection",
    why = "Both legs of the corner go at once; the level line stays.",
    draw = corner,
    work = function()
      shop.select(1, 2)
      tool("miDelete")
    end,
  },
  {
    name = "edit_cut_without_selection",
    why = "Nothing is selected: told, and nothing goes.",
    draw = cross,
    work = function() tool("miCut") end,
  },
  {
    name = "edit_break_line",
    why = "Row 1 ends at the foot of the click, and the rest is the last row.",
    draw = cross,
    work = breakLine,
  },
  {
    name = "edit_break_circle",
    why = "Two clockwise arcs: from the circle's start at angle 0 to its top, and on from there.",
    draw = function() shop.circle(2, 1.5, 1) end,
    work = function() clicks("miBreakSegment", { 2, 3 }) end,
  },
  {
    name = "edit_break_at_end",
    why = "At an end there is nothing to part: a beep.",
    draw = cross,
    work = function() clicks("miBreakSegment", { 4.25, 1 }) end,
  },
  {
    name = "edit_break_path",
    why = "The rest of the first move is cut right after it, with its tool, depth and feed.",
    tool = secondTool,
    draw = cross,
    work = onPaths(breakLine),
  },
  {
    name = "edit_trim_line",
    why = "The side of the first click goes: the line ends at the wall.",
    draw = cross,
    work = trimRight,
  },
  {
    name = "edit_trim_path",
    why = "The same on the path; the drawing stays.",
    tool = secondTool,
    draw = cross,
    work = onPaths(trimRight),
  },
  {
    name = "edit_trim_arc",
    why = "The wall cuts the left end off the arc at x 1.25.",
    draw = function()
      dome()
      shop.chain { { 1.25, 0.5 }, { 1.25, 3 } }
    end,
    work = function() clicks("miTrimEntity", { 0.6, 1.6 }, { 1.25, 2.9 }) end,
  },
  {
    name = "edit_extend_line",
    why = "The short line grows to the far wall, by the end that is nearer to it.",
    draw = function()
      shop.chain { { 0, 1 }, { 1, 1.25 } }
      shop.chain { { 4, 0 }, { 4, 3 } }
    end,
    work = function() clicks("miTrimEntity", { 0.25, 1 }, { 4, 2 }) end,
  },
  {
    name = "edit_extend_arc",
    why = "The quarter circle grows round its centre to the line.",
    draw = function()
      shop.chain { { 3, 1 }, { 2, 2, ccw = { 2, 1 } } }
      shop.chain { { 0, 1 }, { 1.5, 1 } }
    end,
    work = function() clicks("miTrimEntity", { 2.7, 1.7 }, { 0.25, 1 }) end,
  },
  {
    name = "edit_flip_arc",
    why = "The arc keeps its ends and hangs below them.",
    draw = cap,
    work = flip,
  },
  {
    name = "edit_reverse_arc",
    why = "The arc keeps ends and centre and runs the other way round.",
    draw = cap,
    work = reverse,
  },
  {
    name = "edit_change_radius",
    why = "Radius 2.5 through the same ends, with the nearer of the two centres.",
    draw = cap,
    work = widen,
  },
  {
    name = "edit_change_radius_path",
    why = "The same on the path.",
    tool = secondTool,
    draw = cap,
    work = onPaths(widen),
  },
  {
    name = "edit_radius_too_small",
    why = "Half the chord is 1.5: told, and the arc stays.",
    draw = cap,
    work = function()
      radius(1.25)
      clicks("miChangeRadius", { 2, 2.5 })
    end,
  },
  {
    name = "edit_move_end",
    why = "Both legs follow the corner.",
    draw = corner,
    work = moveCorner,
  },
  {
    name = "edit_move_end_path",
    why = "The same on the path.",
    tool = secondTool,
    draw = corner,
    work = onPaths(moveCorner),
  },
  {
    name = "edit_move_arc_end",
    why = "The arc keeps radius 1.5, with the nearer of the two centres.",
    draw = dome,
    work = function()
      tool("miMoveEndpoints")
      drag(0.5, 1, 1, 0.5)
    end,
  },
  {
    name = "edit_fillet",
    why = "Radius 0.75 between the legs, which end where it touches them.",
    draw = corner,
    work = roundCorner,
  },
  {
    name = "edit_fillet_obtuse",
    why = "Wider than a right angle the arc touches nearer to the corner.",
    draw = function() shop.chain { { 4, 0 }, { 2, 0 }, { 0, 2 } } end,
    work = function()
      radius(1)
      clicks("miAddFillet", { 3, 0 }, { 1, 1 })
    end,
  },
  {
    name = "edit_fillet_path",
    why = "The arc is cut between the two moves, in their sense and as the first of them.",
    tool = secondTool,
    draw = corner,
    work = onPaths(roundCorner),
  },
  {
    name = "edit_fillet_apart",
    why = "The lines have no common end: told.",
    draw = corner,
    work = function()
      radius(0.75)
      clicks("miAddFillet", { 2, 0 }, { 2, 3 })
    end,
  },
  {
    name = "edit_join",
    why = "A line over the gap; the rows beside it stay.",
    draw = corner,
    work = joinCorners,
  },
  {
    name = "edit_join_path",
    why = "The new move follows the row nearest to the second click, and is cut as that.",
    tool = secondTool,
    draw = corner,
    work = onPaths(joinCorners),
  },
  {
    name = "edit_join_arc",
    why = "A half circle over the gap, through the third click.",
    draw = corner,
    work = joinByArc,
  },
  {
    name = "edit_remove_vertex",
    why = "The legs of the corner become one line.",
    draw = corner,
    work = removeCorner,
  },
  {
    name = "edit_remove_vertex_path",
    why = "Two moves become one, which is cut as the second was.",
    tool = secondTool,
    draw = corner,
    work = onPaths(removeCorner),
  },
  {
    name = "edit_remove_vertex_alone",
    why = "One line alone ends there: told.",
    draw = cross,
    work = function() clicks("miDeleteVertex", { 4, 1 }) end,
  },
  {
    name = "edit_entity_info",
    why = "What there is to know of the arc, of the line, and of a path row.",
    tool = secondTool,
    draw = dome,
    work = function()
      clicks("miEntityInfo", { 2, 2.75 })
      clicks("miEntityInfo", { 2, -0.25 })
      onPaths(function() clicks("miEntityInfo", { 2, -0.25 }) end)()
    end,
  },
}
