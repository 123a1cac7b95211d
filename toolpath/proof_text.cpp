// The proof in words.
#include "toolpath/proof_text.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "core/number_text.h"

namespace tess {
namespace {

constexpr double kNear = 0.1;  // of a limit

constexpr char kNotJudged[] = "Not judged";
constexpr char kCancelled[] = "The proof was cancelled: the path is not judged.";

std::string lengthText(double length) {
  return formatNumber(static_cast<float>(length), "0.0000");
}

std::string percentText(double share) {
  return formatNumber(static_cast<float>(100 * share), "0.00") + " %";
}

std::string placeText(double x, double y) {
  return "X = " + lengthText(x) + ", Y = " + lengthText(y);
}

std::string groupText(int group) {
  return "Group " + std::to_string(group);
}

std::string gougeText(const GougeFinding& gouge) {
  return "Row " + std::to_string(gouge.row) + " of group " + std::to_string(gouge.group) +
         " cuts into the part by " + lengthText(gouge.depth) + " at " +
         placeText(gouge.x, gouge.y) + ".";
}

std::string missedText(const MissedFinding& job) {
  std::string text = groupText(job.group) + " leaves " + percentText(job.atClearance.share()) +
                     " of what its tool can reach";
  if (job.atClearance.places.empty()) return text + ".";
  const MissedPlace& most = job.atClearance.places.front();
  return text + ", most at " + placeText(most.x, most.y) + ".";
}

std::string missedPlaceText(const MissedPlace& place) {
  return "area " + lengthText(place.area) + " at " + placeText(place.x, place.y) + ", " +
         lengthText(place.width) + " by " + lengthText(place.height);
}

std::string rapidText(const RapidFinding& rapid) {
  return "The rapid of row " + std::to_string(rapid.row) + " goes through material at " +
         placeText(rapid.x, rapid.y) + ".";
}

std::string plungeText(const PlungeFinding& plunge) {
  return "Row " + std::to_string(plunge.row) + " of group " + std::to_string(plunge.group) +
         " goes straight down into material by " + lengthText(plunge.depth) + " at " +
         placeText(plunge.x, plunge.y) + ".";
}

// Where the setup asks for no entries the tool may go down as it likes.
std::span<const PlungeFinding> forbiddenPlunges(const PathProof& proof) {
  if (!proof.forbidsPlunges) return {};
  return proof.plunges;
}

const PlungeFinding& deepest(std::span<const PlungeFinding> plunges) {
  return *std::max_element(
      plunges.begin(), plunges.end(),
      [](const PlungeFinding& a, const PlungeFinding& b) { return a.depth < b.depth; });
}

const MissedFinding* mostMissed(const PathProof& proof) {
  const auto most = std::max_element(proof.missed.begin(), proof.missed.end(),
                                     [](const MissedFinding& a, const MissedFinding& b) {
                                       return a.atClearance.share() < b.atClearance.share();
                                     });
  return most == proof.missed.end() ? nullptr : &*most;
}

std::string jobText(const JudgedJob& job) {
  std::string text = groupText(job.group) + ": " + kindText(job.kind);
  if (job.kind == JobKind::None) return text;
  text += job.byRecord ? ", by record" : ", by its rows";
  constexpr double kSameRadius = 1e-5;
  const bool other = std::abs(job.placedRadius - job.presentRadius) > kSameRadius;
  if (!job.byRecord || job.placedRadius == 0 || !other) return text;
  return text + ", placed with radius " + lengthText(job.placedRadius) + ", cut with " +
         lengthText(job.presentRadius);
}

// Shares are known to a fortieth.
std::string engagedText(const Engagement& engagement) {
  return formatNumber(static_cast<float>(100 * engagement.share), "0") +
         " % of the cutter's width in material at " + placeText(engagement.x, engagement.y);
}

void appendLine(std::string& text, const std::string& line) {
  text.append(line).append("\n");
}

void appendJobs(std::string& text, const PathProof& proof) {
  for (const JudgedJob& job : proof.jobs) {
    std::string line = jobText(job);
    for (const MissedFinding& missed : proof.missed) {
      if (missed.group != job.group) continue;
      line += "; left " + percentText(missed.atClearance.share()) + " at its clearance, " +
              percentText(missed.atWall.share()) + " at the wall";
      if (missed.leftByTabs > 0) line += ", area " + lengthText(missed.leftByTabs) + " by tabs";
    }
    if (job.engagement.row > 0) {
      line += "; up to " + engagedText(job.engagement) + " (row " +
              std::to_string(job.engagement.row) + ")";
    }
    appendLine(text, line);
  }
}

std::string tabText(const TabFinding& tab) {
  const std::string text = groupText(tab.group) + ": left by tabs " + lengthText(tab.width) +
                           " wide, " + lengthText(tab.height) + " high at " +
                           placeText(tab.x, tab.y);
  if (tab.standsAsAsked()) return text;
  return text + ", meant to be " + lengthText(tab.askedWidth) + " wide, " +
         lengthText(tab.askedHeight) + " high";
}

std::string overcutText(const OvercutFinding& corner) {
  const std::string text = groupText(corner.group) + ": corner at " + placeText(corner.x, corner.y);
  if (corner.reachesCorner())
    return text + " meant to be cut over, " + lengthText(corner.depth) + " deep";
  return text + " meant to be cut over, not cut by " + lengthText(corner.left);
}

void appendMissed(std::string& text, const MissedFinding& missed) {
  for (const MissedPlace& place : missed.atClearance.places) {
    appendLine(text, groupText(missed.group) + ": left " + missedPlaceText(place));
  }
}

}  // namespace

const char* kindText(JobKind kind) {
  switch (kind) {
    case JobKind::Clearing:
      return "clearing";
    case JobKind::Contour:
      return "contour";
    case JobKind::OnTheLine:
      return "on the line";
    case JobKind::Lathe:
      return "lathe";
    case JobKind::None:
      break;
  }
  return "not judged";
}

ProofGrade gradeOf(const PathProof& proof) {
  if (proof.isBeyondLimits()) return ProofGrade::Beyond;
  const bool near =
      proof.gouge.depth > kNear * proof.limits.depth || proof.share() > kNear * proof.limits.share;
  return near ? ProofGrade::Near : ProofGrade::Clean;
}

std::vector<ProofPlace> worstPlaces(const PathProof& proof) {
  std::vector<ProofPlace> places;
  if (proof.gouge.depth > kNear * proof.limits.depth) {
    places.push_back({proof.gouge.x, proof.gouge.y, gougeText(proof.gouge)});
  }
  for (const MissedFinding& job : proof.missed) {
    if (job.atClearance.share() <= kNear * proof.limits.share) continue;
    for (const MissedPlace& place : job.atClearance.places) {
      places.push_back(
          {place.x, place.y, groupText(job.group) + ": left " + missedPlaceText(place)});
    }
  }
  for (const RapidFinding& rapid : proof.rapids) {
    places.push_back({rapid.x, rapid.y, rapidText(rapid)});
  }
  for (const PlungeFinding& plunge : forbiddenPlunges(proof)) {
    places.push_back({plunge.x, plunge.y, plungeText(plunge)});
  }
  return places;
}

std::string proofLine(const PathProof& proof) {
  if (proof.isCancelled) return kNotJudged;
  std::string line = "In by " + lengthText(proof.gouge.depth) + "   Left " +
                     percentText(proof.share()) + "   Rapids " +
                     std::to_string(proof.rapids.size());
  if (proof.forbidsPlunges) line += "   Plunges " + std::to_string(proof.plunges.size());
  return line;
}

std::string engagementLine(const PathProof& proof) {
  const auto most = std::max_element(proof.jobs.begin(), proof.jobs.end(),
                                     [](const JudgedJob& a, const JudgedJob& b) {
                                       return a.engagement.share < b.engagement.share;
                                     });
  if (most == proof.jobs.end() || most->engagement.row == 0) return {};
  return groupText(most->group) + ": up to " + engagedText(most->engagement);
}

std::string worstFindings(const PathProof& proof) {
  std::string text;
  if (proof.isCancelled) appendLine(text, kCancelled);
  if (proof.gouge.depth > proof.limits.depth) appendLine(text, gougeText(proof.gouge));
  const MissedFinding* const most = mostMissed(proof);
  if (most != nullptr && proof.share() > proof.limits.share) appendLine(text, missedText(*most));
  if (!proof.rapids.empty()) appendLine(text, rapidText(proof.rapids.front()));
  const std::span<const PlungeFinding> plunges = forbiddenPlunges(proof);
  if (!plunges.empty()) appendLine(text, plungeText(deepest(plunges)));
  return text;
}

std::string proofText(const PathProof& proof) {
  std::string text;
  appendLine(text, proofLine(proof));
  if (proof.isCancelled) appendLine(text, kCancelled);
  appendJobs(text, proof);
  if (proof.gouge.depth > kNear * proof.limits.depth) appendLine(text, gougeText(proof.gouge));
  for (const MissedFinding& missed : proof.missed) {
    if (missed.atClearance.share() > kNear * proof.limits.share) appendMissed(text, missed);
  }
  for (const RapidFinding& rapid : proof.rapids) appendLine(text, rapidText(rapid));
  for (const TabFinding& tab : proof.tabs) appendLine(text, tabText(tab));
  for (const OvercutFinding& corner : proof.overcuts) appendLine(text, overcutText(corner));
  for (const PlungeFinding& plunge : forbiddenPlunges(proof)) {
    appendLine(text, plungeText(plunge));
  }
  if (!proof.unjudged.empty()) {
    appendLine(text, "Rows not judged: " + std::to_string(proof.unjudged.size()));
  }
  return text;
}

}  // namespace tess
