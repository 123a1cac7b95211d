-- A routine that fails in the error path reports, logs, and lets the script go on.
-- options: --allow-io
-- args: {home}
-- out: error File not found
-- out: logged true
-- out: on with the work
local home = arg[1]
assert(os.remove(home .. "tess.def"))
call.load_defaults()
local report = messages[#messages]
print(report.kind .. " " .. report.text:match("^(.-) *\n"))
local log = assert(io.open(home .. "Errors.txt")):read("a")
print("logged " .. tostring(log:find("load_defaults()", 1, true) ~= nil))
print("on with the work")
