// The settings as a table: lookups, and values to and from texts and numbers.
#include "core/settings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <type_traits>
#include <utility>

#include "core/drawing_store.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "core/runtime_failure.h"
#include "core/text.h"

namespace tess {
namespace {

constexpr SettingRow kSettings[] = {
#define TESSIMO_ROW(variable, width, kind, key, goesTo, reading) \
  {key, SettingKind::kind, &DrawingSettings::variable, GoesTo::goesTo, Reading::reading, false},
#define TESSIMO_AGAIN(variable, kind, key) \
  {key, SettingKind::kind, &DrawingSettings::variable, GoesTo::Live, Reading::Plain, true},
#define TESSIMO_COLOR(slot, key) \
  {key, SettingKind::S, ColorTableSlot{slot}, GoesTo::Live, Reading::Plain, false},
    TESSIMO_SETTINGS(TESSIMO_ROW, TESSIMO_AGAIN, TESSIMO_COLOR)
#undef TESSIMO_ROW
#undef TESSIMO_AGAIN
#undef TESSIMO_COLOR
};

constexpr RowSetting kToolSettings[] = {
    {"tool name", SettingKind::T, &DrawingStore::toolname, Reading::Lower},
    {"tool radius", SettingKind::S, &DrawingStore::toolradius, Reading::Plain},
    {"tool path color", SettingKind::S, &DrawingStore::toolcolor, Reading::Plain},
    {"tool material", SettingKind::T, &DrawingStore::toolmaterial, Reading::Plain},
    {"tool milltype", SettingKind::S, &DrawingStore::toolmilltype, Reading::Plain},
    {"tool number of flutes", SettingKind::S, &DrawingStore::toolflutes, Reading::Plain},
    {"feed rate", SettingKind::T, &DrawingStore::toolfeedrate, Reading::Plain},
    {"spindle speed", SettingKind::S, &DrawingStore::toolspindlespeed, Reading::Plain},
    {"recommended spindle speed", SettingKind::S, &DrawingStore::toolrecspindle, Reading::Plain},
    {"cutting speed", SettingKind::S, &DrawingStore::toolcuttingspeed, Reading::Plain},
    {"tool inside", SettingKind::S, &DrawingStore::toolinside, Reading::WhenSet},
};

constexpr RowSetting kCycleSettings[] = {
    {"cycle text", SettingKind::T, &DrawingStore::cycletext, Reading::Plain},
    {"cycle final depth", SettingKind::S, &DrawingStore::cyclefinaldepth, Reading::Plain},
    {"cycle incr depth", SettingKind::S, &DrawingStore::cycleincrdepth, Reading::Plain},
    {"cycle dwell", SettingKind::S, &DrawingStore::cycledwell, Reading::Plain},
    {"cycle feedrate", SettingKind::S, &DrawingStore::cyclefeedrate, Reading::Plain},
};

constexpr char kTrue[] = "True";
constexpr char kFalse[] = "False";

// Calls visit with the variable that the row stands for, in `settings` or, for a colour, in
// `store`.
template <typename Store, typename Settings, typename Visit>
auto visitVariable(Store& store, Settings& settings, const SettingRow& row, Visit visit) {
  const auto onField = [&](auto field) {
    if constexpr (std::is_same_v<decltype(field), ColorTableSlot>) {
      return visit(store.colortable[field.slot]);
    } else {
      return visit(settings.*field);
    }
  };
  return std::visit(onField, row.field);
}

template <typename Visit>
auto visitLive(const DrawingStore& store, const SettingRow& row, Visit visit) {
  return visitVariable(store, store, row, visit);
}
template <typename Visit>
auto visitLive(DrawingStore& store, const SettingRow& row, Visit visit) {
  return visitVariable(store, store, row, visit);
}

template <typename Row>
const Row* findKey(std::span<const Row> rows, std::string_view key) {
  const std::string wanted = lowerCased(trimmed(key));
  const auto found = std::find_if(rows.begin(), rows.end(),
                                  [&wanted](const Row& row) { return row.key == wanted; });
  return found == rows.end() ? nullptr : &*found;
}

// Numbers of the variables.

double numberOf(Int16 value) {
  return value;
}
double numberOf(float value) {
  return value;
}
double numberOf(Flag value) {
  return value.raw();
}
double numberOf(const std::string& value) {
  return Val(value);
}

float narrowed(double value) {
  const auto narrow = static_cast<float>(value);
  if (!std::isfinite(narrow)) throw overflow();
  return narrow;
}

void setNumber(Int16& variable, double value) {
  variable = roundHalfEven(value);
}
void setNumber(float& variable, double value) {
  variable = narrowed(value);
}
void setNumber(Flag& variable, double value) {
  variable = Flag::fromRaw(Int16(roundHalfEven(value)));
}
void setNumber(std::string& variable, double value) {
  variable = plainText(narrowed(value));
}

// Texts of the variables.

std::string textOf(Int16 value) {
  return std::to_string(value);
}
std::string textOf(float value) {
  return plainText(value);
}
std::string textOf(Flag value) {
  return std::to_string(value.raw());
}
std::string textOf(const std::string& value) {
  return value;
}

double wholeNumber(std::string_view text) {
  const std::optional<double> value = numericValue(text);
  if (!value) throw typeMismatch();
  return *value;
}

// Setup entries. Each width has one reader and one writer; the kind chooses the form.

std::string replaced(std::string text, char from, char to) {
  std::replace(text.begin(), text.end(), from, to);
  return text;
}

void readEntry(std::string& variable, std::string_view value, SettingKind, Reading reading) {
  switch (reading) {
    case Reading::Plain:
    case Reading::OnlyOne:
    case Reading::WhenSet:
      variable = value;
      break;
    case Reading::Bars:
      variable = replaced(std::string(value), '|', ',');
      break;
    case Reading::Lower:
      variable = lowerCased(value);
      break;
    case Reading::Upper:
      variable = upperCased(value);
      break;
  }
}

void readEntry(int& variable, std::string_view value, SettingKind, Reading) {
  variable = parseInteger(value);
}

// Fixed: some flags are on for the text 1 alone; a setup that holds -1 comes back with them off.
void readEntry(Int16& variable, std::string_view value, SettingKind, Reading reading) {
  variable = reading == Reading::OnlyOne ? (value == "1" ? 1 : 0) : parseInteger(value);
}

void readEntry(float& variable, std::string_view value, SettingKind, Reading) {
  variable = parseFloat(value);
}

void readEntry(Flag& variable, std::string_view value, SettingKind kind, Reading) {
  if (kind == SettingKind::B) {
    variable = equalIgnoringCase(value, kTrue) || Val(value) != 0;
  } else {
    variable = Flag::fromRaw(Int16(parseInteger(value)));
  }
}

std::string entryText(const std::string& value, SettingKind, Reading reading) {
  std::string text = onOneLine(value);
  return reading == Reading::Bars ? replaced(std::move(text), ',', '|') : text;
}

std::string entryText(int value, SettingKind kind, Reading) {
  return kind == SettingKind::F ? std::to_string(value) : signBlankText(value);
}

std::string entryText(float value, SettingKind kind, Reading) {
  return kind == SettingKind::F ? plainText(value) : signBlankText(value);
}

std::string entryText(Flag value, SettingKind kind, Reading) {
  return kind == SettingKind::B ? (value ? kTrue : kFalse) : signBlankText(value.raw());
}

}  // namespace

std::span<const SettingRow> settingRows() {
  return kSettings;
}

const SettingRow* findSetting(std::string_view key) {
  return findKey(settingRows(), key);
}

bool isTextSetting(const SettingRow& row) {
  return row.kind == SettingKind::T;
}

double settingNumber(const DrawingStore& store, const SettingRow& row) {
  return visitLive(store, row, [](const auto& value) { return numberOf(value); });
}

std::string settingText(const DrawingStore& store, const SettingRow& row) {
  return visitLive(store, row, [](const auto& value) { return textOf(value); });
}

void setSettingNumber(DrawingStore& store, const SettingRow& row, double value) {
  visitLive(store, row, [value](auto& variable) { setNumber(variable, value); });
}

void setSettingText(DrawingStore& store, const SettingRow& row, std::string_view text) {
  visitLive(store, row, [text](auto& variable) {
    if constexpr (std::is_same_v<decltype(variable), std::string&>) {
      variable = text;
    } else {
      setNumber(variable, wholeNumber(text));
    }
  });
}

void readSetting(DrawingStore& store, const SettingRow& row, std::string_view value) {
  const auto read = [&](auto& variable) {
    readEntry(variable, trimmed(value), row.kind, row.reading);
  };
  if (row.goesTo != GoesTo::Live) visitVariable(store, store.defaults, row, read);
  if (row.goesTo != GoesTo::Default) visitLive(store, row, read);
}

void appendSetting(std::string& out, const DrawingStore& store, const SettingRow& row) {
  if (row.reading == Reading::WhenSet && settingNumber(store, row) == 0) return;
  const auto text = [&row](const auto& value) { return entryText(value, row.kind, row.reading); };
  appendSetupEntry(out, row.key, visitLive(store, row, text));
}

void clearOptionalSettings(DrawingStore& store) {
  for (const SettingRow& row : kSettings) {
    if (row.reading == Reading::WhenSet) setSettingNumber(store, row, 0);
  }
}

void appendSetupEntry(std::string& out, std::string_view key, std::string_view value) {
  out.append(key).append(" =").append(value).append("\r\n");
}

std::span<const RowSetting> toolSettings() {
  return kToolSettings;
}

std::span<const RowSetting> cycleSettings() {
  return kCycleSettings;
}

const RowSetting* findRowSetting(std::span<const RowSetting> settings, std::string_view key) {
  return findKey(settings, key);
}

void readRowSetting(DrawingStore& store, const RowSetting& setting, int index,
                    std::string_view value) {
  const auto read = [&](auto column) {
    readEntry((store.*column)[index], trimmed(value), setting.kind, setting.reading);
  };
  std::visit(read, setting.field);
}

void appendRowSetting(std::string& out, const DrawingStore& store, const RowSetting& setting,
                      int index) {
  const auto text = [&](auto column) {
    return entryText((store.*column)[index], setting.kind, setting.reading);
  };
  const std::string value = std::visit(text, setting.field);
  if (setting.reading == Reading::WhenSet && Val(value) == 0) return;
  appendSetupEntry(out, setting.key, value);
}

}  // namespace tess
