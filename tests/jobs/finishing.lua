-- Finish paths without leads: the element offsets, the joints and the passes.
local shop = ...

local function plate() shop.rectangle(0, 0, 4, 3) end

-- Clicks that start at the lower left corner and go right along the lower edge.
local outside = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 } }
local inside = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 1 } }

local function passes(way, number)
  return { from = way.from, to = way.to, side = way.side, passes = number }
end

local function finish(way)
  return function() shop.finish(way) end
end

return {
  {
    name = "finish_outside",
    why = "Four lines 0.25 outside and an arc round each corner.",
    draw = plate, work = finish(outside),
  },
  {
    name = "finish_inside",
    why = "Four lines, trimmed where they cross.",
    draw = plate, work = finish(inside),
  },
  {
    name = "finish_inside_backwards",
    why = "The second click, on the left edge, turns the way round.",
    draw = plate, work = finish { from = { 0, 0 }, to = { 0, 1 }, side = { 1, 1.5 } },
  },
  {
    name = "finish_on_profile",
    why = "A third click on the profile itself: side 0, no offset.",
    draw = plate, work = finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2.5, 0 } },
  },
  {
    name = "finish_three_passes",
    why = "At 0.25 + 0.05 + 0.5, then 0.3, then 0.25: the finished size last.",
    draw = plate, work = finish(passes(inside, 3)),
  },
  {
    name = "finish_two_passes_levels",
    why = "Each pass goes down its levels before the next, -0.25, -0.45 and the floor at -0.5.",
    set = { ["final depth"] = 0.5, ["minimum z finish"] = 0.05 },
    draw = plate, work = finish(passes(inside, 2)),
  },
  {
    name = "finish_passes_connected",
    why = "Links are made once, over all rows.",
    set = { ["connect pocketing paths"] = true, ["final depth"] = 0.5 },
    draw = plate, work = finish(passes(inside, 2)),
  },
  {
    name = "finish_fillet_fits",
    why = "Fillets of radius 0.5 keep an arc of 0.25.",
    draw = function() shop.roundedRectangle(0, 0, 4, 3, 0.5) end,
    work = finish { from = { 0.5, 0 }, to = { 2, 0 }, side = { 2, 1 } },
  },
  {
    name = "finish_fillet_collapses",
    why = "Fillets of radius 0.2 collapse: the walls beside them are joined.",
    draw = function() shop.roundedRectangle(0, 0, 4, 3, 0.2) end,
    work = finish { from = { 0.2, 0 }, to = { 2, 0 }, side = { 2, 1 } },
  },
  {
    name = "finish_fillet_outside",
    why = "Outside round fillets the arcs grow and no corner needs a bridge.",
    draw = function() shop.roundedRectangle(0, 0, 4, 3, 0.5) end,
    work = finish { from = { 0.5, 0 }, to = { 2, 0 }, side = { 2, -1 } },
  },
  {
    name = "finish_ring_inside",
    why = "A full circle from inside: one arc of radius 1.25.",
    draw = function() shop.ring(2, 2, 1.5) end,
    work = finish { from = { 3.5, 2 }, to = { 2, 3.5 }, side = { 2, 2.5 } },
  },
  {
    name = "finish_two_arcs_outside",
    why = "A circle of two halves, from outside: two arcs of radius 1.75.",
    draw = function()
      shop.chain { { 3.5, 2 }, { 0.5, 2, ccw = { 2, 2 } }, { 3.5, 2, ccw = { 2, 2 } } }
    end,
    work = finish { from = { 3.5, 2 }, to = { 2, 3.5 }, side = { 2, 4.5 } },
  },
  {
    name = "finish_open_profile_right",
    why = "An open profile from its left end, tool on the right: a bridge at the second corner.",
    draw = function()
      shop.chain { { 0, 0 }, { 2, 0 }, { 3, 1, ccw = { 2, 1 } }, { 3, 2 }, { 5, 2 } }
    end,
    work = finish { from = { 0, 0 }, to = { 1, 0 }, side = { 1, -1 } },
  },
  {
    name = "finish_open_profile_left",
    why = "The same on the left: a bridge round the last corner, the fillet's arc is shorter.",
    draw = function()
      shop.chain { { 0, 0 }, { 2, 0 }, { 3, 1, ccw = { 2, 1 } }, { 3, 2 }, { 5, 2 } }
    end,
    work = finish { from = { 0, 0 }, to = { 1, 0 }, side = { 1, 1 } },
  },
  {
    name = "finish_star_outside",
    why = "Sharp and reflex corners in turn: bridges at the points, trims in the notches.",
    draw = function()
      shop.chain {
        { 2, 0 }, { 2.6, 1.4 }, { 4, 2 }, { 2.6, 2.6 }, { 2, 4 }, { 1.4, 2.6 }, { 0, 2 },
        { 1.4, 1.4 }, { 2, 0 },
      }
    end,
    work = finish { from = { 2, 0 }, to = { 2.3, 0.7 }, side = { 3.5, 0.5 } },
  },
  {
    name = "finish_metric_outside",
    why = "Millimetres: a plate with one round corner.",
    tool = { radius = 4 },
    set = {
      ["units of measure"] = "M", ["final depth"] = 6, ["z cut per pass"] = 6,
      ["finishing feedrate"] = 250, ["tolerence"] = 0.001,
    },
    draw = function()
      shop.chain {
        { 10, 10 }, { 70, 10 }, { 70, 35 }, { 55, 50, ccw = { 55, 35 } }, { 10, 50 }, { 10, 10 },
      }
    end,
    work = finish { from = { 10, 10 }, to = { 40, 10 }, side = { 40, 0 } },
  },
}
