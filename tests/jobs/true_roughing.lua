-- Roughing with true paths: shapes that go wrong when the side of a wall is guessed, by lines and by
-- rings. After the lines of a room comes the pass round it.
local shop = ...

local function polygon(points)
  local chain = { table.unpack(points) }
  chain[#chain + 1] = points[1]
  shop.chain(chain)
end

local function with(changes)
  local set = { ["true paths"] = true, ["tool spacing"] = 80, ["minimum roughing clearance"] = 0 }
  for name, value in pairs(changes or {}) do set[name] = value end
  return set
end

local function rings(changes)
  local set = with(changes)
  set["pocketing style"] = 3
  return set
end

-- The outlines that hold these rows, the first one a pocket.
local function clear(...)
  local outlines = { ... }
  return function()
    shop.pocket(outlines[1])
    for index = 2, #outlines do shop.island(outlines[index]) end
    if setting["pocketing style"] == 3 then shop.spiral(outlines[1]) else shop.rough() end
  end
end

local function plateWithIsland(x0, y0, x1, y1)
  return function()
    shop.rectangle(0, 0, 5, 3)
    shop.rectangle(x0, y0, x1, y1)
  end
end

return {
  {
    name = "true_parallelogram",
    why = "The obtuse corner is the lowest: the lines lie inside all the same.",
    set = with(),
    draw = function() polygon { { 1, 0 }, { 4, 0 }, { 3, 2 }, { 0, 2 } } end,
    work = clear(1),
  },
  {
    name = "true_obtuse_triangle",
    why = "Lines and one pass along the three sides, none beyond them.",
    set = with(),
    draw = function() polygon { { 0, 0 }, { 5, 0 }, { 0.8, 1.5 } } end,
    work = clear(1),
  },
  {
    name = "true_half_circle",
    why = "The chord's line and the arc's, displaced by the tool's radius.",
    set = with(),
    draw = function() shop.chain { { 0, 0 }, { 4, 0 }, { 0, 0, ccw = { 2, 0 } } } end,
    work = clear(1),
  },
  {
    name = "true_two_arcs_of_a_circle",
    why = "Unequal arcs of one circle: the pass round is the circle of radius 1.25, half by half.",
    set = with(),
    draw = function()
      shop.chain { { 2.9, 1.2 }, { 2.9, -1.2, ccw = { 2, 0 } }, { 2.9, 1.2, ccw = { 2, 0 } } }
    end,
    work = clear(1),
  },
  {
    name = "true_lens",
    why = "Between two arcs that meet in points.",
    set = with(),
    draw = function()
      shop.chain { { 0, 0 }, { 4, 0, ccw = { 2, 1.5 } }, { 0, 0, ccw = { 2, -1.5 } } }
    end,
    work = clear(1),
  },
  {
    name = "true_small_chamfers",
    why = "Corners cut by less than the tool: the pass round turns at them in short lines.",
    set = with(),
    draw = function()
      polygon {
        { 0.1, 0 }, { 3.9, 0 }, { 4, 0.1 }, { 4, 1.9 }, { 3.9, 2 }, { 0.1, 2 }, { 0, 1.9 },
        { 0, 0.1 },
      }
    end,
    work = clear(1),
  },
  {
    name = "true_narrow_notch",
    why = "A notch of 0.3 that the tool of 0.5 passes by, with the points of its mouth rounded.",
    set = with(),
    draw = function()
      polygon {
        { 0, 0 }, { 1.8, 0 }, { 1.8, -1 }, { 2.1, -1 }, { 2.1, 0 }, { 4, 0 }, { 4, 2 }, { 0, 2 },
      }
    end,
    work = clear(1),
  },
  {
    name = "true_island_near_wall",
    why = "No way behind the island, which stands 0.4 from the wall: one loop goes round both.",
    set = with(),
    draw = plateWithIsland(3.6, 1, 4.6, 2),
    work = clear(1, 5),
  },
  {
    name = "true_u_with_links",
    why = "Links follow the pass round the tongue; none crosses it.",
    set = with { ["connect pocketing paths"] = true },
    draw = function()
      polygon {
        { 0, 0 }, { 5, 0 }, { 5, 3 }, { 3.5, 3 }, { 3.5, 1.2 }, { 1.5, 1.2 }, { 1.5, 3 }, { 0, 3 },
      }
    end,
    work = clear(1),
  },
  {
    name = "true_octagon",
    why = "Lines rise to the upper corner lines; nothing is missing there.",
    set = with(),
    draw = function()
      polygon {
        { 1, 0 }, { 2.4, 0 }, { 3.4, 1 }, { 3.4, 2.4 }, { 2.4, 3.4 }, { 1, 3.4 }, { 0, 2.4 },
        { 0, 1 },
      }
    end,
    work = clear(1),
  },
  {
    name = "true_hexagon_on_line",
    why = "Its side corners lie on a line: the line is cut from corner to corner.",
    set = with { ["cut width type"] = 2, ["tool spacing distance"] = 0.5 },
    draw = function()
      polygon { { 1, 0 }, { 3, 0 }, { 4, 1.5 }, { 3, 3 }, { 1, 3 }, { 0, 1.5 } }
    end,
    work = clear(1),
  },
  {
    name = "true_l_vertical",
    why = "Upright lines of an L, the long ones and then the short ones.",
    set = with { ["pocketing style"] = 2, ["cutting mode"] = 2 },
    draw = function()
      polygon { { 0, 0 }, { 4, 0 }, { 4, 1.5 }, { 1.5, 1.5 }, { 1.5, 3.5 }, { 0, 3.5 } }
    end,
    work = clear(1),
  },
  {
    name = "true_circle_rows",
    why = "Circle rows are outlines as good as any, pocket and island.",
    set = with { ["tool spacing"] = 100 },
    draw = function()
      shop.circle(2, 2, 2)
      shop.circle(2, 2, 0.7)
    end,
    work = clear(1, 2),
  },
  {
    name = "true_two_pockets",
    why = "Both are cleared: the second one is no island of the first.",
    set = with(),
    draw = function()
      shop.rectangle(0, 0, 2, 1.5)
      shop.rectangle(3, 0.5, 4.5, 2)
    end,
    work = clear(1, 5),
  },
  {
    name = "true_pocket_in_an_island",
    why = "Free inside, then not, then free again: the innermost outline decides.",
    set = with(),
    draw = function()
      shop.rectangle(0, 0, 6, 5)
      shop.rectangle(1.2, 1.2, 4.8, 3.8)
      shop.rectangle(2, 2, 4, 3)
    end,
    work = clear(1, 5, 9),
  },
  {
    name = "true_slot_of_the_tools_width",
    why = "The tool just fits: there and back on one line.",
    set = with(),
    draw = function()
      shop.chain {
        { 0, 0 }, { 3, 0 }, { 3, 0.5, ccw = { 3, 0.25 } }, { 0, 0.5 }, { 0, 0, ccw = { 0, 0.25 } },
      }
    end,
    work = clear(1),
  },
  {
    name = "true_rings_square",
    why = "Rings at 0.25, then by 0.4 until nothing is left; the inmost is cut first.",
    set = rings(),
    draw = function() shop.rectangle(0, 0, 4, 4) end,
    work = clear(1),
  },
  {
    name = "true_rings_island_in_the_middle",
    why = "Rings follow pocket and island until they meet; what is left between them is cut too.",
    set = rings { ["tool spacing"] = 50 },
    draw = plateWithIsland(2, 1, 3, 2),
    work = clear(1, 5),
  },
  {
    name = "true_rings_island_aside",
    why = "The island is nearer to one wall: rings part and close round what is left.",
    set = rings { ["tool spacing"] = 50, ["cutting mode"] = 2 },
    draw = plateWithIsland(3.2, 0.9, 4.2, 1.9),
    work = clear(1, 5),
  },
  {
    name = "true_rings_finish",
    why = "A clearance for the rings and the finish path on the wall, climbing; the mode stays.",
    set = rings {
      ["minimum roughing clearance"] = 0.05, ["auto place finish path"] = true,
      ["cutting mode"] = 1,
    },
    draw = function() shop.rectangle(0, 0, 3, 2) end,
    work = clear(1),
  },
  {
    name = "true_rings_full_step",
    why = "Steps of the whole diameter: between two rings corners stay, and a loop takes them.",
    set = rings { ["tool spacing"] = 100, ["connect pocketing paths"] = true },
    draw = function() shop.rectangle(0, 0, 4, 3) end,
    work = clear(1),
  },
  {
    name = "true_levels",
    why = "Every level is the first one's copy: -0.3, -0.6, -0.9, -0.98, and the floor at -1.",
    set = with {
      ["final depth"] = 1, ["z cut per pass"] = 0.3, ["minimum z finish"] = 0.02,
      ["tool spacing"] = 100,
    },
    draw = function() shop.rectangle(0, 0, 1.2, 1) end,
    work = clear(1),
  },
  {
    name = "true_whole_depth",
    why = "A depth per pass of nothing is the whole depth.",
    set = with { ["z cut per pass"] = 0, ["tool spacing"] = 100 },
    draw = function() shop.rectangle(0, 0, 1.2, 1) end,
    work = clear(1),
  },
  {
    name = "true_too_narrow",
    why = "A pocket of 0.4 for a tool of 0.5: a message and no path.",
    set = with(),
    draw = function() shop.rectangle(0, 0, 3, 0.4) end,
    work = clear(1),
  },
  {
    name = "true_too_narrow_with_clearance",
    why = "The tool of 0.5 fits, but not with a clearance of 0.05 on either side.",
    set = with { ["minimum roughing clearance"] = 0.05 },
    draw = function() shop.rectangle(0, 0, 3, 0.55) end,
    work = clear(1),
  },
  {
    name = "true_neck_left_for_the_finish",
    why = "Only without the clearance does the tool pass the neck: the message tells where.",
    set = with { ["minimum roughing clearance"] = 0.05 },
    draw = function()
      polygon {
        { 0, 0 }, { 2, 0 }, { 2, 0.725 }, { 3.5, 0.725 }, { 3.5, 0 }, { 5.5, 0 }, { 5.5, 2 },
        { 3.5, 2 }, { 3.5, 1.275 }, { 2, 1.275 }, { 2, 2 }, { 0, 2 },
      }
    end,
    work = clear(1),
  },
  {
    name = "true_lathe",
    why = "The clearance alone stands off, from the top down; the last lift is to the stock.",
    set = with {
      ["lathe style pocketing"] = true, ["minimum roughing clearance"] = 0.05,
      ["cut width type"] = 2, ["tool spacing distance"] = 0.4, ["cutting mode"] = 1,
    },
    draw = function()
      polygon { { 0, 0.5 }, { 1, 0.5 }, { 1, 1 }, { 2.5, 1 }, { 2.5, 0.5 }, { 4, 0.5 }, { 4, 2.5 },
        { 0, 2.5 } }
    end,
    work = clear(1),
  },
}
