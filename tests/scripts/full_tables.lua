-- Every column of full tables, written, read and iterated row by row.
-- out: 32767 rows: 622573 values, 32767 segments, 32767 paths
local last = 32767
store.NumSegments, store.NumPathSegments = last, last
local columns = {
  "segtype", "segattr", "x0", "y0", "x1", "y1", "centerx", "centery", "pstype", "pscode",
  "psx0", "psy0", "psx1", "psy1", "psxc", "psyc", "psz", "psfeed", "psvisible",
}
for _, name in ipairs(columns) do
  for row = 1, last do store[name][row] = 1 end
end
local values = 0
for row = 1, last do
  for _, name in ipairs(columns) do values = values + math.abs(store[name][row]) end
end
local lengths, depths = 0, 0
for segment in segments() do lengths = lengths + segment.x1 end
for path in paths() do depths = depths + path.z end
print(string.format("%d rows: %.0f values, %.0f segments, %.0f paths",
                    last, values, lengths, depths))
