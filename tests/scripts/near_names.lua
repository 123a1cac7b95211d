-- Misspelled names are errors that tell what was meant.
-- out: store has no 'NumPathSegment' (did you mean 'NumPathSegments'?)
-- out: setting has no 'tolerance' (did you mean 'tolerence'?)
-- out: geometry has no routine 'intersectLine' (did you mean 'intersectLines'?)
-- out: call has no routine 'SetupTess2' (did you mean 'SetupTESS'?)
-- out: a row has no field 'feedrate'
local function fault(run)
  local ok, text = pcall(run)
  assert(not ok)
  print((text:gsub("^.-:%d+: ", "")))
end
fault(function() return store.NumPathSegment end)
fault(function() setting.tolerance = 1 end)
fault(function() geometry.intersectLine() end)
fault(function() call.SetupTess2("L") end)
fault(function() add_path{feedrate = 10} end)
