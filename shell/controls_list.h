// The controls that programs can be made for, as the program's folder lists them, and the setup for
// each in either unit.
// Owns: kControlsName, ControlChoice, readControls, availableControls.
#pragma once

#include <string>
#include <vector>

#include "core/field_reader.h"

namespace tess {

// The list in the program's folder: a line for each control with its name and the files of its inch
// and its metric setup, "-" for none.
inline constexpr char kControlsName[] = "controls.txt";

struct ControlChoice {
  std::string name;
  std::string inchSetup, metricSetup;  // file names; empty: there is none

  const std::string& setup(bool metric) const { return metric ? metricSetup : inchSetup; }
};

// Raises Input past end of file for a line that is cut off, and Overflow for a list of more than
// 200; the failure's source names file and line.
std::vector<ControlChoice> readControls(FieldReader& fields);

// Those of the list in the folder whose setups are there; none without a list. Raises also what
// FieldReader::open raises.
std::vector<ControlChoice> availableControls(const std::string& folder);

}  // namespace tess
