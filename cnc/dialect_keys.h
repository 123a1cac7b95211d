// The keys by which a post-processor definition sets its dialect.
// Owns: DialectFault, DialectKeys.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "cnc/dialect.h"
#include "core/field_reader.h"

namespace tess {

// What is wrong with a key, as a sentence that begins with it, and where.
struct DialectFault {
  std::string what;
  std::string place;
};

// Reads the keys of one definition. A key that is wrong, or that stands there twice, keeps its
// default.
class DialectKeys {
 public:
  explicit DialectKeys(Dialect& dialect) : dialect_(dialect) {}

  // In capitals. A list is named behind LISTSTART.
  static bool isKey(std::string_view name);
  static bool isList(std::string_view name);

  // Takes what stands behind the name, which was read at `place`. Raises Input past end of file.
  std::optional<DialectFault> readKey(std::string_view name, const std::string& place,
                                      FieldReader& reader);
  std::optional<DialectFault> readList(std::string_view name, const std::string& place,
                                       FieldReader& reader);

 private:
  bool isAgain(std::string_view name) { return !seen_.emplace(name).second; }

  Dialect& dialect_;
  std::set<std::string, std::less<>> seen_;
};

}  // namespace tess
