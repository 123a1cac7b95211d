// The file that keeps the jobs of a drawing's paths beside it: text, one block for each job. It
// holds the checksums of the drawing and of the path file that it was saved with, and says nothing
// about others.
// Owns: jobFileName, SavedWith, jobFileText, readJobFile.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/checksum.h"
#include "core/field_reader.h"
#include "core/path_jobs.h"

namespace tess {

// The name in upper case with ".CDM" replaced by ".TPJ"; empty when the name has no ".CDM".
std::string jobFileName(std::string_view drawingname);

// The content of the drawing and of its path file.
struct SavedWith {
  std::optional<Checksum> drawing, paths;
  friend bool operator==(const SavedWith&, const SavedWith&) = default;
};

std::string jobFileText(const std::vector<const PathJob*>& jobs, const SavedWith& files);

// The jobs of such a file; nothing when it was saved with other files, whatever follows then.
// Raises Type mismatch for what is no such file, and Input past end of file for one that lost its
// end; the failure's source names file, line and field.
std::optional<std::vector<PathJob>> readJobFile(FieldReader& fields, const SavedWith& files);

}  // namespace tess
