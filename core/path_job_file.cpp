// Jobs of paths as text.
#include "core/path_job_file.h"

#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "core/drawing_format.h"
#include "core/number_text.h"

namespace tess {
namespace {

constexpr char kLineEnd[] = "\r\n";
constexpr std::string_view kPathExtension = ".TPM";
constexpr std::string_view kJobExtension = ".TPJ";
constexpr std::string_view kTitle = "Tessimo path jobs 1";
constexpr std::string_view kDrawing = "drawing";
constexpr std::string_view kPaths = "paths";
constexpr std::string_view kJob = "job";
constexpr std::string_view kLoop = "loop";
constexpr std::string_view kTab = "tab";
constexpr std::string_view kOvercut = "overcut";
constexpr std::string_view kEnd = "end";

template <typename Value>
using Words = std::pair<std::string_view, Value>;

constexpr std::array kKinds{
    Words<JobKind>{"clearing", JobKind::Clearing}, Words<JobKind>{"contour", JobKind::Contour},
    Words<JobKind>{"on the line", JobKind::OnTheLine}, Words<JobKind>{"lathe", JobKind::Lathe},
    Words<JobKind>{"none", JobKind::None}};
constexpr std::array kBounds{Words<bool>{"bounded", false}, Words<bool>{"unbounded", true}};
constexpr std::array kLoops{Words<bool>{"closed", true}, Words<bool>{"open", false}};
constexpr std::array kTurns{Words<int>{"line", 0}, Words<int>{"left", 1}, Words<int>{"right", -1}};

// Drawings and paths have tables of so many rows, a group is a part of a 16-bit code, and a
// rectangle has four walls.
constexpr int kMaxGroup = 327;
constexpr std::size_t kMaxWalls = 4 * std::size_t{32767};
// No outline has more tabs, and none more corners than walls.
constexpr std::size_t kMaxTabs = 1000;

template <typename Value, std::size_t count>
std::string_view wordFor(const std::array<Words<Value>, count>& words, Value value) {
  for (const auto& [word, meaning] : words) {
    if (meaning == value) return word;
  }
  return {};
}

// ---- Writing

// The fields of one line.
class Line {
 public:
  explicit Line(std::string& out) : out_(out) {}
  ~Line() { out_.append(kLineEnd); }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  Line& add(std::string_view text) {
    if (!std::exchange(first_, false)) out_.push_back(',');
    out_.append(text);
    return *this;
  }
  Line& add(double value) { return add(exactText(value)); }

 private:
  std::string& out_;
  bool first_ = true;
};

void appendWall(std::string& out, const JobWall& wall) {
  Line line(out);
  line.add(wordFor(kTurns, wall.turn)).add(wall.x0).add(wall.y0).add(wall.x1).add(wall.y1);
  if (wall.turn != 0) line.add(wall.xc).add(wall.yc);
}

void appendJob(std::string& out, const PathJob& job) {
  Line(out)
      .add(kJob)
      .add(job.group)
      .add(wordFor(kKinds, job.kind))
      .add(job.toolRadius)
      .add(job.distance)
      .add(wordFor(kBounds, job.isUnbounded));
  for (const JobLoop& loop : job.loops) {
    Line(out).add(kLoop).add(wordFor(kLoops, loop.isClosed));
    for (const JobWall& wall : loop.walls) appendWall(out, wall);
  }
  for (const JobTab& tab : job.tabs) {
    Line(out).add(kTab).add(tab.x0).add(tab.y0).add(tab.x1).add(tab.y1).add(tab.top);
  }
  for (const JobOvercut& corner : job.overcuts) {
    Line(out).add(kOvercut).add(corner.x).add(corner.y);
  }
}

// ---- Reading

[[noreturn]] void refuse(const std::string& place, const std::string& what) {
  throw RuntimeFailure(FailureNumber::TypeMismatch, place, what);
}

std::string inQuotes(std::string_view text) {
  constexpr std::size_t kShown = 40;
  return "\"" + std::string(text.substr(0, kShown)) + "\"";
}

void requireWord(FieldReader& fields, std::string_view word) {
  const std::string place = fields.place();
  const std::string text = fields.readText();
  if (text != word) refuse(place, inQuotes(text) + " stands where " + inQuotes(word) + " belongs");
}

template <typename Value, std::size_t count>
const Value* meaningOf(const std::array<Words<Value>, count>& words, std::string_view text) {
  for (const auto& [word, meaning] : words) {
    if (text == word) return &meaning;
  }
  return nullptr;
}

template <typename Value, std::size_t count>
Value readWord(FieldReader& fields, const std::array<Words<Value>, count>& words) {
  const std::string place = fields.place();
  const std::string text = fields.readText();
  const Value* const meaning = meaningOf(words, text);
  if (meaning == nullptr) refuse(place, inQuotes(text) + " does not belong here");
  return *meaning;
}

double readNumber(FieldReader& fields) {
  const std::string place = fields.place();
  const std::string text = fields.readText();
  const std::optional<double> value = numericValue(text);
  if (!value) refuse(place, inQuotes(text) + " is no number");
  // What the tables cannot hold is no place of a drawing.
  if (std::abs(*value) > std::numeric_limits<float>::max()) {
    refuse(place, inQuotes(text) + " is too large a number");
  }
  return *value;
}

// A radius or a distance.
double readLength(FieldReader& fields) {
  const std::string place = fields.place();
  const double length = readNumber(fields);
  if (length < 0) refuse(place, "a length below 0");
  return length;
}

std::optional<Checksum> readChecksum(FieldReader& fields) {
  const std::string place = fields.place();
  const std::string text = fields.readText();
  std::optional<Checksum> checksum;
  if (!parseChecksum(text, checksum)) refuse(place, inQuotes(text) + " is no checksum");
  return checksum;
}

SavedWith readFiles(FieldReader& fields) {
  SavedWith files;
  requireWord(fields, kDrawing);
  files.drawing = readChecksum(fields);
  requireWord(fields, kPaths);
  files.paths = readChecksum(fields);
  return files;
}

PathJob readJob(FieldReader& fields) {
  PathJob job;
  const std::string place = fields.place();
  const double group = readNumber(fields);
  if (group < 0 || group > kMaxGroup || group != std::floor(group)) {
    refuse(place, "a group that no path row has");
  }
  job.group = static_cast<int>(group);
  job.kind = readWord(fields, kKinds);
  job.toolRadius = readLength(fields);
  job.distance = readLength(fields);
  job.isUnbounded = readWord(fields, kBounds);
  return job;
}

JobWall readWall(FieldReader& fields, int turn, const std::string& place) {
  JobWall wall{.turn = turn};
  wall.x0 = readNumber(fields);
  wall.y0 = readNumber(fields);
  wall.x1 = readNumber(fields);
  wall.y1 = readNumber(fields);
  if (wall.x0 == wall.x1 && wall.y0 == wall.y1) refuse(place, "a wall without length");
  if (turn == 0) return wall;
  wall.xc = readNumber(fields);
  wall.yc = readNumber(fields);
  return wall;
}

JobTab readTab(FieldReader& fields, const std::string& place) {
  JobTab tab;
  tab.x0 = readNumber(fields);
  tab.y0 = readNumber(fields);
  tab.x1 = readNumber(fields);
  tab.y1 = readNumber(fields);
  tab.top = readNumber(fields);
  if (tab.x0 == tab.x1 && tab.y0 == tab.y1) refuse(place, "a tab without width");
  if (!(tab.top < 0)) refuse(place, "a tab that is not below Z 0");
  return tab;
}

JobOvercut readOvercut(FieldReader& fields) {
  JobOvercut corner;
  corner.x = readNumber(fields);
  corner.y = readNumber(fields);
  return corner;
}

// The word that a line begins with tells what it is about.
class JobReader {
 public:
  explicit JobReader(FieldReader& fields) : fields_(fields) {}

  std::vector<PathJob> read() {
    while (readLine()) continue;
    return std::move(jobs_);
  }

 private:
  // False at the end.
  bool readLine() {
    const std::string place = fields_.place();
    const std::string word = fields_.readText();
    const int* const turn = meaningOf(kTurns, word);
    if (word == kEnd) return false;
    if (word == kJob) {
      jobs_.push_back(readJob(fields_));
      walls_ = 0;
    } else if (word == kLoop && !jobs_.empty()) {
      jobs_.back().loops.push_back({.walls = {}, .isClosed = readWord(fields_, kLoops)});
    } else if (turn != nullptr && hasLoop()) {
      if (++walls_ > kMaxWalls) refuse(place, "more walls than a drawing has");
      jobs_.back().loops.back().walls.push_back(readWall(fields_, *turn, place));
    } else if (word == kTab && !jobs_.empty()) {
      if (jobs_.back().tabs.size() == kMaxTabs) refuse(place, "more tabs than an outline has");
      jobs_.back().tabs.push_back(readTab(fields_, place));
    } else if (word == kOvercut && !jobs_.empty()) {
      if (jobs_.back().overcuts.size() == kMaxWalls) {
        refuse(place, "more corners than a drawing has");
      }
      jobs_.back().overcuts.push_back(readOvercut(fields_));
    } else {
      refuse(place, inQuotes(word) + " does not belong here");
    }
    return true;
  }
  bool hasLoop() const { return !jobs_.empty() && !jobs_.back().loops.empty(); }

  FieldReader& fields_;
  std::vector<PathJob> jobs_;
  std::size_t walls_ = 0;  // of the last job
};

}  // namespace

std::string jobFileName(std::string_view drawingname) {
  std::string name = pathFileName(drawingname);
  if (const std::size_t at = name.rfind(kPathExtension); at != std::string::npos) {
    name.replace(at, kPathExtension.size(), kJobExtension);
  }
  return name;
}

std::string jobFileText(const std::vector<const PathJob*>& jobs, const SavedWith& files) {
  std::string out;
  Line(out).add(kTitle);
  Line(out).add(kDrawing).add(checksumText(files.drawing));
  Line(out).add(kPaths).add(checksumText(files.paths));
  for (const PathJob* const job : jobs) appendJob(out, *job);
  Line(out).add(kEnd);
  return out;
}

std::optional<std::vector<PathJob>> readJobFile(FieldReader& fields, const SavedWith& files) {
  requireWord(fields, kTitle);
  if (readFiles(fields) != files) return std::nullopt;
  return JobReader(fields).read();
}

}  // namespace tess
