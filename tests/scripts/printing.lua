-- Printing from a script: the page of the screen through a file dialog, the preview as a form, and
-- the drawing to scale.
-- out: Print to File *.pdf {home}CNC/drawing.pdf
-- out: 1
-- out: 42 sheets, 6 across and 7 down
-- out: The scale must be a number above 0 or a ratio, as 1, 0.5, 1:2 or 2:1.	false
-- out: Picture saved to disk as: CAMPIC00.PCX
local asked = {}
on_file(function(title, pattern, initial)
  asked[#asked + 1] = title .. " " .. pattern .. " " .. initial
  return nil
end)
add_segment{type = 1, x0 = 0, y0 = 0, x1 = 3, y1 = 2}
tool("miPrintPicture")
print(asked[1])

on_form("frmPrintPreview", function(form) form.cmdClose:click() end)
tool("miPrintPreview")
print(#asked)

on_form("frmPrintScale", function(form)
  form.cmbScale.text = "20:1"
  print(form.lblSheets.caption)
  form.cmbScale.text = "none"
  print(form.lblSheets.caption, form.cmdFile.enabled)
end)
tool("miPrinttoScale")

call.store_Picture()
print(state.prompt)
plot("part.svg")
