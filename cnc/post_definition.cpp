// The post-processor definition: finding its file and reading it key by key.
#include "cnc/post_definition.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "cnc/dialect_keys.h"
#include "core/file_system.h"
#include "core/lifecycle.h"
#include "core/text.h"
#include "core/units.h"

namespace tess {
namespace {

constexpr char kExtension[] = ".msx";
constexpr char kStandardName[] = "standard.msx";

struct Loading {
  Session& session;
  PostDefinition& definition;
  FieldReader& reader;
  DialectKeys dialect{definition.dialect};

  std::string code() const { return std::string(trimmed(upperCased(reader.readQuotedText()))); }
  bool yes() const { return upperCased(reader.readQuotedText()).starts_with('Y'); }
};

// Each token is a line as it stands, an empty one an empty line.
void readLines(Loading& loading, std::string& text) {
  text.clear();
  std::string_view lineEnd;
  for (;;) {
    const std::string line = loading.reader.readQuotedText();
    if (upperCased(line) == "LISTEND") return;
    text.append(lineEnd).append(line);
    lineEnd = "\r\n";
  }
}

void noteDamage(PostDefinition& definition, const std::string& damage) {
  if (definition.damage.empty()) definition.damage = damage;
}

// Before the start is done there is no window that a message box could stand on.
void complain(Loading& loading, const std::string& what, const std::string& place,
              const std::string& damage) {
  Session& session = loading.session;
  const std::string text = "Error in Post processor definition file:" + what + "\n" + place;
  if (session.startupdone) {
    int answer = 0;
    askUser(session, text, kAskOk, answer);
  } else {
    session.host.surroundings.printOnMainWindow(text);
  }
  noteDamage(loading.definition, place + damage);
}

void complainOf(Loading& loading, const std::optional<DialectFault>& fault) {
  if (fault) complain(loading, fault->what, fault->place, ": " + fault->what);
}

// Fixed: tokens of any other list are read as keys; definitions that name others load so.
void readList(Loading& loading) {
  const std::string place = loading.reader.place();
  const std::string list = upperCased(loading.reader.readQuotedText());
  if (DialectKeys::isList(list)) {
    complainOf(loading, loading.dialect.readList(list, place, loading.reader));
  }
  if (list == "HEADERTEXT") readLines(loading, loading.definition.cncheadertext);
  if (list == "TRAILERTEXT") readLines(loading, loading.definition.cnctrailertext);
}

struct Key {
  std::string_view name;
  void (*read)(Loading&);
};

constexpr std::array kKeys{
    Key{"LISTSTART", readList},
    Key{"COMMENTCHR", [](Loading& l) { l.definition.cnccomment = l.reader.readQuotedText(); }},
    Key{"ABSCENTER", [](Loading& l) { l.definition.absCenter = l.yes(); }},
    Key{"FORCEXYZ", [](Loading& l) { l.definition.forceXYZ = l.yes(); }},
    Key{"FORCEIJK", [](Loading& l) { l.definition.forceIJK = l.yes(); }},
    Key{"MAP", [](Loading& l) { l.definition.cncletters = l.code(); }},
    Key{"INFORMAT", [](Loading& l) { l.session.formats.cncfmtinch = l.code(); }},
    Key{"MMFORMAT", [](Loading& l) { l.session.formats.cncfmtmm = l.code(); }},
};

void readKey(Loading& loading) {
  const std::string place = loading.reader.place();
  const std::string token = loading.reader.readQuotedText();
  if (token.empty()) return;
  const std::string name = upperCased(token);
  const auto key = std::ranges::find(kKeys, name, &Key::name);
  if (key != kKeys.end()) {
    key->read(loading);
  } else if (DialectKeys::isKey(name)) {
    complainOf(loading, loading.dialect.readKey(name, place, loading.reader));
  } else {
    complain(loading, token, place, " has the unknown word '" + token + "'");
  }
}

// A dialect stands for one control and inherits nothing.
void beginAnew(PostDefinition& definition) {
  definition.damage.clear();
  definition.dialect = {};
}

// Fixed: a name of the working folder is opened beside the program; it merely spares the fallback.
std::string definitionName(const Session& session) {
  std::string folder;
  const std::string name = splitPath(folder, session.setupname, kExtension);
  const bool known = fileExists(session.appfolder + name) || fileExists(name);
  return known ? name : kStandardName;
}

}  // namespace

// Fixed: a key of kKeys that is missing keeps its value; definitions build on the one before.
void readPostDefinition(Session& session, PostDefinition& definition, FieldReader& reader) {
  beginAnew(definition);
  Loading loading{session, definition, reader};
  while (!reader.atEnd()) readKey(loading);
}

void loadxsetup2(Session& session, PostDefinition& definition, const std::string& path) {
  const Procedure here("loadxsetup2()");
  FieldReader reader = FieldReader::open(path, kLargestSettings);
  readPostDefinition(session, definition, reader);
}

void load_xsetup(Session& session, PostDefinition& definition) {
  beginAnew(definition);
  try {
    const Procedure here("load_xsetup()");
    loadxsetup2(session, definition, session.appfolder + definitionName(session));
  } catch (const RuntimeFailure& failure) {
    noteDamage(definition, failure.source() + ": " + failure.description());
    session.host.failures.report(failure);
  }
  set_num_formats(session);
}

}  // namespace tess
