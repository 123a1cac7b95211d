-- Lathe style roughing: the drawing is the part with x its length and y its radius. Lines go from
-- the highest down; z -99 marks a rapid.
local shop = ...

-- What is turned off, as a closed outline: the profile from the face to the chuck, the stock's
-- surface at 1, and the face.
local function stock(profile)
  local points = { { 0, 0.2 } }
  for _, point in ipairs(profile) do points[#points + 1] = point end
  local last = profile[#profile]
  points[#points + 1] = { last[1], 1 }
  points[#points + 1] = { 0, 1 }
  points[#points + 1] = { 0, 0.2 }
  shop.chain(points)
end

local function turn()
  shop.pocket(1)
  shop.rough()
end

local function with(changes)
  local set = {
    ["lathe style pocketing"] = true, ["part dim y"] = 1, ["cut width type"] = 2,
    ["tool spacing distance"] = 0.16, ["minimum roughing clearance"] = 0.02, ["cutting mode"] = 1,
    ["final depth"] = 0,
  }
  for name, value in pairs(changes or {}) do set[name] = value end
  return set
end

local turningTool = { number = 1, radius = 0.0156 }

local function shoulders()
  stock { { -1, 0.2 }, { -1, 0.55 }, { -2, 0.55 }, { -2, 0.8 }, { -2.5, 0.8 } }
end

return {
  {
    name = "turn_shoulders",
    why = "Two shoulders, cut away from the chuck: back by rapids half a step above the last cut.",
    set = with(), tool = turningTool,
    draw = shoulders, work = turn,
  },
  {
    name = "turn_shoulders_to_chuck",
    why = "The same, cut towards the chuck.",
    set = with { ["cutting mode"] = 2 }, tool = turningTool,
    draw = shoulders, work = turn,
  },
  {
    name = "turn_shoulders_both_ways",
    why = "To and fro.",
    set = with { ["cutting mode"] = 3 }, tool = turningTool,
    draw = shoulders, work = turn,
  },
  {
    name = "turn_fillet",
    why = "A fillet of 0.15 in the corner: the cuts end on the arc less the clearance.",
    set = with { ["cutting mode"] = 2, ["tool spacing distance"] = 0.08 }, tool = turningTool,
    draw = function()
      stock { { -0.85, 0.2 }, { -1, 0.35, cw = { -0.85, 0.35 } }, { -1, 0.7 }, { -2, 0.7 } }
    end,
    work = turn,
  },
  {
    name = "turn_undercut",
    why = "A groove behind a collar: two spans on a line, and a rapid over the collar.",
    set = with { ["cutting mode"] = 2 }, tool = turningTool,
    draw = function()
      stock {
        { -0.5, 0.2 }, { -0.5, 0.7 }, { -1, 0.7 }, { -1, 0.4 }, { -1.8, 0.4 }, { -1.8, 0.8 },
        { -2.4, 0.8 },
      }
    end,
    work = turn,
  },
  {
    name = "turn_taper",
    why = "A taper: each cut ends 0.02 from the slope.",
    set = with { ["cutting mode"] = 2 }, tool = turningTool,
    draw = function() stock { { -1.5, 0.6 }, { -2, 0.6 } } end,
    work = turn,
  },
  {
    name = "turn_one_span",
    why = "One cut alone has no first retreat: the last rapid goes to 0.",
    set = with { ["tool spacing distance"] = 0.7 }, tool = turningTool,
    draw = function() shop.rectangle(-2, 0.2, 0, 0.9) end,
    work = turn,
  },
  {
    name = "turn_depths_do_not_count",
    why = "No levels, whatever the depths say; the feed is the finishing feed.",
    set = with { ["final depth"] = 1, ["z cut per pass"] = 0.2, ["minimum z finish"] = 0.05 },
    tool = turningTool,
    draw = function() shop.rectangle(-2, 0.2, 0, 0.9) end,
    work = turn,
  },
  {
    name = "turn_finish_on_profile",
    why = "The finishing cut: quick place on the profile, depth 0.",
    set = with { ["z cut per pass"] = 0 }, tool = { number = 2, radius = 0.0078 },
    draw = shoulders,
    work = function()
      shop.select(1, 2, 3, 4, 5)
      tool("miQuickPlace")
    end,
  },
}
