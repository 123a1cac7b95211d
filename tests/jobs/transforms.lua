-- Copies and transforms of the edit menu, and the bolt circle, all by their forms.
local shop = ...

-- A house without symmetry, rows 1 to 6, with a quarter arc for its last corner and a round window.
local function house()
  shop.chain {
    { 0, 0 }, { 3, 0 }, { 3, 1 }, { 2, 2, ccw = { 2, 1 } }, { 0.5, 2 }, { 0, 0 },
  }
  shop.circle(2, 1, 0.5)
end

local function withPath()
  house()
  add_path { type = 1, x0 = 0, y0 = 0, x1 = 3, y1 = 0, z = -0.25, feed = 5, code = 100 }
  add_path {
    type = 83, x0 = 2, y0 = 1, x1 = 2, y1 = 1, xc = 0.125, yc = 2, z = -0.5, feed = 4, code = 201,
  }
  if not tool_state("miShowToolPaths").checked then tool("miShowToolPaths") end
end

-- The fields and options by their names, then the button.
local function fill(form, values)
  for name, value in pairs(values) do
    if type(value) == "string" then form[name].text = value else form[name].value = value end
  end
end

local function through(name, command, button, values)
  on_form(name, function(form)
    fill(form, values)
    form[button]:click()
  end)
  tool(command)
end

local function mirror(values) through("frmMirror", "miMirror", "cmdOK", values) end
local function rotate(values) through("frmRotate", "miRotate", "cmdOK", values) end
local function scale(values) through("dlgInputReal", "miScaleDrawing", "cmdAccept", values) end

local function bolts(values, create)
  on_form("dlgSelectCycle", function(form)
    form.List1.index = 0
    form.cmdAccept:click()
  end)
  on_form("BoltCircle", function(form)
    fill(form, values)
    form.cmdCompute:click()
    shop.note("Holes: " .. table.concat(form.lstBoltHoleResults.items, "; "))
    shop.note("Between centers " .. form.lblDistanceBetweenHoleCenters.caption ..
              ", between edges " .. form.lblDistanceBetweenHoleEdges.caption)
    if create then form.cmdCreateSegments:click() end
  end)
  tool("miBoltCircle")
end

local function peckTemplate()
  store.NumCycles = 1
  store.cycletext[0] = "G83 peck"
  store.cyclefinaldepth[0], store.cycleincrdepth[0] = -0.5, 0.125
  store.cycledwell[0], store.cyclefeedrate[0] = 0, 6
end

return {
  {
    name = "move_everything",
    why = "Rows and paths by one way; the cycle keeps its increment and dwell.",
    draw = withPath,
    work = function()
      rightclick(0, 0)
      tool("miMoveProfile")
      click(0.5, 0.75)
    end,
  },
  {
    name = "move_selection",
    why = "Only the roof, an arc and a line, has moved; it is still selected.",
    draw = withPath,
    work = function()
      shop.select(3, 4)
      rightclick(0, 0)
      tool("miMoveProfile")
      click(0.25, 1)
    end,
  },
  {
    name = "move_undone",
    why = "The first undo brings the paths back alone.",
    draw = withPath,
    work = function()
      rightclick(0, 0)
      tool("miMoveProfile")
      click(0.5, 0.75)
      tool("miUndo")
    end,
  },
  {
    name = "origin_at_the_window",
    why = "The centre of the window is the origin of rows and paths.",
    draw = withPath,
    work = function()
      tool("miSetOrigin")
      click(2, 1)
    end,
  },
  {
    name = "copy_selection_twice",
    why = "Two copies of the roof, each as far from its marker as the roof from the first one.",
    draw = house,
    work = function()
      shop.select(3, 4)
      rightclick(0, 0)
      tool("miCopy")
      rightclick(0.5, 0.5)
      tool("miPaste")
      rightclick(1, 1)
      tool("miPaste")
    end,
  },
  {
    name = "copy_by_click",
    why = "The arc alone was picked; its copy is not selected.",
    draw = house,
    work = function()
      rightclick(0, 0)
      key("C")
      click(shop.pointOn(3))
      rightclick(-2, 0.5)
      key("P")
    end,
  },
  {
    name = "copy_circle_entity",
    why = "A circle entity is pasted with its centre at 0, 0.",
    draw = house,
    work = function()
      rightclick(0, 0)
      tool("miCopy")
      click(2.5, 1)
      rightclick(1, 0)
      tool("miPaste")
    end,
  },
  {
    name = "mirror_horizontally",
    why = "About x 1.5; the arc runs the other way round.",
    draw = house,
    work = function() mirror { txtMirrorX = "1.5", optHorizontally = true } end,
  },
  {
    name = "mirror_copy_vertically",
    why = "House and image about y 0, the arc of the image clockwise.",
    draw = house,
    work = function() mirror { txtMirrorY = "0", optVertically = true, optCopy = true } end,
  },
  {
    name = "mirror_both",
    why = "Half a turn about the middle of the base: arcs keep their sense.",
    draw = house,
    work = function() mirror { txtMirrorX = "1.5", txtMirrorY = "0", optBoth = true } end,
  },
  {
    name = "mirror_selection",
    why = "The selected roof about y 2, at the end of the table and still selected.",
    draw = house,
    work = function()
      shop.select(3, 4)
      mirror { txtMirrorY = "2", optVertically = true }
    end,
  },
  {
    name = "rotate_by_30",
    why = "Everything by 30 degrees about the left corner.",
    draw = house,
    work = function() rotate { txtDegrees = "30", txtRotateX = "0", txtRotateY = "0" } end,
  },
  {
    name = "rotate_copy_clockwise",
    why = "A second house on its side.",
    draw = house,
    work = function()
      rotate {
        txtDegrees = "90", txtRotateX = "0", txtRotateY = "0", optClockwise = true, optCopy = true,
      }
    end,
  },
  {
    name = "rotate_star",
    why = "One line and its copies at 60 to 300 degrees.",
    draw = function() shop.chain { { 0.25, 0 }, { 2, 0 } } end,
    work = function()
      for turn = 1, 5 do
        shop.select(1)
        rotate {
          txtDegrees = tostring(60 * turn), txtRotateX = "0", txtRotateY = "0", optCopy = true,
        }
        tool("miUnselectAll")
      end
    end,
  },
  {
    name = "scale_selection",
    why = "The window at half size about the origin; the rest stays.",
    draw = house,
    work = function()
      shop.select(6)
      scale { txtValue = "0.5", chkSelectedItemsOnly = true }
    end,
  },
  {
    name = "scale_everything",
    why = "One and a half times the house; the path keeps its size.",
    draw = withPath,
    work = function() scale { txtValue = "1.5" } end,
  },
  {
    name = "bolts_six_on_two",
    why = "Six holes on 2 about the marker, clockwise from the top: cycles of one group.",
    draw = function()
      shop.circle(2, 1.5, 1.5)
      peckTemplate()
    end,
    work = function()
      rightclick(2, 1.5)
      bolts({
        txtNumberOfHoles = "6", txtBoltCircleDiameter = "2", txtBoltHoleDiameter = "0.25",
      }, true)
    end,
  },
  {
    name = "bolts_with_offset",
    why = "Five holes from 18 degrees on, beside another group of cycles.",
    draw = function()
      shop.circle(2, 1.5, 1.5)
      peckTemplate()
    end,
    work = function()
      bolts({
        txtNumberOfHoles = "1", txtBoltCircleDiameter = "1", txtBoltHoleDiameter = "0.25",
        txtOrigX = "2", txtOrigY = "1.5",
      }, true)
      bolts({
        txtNumberOfHoles = "5", txtDegreesOffset = "18", txtBoltCircleDiameter = "2.5",
        txtBoltHoleDiameter = "0.25", txtOrigX = "2", txtOrigY = "1.5",
      }, true)
    end,
  },
}
