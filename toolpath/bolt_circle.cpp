// Holes on a circle.
#include "toolpath/bolt_circle.h"

#include <cmath>

#include "core/number_text.h"
#include "core/rounding.h"

namespace tess {
namespace {

constexpr int kPlaceDecimals = 4;
constexpr double kDegreesOfATurn = 360;

float placed(double coordinate) {
  narrow(coordinate);  // or it is no number to be rounded
  return roundTo(coordinate, kPlaceDecimals);
}

}  // namespace

std::vector<BoltHole> boltHoles(const BoltPattern& pattern) {
  const auto step = static_cast<float>(kDegreesOfATurn / pattern.holes);
  const double radius = static_cast<double>(pattern.circleDiameter) / 2;
  std::vector<BoltHole> holes;
  for (int number = 0; number < pattern.holes; ++number) {
    const double degrees = number * static_cast<double>(step) + pattern.degreesOffset;
    const double angle = degrees * kPi / 180;
    BoltHole hole;
    hole.px = kBoltFrame * std::sin(angle);
    hole.py = kBoltFrame * std::cos(angle);
    hole.x = pattern.origin.x + hole.px / kBoltFrame * radius;
    hole.y = pattern.origin.y + hole.py / kBoltFrame * radius;
    hole.place = {placed(hole.x), placed(hole.y)};
    holes.push_back(hole);
  }
  return holes;
}

double boltHoleDistance(const std::vector<BoltHole>& holes) {
  return std::hypot(holes.at(1).x - holes.at(0).x, holes.at(1).y - holes.at(0).y);
}

std::string boltHoleItem(int number, Point place) {
  return std::to_string(number) + " - X=" + plainText(place.x) + ", Y=" + plainText(place.y);
}

std::string fieldOfItem(std::string_view name, std::string_view item) {
  const std::string lead = std::string(name) + "=";
  const std::size_t at = item.find(lead);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = item.substr(at + lead.size());
  return std::string(rest.substr(0, rest.find(',')));
}

}  // namespace tess
