-- File commands stay inside the folders of the script; io and os are not there at all.
-- status: 1
-- out: nil	nil	nil	nil
-- out: true
-- err: tessimo: {script}:9: '/part.cdm' is outside the folders that this script may use: those named on the command line, the script's own and the drawing folder
print(io, os, require, package)
save("here.cdm")
print(store.drawingsaved == -1)
save("/part.cdm")
