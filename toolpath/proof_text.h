// What the operator reads of a path proof.
// Owns: ProofGrade, gradeOf, ProofPlace, worstPlaces, kindText, proofLine, engagementLine,
//       worstFindings, proofText.
#pragma once

#include <string>
#include <vector>

#include "toolpath/path_proof.h"

namespace tess {

enum class ProofGrade {
  Clean,
  Near,    // a finding of more than a tenth of its limit
  Beyond,  // a limit is passed
};
ProofGrade gradeOf(const PathProof& proof);

// A place to look at, with what is found there.
struct ProofPlace {
  double x = 0, y = 0;
  std::string text;
};

// The deepest gouge, what jobs leave, the rapids and the plunges, as far as the grade is not clean
// by them.
std::vector<ProofPlace> worstPlaces(const PathProof& proof);

// "clearing", "contour", "on the line", "lathe"; "not judged" for none of these.
const char* kindText(JobKind kind);

// "In by 0.0000   Left 0.00 %   Rapids 0", and "   Plunges 0" where the setup asks for entries;
// "Not judged" where the proof was cancelled.
std::string proofLine(const PathProof& proof);

// The group of which the largest share of the cutter's width is in material, the share and the
// place; empty when no group cuts material.
std::string engagementLine(const PathProof& proof);

// A line for the worst finding of each kind beyond its limit; empty when there is none.
std::string worstFindings(const PathProof& proof);

// The whole proof, line by line: what was judged by what, and all findings.
std::string proofText(const PathProof& proof);

}  // namespace tess
