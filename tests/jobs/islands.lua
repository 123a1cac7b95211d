-- Islands in pockets: the lines stop short of them by the same 0.3, the links too.
local shop = ...

-- A plate with a square island, first the pocket's rows 1 to 4.
local function square()
  shop.rectangle(0, 0, 5, 3)
  shop.rectangle(2, 1, 3, 2)
end

local function nearWall()
  shop.rectangle(0, 0, 4, 3)
  shop.rectangle(2.6, 1, 3.6, 2)
end

local function clear(islands)
  return function()
    shop.pocket(1)
    for _, row in ipairs(islands) do shop.island(row) end
    shop.rough()
  end
end

return {
  {
    name = "island_square",
    why = "Lines beside the island are two spans each, in the order of travel.",
    draw = square, work = clear { 5 },
  },
  {
    name = "island_square_connected",
    why = "No link across the island or its stand-off; every other gap has one.",
    set = { ["connect pocketing paths"] = true },
    draw = square, work = clear { 5 },
  },
  {
    name = "island_square_vertical",
    why = "Upright lines: above the island and below it.",
    set = { ["pocketing style"] = 2, ["cutting mode"] = 2 },
    draw = square, work = clear { 5 },
  },
  {
    name = "island_round",
    why = "Round a disc of radius 0.5 the spans end on the circle of radius 0.8.",
    draw = function()
      shop.ring(2.5, 2.5, 2.2)
      shop.ring(2.5, 2.5, 0.5)
    end,
    work = clear { 2 },
  },
  {
    name = "island_triangle_and_disc",
    why = "Two islands: up to three spans on a line.",
    draw = function()
      shop.rectangle(0, 0, 6, 3)
      shop.chain { { 1, 1 }, { 2, 1 }, { 1.5, 2 }, { 1, 1 } }
      shop.ring(4.3, 1.5, 0.5)
    end,
    work = clear { 5, 8 },
  },
  {
    name = "island_near_wall",
    why = "Nearer to the wall than the tool: cleaned as one chain, the island is cut.",
    draw = nearWall, work = clear { 5 },
  },
  {
    name = "island_near_wall_gouge",
    why = "The same without avoidance: where the outlines cross, lines are laid in the wall.",
    set = { ["gouge avoidance"] = false },
    draw = nearWall, work = clear { 5 },
  },
  {
    name = "island_lowest",
    why = "An island that pokes out below the pocket is taken for the pocket.",
    draw = function()
      shop.rectangle(0, 0, 4, 3)
      shop.rectangle(1.5, -0.5, 2.5, 1)
    end,
    work = clear { 5 },
  },
  {
    name = "island_two_levels",
    why = "The second level is a copy of the first; the last at the final depth too.",
    set = { ["final depth"] = 0.5, ["minimum z finish"] = 0.01, ["z cut per pass"] = 0.25 },
    draw = function()
      shop.rectangle(0, 0, 4, 2.2)
      shop.rectangle(1.8, 0.9, 2.2, 1.3)
    end,
    work = clear { 5 },
  },
}
