-- With --allow-io a script has Lua's own files.
-- options: --allow-io
-- args: {folder}
-- out: a line
local path = arg[1] .. "note.txt"
local file = assert(io.open(path, "w"))
file:write("a line\n")
file:close()
for line in io.lines(path) do print(line) end
assert(os.remove(path))
