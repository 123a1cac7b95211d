-- Message boxes and file dialogs are answered by handlers, and kept.
-- out: asked: Drawing not saved! Save now? [Yes No Cancel]
-- out: asked: Save As
-- out: made: true, drawing answer.CDM
-- out: message	Yes
-- out: file	true
on_message(function(text, title, buttons)
  print("asked: " .. text .. " [" .. table.concat(buttons, " ") .. "]")
end)
on_file(function(title) print("asked: " .. title) return "answer" end)
add_path{type = 1, x1 = 1, z = -0.1, feed = 5, code = 100}
local made = make_cnc("mill")
print("made: " .. tostring(made) .. ", drawing " .. store.drawingname)
assert(#messages == 2)
print(messages[1].kind, messages[1].answer)
print(messages[2].kind, messages[2].answer == store.drawingpath .. "answer")
