-- The parallel spiral: rings from near the middle to the clearance, or to the wall.
local shop = ...

local function square() shop.rectangle(0, 0, 4, 4) end

local function spiral()
  shop.pocket(1)
  shop.spiral(1)
end

local function with(changes)
  local set = { ["pocketing style"] = 3 }
  for name, value in pairs(changes or {}) do set[name] = value end
  return set
end

return {
  {
    name = "spiral_square",
    why = "Rings at 2 - 0.3, then by 0.5 to the clearance: 1.7, 1.2, 0.7, 0.3.",
    set = with { ["pocket distance from center"] = 0.3 },
    draw = square, work = spiral,
  },
  {
    name = "spiral_auto_finish",
    why = "The same with a last ring on the wall, at 0.25, always climb.",
    set = with {
      ["pocket distance from center"] = 0.3, ["auto place finish path"] = true,
      ["cutting mode"] = 1,
    },
    draw = square, work = spiral,
  },
  {
    name = "spiral_climb",
    why = "Climb keeps the inside on the left of a counter-clockwise outline: as the rows run.",
    set = with { ["pocket distance from center"] = 1, ["cutting mode"] = 2 },
    draw = square, work = spiral,
  },
  {
    name = "spiral_conventional",
    why = "Conventional goes the other way round.",
    set = with { ["pocket distance from center"] = 1, ["cutting mode"] = 1 },
    draw = square, work = spiral,
  },
  {
    name = "spiral_connected_levels",
    why = "Two levels, each ring linked to the next.",
    set = with {
      ["pocket distance from center"] = 1, ["connect pocketing paths"] = true,
      ["final depth"] = 0.5,
    },
    draw = square, work = spiral,
  },
  {
    name = "spiral_start_at_floor",
    why = "A start at the roughing floor is one level here, at the final depth.",
    set = with { ["pocket distance from center"] = 1, ["start depth"] = 0.25 },
    draw = square, work = spiral,
  },
  {
    name = "spiral_slot",
    why = "Lines and arcs: the round ends shrink with the rings.",
    set = with { ["pocket distance from center"] = 0.2 },
    draw = function()
      shop.chain {
        { 1, 0 }, { 4, 0 }, { 4, 2, ccw = { 4, 1 } }, { 1, 2 }, { 1, 0, ccw = { 1, 1 } },
      }
    end,
    work = spiral,
  },
  {
    name = "spiral_fillets",
    why = "Fillets of radius 0.6 collapse in the inner rings and are arcs in the outer.",
    set = with { ["pocket distance from center"] = 0.5 },
    draw = function() shop.roundedRectangle(0, 0, 4, 3, 0.6) end,
    work = spiral,
  },
  {
    name = "spiral_ring",
    why = "A full circle, clicked on its inside: rings of radius 0.25, 0.75, 1.25 and 1.45.",
    set = with { ["pocket distance from center"] = 0.25 },
    draw = function() shop.ring(2, 2, 1.75) end,
    work = function()
      shop.pocket(1)
      shop.rough()
      click(3, 2)
    end,
  },
  {
    name = "spiral_ring_clicked_on",
    why = "A click on the circle itself leaves the side open: the path runs on the wall.",
    set = with { ["pocket distance from center"] = 0.25 },
    draw = function() shop.ring(2, 2, 1.75) end,
    work = spiral,
  },
  {
    name = "spiral_angle",
    why = "In an L of width 1.5 the inner rings are dropped; one on its middle runs to and fro.",
    set = with { ["pocket distance from center"] = 0.25 },
    draw = function()
      shop.chain { { 0, 0 }, { 4, 0 }, { 4, 1.5 }, { 1.5, 1.5 }, { 1.5, 4 }, { 0, 4 }, { 0, 0 } }
    end,
    work = spiral,
  },
  {
    name = "spiral_island",
    why = "A ring that crosses the island is dropped; one too near to it stays.",
    set = with { ["pocket distance from center"] = 0.25 },
    draw = function()
      square()
      shop.rectangle(1, 1.7, 1.6, 2.3)
    end,
    work = function()
      shop.pocket(1)
      shop.island(5)
      shop.spiral(1)
    end,
  },
  {
    name = "spiral_too_small",
    why = "A pocket with no room for a ring at the distance from its centre: Yes makes one ring.",
    set = with { ["pocket distance from center"] = 0.5 },
    draw = function() shop.rectangle(0, 0, 3, 1) end,
    work = function()
      shop.answer("Yes")
      spiral()
    end,
  },
  {
    name = "spiral_nothing_verified",
    why = "Selected is not verified.",
    set = with(),
    draw = square,
    work = function()
      tool("miRoughCutPocket")
      click(shop.pointOn(1))
    end,
  },
}
