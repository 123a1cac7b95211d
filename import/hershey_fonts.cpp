// Single strokes.
#include "import/hershey_fonts.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "core/file_system.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr char kExtension[] = ".jhf";
constexpr std::size_t kLargestFont = 1U << 20U;  // the largest known has 16 thousand bytes
constexpr std::size_t kNumberWidth = 5;
constexpr std::size_t kCountWidth = 3;
constexpr std::size_t kMostGlyphs = 4096;
constexpr char kMiddle = 'R';
constexpr double kBaseline = 9;  // below the middle
// From the top of a bracket to its bottom, and so from one baseline to the next.
constexpr double kUnitsPerEm = 32;
constexpr double kLean = 0.2126;  // the tangent of 12 degrees
constexpr char32_t kFirstCharacter = ' ';
constexpr char32_t kFirstOfRest = 0xA0;
constexpr std::size_t kFirstRun = 96;

struct KnownFace {
  std::string_view stem;
  const char* name;
};

constexpr KnownFace kKnownFaces[] = {
    {"astrology", "Astrology"},
    {"cursive", "Cursive"},
    {"cyrilc_1", "Cyrillic Complex"},
    {"cyrillic", "Cyrillic"},
    {"futural", "Sans"},
    {"futuram", "Sans Medium"},
    {"gothgbt", "Gothic English Triplex"},
    {"gothgrt", "Gothic German Triplex"},
    {"gothiceng", "Gothic English"},
    {"gothicger", "Gothic German"},
    {"gothicita", "Gothic Italian"},
    {"gothitt", "Gothic Italian Triplex"},
    {"greek", "Greek"},
    {"greekc", "Greek Complex"},
    {"greeks", "Greek Simplex"},
    {"japanese", "Japanese"},
    {"markers", "Markers"},
    {"mathlow", "Mathematics Lower"},
    {"mathupp", "Mathematics Upper"},
    {"meteorology", "Meteorology"},
    {"music", "Music"},
    {"rowmand", "Roman Duplex"},
    {"rowmans", "Roman Simplex"},
    {"rowmant", "Roman Triplex"},
    {"scriptc", "Script Complex"},
    {"scripts", "Script Simplex"},
    {"symbolic", "Symbolic"},
    {"timesg", "Times Greek"},
    {"timesi", "Times Italic"},
    {"timesib", "Times Bold Italic"},
    {"timesr", "Times Roman"},
    {"timesrb", "Times Roman Bold"},
};

std::string familyOf(std::string_view file) {
  const std::string stem = lowerCased(file.substr(0, file.size() - (sizeof kExtension - 1)));
  for (const KnownFace& known : kKnownFaces) {
    if (known.stem == stem) return std::string("Hershey ") + known.name;
  }
  return "Hershey " + stem;
}

// ---- Reading

class Reader {
 public:
  Reader(const std::string& file, std::string_view bytes) : file_(file), rest_(bytes) {}

  // False at the end.
  bool skipToGlyph() {
    while (!rest_.empty() && (endsLine(rest_.front()) || rest_.front() == '\x1A')) take();
    return !rest_.empty();
  }

  GlyphShape glyph() {
    field(kNumberWidth, "the number is cut off or no number");
    const int pairs = field(kCountWidth, "the count is cut off or no number");
    if (pairs < 1) fail("the count is not above 0");
    const auto [left, right] = pair();
    GlyphShape shape;
    shape.advance = std::max(0, right - left) / kUnitsPerEm;
    bool down = false;
    for (int at = 1; at < pairs; ++at) {
      const auto [x, y] = pair();
      if (x == ' ' - kMiddle && y == 0) {
        down = false;
      } else {
        draw(shape.outline, {(x - left) / kUnitsPerEm, (kBaseline - y) / kUnitsPerEm}, down);
        down = true;
      }
    }
    std::erase_if(shape.outline.contours,
                  [](const OutlineContour& stroke) { return stroke.curves.empty(); });
    return shape;
  }

  [[noreturn]] void fail(const std::string& what) const {
    throw FontError(file_ + " line " + std::to_string(line_) + ": " + what, 0);
  }

 private:
  static void draw(GlyphOutline& outline, PlanePoint to, bool down) {
    if (down) {
      outline.contours.back().curves.push_back({1, {}, {}, to});
    } else {
      outline.contours.push_back({to, {}, false});
    }
  }

  char take() {
    const char byte = rest_.front();
    rest_.remove_prefix(1);
    if (byte == '\n') ++line_;
    return byte;
  }

  // Blanks before its digits.
  int field(std::size_t width, const char* trouble) {
    int value = 0;
    for (std::size_t at = 0; at < width; ++at) {
      if (rest_.empty() || endsLine(rest_.front())) fail(trouble);
      const char digit = take();
      const bool blank = digit == ' ' && value == 0;
      if (!blank && (digit < '0' || digit > '9')) fail(trouble);
      if (!blank) value = value * 10 + (digit - '0');
    }
    return value;
  }

  std::pair<int, int> pair() {
    const int x = letter();
    return {x, letter()};
  }

  int letter() {
    while (!rest_.empty() && endsLine(rest_.front())) take();
    if (rest_.empty()) fail("the strokes are cut off");
    return static_cast<unsigned char>(take()) - kMiddle;
  }

  std::string file_;
  std::string_view rest_;
  int line_ = 1;
};

char32_t codePointOf(std::size_t index) {
  return static_cast<char32_t>(index < kFirstRun ? kFirstCharacter + index
                                                 : kFirstOfRest + (index - kFirstRun));
}

// ---- The face

class StrokeFace : public FontFace {
 public:
  StrokeFace(HersheyFont font, bool italic) : font_(std::move(font)) {
    if (!italic) return;
    for (auto& [character, shape] : font_.glyphs) {
      shape.outline = mapped(std::move(shape.outline), {{1, 0}, {kLean, 1}});
    }
  }

  // A filled letter among strokes would be cut in another way than they are: what is missing leaves
  // a blank.
  const GlyphShape& glyph(char32_t character) override {
    const auto found = font_.glyphs.find(character);
    if (found != font_.glyphs.end()) return found->second;
    const auto blank = font_.glyphs.find(kFirstCharacter);
    missing_.missing = true;
    missing_.advance = blank != font_.glyphs.end() ? blank->second.advance : 0;
    return missing_;
  }
  double kerning(char32_t /*left*/, char32_t /*right*/) override { return 0; }
  double lineHeight() const override { return 1; }

 private:
  HersheyFont font_;
  GlyphShape missing_;
};

// The data folders of the machine, the operator's first.
std::vector<std::string> dataFolders() {
  const auto variable = [](const char* name) {
    const char* const value = std::getenv(name);
    return std::string(value != nullptr ? value : "");
  };
  std::string list = variable("XDG_DATA_HOME");
  if (list.empty() && !variable("HOME").empty()) list = variable("HOME") + "/.local/share";
  const std::string shared = variable("XDG_DATA_DIRS");
  list += ":" + (shared.empty() ? "/usr/local/share:/usr/share" : shared);
  std::vector<std::string> folders;
  for (std::size_t from = 0; from <= list.size();) {
    const std::size_t to = std::min(list.find(':', from), list.size());
    if (to > from) folders.push_back(withSeparator(list.substr(from, to - from)) + "hershey-fonts");
    from = to + 1;
  }
  return folders;
}

}  // namespace

HersheyFont readHershey(const std::string& file, std::string_view bytes) {
  Reader reader(file, bytes);
  HersheyFont font;
  for (std::size_t index = 0; reader.skipToGlyph(); ++index) {
    if (index >= kMostGlyphs) reader.fail("there are too many characters");
    font.glyphs.emplace(codePointOf(index), reader.glyph());
  }
  if (font.glyphs.empty()) reader.fail("there are no characters");
  return font;
}

HersheyFonts::HersheyFonts(std::string onlyFolder) : onlyFolder_(std::move(onlyFolder)) {}

const std::vector<HersheyFonts::Listed>& HersheyFonts::listed() {
  if (std::exchange(looked_, true)) return listed_;
  const std::vector<std::string> folders =
      onlyFolder_.empty() ? dataFolders() : std::vector<std::string>{onlyFolder_};
  for (const std::string& folder : folders) {
    for (const std::string& file : listFolder(folder).files) {
      if (!lowerCased(file).ends_with(kExtension)) continue;
      const std::string family = familyOf(file);
      const bool known = std::any_of(listed_.begin(), listed_.end(),
                                     [&](const Listed& each) { return each.family == family; });
      if (!known) listed_.push_back({family, withSeparator(folder) + file});
    }
  }
  return listed_;
}

std::string HersheyFonts::fileOf(const std::string& family) {
  for (const Listed& each : listed()) {
    if (equalIgnoringCase(each.family, family)) return each.file;
  }
  return {};
}

std::vector<std::string> HersheyFonts::families() {
  std::vector<std::string> names;
  for (const Listed& each : listed()) names.push_back(each.family);
  return names;
}

std::shared_ptr<FontFace> HersheyFonts::open(const FontRequest& request) {
  if (face_ && opened_ == request) return face_;
  const std::string file = fileOf(request.name);
  if (file.empty()) throw FontError("The font is not installed: " + request.name, 0);
  try {
    face_ = std::make_shared<StrokeFace>(readHershey(file, readFile(file, kLargestFont)),
                                         request.italic);
  } catch (const RuntimeFailure& failure) {
    throw FontError("The font file cannot be read: " + file + ": " + failure.description(), 0);
  }
  opened_ = request;
  return face_;
}

}  // namespace tess
