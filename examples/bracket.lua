-- An L bracket of 1/4 inch aluminium plate: three holes for no. 10 screws, an adjusting slot and
-- an outline with filleted corners, cut free but for three tabs. Writes bracket.cdm and its path
-- file BRACKET.TPM into this script's folder:
--
--     ./run --run examples/bracket.lua
--     ./run --make-cnc mill examples/bracket.cdm
--
-- Other sizes: ./run --run examples/bracket.lua LENGTH HEIGHT (the two legs, in inches).

local length = tonumber(arg[1] or 4)
local height = tonumber(arg[2] or 3)

-- The part lies inside a larger plate on a waste board; the clamps hold the margin.
local margin, plate = 1, 0.25
local left, bottom = margin, margin
local right, top = left + length, bottom + height
local leg = 1.25              -- width of both legs
local corner, inside = 0.25, 0.375
local slotLength, slotWidth = 1.25, 0.375
local retract = 0.5           -- above the part: clear of the clamps

assert(length >= 3.75 and height >= 2.75, "the legs are too short for holes and slot")

-- Tools by their numbers in the setup mill_inch, as the operator counts them.
local spotDrill, endMill, drill = 1, 2, 13

local function diameterOf(tool) return 2 * store.toolradius[tool - 1] end

assert(diameterOf(endMill) < slotWidth, "the end mill does not fit the slot")

-- Depths. Drill and end mill go a little into the waste board.
local throughCut = plate + 0.01
local spotDepth = 0.11                                          -- a 90 degree point: .22 wide
local drillDepth = throughCut + 0.3 * diameterOf(drill)         -- the point of 118 degrees
local peck = 0.1
local levels = { -0.065, -0.13, -0.195, -throughCut }
local tabTop, tabWidth = -0.2, 0.15
local allowance = 0.01                                          -- for the finishing pass

-- Feeds, within the range that the tool chest gives for each tool.
local spotFeed, drillFeed, roughFeed, finishFeed = 8, 12, 12, 10
local entryFeed = 4

-- Shapes -----------------------------------------------------------------------------------------
-- A shape is a list of elements, each beginning where the one before ends: lines (kind 1),
-- clockwise arcs (kind 2) and counter-clockwise arcs (kind 3).

local LINE, CW, CCW, CIRCLE = 1, 2, 3, 5

local function line(x0, y0, x1, y1, tab)
  return { kind = LINE, x0 = x0, y0 = y0, x1 = x1, y1 = y1, xc = 0, yc = 0, tab = tab }
end

local function arc(kind, x0, y0, x1, y1, xc, yc)
  return { kind = kind, x0 = x0, y0 = y0, x1 = x1, y1 = y1, xc = xc, yc = yc }
end

local function direction(x0, y0, x1, y1)
  local distance = math.sqrt((x1 - x0) ^ 2 + (y1 - y0) ^ 2)
  return (x1 - x0) / distance, (y1 - y0) / distance
end

-- The fillet of one corner, between the corners before and behind it. The two tangent points lie
-- radius * tan(half the turn) from the corner.
local function fillet(before, at, behind)
  local inX, inY = direction(before.x, before.y, at.x, at.y)
  local outX, outY = direction(at.x, at.y, behind.x, behind.y)
  local turn = inX * outY - inY * outX -- above 0: to the left
  local reach = at.radius * math.abs(turn) / (1 + inX * outX + inY * outY)
  local x0, y0 = at.x - reach * inX, at.y - reach * inY
  local toCentre = turn > 0 and at.radius or -at.radius
  return arc(turn > 0 and CCW or CW, x0, y0, at.x + reach * outX, at.y + reach * outY,
    x0 - toCentre * inY, y0 + toCentre * inX)
end

-- A closed outline through corners {x, y, radius, tab}; `tab` belongs to the line that follows.
local function filletedOutline(corners)
  local count, arcs, shape = #corners, {}, {}
  for i, at in ipairs(corners) do
    arcs[i] = fillet(corners[(i - 2) % count + 1], at, corners[i % count + 1])
  end
  for i, here in ipairs(arcs) do
    local following = arcs[i % count + 1]
    shape[#shape + 1] = here
    shape[#shape + 1] = line(here.x1, here.y1, following.x0, following.y0, corners[i].tab)
  end
  return shape
end

-- The closed shape begun in the middle of its element `index`, a line.
local function begunInMiddleOf(shape, index)
  local first = shape[index]
  local x, y = (first.x0 + first.x1) / 2, (first.y0 + first.y1) / 2
  local turned = { line(x, y, first.x1, first.y1) }
  for i = 1, #shape - 1 do
    turned[#turned + 1] = shape[(index - 1 + i) % #shape + 1]
  end
  turned[#turned + 1] = line(first.x0, first.y0, x, y)
  return turned
end

-- The element moved to the left of its travel. A clockwise arc has its centre on the right and
-- grows, a counter-clockwise one shrinks.
local function elementToLeft(e, distance)
  if e.kind == LINE then
    local dx, dy = direction(e.x0, e.y0, e.x1, e.y1)
    local nx, ny = -dy * distance, dx * distance
    return line(e.x0 + nx, e.y0 + ny, e.x1 + nx, e.y1 + ny, e.tab)
  end
  local radius = math.sqrt((e.x0 - e.xc) ^ 2 + (e.y0 - e.yc) ^ 2)
  local factor = (radius + (e.kind == CW and distance or -distance)) / radius
  assert(factor > 0, "the cutter does not fit into a fillet")
  return arc(e.kind, e.xc + (e.x0 - e.xc) * factor, e.yc + (e.y0 - e.yc) * factor,
    e.xc + (e.x1 - e.xc) * factor, e.yc + (e.y1 - e.yc) * factor, e.xc, e.yc)
end

-- All elements touch tangentially, so that moved elements still meet: no joints to compute.
local function toLeft(shape, distance)
  local moved = {}
  for i, e in ipairs(shape) do moved[i] = elementToLeft(e, distance) end
  return moved
end

-- The part ---------------------------------------------------------------------------------------
-- The outline runs clockwise and the slot counter-clockwise: a cutter on the left of either one
-- has the material on its right, which is climb milling.

local outline = filletedOutline {
  { x = left, y = top, radius = corner },
  { x = left + leg, y = top, radius = corner },
  { x = left + leg, y = bottom + leg, radius = inside, tab = true },
  { x = right, y = bottom + leg, radius = corner },
  { x = right, y = bottom, radius = corner, tab = true },
  { x = left, y = bottom, radius = corner, tab = true },
}
local rightEdge = 2 * 4 -- each corner gives an arc and a line: the line behind corner 4

local slotX, slotY = right - 0.75 - slotLength / 2, bottom + leg / 2
local slot
do
  local x0, x1 = slotX - slotLength / 2, slotX + slotLength / 2
  local y0, y1 = slotY - slotWidth / 2, slotY + slotWidth / 2
  slot = {
    line(x0, y0, x1, y0),
    arc(CCW, x1, y0, x1, y1, x1, slotY),
    line(x1, y1, x0, y1),
    arc(CCW, x0, y1, x0, y0, x0, slotY),
  }
end

local holes = {
  { left + leg / 2, bottom + leg / 2 },
  { left + leg / 2, top - 1.25 },
  { left + leg / 2, top - 0.5 },
}

-- The drawing ------------------------------------------------------------------------------------

local function draw(shape)
  for _, e in ipairs(shape) do
    add_segment { type = e.kind, x0 = e.x0, y0 = e.y0, x1 = e.x1, y1 = e.y1, xc = e.xc, yc = e.yc }
  end
end

local function drawHole(x, y, diameter)
  local edge = x + diameter / 2
  add_segment { type = CIRCLE, x0 = edge, y0 = y, x1 = edge, y1 = y, xc = x, yc = y }
end

-- The tool path ----------------------------------------------------------------------------------

local group, tool = 0, 0
local atX, atY = 0, 0 -- where the tool stands

local function startGroup(number)
  group, tool = group + 1, number
end

local function add(row)
  row.code = group * 100 + tool - 1
  add_path(row)
  atX, atY = row.x1, row.y1
end

local function cut(e, z, feed)
  add { type = e.kind, x0 = e.x0, y0 = e.y0, x1 = e.x1, y1 = e.y1, xc = e.xc, yc = e.yc,
    z = z, feed = feed }
end

local function rapid(x, y)
  add { type = 0, x0 = x, y0 = y, x1 = x, y1 = y, z = retract, feed = 0 }
end

-- A cycle row holds the peck in xc and the dwell in yc.
local function cycle(number, x, y, depth, peckDepth, feed)
  add { type = number, x0 = x, y0 = y, x1 = x, y1 = y, xc = peckDepth, yc = 0, z = depth,
    feed = feed }
end

-- The rows of a path are flat, so a way down is stairs. No end mill likes to go straight down into
-- solid material; by so little at a time it does.
local step = 0.009

-- A way down along a line.
local function stairs(e, from, to, feed)
  local count = math.ceil((from - to) / step)
  local dx, dy = (e.x1 - e.x0) / count, (e.y1 - e.y0) / count
  for i = 1, count do
    cut(line(e.x0 + (i - 1) * dx, e.y0 + (i - 1) * dy, e.x0 + i * dx, e.y0 + i * dy),
      from + (to - from) * i / count, feed)
  end
end

-- To and fro along a line until the tool is down, where it came from.
local function ramp(e, from, to)
  local turns = math.ceil((from - to) / (2 * step))
  for turn = 1, turns do
    local z = from + (to - from) * turn / turns
    cut(e, z + (from - to) / (2 * turns), entryFeed)
    cut(line(e.x1, e.y1, e.x0, e.y0), z, entryFeed)
  end
end

-- Below the top of the tabs a line with a tab is cut in three, the middle one over the tab. Its
-- length leaves `tabWidth` of material between the two cuts, and a little more behind it, where the
-- tool goes down again.
local function cutOverTab(e, z, feed)
  local dx, dy = direction(e.x0, e.y0, e.x1, e.y1)
  local half = (tabWidth + diameterOf(endMill)) / 2
  local mx, my = (e.x0 + e.x1) / 2, (e.y0 + e.y1) / 2
  local ax, ay, bx, by = mx - half * dx, my - half * dy, mx + half * dx, my + half * dy
  cut(line(e.x0, e.y0, ax, ay), z, feed)
  cut(line(ax, ay, bx, by), tabTop, feed)
  local downX, downY = bx + tabWidth / 2 * dx, by + tabWidth / 2 * dy
  stairs(line(bx, by, downX, downY), tabTop, z, feed)
  cut(line(downX, downY, e.x1, e.y1), z, feed)
end

local function follow(shape, z, feed)
  for _, e in ipairs(shape) do
    if e.tab and z < tabTop then cutOverTab(e, z, feed) else cut(e, z, feed) end
  end
end

-- Quarter arcs that meet the start of a closed path tangentially, from and to its left.
local function leads(path, radius)
  local s = path[1]
  local dx, dy = direction(s.x0, s.y0, s.x1, s.y1)
  local cx, cy = s.x0 - dy * radius, s.y0 + dx * radius
  return arc(CCW, cx - dx * radius, cy - dy * radius, s.x0, s.y0, cx, cy),
    arc(CCW, s.x0, s.y0, cx + dx * radius, cy + dy * radius, cx, cy)
end

local function drillHoles()
  local places = { { slotX, slotY }, table.unpack(holes) } -- first: room for the end mill's plunge
  startGroup(spotDrill)
  for _, hole in ipairs(places) do cycle(81, hole[1], hole[2], spotDepth, 0, spotFeed) end
  startGroup(drill)
  for _, hole in ipairs(places) do cycle(83, hole[1], hole[2], drillDepth, peck, drillFeed) end
end

-- After a tool change the generator goes down to the first row's depth at rapid speed. A first row
-- at the retract height makes that harmless; the next one goes down at the plunge rate. It stands
-- elsewhere than the last hole, so that its X and Y words are written: where the change itself left
-- the machine does not matter then. Half circles lead from the middle of the slot to its wall and
-- back, so that each level begins where the one above ended, and ramps down from there.
local function millSlot()
  startGroup(endMill)
  rapid(slotX, slotY)
  local path = begunInMiddleOf(toLeft(slot, diameterOf(endMill) / 2), 1)
  local wall = path[1].y0
  local leadY = (slotY + wall) / 2
  local middle = line(slotX, slotY, slotX + diameterOf(endMill), slotY)
  for i, z in ipairs(levels) do
    ramp(middle, levels[i - 1] or 0, z)
    local feed = i == #levels and finishFeed or roughFeed
    cut(arc(CCW, slotX, slotY, slotX, wall, slotX, leadY), z, feed)
    follow(path, z, feed)
    cut(arc(CCW, slotX, wall, slotX, slotY, slotX, leadY), z, feed)
  end
end

-- Roughing leaves the allowance. Every level ends where it began, in the waste, so that the next
-- one ramps down there, along the way between the leads. The finishing pass takes the allowance off at full depth.
local function millOutline()
  local radius = diameterOf(endMill) / 2
  local path = begunInMiddleOf(outline, rightEdge)
  local rough, finish = toLeft(path, radius + allowance), toLeft(path, radius)
  local leadIn, leadOut = leads(rough, radius)
  local back = line(leadOut.x1, leadOut.y1, leadIn.x0, leadIn.y0)
  startGroup(endMill)
  for i, z in ipairs(levels) do
    ramp(line(back.x1, back.y1, back.x0, back.y0), levels[i - 1] or 0, z)
    cut(leadIn, z, roughFeed)
    follow(rough, z, roughFeed)
    cut(leadOut, z, roughFeed)
    cut(back, z, roughFeed)
  end

  leadIn, leadOut = leads(finish, radius + allowance)
  startGroup(endMill)
  cut(line(atX, atY, leadIn.x0, leadIn.y0), -throughCut, roughFeed)
  cut(leadIn, -throughCut, finishFeed)
  follow(finish, -throughCut, finishFeed)
  cut(leadOut, -throughCut, finishFeed)
  rapid(setting["x start pos"], setting["y start pos"])
end

-- Settings that the drawing carries --------------------------------------------------------------

setting["drawing title"] = "L bracket"
setting["designer name"] = "bracket.lua"
setting["drawing revision"] = "A"
setting["creation date"] = "11/21/2026" -- fixed: the same script writes the same file every time
setting["part dim x"] = length + 2 * margin
setting["part dim y"] = height + 2 * margin
setting["part dim z"] = plate
setting["x start pos"], setting["y start pos"] = 0, 0
setting["z start pos"] = retract
setting["start depth"] = 0
setting["final depth"] = throughCut
setting["z cut per pass"] = 0.065
setting["minimum roughing clearance"] = allowance
setting["roughing feedrate"], setting["finishing feedrate"] = roughFeed, finishFeed
setting["selected tool"] = endMill - 1

draw(outline)
draw(slot)
for _, hole in ipairs(holes) do drawHole(hole[1], hole[2], diameterOf(drill)) end

drillHoles()
millSlot()
millOutline()
save((arg[0]:match("^.*/") or "./") .. "bracket.cdm")
