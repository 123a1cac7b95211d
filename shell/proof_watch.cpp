// The proof as it is looked at.
#include "shell/proof_watch.h"

#include <algorithm>
#include <utility>

#include "cnc/program_motions.h"
#include "core/cancellable_work.h"
#include "core/drawing_store.h"
#include "core/runtime_failure.h"
#include "toolpath/entry_moves.h"

namespace tess {
namespace {

std::vector<WorldBox> boxesOf(const std::vector<LevelStrip>& strips) {
  std::vector<WorldBox> boxes;
  for (const LevelStrip& strip : strips) {
    boxes.push_back({narrow(strip.span.from), narrow(strip.y - strip.height / 2),
                     narrow(strip.span.to), narrow(strip.y + strip.height / 2)});
  }
  return boxes;
}

ProofMarks marksOf(const PathProof& proof, const std::vector<ProofPlace>& places) {
  ProofMarks marks;
  for (const MissedFinding& job : proof.missed) {
    const std::vector<WorldBox> boxes = boxesOf(job.atClearance.strips);
    marks.left.insert(marks.left.end(), boxes.begin(), boxes.end());
  }
  marks.tooDeep = boxesOf(proof.tooDeep);
  for (const ProofPlace& place : places) {
    marks.crosshairs.push_back({narrow(place.x), narrow(place.y)});
  }
  return marks;
}

bool isEmpty(const ProofMarks& marks) {
  return marks.left.empty() && marks.tooDeep.empty() && marks.crosshairs.empty();
}

constexpr char kProving[] = "Proving    ";

class AtWork {
 public:
  explicit AtWork(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~AtWork() { flag_ = before_; }
  AtWork(const AtWork&) = delete;
  AtWork& operator=(const AtWork&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

ProofMotions proofMotions(const DrawingStore& store, const MotionRules& rules) {
  return {
      [&store, rules](MotionReader& reader) { tellMotions(store, CncMode::Mill, reader, rules); },
      [&store, rules](MotionReader& reader) { tellMotions(store, CncMode::Lathe, reader, rules); }};
}

ProofWatch::ProofWatch(Session& session, Interaction& interaction, const PostDefinition& definition,
                       Timers& timers)
    : session_(session),
      interaction_(interaction),
      definition_(definition),
      subscription_(interaction.context.changes.listen(*this)),
      tmrPathProof_(
          timers.create({"tmrPathProof", kProofRest, /*oneShot=*/true}, [this] { renew(); })) {
  interaction_.frmPathProof.cmdProof.onClick = [this] { goToNextPlace(); };
  interaction_.redraw.paintOver = [this](PictureBoxProxy& target) { paint(target); };
}

ProofWatch::Circumstances ProofWatch::circumstances() const {
  const DrawingStore& store = session_.store;
  Circumstances found{store.cfg_tolerance, store.zstartpos, store.partdimy,
                      isMetric(store) ? 1.0 : 0.0, static_cast<double>(session_.pathJobs.notes())};
  const MotionRules rules = motionRules(definition_.dialect);
  found.push_back(wantsEntries(store) ? 1 : 0);
  found.push_back(rules.safeChange ? 1 : 0);
  found.push_back(rules.latheClear ? static_cast<double>(*rules.latheClear) : 0);
  found.push_back(store.lathesetup ? 1 : 0);
  found.push_back(rules.plungeFrom ? static_cast<double>(*rules.plungeFrom) : store.zstartpos);
  for (int tool = 0; tool <= kLastTool; ++tool) {
    found.push_back(store.toolradius[tool]);
    found.push_back(store.toolinside[tool]);
  }
  return found;
}

bool ProofWatch::isPanelOpen() const {
  return interaction_.frmPathProof.isLoaded();
}

void ProofWatch::afterCommand() {
  if (isAtWork_ || !isLookedAt()) return;
  if (circumstances() != circumstances_) ++changes_;
  if (!isBehind()) return;
  if (session_.store.NumPathSegments < kRowsThatWait) return renew();
  tmrPathProof_->setEnabled(false);
  tmrPathProof_->setEnabled(true);
}

// While a proof is made events are served: another one must not begin.
PathProof ProofWatch::prove() {
  const AtWork here(isAtWork_);
  class frmPathProof& panel = interaction_.frmPathProof;
  const std::string shown = panel.lblPlace.caption();
  PathProof proof;
  try {
    CancellableWork work(
        session_.host, [&](const std::string& time) { panel.showPlace(kProving + time); },
        CancellableWork::From::HalfASecond);
    proof = provePaths(session_.store, session_.pathJobs,
                       proofMotions(session_.store, motionRules(definition_.dialect)),
                       work.breathing());
  } catch (const WorkCancelled&) {
    takeCallChain();
    proof.isCancelled = true;
  }
  panel.showPlace(shown);
  return proof;
}

void ProofWatch::renew() {
  if (isAtWork_) return;
  tmrPathProof_->setEnabled(false);
  const bool hadMarks = !isEmpty(marks_);
  const long long changes = changes_;
  const Circumstances now = circumstances();
  const PathProof proof = prove();
  judged_ = changes;
  circumstances_ = now;
  isCancelled_ = proof.isCancelled;
  places_ = worstPlaces(proof);
  nextPlace_ = 0;
  marks_ = marksOf(proof, places_);
  const bool hasPath = session_.store.NumPathSegments > 0;
  hasPath ? interaction_.frmPathProof.show(proof) : interaction_.frmPathProof.showNothing();
  if (hadMarks || !isEmpty(marks_)) showMarks();
}

// Pointer events of the operator go on: a redraw that nobody asked for must not swallow them.
void ProofWatch::showMarks() {
  const AtWork here(isAtWork_);
  interaction_.redraw.redrawscreen(/*target=*/nullptr, /*ShowGrid=*/true,
                                   /*FillPartTemplate=*/true, /*DisableEvents=*/false);
}

void ProofWatch::goToNextPlace() {
  if (isBehind() || isCancelled_) renew();
  if (places_.empty()) return;
  const ProofPlace place = places_[nextPlace_ % places_.size()];
  nextPlace_ = (nextPlace_ + 1) % places_.size();
  interaction_.frmPathProof.showPlace(place.text);
  interaction_.viewCommands.setview(place.x, place.y);
}

void ProofWatch::togglePicture() {
  isPictureShown_ = !isPictureShown_;
  if (isPictureShown_) renew();
  showMarks();
}

void ProofWatch::paint(PictureBoxProxy& target) const {
  if (isPictureShown_) paintProofAreas(marks_, target);
  if (isLookedAt()) paintCrosshairs(marks_, target);
}

}  // namespace tess
