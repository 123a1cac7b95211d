-- Pockets without islands, cleared line by line. On the bench the working outline stands off by
-- 0.3 (radius and clearance) and lines are 0.5 apart, the first half a step inside.
local shop = ...

local function plate() shop.rectangle(0, 0, 4, 3) end

local function clear()
  shop.pocket(1)
  shop.rough()
end

local function outlineL()
  shop.chain { { 0, 0 }, { 4, 0 }, { 4, 1.5 }, { 1.5, 1.5 }, { 1.5, 3 }, { 0, 3 }, { 0, 0 } }
end

-- Two arms of width 1.2 and a tongue between them, from above.
local function outlineU()
  shop.chain {
    { 0, 0 }, { 4, 0 }, { 4, 3 }, { 2.8, 3 }, { 2.8, 1.2 }, { 1.2, 1.2 }, { 1.2, 3 }, { 0, 3 },
    { 0, 0 },
  }
end

local function slot()
  shop.chain {
    { 1, 0 }, { 4, 0 }, { 4, 2, ccw = { 4, 1 } }, { 1, 2 }, { 1, 0, ccw = { 1, 1 } },
  }
end

return {
  {
    name = "lines_conventional",
    why = "One way, to the right: lines at 0.55, 1.05, ... 2.55 from 0.3 to 3.7.",
    set = { ["cutting mode"] = 1 },
    draw = plate, work = clear,
  },
  {
    name = "lines_climb",
    why = "One way, to the left.",
    set = { ["cutting mode"] = 2 },
    draw = plate, work = clear,
  },
  {
    name = "lines_both_ways",
    why = "To and fro.",
    draw = plate, work = clear,
  },
  {
    name = "lines_connected",
    why = "To and fro, with links up the walls: one path without a lift.",
    set = { ["connect pocketing paths"] = true },
    draw = plate, work = clear,
  },
  {
    name = "lines_vertical_conventional",
    why = "One way, down: lines at x 0.55, 1.05, ... 3.55.",
    set = { ["pocketing style"] = 2, ["cutting mode"] = 1 },
    draw = plate, work = clear,
  },
  {
    name = "lines_vertical_climb",
    why = "One way, up.",
    set = { ["pocketing style"] = 2, ["cutting mode"] = 2 },
    draw = plate, work = clear,
  },
  {
    name = "lines_levels",
    why = "Two lines at -0.3, -0.6, -0.9, -0.98, and the floor at -1 at the finishing feed.",
    set = {
      ["start depth"] = 0, ["final depth"] = 1, ["z cut per pass"] = 0.3,
      ["minimum z finish"] = 0.02,
    },
    draw = function() shop.rectangle(0, 0, 4, 1.6) end, work = clear,
  },
  {
    name = "lines_start_below_floor",
    why = "A start below the roughing floor gives one level at the final depth, finishing feed.",
    set = { ["start depth"] = 0.3, ["final depth"] = 0.25 },
    draw = function() shop.rectangle(0, 0, 4, 1.6) end, work = clear,
  },
  {
    name = "lines_step_by_distance",
    why = "The step is the distance, 0.4, and not the percentage.",
    set = { ["cut width type"] = 2, ["tool spacing distance"] = 0.4 },
    draw = plate, work = clear,
  },
  {
    name = "lines_metric",
    why = "A drawing in millimetres: the same rules, other numbers.",
    tool = { radius = 3 },
    set = {
      ["units of measure"] = "M", ["minimum roughing clearance"] = 0.5, ["final depth"] = 5,
      ["z cut per pass"] = 2.5, ["roughing feedrate"] = 300, ["finishing feedrate"] = 200,
      ["tolerence"] = 0.001,
    },
    draw = function() shop.rectangle(10, 10, 60, 30) end, work = clear,
  },
  {
    name = "lines_circle",
    why = "A full arc of radius 1.5: chords of the circle of radius 1.2.",
    draw = function() shop.ring(2, 2, 1.5) end, work = clear,
  },
  {
    name = "lines_circle_entity",
    why = "A circle row, unlike a full arc, cannot be offset: nothing is cleared.",
    draw = function() shop.circle(2, 2, 1.5) end, work = clear,
  },
  {
    name = "lines_slot",
    why = "A slot with round ends: each line ends on the arcs of radius 0.7.",
    set = { ["tool spacing"] = 50 },
    draw = slot, work = clear,
  },
  {
    name = "lines_slot_vertical",
    why = "The same slot upright, with links.",
    set = { ["pocketing style"] = 2, ["connect pocketing paths"] = true },
    draw = slot, work = clear,
  },
  {
    name = "lines_angle",
    why = "An L: the lines are shorter above the inner corner.",
    draw = outlineL, work = clear,
  },
  {
    name = "lines_channel",
    why = "A U: two spans on a line above its base, in the order of travel.",
    draw = outlineU, work = clear,
  },
  {
    name = "lines_channel_connected",
    why = "Links look at islands alone, so they cross the tongue of a U: not for the machine.",
    set = { ["connect pocketing paths"] = true },
    draw = outlineU, work = clear,
  },
  {
    name = "lines_triangle",
    why = "Slanting walls: each end lies 0.3 from the wall.",
    draw = function() shop.chain { { 0, 0 }, { 5, 0 }, { 2, 4 }, { 0, 0 } } end, work = clear,
  },
  {
    name = "lines_small_fillets",
    why = "Corners of radius 0.2 are smaller than the stand-off: they collapse, the walls meet.",
    draw = function() shop.roundedRectangle(0, 0, 4, 3, 0.2) end, work = clear,
  },
  {
    name = "lines_narrower_than_tool",
    why = "A slot of 0.4: the working outline turns inside out, lines are laid in the walls.",
    set = { ["tool spacing"] = 20 },
    draw = function() shop.rectangle(0, 0, 3, 0.4) end, work = clear,
  },
  {
    name = "lines_nothing_selected",
    why = "Without a selected row there is nothing to clear.",
    draw = plate, work = shop.rough,
  },
  {
    name = "lines_open_row",
    why = "A single open row is no pocket.",
    draw = function() shop.chain { { 0, 0 }, { 3, 1 } } end,
    work = function()
      shop.select(1)
      tool("miVerify/AcceptPocket")
      shop.rough()
    end,
  },
}
