-- Text by its panel, in outlines and in single strokes.
local shop = ...

local function nothing() end

-- Sets the text with these values of the panel's controls and clicks at (x, y).
local function place(x, y, text, values)
  if not form("frmText") then tool("miText") end
  local panel = form("frmText")
  panel.txtText.text = ""
  local all = { cboFont = "Hershey Roman Simplex", cboStyle = "Regular", cboFontSize = "72",
    cboOrientation = "0", cboResolution = "0.050", cboCurvature = "Straight",
    txtTrackingDelta = "0", chkMirrorX = 0, chkMirrorY = 0, chkUnite = 0, chkKerning = 0 }
  for name, value in pairs(values) do all[name] = value end
  for name, value in pairs(all) do
    panel[name][name:match("^chk") and "value" or "text"] = value
  end
  panel.txtText.text = text
  panel.cmdPlaceText:click()
  wait(100)
  move(0, x, y)
  click(x, y)
end

return {
  {
    name = "text_strokes",
    why = "Two lines of single strokes, the second an em below the first; open lines.",
    draw = nothing,
    work = function() place(0.5, 2, "T7\nLi", {}) end,
  },
  {
    name = "text_outlines",
    why = "Contours of a quadratic and a cubic font, coarse; the outer ones counter-clockwise.",
    draw = nothing,
    work = function()
      place(0.2, 1.5, "R4", { cboFont = "DejaVu Sans", cboStyle = "Bold" })
      place(2.4, 1.5, "R4", { cboFont = "Cantarell", cboStyle = "Bold" })
    end,
  },
  {
    name = "text_curves",
    why = "The same word bent about a centre above and about one below, from the same radius.",
    draw = nothing,
    work = function()
      place(2, 0.6, "LITTLE", { cboFontSize = "36", cboCurvature = "1.5" })
      place(2, 2.4, "LITTLE", { cboFontSize = "36", cboCurvature = "-1.5" })
    end,
  },
  {
    name = "text_mirrored",
    why = "Plain, mirrored in X, in Y and turned by 90 degrees, all from one point.",
    draw = nothing,
    work = function()
      for _, way in ipairs { {}, { chkMirrorX = 1 }, { chkMirrorY = 1 }, { cboOrientation = "90" } } do
        place(2, 1.5, "F7", way)
      end
    end,
  },
  {
    name = "text_united",
    why = "Letters that are pushed into one another, beside the same united.",
    draw = nothing,
    work = function()
      local touching = { cboFont = "DejaVu Sans", cboStyle = "Bold", txtTrackingDelta = "-22" }
      place(0.3, 1, "TEL", touching)
      touching.chkUnite = 1
      place(2.4, 1, "TEL", touching)
    end,
  },
  {
    name = "text_kerned",
    why = "A pair as it stands, and below it as the font says.",
    draw = nothing,
    work = function()
      local pair = { cboFont = "DejaVu Sans", cboStyle = "Bold" }
      place(0.5, 1.8, "VA", pair)
      pair.chkKerning = 1
      place(0.5, 0.5, "VA", pair)
    end,
  },
}
