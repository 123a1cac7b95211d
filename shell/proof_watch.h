// Keeps the path proof up to date while somebody looks at it: the panel, the crosshairs and the
// coloured picture. While nobody does, nothing is reckoned.
// Owns: kRowsThatWait, kProofRest, proofMotions, ProofWatch.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cnc/post_definition.h"
#include "display/proof_marks.h"
#include "drafting/change.h"
#include "shell/interaction.h"
#include "toolpath/proof_text.h"

namespace tess {

// From so many rows on the proof waits until nothing has changed for so long, in milliseconds.
inline constexpr int kRowsThatWait = 1000;
inline constexpr int kProofRest = 300;

// The motions of the program's own generator, by the rules of a definition.
ProofMotions proofMotions(const DrawingStore& store, const MotionRules& rules);

class ProofWatch : public ChangeListener {
 public:
  ProofWatch(Session& session, Interaction& interaction, const PostDefinition& definition,
             Timers& timers);

  // ChangeListener
  void changed(const KeptChange& /*change*/) override { ++changes_; }
  void rewritten() override { ++changes_; }

  // What no change tells of, such as tools; and the proof, if it is due. Ends every entry point.
  void afterCommand();

  // The proof of the rows as they are now. The operator may end one that takes long.
  PathProof prove();

  // The view goes to the next place that was found; after the last comes the first.
  void goToNextPlace();
  // What is left, and what is cut too deep, in colour over the drawing.
  void togglePicture();
  bool isPictureShown() const { return isPictureShown_; }

  // Paints what is looked at on a picture of the drawing.
  void paint(PictureBoxProxy& target) const;

 private:
  // What the proof depends on beside the rows.
  using Circumstances = std::vector<double>;
  Circumstances circumstances() const;

  bool isPanelOpen() const;
  bool isLookedAt() const { return isPanelOpen() || isPictureShown_; }
  bool isBehind() const { return judged_ != changes_; }
  void renew();
  void showMarks();

  Session& session_;
  Interaction& interaction_;
  const PostDefinition& definition_;
  Subscription subscription_;
  std::unique_ptr<Timer> tmrPathProof_;
  Circumstances circumstances_;
  ProofMarks marks_;
  std::vector<ProofPlace> places_;
  std::size_t nextPlace_ = 0;
  long long changes_ = 1;
  long long judged_ = 0;  // of the changes, those that the proof on show knows
  bool isPictureShown_ = false;
  bool isCancelled_ = false;
  bool isAtWork_ = false;
};

}  // namespace tess
