
***************************************************************************
*   Tessimo Mill (tm)  Version 0.1.0
*        RS 274-D CNC CODE
*  {File Name}:  part.CNC
*  {Drawing Title}:      {Rev}: 
*  {Designer}:  
*  {Material}:  
*  {Material Shape}:  Rectangular
*  {Fixture}:  CLAMPS   {Units}:  INCH
*  {SLENGTH}: 0.0  {SWIDTH}: 0.0  {SHEIGHT}: 0.25
*  Setup==>  {X Start}: 0.0   {Y Start}: 0.0   {Z Start}: 0.5
*            {X Origin Zero}:   1
*            {Y Origin Zero}:   1
*            {Z Origin Zero}:  -1
*  {Creation Date}: 03/09/2026   {Creation Time}: 14:05:07
*  Created for GantrixPro (tm) 2012
***************************************************************************
*  Tool Setup
*  {Tool}:  #1, , Diameter = 0
***************************************************************************
G70
G90
G75

---------------------------------------------------------------------------
     << Tool #1 code >>
---------------------------------------------------------------------------
M06 T1
G00 Z0.5
G00 X3.0 Y1.0
G01 Z-0.25 F30
G03 I-1.0 F80
G03 X2.0 Y2.0 I-1.0
G03 J-1.0
G03 X1.0 Y1.0 J-1.0
G03 I1.0
G03 X2.0 Y0.0 I1.0
G03 J1.0
G03 X3.0 Y1.0 J1.0
G03 X2.0 Y0.0 I-1.0
G03 X1.0 Y1.0 J1.0
G03 X2.0 Y2.0 I1.0
G03 X3.0 Y1.0 J-1.0
G03 X1.0 I-1.0
G03 X3.0 I1.0
G00 Z0.5
G00 X2.0 Y2.0
G01 Z-0.25 F30
G03 Y0.0 J-1.0 F80
G03 Y2.0 J1.0
G00 Z0.5
G00 X3.0 Y1.0
G01 Z-0.25 F30
G02 I-1.0 F80
G02 X2.0 Y0.0 I-1.0
G02 J1.0
G02 X1.0 Y1.0 J1.0
G02 I1.0
G02 X2.0 Y2.0 I1.0
G02 J-1.0
G02 X3.0 Y1.0 J-1.0
G02 X2.0 Y2.0 I-1.0
G02 X1.0 Y1.0 J-1.0
G02 X2.0 Y0.0 I1.0
G02 X3.0 Y1.0 J1.0
G02 X1.0 I-1.0
G02 X3.0 I1.0
G00 Z0.5
G00 X2.0 Y0.0
G01 Z-0.25 F30
G02 Y2.0 J1.0 F80
G02 Y0.0 J-1.0

