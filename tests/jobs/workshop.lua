-- What the small jobs have in common: a clean bench for each, the hand that draws, selects and
-- places as an operator does, and the table of what came out.
--
-- A job is { name =, why =, set = { ["key"] = value }, tool = { radius =, number = },
-- draw = function, work = function }. `why` says what its table shows. On the bench lies tool 1 of
-- radius 0.25; the other settings that count are in `bench`.

local shop = {}

-- One level at Z -0.25: each job changes what it is about.
local bench = {
  ["units of measure"] = "I",
  ["start depth"] = 0,
  ["final depth"] = 0.25,
  ["z cut per pass"] = 0.25,
  ["minimum z finish"] = 0,
  ["minimum roughing clearance"] = 0.05,
  ["cut width type"] = 1,
  ["tool spacing"] = 100, -- percent of the diameter: few lines to read
  ["tool spacing distance"] = 0.5,
  ["roughing feedrate"] = 10,
  ["finishing feedrate"] = 5,
  ["cutting mode"] = 3,
  ["pocketing style"] = 1,
  ["lathe style pocketing"] = false,
  ["gouge avoidance"] = true,
  ["connect pocketing paths"] = false,
  ["auto place finish path"] = false,
  ["true paths"] = false,
  ["pocket distance from center"] = 0,
  ["lead in path"] = false,
  ["lead in arc"] = false,
  ["lead in length"] = 0.25,
  ["lead in angle"] = 45,
  ["tolerence"] = 0.0001,
  ["part dim y"] = 3,
}
local benchTool = { number = 1, radius = 0.25 }

-- Of the pictures: what is drawn, selected and verified, and the path.
local colors = {
  ["background color"] = 0, ["draw color"] = 15, ["select color"] = 14, ["verified color"] = 10,
}
local pathColor = 12

-- Drawing -----------------------------------------------------------------------------------------

-- A chain through the points. One with cw or ccw is reached by an arc round that centre.
function shop.chain(points)
  for index = 2, #points do
    local from, to = points[index - 1], points[index]
    local center = to.cw or to.ccw or { 0, 0 }
    add_segment {
      type = to.cw and 2 or to.ccw and 3 or 1,
      x0 = from[1], y0 = from[2], x1 = to[1], y1 = to[2], xc = center[1], yc = center[2],
    }
  end
end

-- Counter-clockwise from its lower left corner.
function shop.rectangle(x0, y0, x1, y1)
  shop.chain { { x0, y0 }, { x1, y0 }, { x1, y1 }, { x0, y1 }, { x0, y0 } }
end

-- The same with corners of a radius, from the end of the lower left one.
function shop.roundedRectangle(x0, y0, x1, y1, r)
  shop.chain {
    { x0 + r, y0 }, { x1 - r, y0 }, { x1, y0 + r, ccw = { x1 - r, y0 + r } },
    { x1, y1 - r }, { x1 - r, y1, ccw = { x1 - r, y1 - r } },
    { x0 + r, y1 }, { x0, y1 - r, ccw = { x0 + r, y1 - r } },
    { x0, y0 + r }, { x0 + r, y0, ccw = { x0 + r, y0 + r } },
  }
end

function shop.circle(x, y, radius)
  add_segment { type = 5, x0 = x + radius, y0 = y, x1 = x + radius, y1 = y, xc = x, yc = y }
end

-- An arc that ends where it starts, at angle 0: a circle that paths can go round.
function shop.ring(x, y, radius)
  add_segment { type = 3, x0 = x + radius, y0 = y, x1 = x + radius, y1 = y, xc = x, yc = y }
end

-- The hand ----------------------------------------------------------------------------------------

-- A point on the row, off its middle where other rows of a symmetric part might be as near.
local function pointOn(row)
  local x0, y0, x1, y1 = store.x0[row], store.y0[row], store.x1[row], store.y1[row]
  local kind = store.segtype[row]
  if kind == 1 then return x0 + 0.4 * (x1 - x0), y0 + 0.4 * (y1 - y0) end
  local xc, yc = store.centerx[row], store.centery[row]
  local from, to = math.atan(y0 - yc, x0 - xc), math.atan(y1 - yc, x1 - xc)
  if kind == 2 then from, to = to, from end
  if to <= from + 1e-6 then to = to + 2 * math.pi end
  local angle, radius = from + 0.4 * (to - from), math.sqrt((x0 - xc) ^ 2 + (y0 - yc) ^ 2)
  return xc + radius * math.cos(angle), yc + radius * math.sin(angle)
end
shop.pointOn = pointOn

local function clickRows(name, rows)
  tool(name)
  for _, row in ipairs(rows) do click(pointOn(row)) end
  key("Esc")
end

-- Rows by their numbers, one by one.
function shop.select(...) clickRows("miSelect", { ... }) end

-- The chains that hold these rows.
function shop.selectChains(...) clickRows("miSelectContiguous", { ... }) end

-- The chain that holds the row, alone and unverified before, as a pocket and then as an island.
function shop.pocket(row)
  shop.selectChains(row)
  tool("miVerify/AcceptPocket")
end

function shop.island(row)
  shop.selectChains(row)
  tool("miVerify/AcceptIsland")
end

function shop.rough() tool("miRoughCutPocket") end

-- Style 3 asks for the row to start at.
function shop.spiral(row)
  tool("miRoughCutPocket")
  click(pointOn(row))
end

local function threeClicks(way)
  click(table.unpack(way.from))
  click(table.unpack(way.to))
  click(table.unpack(way.side))
end

-- way: from, to and side are the three clicks, passes 1 unless given.
function shop.finish(way)
  on_form("frmFinishPath", function(dialog)
    dialog.txtNumPasses.text = way.passes or 1
    dialog.cmdOK:click()
  end)
  tool("miPlaceFinishPath")
  threeClicks(way)
end

function shop.oneSegment(way)
  tool("miPlaceOnePathSegment")
  threeClicks(way)
end

-- The table ---------------------------------------------------------------------------------------

-- At most five decimals, and no more than needed.
local function plain(value)
  if math.type(value) == "integer" then return tostring(value) end
  local text = string.format("%.5f", value):gsub("0+$", ""):gsub("%.$", "")
  return text == "-0" and "0" or text
end

local function printTable(head, rows)
  table.insert(rows, 1, head)
  local widths = {}
  for _, row in ipairs(rows) do
    for column, text in ipairs(row) do widths[column] = math.max(widths[column] or 0, #text) end
  end
  for _, row in ipairs(rows) do
    local padded = {}
    for column, text in ipairs(row) do
      padded[column] = string.rep(" ", widths[column] - #text) .. text
    end
    print(table.concat(padded, "  "))
  end
end

local function printDrawing()
  local rows = {}
  for s in segments() do
    rows[#rows + 1] = {
      tostring(#rows + 1), plain(s.type), plain(s.attr), plain(s.x0), plain(s.y0), plain(s.x1),
      plain(s.y1), plain(s.xc), plain(s.yc),
    }
  end
  print("Drawing")
  printTable({ "row", "type", "attr", "x0", "y0", "x1", "y1", "xc", "yc" }, rows)
end

-- Tools as the operator counts them, from 1.
local function printPath()
  if store.NumPathSegments == 0 then return print("No path") end
  local rows = {}
  for p in paths() do
    rows[#rows + 1] = {
      tostring(#rows + 1), plain(p.type), plain(p.code // 100), plain(p.code % 100 + 1),
      plain(p.x0), plain(p.y0), plain(p.x1), plain(p.y1), plain(p.xc), plain(p.yc), plain(p.z),
      plain(p.feed),
    }
  end
  print("Path")
  printTable({ "row", "type", "group", "tool", "x0", "y0", "x1", "y1", "xc", "yc", "z", "feed" },
             rows)
end

local function printMessages(first)
  for index = first, #messages do
    local asked = messages[index]
    if asked.kind == "message" then
      print()
      print("Message" .. (asked.title ~= "" and " \"" .. asked.title .. "\"" or "") ..
            ", answered with " .. asked.answer)
      for line in (asked.text .. "\n"):gmatch("(.-)\r?\n") do
        if line ~= "" then print("  " .. line) end
      end
    end
  end
end

-- Answers in the order in which the job gives them, before the question comes up.
local answers = {}
function shop.answer(word) answers[#answers + 1] = word end

-- A line of the job's own in its golden.
local remarks = {}
function shop.note(text) remarks[#remarks + 1] = text end

local function valueText(value)
  return type(value) == "number" and plain(value) or tostring(value)
end

local function printSettings(job, held)
  local lines = { string.format("tool %d, radius %s", held.number, plain(held.radius)) }
  local changed = {}
  for name in pairs(job.set or {}) do changed[#changed + 1] = name end
  table.sort(changed)
  for _, name in ipairs(changed) do
    lines[#lines + 1] = name .. " = " .. valueText(job.set[name])
  end
  print("With " .. table.concat(lines, "; "))
end

-- Jobs --------------------------------------------------------------------------------------------

local function cleanBench()
  on_message(function() return "No" end)
  key("Esc")
  tool("miNew")
  on_message(function(_, _, buttons)
    return #buttons > 1 and table.remove(answers, 1) or nil
  end)
  for name, value in pairs(bench) do setting[name] = value end
  for name, value in pairs(colors) do setting[name] = value end
  store.cursorgridf = 0 -- clicks count as they are
  answers, remarks = {}, {}
end

local function hold(wanted)
  local held = { number = wanted and wanted.number or benchTool.number,
                 radius = wanted and wanted.radius or benchTool.radius }
  store.selectedtool = held.number - 1
  store.toolradius[held.number - 1] = held.radius
  store.toolcolor[held.number - 1] = pathColor
  return held
end
shop.hold = hold

-- Room for the tool all round.
local function lookAt(margin)
  local left, bottom, right, top = extents()
  if not left then return end
  view { left - margin, bottom - margin, right + margin, top + margin }
end

-- Draws the job's part, does its work and prints its table.
function shop.work(job)
  cleanBench()
  local held = hold(job.tool)
  for name, value in pairs(job.set or {}) do
    assert(bench[name] ~= nil, name .. " is not on the bench")
    setting[name] = value
  end
  job.draw()
  lookAt(4 * held.radius)
  local before, beepsBefore = #messages, beeps
  job.work()

  print("== " .. job.name)
  print(job.why)
  printSettings(job, held)
  print()
  printDrawing()
  print()
  printPath()
  for _, remark in ipairs(remarks) do
    print()
    print(remark)
  end
  printMessages(before + 1)
  if beeps > beepsBefore then print("\nBeeps: " .. beeps - beepsBefore) end
end

-- What the last job has made. Zoom Extents counts the path, so the leads are in the picture.
function shop.picture(path)
  key("Esc")
  tool("miZoomExtents")
  plot(path, 800, 640)
end

return shop
