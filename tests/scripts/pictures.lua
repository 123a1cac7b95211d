-- A picture needs no display, and a size that it cannot have is an error.
-- status: 1
-- err: tessimo: {script}:6: a picture has sides of 1 to 16384 pixels, not 0 by 10
add_segment{type = 1, x1 = 4, y1 = 3}
plot("view.png", 320, 200)
plot("view.png", 0, 10)
