// The panel of the path proof.
#include "shell/frmPathProof.h"

#include "display/palette.h"

namespace tess {
namespace {

// Each shows on a light and on a dark ground.
Rgb colorOf(ProofGrade grade) {
  switch (grade) {
    case ProofGrade::Clean:
      return 0x50A030;
    case ProofGrade::Near:
      return 0x0082D2;
    case ProofGrade::Beyond:
      break;
  }
  return 0x3C3CE6;
}

// What was not judged comes first; otherwise how hard the cutter works.
std::string noteOf(const PathProof& proof) {
  if (proof.isCancelled) return "Cancelled. A click judges the path.";
  if (proof.unjudged.empty()) return engagementLine(proof);
  return "Rows not judged: " + std::to_string(proof.unjudged.size());
}

}  // namespace

frmPathProof::frmPathProof() : Form("frmPathProof", "Path Proof") {
  showNothing();
}

void frmPathProof::showNothing() {
  cmdProof.setCaption("No proof yet");
  cmdProof.setColor({});
  showPlace({});
}

void frmPathProof::show(const PathProof& proof) {
  cmdProof.setCaption(proofLine(proof));
  cmdProof.setColor(colorOf(gradeOf(proof)));
  showPlace(noteOf(proof));
}

}  // namespace tess
