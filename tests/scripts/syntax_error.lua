-- A script that is no Lua does nothing.
-- status: 1
-- err: tessimo: {script}:5: syntax error near 'is'
print("never")
this is no Lua
