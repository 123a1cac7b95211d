// The settings as a table, made from settings_list.h, and the smaller tables of the tool chest and
// the machine cycles: what setup files, drawing files and scripts know about each value.
// Owns: SettingKind, GoesTo, Reading, ColorTableSlot, SettingField, SettingRow, settingRows,
//       findSetting, isTextSetting, settingNumber, settingText, setSettingNumber, setSettingText,
//       readSetting, appendSetting, clearOptionalSettings, appendSetupEntry, RowField, RowSetting,
//       toolSettings, cycleSettings, findRowSetting, readRowSetting, appendRowSetting.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace tess {

template <typename T>
class Column;
class Flag;
class Int16;
struct DrawingSettings;
struct DrawingStore;

// How a setup file writes a value: S a number with a sign blank, F a number without one, B True or
// False, T text.
enum class SettingKind { S, F, B, T };

// Where a value read from a setup file lands.
enum class GoesTo { Live, Default, Both };

// How the text of a setup entry becomes the value, as told in settings_list.h.
enum class Reading { Plain, OnlyOne, Bars, Lower, Upper, WhenSet };

struct ColorTableSlot {
  int slot;  // of colortable, 1 to kLastColorSlot
};

using SettingField =
    std::variant<Int16 DrawingSettings::*, float DrawingSettings::*, Flag DrawingSettings::*,
                 std::string DrawingSettings::*, ColorTableSlot>;

struct SettingRow {
  std::string_view key;  // in lower case
  SettingKind kind;
  SettingField field;
  GoesTo goesTo;
  Reading reading;
  bool repeated;  // the entry stands further up already and is written a second time
};

// All settings in the order of the setup file.
std::span<const SettingRow> settingRows();

// The setting of a key, whatever its case and surrounding blanks; null when there is none.
const SettingRow* findSetting(std::string_view key);

// The live values, for scripts and reports. A flag is 0 or -1; a text counts as the number that it
// begins with; a number gives its shortest text.
bool isTextSetting(const SettingRow& row);
double settingNumber(const DrawingStore& store, const SettingRow& row);
std::string settingText(const DrawingStore& store, const SettingRow& row);

// Set the live value. Numbers round to whole ones (ties to even) where the setting is one, and
// raise Overflow when they do not fit; a text that is no number raises Type mismatch for a number.
void setSettingNumber(DrawingStore& store, const SettingRow& row, double value);
void setSettingText(DrawingStore& store, const SettingRow& row, std::string_view text);

// The value of a setup entry to and from the store: reading goes where the row says, writing takes
// the live value, and leaves out one that is written only when it is set. Reading is lenient: no
// number is 0. Raises Overflow.
void readSetting(DrawingStore& store, const SettingRow& row, std::string_view value);
void appendSetting(std::string& out, const DrawingStore& store, const SettingRow& row);

// Before a setup is read: what it does not tell of these is 0.
void clearOptionalSettings(DrawingStore& store);

// One entry of a setup file: the key, a blank, "=" and the value as it stands.
void appendSetupEntry(std::string& out, std::string_view key, std::string_view value);

// One field of a table row: of a tool or of a machine cycle.
using RowField = std::variant<Column<Int16> DrawingStore::*, Column<int> DrawingStore::*,
                              Column<float> DrawingStore::*, Column<std::string> DrawingStore::*>;

struct RowSetting {
  std::string_view key;
  SettingKind kind;
  RowField field;
  Reading reading;
};

// The fields in the order of the setup file, without the "tool #" and "cycle #" that open a row.
std::span<const RowSetting> toolSettings();
std::span<const RowSetting> cycleSettings();

const RowSetting* findRowSetting(std::span<const RowSetting> settings, std::string_view key);

// The field of row `index` to and from the text of a setup entry. Raise Overflow and Subscript out
// of range. One that is written only when it is set appends nothing where it is 0.
void readRowSetting(DrawingStore& store, const RowSetting& setting, int index,
                    std::string_view value);
void appendRowSetting(std::string& out, const DrawingStore& store, const RowSetting& setting,
                      int index);

}  // namespace tess
