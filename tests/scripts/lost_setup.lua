-- When the program has to end, so does the script, whatever it catches.
-- options: --allow-io
-- args: {home}
-- status: 1
-- out: before
-- err: tessimo: Could not find setup file: test.msu named in {home}tess.def line 2 field 1
assert(os.remove(arg[1] .. "test.msu"))
print("before")
pcall(call.load_setup)
print("never")
