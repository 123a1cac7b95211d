-- Single rows, quick place, and taking back.
local shop = ...

local function plate() shop.rectangle(0, 0, 4, 3) end
local lower = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 } }

local function mixed()
  shop.chain { { 0, 0 }, { 2, 0 }, { 3, 1, ccw = { 2, 1 } }, { 3, 2 } }
end

return {
  {
    name = "place_one_segment",
    why = "One line with its offset; no joint, and no leads although they are set.",
    set = { ["lead in path"] = true },
    draw = plate,
    work = function()
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 } }
      tool("miClearAllPaths")
      shop.oneSegment(lower)
    end,
  },
  {
    name = "place_one_arc",
    why = "One arc of radius 1 against its sense, outside: radius 1.25, clockwise.",
    draw = mixed,
    work = function()
      shop.finish(lower)
      tool("miClearAllPaths")
      shop.oneSegment { from = { 3, 1 }, to = { 2.70711, 0.29289 }, side = { 3.5, -0.5 } }
    end,
  },
  {
    name = "place_one_after_three_passes",
    why = "The number of passes stays: three rows, the nearest last.",
    draw = plate,
    work = function()
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 }, passes = 3 }
      tool("miClearAllPaths")
      shop.oneSegment(lower)
    end,
  },
  {
    name = "quick_square",
    why = "A selected square: one chain of four rows on the profile.",
    draw = plate,
    work = function()
      tool("miSelectAll")
      tool("miQuickPlace")
    end,
  },
  {
    name = "quick_open_levels",
    why = "Lines and an arc on the profile, at -0.2, -0.4, -0.45 and the floor at -0.5.",
    set = { ["final depth"] = 0.5, ["z cut per pass"] = 0.2, ["minimum z finish"] = 0.05 },
    draw = mixed,
    work = function()
      tool("miSelectAll")
      tool("miQuickPlace")
    end,
  },
  {
    name = "quick_two_chains",
    why = "Two chains in one group.",
    draw = function()
      shop.rectangle(0, 0, 1, 1)
      shop.chain { { 2, 0 }, { 3, 0 }, { 2.5, 1 }, { 2, 0 } }
    end,
    work = function()
      tool("miSelectAll")
      tool("miQuickPlace")
    end,
  },
  {
    name = "quick_never_connected",
    why = "Quick place makes no links, also when paths are to be connected.",
    set = { ["connect pocketing paths"] = true },
    draw = function()
      shop.rectangle(0, 0, 1, 1)
      shop.chain { { 2, 0 }, { 3, 0 }, { 2.5, 1 }, { 2, 0 } }
    end,
    work = function()
      tool("miSelectAll")
      tool("miQuickPlace")
    end,
  },
  {
    name = "quick_twice",
    why = "A row with a path begins no second chain, but a chain from another row takes it along.",
    draw = plate,
    work = function()
      shop.select(1, 2)
      tool("miQuickPlace")
      tool("miSelectAll")
      tool("miQuickPlace")
    end,
  },
  {
    name = "undo_last_place",
    why = "Of three placements the last is taken back.",
    draw = plate,
    work = function()
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 1 } }
      shop.oneSegment(lower)
      shop.oneSegment { from = { 4, 0 }, to = { 4, 2 }, side = { 5, 2 } }
      tool("miUndoLastPlace")
    end,
  },
  {
    name = "undo_last_place_twice",
    why = "A second undo takes the last run of the table.",
    draw = plate,
    work = function()
      shop.finish { from = { 0, 0 }, to = { 2, 0 }, side = { 2, 1 } }
      shop.oneSegment(lower)
      shop.oneSegment { from = { 4, 0 }, to = { 4, 2 }, side = { 5, 2 } }
      tool("miUndoLastPlace")
      tool("miUndoLastPlace")
    end,
  },
  {
    name = "reverse_rows",
    why = "Reversed alone: the lower line, and the arc with its sense.",
    draw = mixed,
    work = function()
      tool("miSelectAll")
      tool("miQuickPlace")
      tool("miRevPath")
      click(1, 0)
      tool("miRevPath")
      click(2.70711, 0.29289)
    end,
  },
}
