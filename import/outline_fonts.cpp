// The fonts of the machine.
#include "import/outline_fonts.h"

#include <algorithm>
#include <cmath>
#include <fontconfig/fontconfig.h>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "core/text.h"
#include "import/free_type_face.h"

namespace tess {
namespace {

// What a style that is missing is told by: half way from one to the other.
constexpr int kBoldFrom = FC_WEIGHT_DEMIBOLD;
constexpr std::size_t kMostSubstitutes = 4096;  // characters that are remembered

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;
using Config = std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)>;

Pattern outlinePattern() {
  Pattern pattern(FcPatternCreate(), FcPatternDestroy);
  FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  return pattern;
}

Pattern familyPattern(const std::string& family) {
  Pattern pattern = outlinePattern();
  FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  return pattern;
}

template <class... Fields>
FontSet listed(FcConfig* config, const Pattern& pattern, Fields... fields) {
  FcObjectSet* const wanted = FcObjectSetBuild(fields..., nullptr);
  FontSet set(FcFontList(config, pattern.get(), wanted), FcFontSetDestroy);
  FcObjectSetDestroy(wanted);
  return set;
}

template <class Visit>
void eachOf(const FontSet& set, Visit visit) {
  for (int at = 0; set && at < set->nfont; ++at) visit(set->fonts[at]);
}

std::string textOf(FcPattern* font, const char* field) {
  FcChar8* text = nullptr;
  const bool found = FcPatternGetString(font, field, 0, &text) == FcResultMatch;
  return found ? reinterpret_cast<const char*>(text) : std::string();
}

// Nothing for a range of them, as a variable font has.
std::optional<int> numberOf(FcPattern* font, const char* field) {
  double number = 0;
  if (FcPatternGetDouble(font, field, 0, &number) != FcResultMatch) return std::nullopt;
  return static_cast<int>(std::lround(number));
}

struct Face {
  FaceFile file;
  std::string format;
  int weight = FC_WEIGHT_REGULAR, slant = FC_SLANT_ROMAN, width = FC_WIDTH_NORMAL;
  bool hasRanges = false;  // a variable font as a whole, beside its instances
};

Face faceOf(FcPattern* font) {
  Face face;
  face.file = {textOf(font, FC_FILE), numberOf(font, FC_INDEX).value_or(0)};
  face.format = textOf(font, FC_FONTFORMAT);
  const std::optional<int> weight = numberOf(font, FC_WEIGHT);
  face.hasRanges = !weight;
  face.weight = weight.value_or(FC_WEIGHT_REGULAR);
  face.slant = numberOf(font, FC_SLANT).value_or(FC_SLANT_ROMAN);
  face.width = numberOf(font, FC_WIDTH).value_or(FC_WIDTH_NORMAL);
  return face;
}

bool leans(const Face& face) {
  return face.slant != FC_SLANT_ROMAN;
}

// The lower the nearer to what is asked for. Of the same face in several formats the one is taken
// whose characters are found by their code points.
auto distanceFrom(const Face& face, const FontRequest& request) {
  const int weight = request.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR;
  const bool plainFormat = face.format == "TrueType" || face.format == "CFF";
  return std::tuple(leans(face) != request.italic, std::abs(face.width - FC_WIDTH_NORMAL),
                    std::abs(face.weight - weight), face.hasRanges, !plainFormat, face.file.path,
                    face.file.index);
}

FaceStyle styleFor(const Face& face, const FontRequest& request) {
  return {.embolden = request.bold && face.weight < kBoldFrom,
          .slant = request.italic && !leans(face)};
}

}  // namespace

class OutlineFonts::Machine {
 public:
  explicit Machine(const std::vector<std::string>& onlyFolders)
      : config_(onlyFolders.empty() ? FcInitLoadConfigAndFonts() : FcConfigCreate(),
                FcConfigDestroy) {
    if (!config_) throw FontError("The fonts of this machine cannot be listed", 0);
    for (const std::string& folder : onlyFolders) {
      FcConfigAppFontAddDir(config_.get(), reinterpret_cast<const FcChar8*>(folder.c_str()));
    }
  }

  std::vector<std::string> families() const {
    std::set<std::string> names;
    eachOf(listed(config_.get(), outlinePattern(), FC_FAMILY), [&](FcPattern* font) {
      const std::string name = textOf(font, FC_FAMILY);
      if (!name.empty()) names.insert(name);
    });
    return {names.begin(), names.end()};
  }

  std::vector<Face> facesOf(const std::string& family) const {
    std::vector<Face> faces;
    eachOf(listed(config_.get(), familyPattern(family), FC_FILE, FC_INDEX, FC_WEIGHT, FC_SLANT,
                  FC_WIDTH, FC_FONTFORMAT),
           [&](FcPattern* font) { faces.push_back(faceOf(font)); });
    return faces;
  }

  std::string monospaceFamily() const {
    const Pattern best = nearest(familyPattern("monospace"));
    return best ? textOf(best.get(), FC_FAMILY) : std::string();
  }

  // Some outline font that has the character, the more like this family the better.
  std::optional<std::pair<Face, std::string>> faceWith(char32_t character,
                                                       const std::string& family) const {
    const Pattern pattern = familyPattern(family);
    FcCharSet* const wanted = FcCharSetCreate();
    FcCharSetAddChar(wanted, character);
    FcPatternAddCharSet(pattern.get(), FC_CHARSET, wanted);
    FcCharSetDestroy(wanted);
    const Pattern best = nearest(pattern);
    if (!best) return std::nullopt;
    FcCharSet* has = nullptr;
    FcBool outline = FcFalse;
    const bool fits = FcPatternGetCharSet(best.get(), FC_CHARSET, 0, &has) == FcResultMatch &&
                      FcCharSetHasChar(has, character) == FcTrue &&
                      FcPatternGetBool(best.get(), FC_OUTLINE, 0, &outline) == FcResultMatch &&
                      outline == FcTrue;
    if (!fits) return std::nullopt;
    return std::pair{faceOf(best.get()), textOf(best.get(), FC_FAMILY)};
  }

  std::shared_ptr<FreeTypeFace> read(const Face& face, const FontRequest& request) {
    if (!freeType_) freeType_ = std::make_shared<FreeTypeLibrary>();
    return std::make_shared<FreeTypeFace>(freeType_, face.file, styleFor(face, request));
  }

 private:
  Pattern nearest(const Pattern& pattern) const {
    FcConfigSubstitute(config_.get(), pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    return {FcFontMatch(config_.get(), pattern.get(), &result), FcPatternDestroy};
  }

  Config config_;
  std::shared_ptr<FreeTypeLibrary> freeType_;
};

namespace {

// A face that takes what it lacks from other fonts.
template <class Machine>
class InstalledFace : public FontFace {
 public:
  InstalledFace(std::shared_ptr<Machine> machine, FontRequest request,
                std::shared_ptr<FreeTypeFace> face)
      : machine_(std::move(machine)), request_(std::move(request)), face_(std::move(face)) {}

  const GlyphShape& glyph(char32_t character) override {
    const auto found = shapes_.find(character);
    if (found != shapes_.end()) return found->second;
    if (shapes_.size() >= kMostSubstitutes) shapes_.clear();
    return shapes_[character] = read(character);
  }

  double kerning(char32_t left, char32_t right) override {
    return face_->has(left) && face_->has(right) ? face_->kerning(left, right) : 0;
  }

  double lineHeight() const override { return face_->lineHeight(); }

 private:
  GlyphShape read(char32_t character) {
    if (face_->has(character)) return face_->shape(character);
    GlyphShape shape;
    shape.missing = true;
    const auto other = machine_->faceWith(character, request_.name);
    if (other) takeFrom(*other, character, shape);
    if (shape.substitute.empty()) shape.advance = face_->missingAdvance();
    return shape;
  }

  void takeFrom(const std::pair<Face, std::string>& other, char32_t character, GlyphShape& shape) {
    try {
      const std::shared_ptr<FreeTypeFace> face = machine_->read(other.first, request_);
      if (!face->has(character)) return;
      shape = face->shape(character);
      shape.missing = true;
      shape.substitute = other.second;
    } catch (const FontError&) {
      // The substitute is damaged: the character stays missing, and the status line says so.
      shape = {};
      shape.missing = true;
    }
  }

  std::shared_ptr<Machine> machine_;
  FontRequest request_;
  std::shared_ptr<FreeTypeFace> face_;
  std::map<char32_t, GlyphShape> shapes_;
};

// A face without any other font behind it.
class LoneFace : public FontFace {
 public:
  LoneFace(std::string_view bytes, FaceStyle style)
      : bytes_(bytes), face_(std::make_shared<FreeTypeLibrary>(), bytes_, style) {}

  const GlyphShape& glyph(char32_t character) override {
    shape_ = face_.shape(character);
    shape_.missing = !face_.has(character);
    return shape_;
  }
  double kerning(char32_t left, char32_t right) override { return face_.kerning(left, right); }
  double lineHeight() const override { return face_.lineHeight(); }

 private:
  std::string bytes_;
  FreeTypeFace face_;
  GlyphShape shape_;
};

}  // namespace

OutlineFonts::OutlineFonts(std::vector<std::string> onlyFolders)
    : onlyFolders_(std::move(onlyFolders)) {}

OutlineFonts::~OutlineFonts() = default;

OutlineFonts::Machine& OutlineFonts::machine() {
  if (!machine_) machine_ = std::make_shared<Machine>(onlyFolders_);
  return *machine_;
}

std::vector<std::string> OutlineFonts::families() {
  return machine().families();
}

bool OutlineFonts::hasFamily(const std::string& name) {
  return !machine().facesOf(name).empty();
}

std::string OutlineFonts::monospaceFamily() {
  return machine().monospaceFamily();
}

std::shared_ptr<FontFace> OutlineFonts::open(const FontRequest& request) {
  if (face_ && opened_ == request) return face_;
  const std::vector<Face> faces = machine().facesOf(request.name);
  if (faces.empty()) throw FontError("The font is not installed: " + request.name, 0);
  const Face& nearest =
      *std::min_element(faces.begin(), faces.end(), [&](const Face& a, const Face& b) {
        return distanceFrom(a, request) < distanceFrom(b, request);
      });
  face_ =
      std::make_shared<InstalledFace<Machine>>(machine_, request, machine_->read(nearest, request));
  opened_ = request;
  return face_;
}

std::shared_ptr<FontFace> openFontBytes(std::string_view bytes, bool bold, bool italic) {
  return std::make_shared<LoneFace>(bytes, FaceStyle{bold, italic});
}

}  // namespace tess
