-- Places that the tool cannot enter: with gouge avoidance, without it, and by hand afterwards.
local shop = ...

-- A plate with a notch of width 0.3 in its upper edge.
local function notched()
  shop.chain {
    { 0, 0 }, { 4, 0 }, { 4, 2 }, { 2.15, 2 }, { 2.15, 1.2 }, { 1.85, 1.2 }, { 1.85, 2 }, { 0, 2 },
    { 0, 0 },
  }
end

-- Two rooms of 2 by 2 and a neck between them, NECK wide.
local function rooms(neck)
  local low, high = 1 - neck / 2, 1 + neck / 2
  shop.chain {
    { 0, 0 }, { 2, 0 }, { 2, low }, { 3, low }, { 3, 0 }, { 5, 0 }, { 5, 2 }, { 3, 2 },
    { 3, high }, { 2, high }, { 2, 2 }, { 0, 2 }, { 0, 0 },
  }
end

local aroundNotch = { from = { 0, 0 }, to = { 2, 0 }, side = { 2, -1 } }
local inRooms = { from = { 0, 0 }, to = { 1, 0 }, side = { 1, 0.7 } }
local off = { ["gouge avoidance"] = false }

return {
  {
    name = "gouge_notch_avoided",
    why = "The path runs straight past a notch that is narrower than the tool.",
    draw = notched, work = function() shop.finish(aroundNotch) end,
  },
  {
    name = "gouge_notch_left",
    why = "Without avoidance the fold in the notch stays and cuts into its walls.",
    set = off,
    draw = notched, work = function() shop.finish(aroundNotch) end,
  },
  {
    name = "gouge_notch_by_hand",
    why = "The fold, taken away afterwards from the menu.",
    set = off,
    draw = notched,
    work = function()
      shop.finish(aroundNotch)
      tool("miGougeAvoidance")
    end,
  },
  {
    name = "gouge_second_group_by_hand",
    why = "With two groups the click tells which; the other keeps its fold.",
    set = off,
    draw = notched,
    work = function()
      shop.finish(aroundNotch)
      shop.finish(aroundNotch)
      tool("miGougeAvoidance")
      click(4.25, 1)
    end,
  },
  {
    name = "gouge_neck_wide",
    why = "A neck of 0.7: the tool goes through, both rooms are followed.",
    draw = function() rooms(0.7) end, work = function() shop.finish(inRooms) end,
  },
  {
    name = "gouge_neck_avoided",
    why = "A neck of 0.4 is too narrow: the path stays in the room where it begins.",
    draw = function() rooms(0.4) end, work = function() shop.finish(inRooms) end,
  },
  {
    name = "gouge_neck_left",
    why = "The same without avoidance: the path goes through the neck and cuts its walls.",
    set = off,
    draw = function() rooms(0.4) end, work = function() shop.finish(inRooms) end,
  },
  {
    name = "gouge_rough_neck_avoided",
    why = "Roughing cleans its working outline of the same fold before the lines are laid.",
    draw = function() rooms(0.4) end,
    work = function()
      shop.pocket(1)
      shop.rough()
    end,
  },
  {
    name = "gouge_rough_neck_left",
    why = "Without avoidance the lines run in both rooms, on the folded outline.",
    set = off,
    draw = function() rooms(0.4) end,
    work = function()
      shop.pocket(1)
      shop.rough()
    end,
  },
  {
    name = "gouge_round_notch",
    why = "A round notch of radius 0.2 collapses; the bridge over it is no true arc.",
    draw = function()
      shop.chain {
        { 0, 0 }, { 4, 0 }, { 4, 2 }, { 2.2, 2 }, { 1.8, 2, cw = { 2, 2 } }, { 0, 2 }, { 0, 0 },
      }
    end,
    work = function() shop.finish(aroundNotch) end,
  },
}
