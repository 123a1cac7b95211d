
***************************************************************************
*   Tessimo Mill (tm)  Version 0.1.0
*        RS 274-D CNC CODE
*  {File Name}:  part.CNC
*  {Drawing Title}:  Bearing cover    {Rev}: C
*  {Designer}:  J. Ortega
*  {Material}:  6061-T6
*  {Material Shape}:  Rectangular
*  {Fixture}:  CLAMPS   {Units}:  MM  
*  {SLENGTH}: 6.0  {SWIDTH}: 4.0  {SHEIGHT}: 0.5
*  Setup==>  {X Start}: 0.0   {Y Start}: 0.0   {Z Start}: 12.7
*            {X Origin Zero}:   1
*            {Y Origin Zero}:   1
*            {Z Origin Zero}:  -1
*  {Creation Date}: 03/09/2026   {Creation Time}: 14:05:07
*  Created for GantrixPro (tm) 2012
***************************************************************************
*  Tool Setup
*  {Tool}:  #1, , Diameter = 0
***************************************************************************
G71
G90
G75

---------------------------------------------------------------------------
     << Tool #1 code >>
---------------------------------------------------------------------------
M06 T1
G00 Z12.7
G00 X1.0 Y2.0
G79 X1.0 Y2.0 Z0.75 K0.1 F63
G00 Z12.7
G81 X1.5 Y2.0 Z0.75
G00 Z12.7
G82 X2.0 Y2.0 Z0.75 D1.5
G00 Z12.7
G83 X2.5 Y2.0 Z0.75 K0.1
G00 Z12.7
G84 X3.0 Y2.0 Z0.75 K0.1 D1.5
G00 Z12.7
G85 X3.5 Y2.0 Z0.75 D1.5
G00 Z12.7
G86 X4.0 Y2.0 Z0.75 K0.1 D1.5
G00 Z12.7
G87 X4.5 Y2.0 Z0.75 K0.1
G00 Z12.7
G88 X5.0 Y2.0 Z0.75 K0.1 D1.5
G00 Z12.7
G89 X5.5 Y2.0 Z0.75 D1.5
G00 Z12.7
G00 X25.4 Y12.3457
G01 Z-0.0001 F30
G01 X30.0 F1000

