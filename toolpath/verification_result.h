// What a verification came to, in words.
// Owns: verifiedRows, verificationResult, nothingToRough, nothingToVerify.
#pragma once

#include <string>

namespace tess {

struct DrawingStore;

int verifiedRows(const DrawingStore& store);

// "Pocket verified, 4 rows"; an outline of no rows does not close, which has had its message.
std::string verificationResult(const std::string& what, int rows);
// While no outline is accepted.
std::string nothingToRough();
// While no rows are selected.
std::string nothingToVerify();

}  // namespace tess
