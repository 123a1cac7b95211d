// Faces read by FreeType.
#include "import/free_type_face.h"

#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <hb.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tess {
namespace {

constexpr FT_Int32 kLoadFlags = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;
constexpr FT_UInt kSmallestEm = 16;
constexpr FT_UInt kLargestEm = 16384;
constexpr double kUsualLineHeight = 1.2;
// How much heavier a made bold is, as a part of the em, and how far a made italic leans: the
// tangent of 12 degrees.
constexpr int kBoldPart = 24;
constexpr FT_Fixed kLean = 0x0366A;
// Where fonts of symbols keep what has no code point of its own.
constexpr char32_t kSymbolArea = 0xF000;
constexpr char32_t kSymbols = 0x100;

// ---- Decomposing

// Points of the outline in em.
struct Taker {
  GlyphOutline& outline;
  double unit;

  PlanePoint at(const FT_Vector* point) const {
    return {static_cast<double>(point->x) * unit, static_cast<double>(point->y) * unit};
  }
  void add(const OutlineCurve& curve) { outline.contours.back().curves.push_back(curve); }
};

Taker& taker(void* user) {
  return *static_cast<Taker*>(user);
}

int takeMove(const FT_Vector* to, void* user) {
  taker(user).outline.contours.push_back({taker(user).at(to), {}, true});
  return 0;
}
int takeLine(const FT_Vector* to, void* user) {
  taker(user).add({1, {}, {}, taker(user).at(to)});
  return 0;
}
int takeConic(const FT_Vector* control, const FT_Vector* to, void* user) {
  taker(user).add({2, taker(user).at(control), {}, taker(user).at(to)});
  return 0;
}
int takeCubic(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to,
              void* user) {
  taker(user).add({3, taker(user).at(control1), taker(user).at(control2), taker(user).at(to)});
  return 0;
}

constexpr FT_Outline_Funcs kTakers{takeMove, takeLine, takeConic, takeCubic, 0, 0};

// A contour need not come back to its start by itself.
void close(GlyphOutline& outline) {
  for (OutlineContour& contour : outline.contours) {
    const bool open = contour.curves.empty() || !(contour.curves.back().end == contour.start);
    if (open) contour.curves.push_back({1, {}, {}, contour.start});
  }
}

// ---- Kerning

// Of two characters alone: nothing else that fonts do with pairs is wanted.
constexpr const char* kOtherFeatures[] = {"liga", "clig", "calt", "rlig", "ccmp",
                                          "locl", "dlig", "mark", "mkmk"};

std::vector<hb_feature_t> kerningFeatures() {
  std::vector<hb_feature_t> features;
  const auto add = [&features](const char* tag, std::uint32_t value) {
    features.push_back(
        {hb_tag_from_string(tag, -1), value, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END});
  };
  add("kern", 1);
  for (const char* const tag : kOtherFeatures) add(tag, 0);
  return features;
}

// A table of a face that lives as long as the font does.
hb_blob_t* copyTable(hb_face_t* /*face*/, hb_tag_t tag, void* user) {
  auto* const face = static_cast<FT_Face>(user);
  FT_ULong length = 0;
  if (FT_Load_Sfnt_Table(face, tag, 0, nullptr, &length) != 0 || length == 0) return nullptr;
  constexpr FT_ULong kLargestTable = 64UL << 20;
  if (length > kLargestTable) return nullptr;
  std::string bytes(length, '\0');
  if (FT_Load_Sfnt_Table(face, tag, 0, reinterpret_cast<FT_Byte*>(bytes.data()), &length) != 0) {
    return nullptr;
  }
  return hb_blob_create(bytes.data(), static_cast<unsigned>(length), HB_MEMORY_MODE_DUPLICATE,
                        nullptr, nullptr);
}

}  // namespace

// ---- The library

FreeTypeLibrary::FreeTypeLibrary() {
  const FT_Error error = FT_Init_FreeType(&library_);
  if (error != 0) throw FontError("The font library cannot be opened", error);
}

FreeTypeLibrary::~FreeTypeLibrary() {
  FT_Done_FreeType(library_);
}

// ---- Opening

// Without waiting for somebody who writes into a pipe that stands in the font's place.
constexpr int kOpening = O_RDONLY | O_CLOEXEC | O_NONBLOCK;

struct FreeTypeFace::File {
  explicit File(const std::string& path) : descriptor(open(path.c_str(), kOpening)) {
    struct stat status {};
    const bool isFile =
        descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    stream.size = isFile ? static_cast<unsigned long>(status.st_size) : 0;
    stream.descriptor.pointer = this;
    stream.read = readPart;
  }
  ~File() {
    if (descriptor >= 0) ::close(descriptor);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  // How many bytes came; of a seek, which asks for none, 0 says that it is possible.
  static unsigned long readPart(FT_Stream stream, unsigned long offset, unsigned char* buffer,
                                unsigned long count) {
    const auto* const file = static_cast<const File*>(stream->descriptor.pointer);
    unsigned long done = 0;
    while (done < count) {
      const ssize_t got =
          pread(file->descriptor, buffer + done, count - done, static_cast<off_t>(offset + done));
      if (got <= 0) break;
      done += static_cast<unsigned long>(got);
    }
    return done;
  }

  int descriptor;
  FT_StreamRec stream{};
};

// A face of HarfBuzz over the tables of the FreeType one.
struct FreeTypeFace::Kerning {
  explicit Kerning(FT_Face freeType)
      : face(hb_face_create_for_tables(copyTable, freeType, nullptr)),
        font(hb_font_create(face)),
        buffer(hb_buffer_create()),
        features(kerningFeatures()) {}
  ~Kerning() {
    hb_buffer_destroy(buffer);
    hb_font_destroy(font);
    hb_face_destroy(face);
  }
  Kerning(const Kerning&) = delete;
  Kerning& operator=(const Kerning&) = delete;

  // In units of the design; 0 where the pair is not shown as two glyphs.
  int between(char32_t left, char32_t right) {
    const std::uint32_t pair[] = {left, right};
    hb_buffer_reset(buffer);
    hb_buffer_add_utf32(buffer, pair, 2, 0, 2);
    hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer, scriptOf(left));
    hb_buffer_set_language(buffer, hb_language_from_string("und", -1));
    hb_shape(font, buffer, features.data(), static_cast<unsigned>(features.size()));
    unsigned count = 0;
    const hb_glyph_info_t* const glyphs = hb_buffer_get_glyph_infos(buffer, &count);
    if (count != 2) return 0;
    const hb_glyph_position_t* const places = hb_buffer_get_glyph_positions(buffer, nullptr);
    return places[0].x_advance - hb_font_get_glyph_h_advance(font, glyphs[0].codepoint);
  }

  static hb_script_t scriptOf(char32_t character) {
    const hb_script_t script =
        hb_unicode_script(hb_unicode_funcs_get_default(), static_cast<hb_codepoint_t>(character));
    return script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED ? HB_SCRIPT_LATIN : script;
  }

  hb_face_t* face;
  hb_font_t* font;
  hb_buffer_t* buffer;
  std::vector<hb_feature_t> features;
};

FreeTypeFace::FreeTypeFace(std::shared_ptr<FreeTypeLibrary> library, const FaceFile& file,
                           FaceStyle style)
    : library_(std::move(library)),
      file_(std::make_unique<File>(file.path)),
      name_(file.path),
      style_(style) {
  FT_Open_Args source{};
  source.flags = FT_OPEN_STREAM;
  source.stream = &file_->stream;
  const FT_Error error = FT_Open_Face(library_->get(), &source, file.index, &face_);
  if (error != 0) fail("The font file cannot be read", error);
  finishOpening();
}

FreeTypeFace::FreeTypeFace(std::shared_ptr<FreeTypeLibrary> library, std::string_view bytes,
                           FaceStyle style)
    : library_(std::move(library)), name_("bytes"), style_(style) {
  const FT_Error error =
      FT_New_Memory_Face(library_->get(), reinterpret_cast<const FT_Byte*>(bytes.data()),
                         static_cast<FT_Long>(bytes.size()), 0, &face_);
  if (error != 0) fail("The font cannot be read", error);
  finishOpening();
}

FreeTypeFace::~FreeTypeFace() {
  kerning_.reset();
  if (face_ != nullptr) FT_Done_Face(face_);
}

// A constructor that fails runs no destructor: the face goes here.
void FreeTypeFace::finishOpening() {
  FT_Error error = FT_Err_Invalid_File_Format;
  if (FT_IS_SCALABLE(face_)) {
    pixelsPerEm_ = std::clamp<FT_UInt>(face_->units_per_EM, kSmallestEm, kLargestEm);
    error = FT_Set_Pixel_Sizes(face_, 0, pixelsPerEm_);
  }
  if (error == 0) return;
  FT_Done_Face(std::exchange(face_, nullptr));
  fail("The font has no outlines", error);
}

void FreeTypeFace::fail(const char* what, FT_Error error) const {
  throw FontError(std::string(what) + ": " + name_, error);
}

// ---- Characters

FT_UInt FreeTypeFace::glyphIndex(char32_t character) const {
  const FT_UInt plain = FT_Get_Char_Index(face_, character);
  if (plain != 0 || character >= kSymbols) return plain;
  return FT_Get_Char_Index(face_, kSymbolArea + character);
}

GlyphShape FreeTypeFace::shape(char32_t character) {
  return shapeOf(glyphIndex(character));
}

GlyphShape FreeTypeFace::shapeOf(FT_UInt glyph) {
  FT_Error error = FT_Load_Glyph(face_, glyph, kLoadFlags);
  if (error != 0) fail("The font is damaged", error);
  GlyphShape shape;
  constexpr double kWhole = 65536;
  shape.advance = static_cast<double>(face_->glyph->linearHoriAdvance) / kWhole * unit();
  if (face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return shape;
  restyle(shape);
  FT_Outline& outline = face_->glyph->outline;
  constexpr double kPerPixel = 64;
  Taker user{shape.outline, unit() / kPerPixel};
  if (FT_Outline_Get_Orientation(&outline) == FT_ORIENTATION_TRUETYPE) FT_Outline_Reverse(&outline);
  error = FT_Outline_Decompose(&outline, &kTakers, &user);
  if (error != 0) fail("The font is damaged", error);
  close(shape.outline);
  return shape;
}

void FreeTypeFace::restyle(GlyphShape& shape) {
  FT_Outline& outline = face_->glyph->outline;
  if (style_.embolden) {
    const auto strength = static_cast<FT_Pos>(pixelsPerEm_) * 64 / kBoldPart;
    FT_Outline_Embolden(&outline, strength);
    if (shape.advance > 0) shape.advance += 1.0 / kBoldPart;
  }
  if (style_.slant) {
    const FT_Matrix lean{0x10000, kLean, 0, 0x10000};
    FT_Outline_Transform(&outline, &lean);
  }
}

double FreeTypeFace::missingAdvance() {
  return shapeOf(0).advance;
}

double FreeTypeFace::kerning(char32_t left, char32_t right) {
  if (!FT_IS_SFNT(face_)) {
    FT_Vector pair{};
    const FT_Error error =
        FT_Get_Kerning(face_, glyphIndex(left), glyphIndex(right), FT_KERNING_UNSCALED, &pair);
    return error == 0 ? static_cast<double>(pair.x) / face_->units_per_EM : 0;
  }
  if (!kerning_) kerning_ = std::make_unique<Kerning>(face_);
  return static_cast<double>(kerning_->between(left, right)) /
         std::max(1U, hb_face_get_upem(kerning_->face));
}

double FreeTypeFace::lineHeight() const {
  const double units = std::max<FT_UShort>(1, face_->units_per_EM);
  return face_->height > 0 ? face_->height / units : kUsualLineHeight;
}

}  // namespace tess
