// Texts of DXF files as UTF-8.
#include "import/dxf_text.h"

#include <algorithm>
#include <charconv>
#include <iconv.h>

#include "core/text.h"

namespace tess {
namespace {

constexpr std::string_view kEscape = "\\U+";
constexpr std::size_t kEscapeDigits = 4;
constexpr char kWesternPage[] = "CP1252";

bool isPlain(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](unsigned char byte) { return byte < 0x80; });
}

// "ANSI_1252" and "dos850" by the names that the converter knows.
std::string converterName(std::string_view codePage) {
  const std::string page = upperCased(codePage);
  for (const std::string_view prefix : {"ANSI_", "DOS"}) {
    if (page.starts_with(prefix)) return "CP" + page.substr(prefix.size());
  }
  return page;
}

class Converter {
 public:
  explicit Converter(const std::string& from) : handle_(iconv_open("UTF-8", from.c_str())) {}
  ~Converter() {
    if (isOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  bool isOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // Empty when the bytes are none of the page.
  std::string convert(std::string_view bytes) {
    std::string in(bytes);
    std::string out(bytes.size() * kWidest, '\0');
    char* from = in.data();
    char* to = out.data();
    std::size_t left = in.size();
    std::size_t room = out.size();
    if (iconv(handle_, &from, &left, &to, &room) == static_cast<std::size_t>(-1)) return {};
    out.resize(out.size() - room);
    return out;
  }

 private:
  static constexpr std::size_t kWidest = 4;  // bytes of a character in UTF-8
  iconv_t handle_;
};

std::string decoded(std::string_view bytes, std::string_view codePage) {
  if (isPlain(bytes)) return std::string(bytes);
  const std::string page = converterName(codePage);
  std::string asUtf8 = toUtf8(bytes);
  // Many programs name the western page whatever they write.
  if (page.empty() || (page == kWesternPage && asUtf8 == bytes)) return asUtf8;
  Converter converter(page);
  std::string converted = converter.isOpen() ? converter.convert(bytes) : std::string();
  return converted.empty() ? asUtf8 : converted;
}

// The character of an escape whose digits these are; 0 when they are none.
unsigned escapedCharacter(std::string_view digits) {
  unsigned code = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, code, 16);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return digits.size() == kEscapeDigits && result.ptr == end && !surrogate ? code : 0;
}

std::string withoutEscapes(const std::string& text) {
  std::string plain;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find(kEscape, done)) != std::string::npos;) {
    const std::string_view digits =
        std::string_view(text).substr(at + kEscape.size(), kEscapeDigits);
    const unsigned code = escapedCharacter(digits);
    plain.append(text, done, at - done);
    if (code > 0) appendCharacter(plain, code);
    if (code == 0) plain.append(kEscape);
    done = at + kEscape.size() + (code > 0 ? kEscapeDigits : 0);
  }
  return plain.append(text, done);
}

}  // namespace

std::string dxfText(std::string_view bytes, std::string_view codePage) {
  return withoutEscapes(decoded(bytes, codePage));
}

}  // namespace tess
