-- Finish paths with true paths: what the tool can follow of an outline, and leads as long as the
-- walls let them.
local shop = ...

local function with(changes)
  local set = { ["true paths"] = true }
  for name, value in pairs(changes or {}) do set[name] = value end
  return set
end

local function plate() shop.rectangle(0, 0, 4, 3) end
local outside = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 } }
local inside = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 1 } }

local function finish(way)
  return function() shop.finish(way) end
end

local function notched()
  shop.chain {
    { 0, 0 }, { 1.8, 0 }, { 1.8, 1 }, { 2.1, 1 }, { 2.1, 0 }, { 4, 0 }, { 4, 3 }, { 0, 3 },
    { 0, 0 },
  }
end

return {
  {
    name = "true_finish_outside",
    why = "Four lines 0.25 outside and an arc round each corner, from the clicked row on.",
    set = with(), draw = plate, work = finish(outside),
  },
  {
    name = "true_finish_inside_backwards",
    why = "The clicked way goes against the outline.",
    set = with(), draw = plate,
    work = finish { from = { 4, 0 }, to = { 2, 0 }, side = { 2, 1 } },
  },
  {
    name = "true_finish_passes",
    why = "At 0.8, 0.3 and 0.25; each pass is a group.",
    set = with(), draw = plate,
    work = finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 1 }, passes = 3 },
  },
  {
    name = "true_finish_notch",
    why = "Outside, the tool does not enter the notch of 0.3 and stays clear of its points.",
    set = with(), draw = notched,
    work = finish { from = { 0, 0 }, to = { 1, 0 }, side = { 1, -1 } },
  },
  {
    name = "true_finish_open",
    why = "Beside an open chain, on the clicked side; the ends are those of the rows.",
    set = with(),
    draw = function() shop.chain { { 0, 0 }, { 2, 0 }, { 2, 2 }, { 4, 2 } } end,
    work = finish { from = { 0, 0 }, to = { 1, 0 }, side = { 1, 1 } },
  },
  {
    name = "true_finish_between_islands",
    why = "The wall's path goes round the island that stands too near to it.",
    set = with(),
    draw = function()
      shop.rectangle(0, 0, 5, 3)
      shop.rectangle(3.6, 1, 4.6, 2)
    end,
    work = function()
      shop.pocket(1)
      shop.island(5)
      shop.finish(inside)
    end,
  },
  {
    name = "true_leads_lines",
    why = "From the middle of the first row and back to it.",
    set = with { ["lead in path"] = true }, draw = plate, work = finish(inside),
  },
  {
    name = "true_leads_arcs",
    why = "The same by arcs, outside.",
    set = with { ["lead in arc"] = true }, draw = plate, work = finish(outside),
  },
  {
    name = "true_leads_shortened",
    why = "In a slot the leads of 1 would cut the far wall; a shorter one is offered and taken.",
    set = with { ["lead in path"] = true, ["lead in length"] = 1 },
    draw = function() shop.rectangle(0, 0, 4, 0.9) end,
    work = function()
      shop.answer("Yes")
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 0.4 } }
    end,
  },
  {
    name = "true_leads_kept",
    why = "The same with the length kept.",
    set = with { ["lead in arc"] = true, ["lead in length"] = 1 },
    draw = function() shop.rectangle(0, 0, 4, 0.9) end,
    work = function()
      shop.answer("No")
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 0.4 } }
    end,
  },
  {
    name = "true_finish_two_radii",
    why = "An arc whose ends lie on two circles: the wall is not known.",
    set = with(),
    draw = function()
      shop.chain { { 0, 0 }, { 4, 0 }, { 4, 3, ccw = { 4, 1.7 } }, { 0, 3 }, { 0, 0 } }
    end,
    work = finish(inside),
  },
}
