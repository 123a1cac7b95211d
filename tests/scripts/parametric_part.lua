-- A part by numbers: rows, a saved drawing, its program, and the drawing read back.
-- args: 4 3
-- out: 5 rows, 4 path rows
-- out: program written: true
-- out: 5 rows, 4 path rows after reading
-- out: 0.0 0.0 4.0 3.0
-- out: path group 2 is free
local width, height = tonumber(arg[1]), tonumber(arg[2])
local corners = {{0, 0}, {width, 0}, {width, height}, {0, height}}
for i, from in ipairs(corners) do
  local to = corners[i % 4 + 1]
  add_segment{type = 1, x0 = from[1], y0 = from[2], x1 = to[1], y1 = to[2]}
  add_path{type = 1, code = 100, z = -0.25, feed = 10,
           x0 = from[1], y0 = from[2], x1 = to[1], y1 = to[2]}
end
add_segment{type = 5, x0 = width / 2 + 1, y0 = height / 2, x1 = width / 2 + 1, y1 = height / 2,
            xc = width / 2, yc = height / 2}
print(store.NumSegments .. " rows, " .. store.NumPathSegments .. " path rows")
setting["drawing title"] = "plate " .. arg[1] .. " by " .. arg[2]
save("plate.cdm")
print("program written: " .. tostring(make_cnc("mill")))

call.new_drawing()
open("plate.cdm")
print(store.NumSegments .. " rows, " .. store.NumPathSegments .. " path rows after reading")
print(table.concat({extents()}, " "))
assert(store.units == "I" and store.drawingtitle == "plate 4 by 3")
print("path group " .. call.nextPathGroup() .. " is free")
