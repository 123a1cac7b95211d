-- Leads in and out of finish paths. The first line is split at its middle, where the path begins.
local shop = ...

local function plate() shop.rectangle(0, 0, 4, 3) end

local outside = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 } }
local inside = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 1 } }

local function finish(way)
  return function() shop.finish(way) end
end

local lines = { ["lead in path"] = true }
local arcs = { ["lead in arc"] = true }

local function with(kind, changes)
  local set = {}
  for _, some in ipairs { kind, changes } do
    for name, value in pairs(some) do set[name] = value end
  end
  return set
end

return {
  {
    name = "leads_lines_outside",
    why = "Lines of 0.25 at 45 degrees, from the free side and back to it.",
    set = lines, draw = plate, work = finish(outside),
  },
  {
    name = "leads_lines_inside",
    why = "Inside the pocket the free side is the pocket.",
    set = lines, draw = plate, work = finish(inside),
  },
  {
    name = "leads_arcs_outside",
    why = "Chords of 0.25 at 45 degrees, the centre 0.25 * cos(22.5) off their middles.",
    set = arcs, draw = plate, work = finish(outside),
  },
  {
    name = "leads_arcs_inside",
    why = "Arc leads in a pocket.",
    set = arcs, draw = plate, work = finish(inside),
  },
  {
    name = "leads_arcs_slot",
    why = "Arc leads are not checked: in a slot of 0.6 they cross the path, half of it is cut off.",
    set = arcs,
    draw = function() shop.rectangle(0, 0, 4, 0.6) end,
    work = finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 0.3 } },
  },
  {
    name = "leads_two_passes",
    why = "Each pass has its own leads.",
    set = lines, draw = plate,
    work = finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 }, passes = 2 },
  },
  {
    name = "leads_levels",
    why = "Every level is led in and out: copies of the first.",
    set = with(arcs, { ["final depth"] = 0.5 }),
    draw = plate, work = finish(inside),
  },
  {
    name = "leads_open_profile",
    why = "An open path keeps its rows whole and is led in and out at its ends.",
    set = lines,
    draw = function()
      shop.chain { { 0, 0 }, { 2, 0 }, { 3, 1, ccw = { 2, 1 } }, { 3, 2 }, { 5, 2 } }
    end,
    work = finish { from = { 0, 0 }, to = { 1, 0 }, side = { 1, -1 } },
  },
  {
    name = "leads_open_profile_arcs",
    why = "The same with arcs, on the other side.",
    set = arcs,
    draw = function()
      shop.chain { { 0, 0 }, { 2, 0 }, { 3, 1, ccw = { 2, 1 } }, { 3, 2 }, { 5, 2 } }
    end,
    work = finish { from = { 0, 0 }, to = { 1, 0 }, side = { 1, 1 } },
  },
  {
    name = "leads_ring_outside",
    why = "A full circle begins with an arc, which is not split: in and out at its start.",
    set = arcs,
    draw = function() shop.ring(2, 2, 1) end,
    work = finish { from = { 3, 2 }, to = { 2, 3 }, side = { 2, 4 } },
  },
  {
    name = "leads_ring_inside",
    why = "The same in a bore.",
    set = with(arcs, { ["lead in angle"] = 60 }),
    draw = function() shop.ring(2, 2, 1.25) end,
    work = finish { from = { 3.25, 2 }, to = { 2, 3.25 }, side = { 2, 2.5 } },
  },
  {
    name = "leads_none_on_profile",
    why = "A path on the profile has no leads, whatever is set.",
    set = lines, draw = plate,
    work = finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2.5, 0 } },
  },
  {
    name = "leads_too_long_shortened",
    why = "Leads of 1 would cross the other wall of a narrow pocket; Yes shortens them.",
    set = with(lines, { ["lead in length"] = 1, ["gouge avoidance"] = true }),
    draw = function() shop.rectangle(0, 0, 4, 1) end,
    work = function()
      shop.answer("Yes")
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 0.5 } }
    end,
  },
  {
    name = "leads_too_long_kept",
    why = "The same, answered with No: the crossing is then taken for a fold and cut away.",
    set = with(lines, { ["lead in length"] = 1, ["gouge avoidance"] = true }),
    draw = function() shop.rectangle(0, 0, 4, 1) end,
    work = function()
      shop.answer("No")
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 0.5 } }
    end,
  },
}
