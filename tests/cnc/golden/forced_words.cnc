%
O0042 (RETURNS, FORCED)
; ***************************************************************************
; *   Tessimo Mill (tm)  Version 0.1.0
; *        RS 274-D CNC CODE
; *  {File Name}:  part.CNC
; *  {Drawing Title}:      {Rev}: 
; *  {Designer}:  
; *  {Material}:  
; *  {Material Shape}:  Rectangular
; *  {Fixture}:  CLAMPS   {Units}:  INCH
; *  {SLENGTH}: 0.000  {SWIDTH}: 0.000  {SHEIGHT}: 0.250
; *  Setup==>  {X Start}: 0.000   {Y Start}: 0.000   {Z Start}: 0.500
; *            {X Origin Zero}:   1
; *            {Y Origin Zero}:   1
; *            {Z Origin Zero}:  -1
; *  {Creation Date}: 03/09/2026   {Creation Time}: 14:05:07
; *  Created for GantrixPro (tm) 2012
; ***************************************************************************
; *  Tool Setup
; *  {Tool}:  #1, , Diameter = 0
; ***************************************************************************
G70
G90
G75
; 
; ---------------------------------------------------------------------------
;      << Tool #1 code >>
; ---------------------------------------------------------------------------
M06 T1
G00 C0.500
G00 A1.000 B0.000 C0.500
G01 A1.000 B0.000 C-0.250 F30
G01 A2.000 B0.000 C-0.250 F80
G01 A2.000 B0.000 C-0.250
G03 A3.000 B1.000 C-0.250 U2.000 V1.000
G02 A3.000 B1.000 C-0.250 U2.000 V1.000
G00 C0.500
G83 A4.000 B1.000 C0.500 K0.250 F30
M05

M30
%
