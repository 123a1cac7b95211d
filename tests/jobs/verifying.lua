-- Outlines that are one closed loop, and those that are not.
local shop = ...

local function halves()
  shop.chain { { 2, 1 }, { 0, 1, ccw = { 1, 1 } }, { 2, 1, ccw = { 1, 1 } } }
end

return {
  {
    name = "verify_circle",
    why = "A circle is verified as it stands.",
    draw = function() shop.circle(1, 1, 0.75) end,
    work = function()
      shop.pocket(1)
      shop.note(string.format("Pocket %.5g by %.5g", state.PocketXDim, state.PocketYDim))
    end,
  },
  {
    name = "verify_arc_first",
    why = "The box holds the first row's bulge and only the ends of the other arc.",
    draw = function()
      shop.chain {
        { 2, 0 }, { 2, 2, ccw = { 2, 1 } }, { 0, 2 }, { 0, 0, ccw = { 0, 1 } }, { 2, 0 },
      }
    end,
    work = function()
      shop.pocket(1)
      shop.note(string.format("Pocket %.5g by %.5g", state.PocketXDim, state.PocketYDim))
    end,
  },
  {
    name = "verify_small_gap",
    why = "A gap within the tolerance, at the upper right corner, counts as closed.",
    draw = function()
      shop.chain { { 0, 0 }, { 2, 0 }, { 2, 1 } }
      shop.chain { { 2, 1.00008 }, { 0, 1 }, { 0, 0 } }
    end,
    work = function() shop.pocket(1) end,
  },
  {
    name = "verify_two_halves",
    why = "Two half circles of one sense are taken for duplicates; No keeps both.",
    draw = halves,
    work = function()
      shop.answer("No")
      shop.pocket(1)
    end,
  },
  {
    name = "verify_two_halves_swept",
    why = "Yes removes one half; the other is one open row, which is passed over in silence.",
    draw = halves,
    work = function()
      shop.answer("Yes")
      shop.pocket(1)
    end,
  },
  {
    name = "verify_gap",
    why = "From the seed at (2, 0) the walk comes to the loose end (0, 0.5).",
    draw = function() shop.chain { { 0, 0 }, { 2, 0 }, { 2, 1 }, { 0, 1 }, { 0, 0.5 } } end,
    work = function()
      shop.select(1, 2, 3, 4)
      tool("miVerify/AcceptPocket")
    end,
  },
  {
    name = "verify_stray_row",
    why = "A row that hangs on a corner is told; all rows stay selected.",
    draw = function()
      shop.rectangle(0, 0, 2, 1)
      shop.chain { { 2, 1 }, { 2.5, 1.5 } }
    end,
    work = function()
      tool("miSelectAll")
      tool("miVerify/AcceptPocket")
    end,
  },
  {
    name = "verify_island_after_pocket",
    why = "Pocket and island are verified; the pocket's size stays.",
    draw = function()
      shop.rectangle(0, 0, 4, 3)
      shop.ring(2, 1.5, 0.5)
    end,
    work = function()
      shop.pocket(1)
      shop.island(5)
      shop.note(string.format("Pocket %.5g by %.5g", state.PocketXDim, state.PocketYDim))
    end,
  },
}
