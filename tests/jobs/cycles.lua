-- Machine cycles: xc is the step of a peck, yc the dwell, z the final depth.
local shop = ...

-- The template's text and numbers, and what happens to them in the dialog.
local function template(text, depth, peck, dwell, feed)
  store.NumCycles = 1
  store.cycletext[0] = text
  store.cyclefinaldepth[0], store.cycleincrdepth[0] = depth, peck
  store.cycledwell[0], store.cyclefeedrate[0] = dwell, feed
end

local function choose(atCircles)
  on_form("dlgSelectCycle", function(dialog)
    dialog.List1.index = 0
    if atCircles then dialog.chkSelectedCircles.value = 1 end
    dialog.cmdAccept:click()
  end)
  tool("miAddMachineCycle")
end

local function holes()
  for hole = 0, 2 do shop.circle(1 + hole, 1, 0.25) end
  shop.ring(1, 2, 0.25)
  shop.chain { { 2.25, 2 }, { 1.75, 2, ccw = { 2, 2 } } }
end

return {
  {
    name = "cycle_selected_circles",
    why = "At each selected circle and full arc, in one group; the half circle is passed over.",
    tool = { number = 2, radius = 0.125 },
    draw = holes,
    work = function()
      template("G83 Peck drill", -0.5, 0.1, 0, 12)
      tool("miSelectAll")
      choose(true)
    end,
  },
  {
    name = "cycle_clicks",
    why = "Each click is a group of its own.",
    draw = holes,
    work = function()
      template("G82 Spot drill", -0.06, 0, 0.5, 8)
      choose()
      click(1, 1)
      choose()
      click(2, 1)
    end,
  },
  {
    name = "cycle_slot_from_marker",
    why = "Cycle 79 runs from the marker to the click.",
    draw = holes,
    work = function()
      template("G79 Mill a slot", -0.25, 0.06, 0, 9)
      store.markerx, store.markery = 1, 1
      choose()
      click(3, 2)
    end,
  },
}
