// `store` and `setting`: the drawing store, the settings by their setup keys and the variables of
// the post definition, from tables of names and members.
#include <algorithm>

#include "core/drawing_store.h"
#include "core/settings.h"
#include "shell/automation/bindings.h"
#include "shell/automation/named_fields.h"

namespace tess {
namespace {

using ColumnMember = std::variant<Column<int> DrawingStore::*, Column<Int16> DrawingStore::*,
                                  Column<float> DrawingStore::*, Column<Flag> DrawingStore::*,
                                  Column<std::string> DrawingStore::*>;

struct NamedColumn {
  const char* name;
  ColumnMember member;
};

constexpr NamedColumn kColumns[] = {
    {"segtype", &DrawingStore::segtype},
    {"segattr", &DrawingStore::segattr},
    {"x0", &DrawingStore::x0},
    {"y0", &DrawingStore::y0},
    {"x1", &DrawingStore::x1},
    {"y1", &DrawingStore::y1},
    {"centerx", &DrawingStore::centerx},
    {"centery", &DrawingStore::centery},
    {"pstype", &DrawingStore::pstype},
    {"pscode", &DrawingStore::pscode},
    {"psx0", &DrawingStore::psx0},
    {"psy0", &DrawingStore::psy0},
    {"psx1", &DrawingStore::psx1},
    {"psy1", &DrawingStore::psy1},
    {"psxc", &DrawingStore::psxc},
    {"psyc", &DrawingStore::psyc},
    {"psz", &DrawingStore::psz},
    {"psfeed", &DrawingStore::psfeed},
    {"psvisible", &DrawingStore::psvisible},
    {"pathgroupname", &DrawingStore::pathgroupname},
    {"toolname", &DrawingStore::toolname},
    {"toolradius", &DrawingStore::toolradius},
    {"toolcolor", &DrawingStore::toolcolor},
    {"toolmaterial", &DrawingStore::toolmaterial},
    {"toolmilltype", &DrawingStore::toolmilltype},
    {"toolflutes", &DrawingStore::toolflutes},
    {"toolfeedrate", &DrawingStore::toolfeedrate},
    {"toolspindlespeed", &DrawingStore::toolspindlespeed},
    {"toolrecspindle", &DrawingStore::toolrecspindle},
    {"toolcuttingspeed", &DrawingStore::toolcuttingspeed},
    {"toolinside", &DrawingStore::toolinside},
    {"cycletext", &DrawingStore::cycletext},
    {"cyclefinaldepth", &DrawingStore::cyclefinaldepth},
    {"cycleincrdepth", &DrawingStore::cycleincrdepth},
    {"cycledwell", &DrawingStore::cycledwell},
    {"cyclefeedrate", &DrawingStore::cyclefeedrate},
    {"colortable", &DrawingStore::colortable},
    {"colorsinuse", &DrawingStore::colorsinuse},
};

// A counter that grows carries its tables along, so that every row it counts is there.
void assignNumSegments(Application& application, int value) {
  Change change(application.interaction.context.changes);
  change.segments.resize(value);
  change.keep();
}
void assignNumPathSegments(Application& application, int value) {
  Change change(application.interaction.context.changes);
  change.paths.resize(value);
  change.keep();
}
void assignNumCycles(Application& application, int value) {
  const Int16 count = value;
  if (count < 0) throw subscriptOutOfRange();
  resizeCycles(application.store, count);
  application.store.NumCycles = count;
}

using VariableMember = std::variant<Int16 DrawingStore::*, float DrawingStore::*,
                                    Flag DrawingStore::*, std::string DrawingStore::*>;

struct NamedVariable {
  const char* name;
  VariableMember member;
  bool viewFlag = false;
  void (*assign)(Application& application, int value) = nullptr;
};

constexpr NamedVariable kVariables[] = {
    {"NumSegments", &DrawingStore::NumSegments, false, assignNumSegments},
    {"NumPathSegments", &DrawingStore::NumPathSegments, false, assignNumPathSegments},
    {"NumCycles", &DrawingStore::NumCycles, false, assignNumCycles},
    {"currentpathgroup", &DrawingStore::currentpathgroup},
    {"lastplacedgroup", &DrawingStore::lastplacedgroup},
    {"creationdate", &DrawingStore::creationdate},
    {"unitfactor", &DrawingStore::unitfactor},
    {"markerx", &DrawingStore::markerx},
    {"markery", &DrawingStore::markery},
    {"showpaths", &DrawingStore::showpaths, /*viewFlag=*/true},
    {"drawingsaved", &DrawingStore::drawingsaved},
    {"setupchanged", &DrawingStore::setupchanged},
    {"drawingname", &DrawingStore::drawingname},
    {"drawingpath", &DrawingStore::drawingpath},
    {"savedsegments", &DrawingStore::savedsegments},
    {"savedpaths", &DrawingStore::savedpaths},
};

// A setting under its two names.
struct NamedSetting {
  const char* variable;  // null for a colour, which is a row of colortable
  const char* key;
  SettingField field;
  bool viewFlag = false;
};

#define TESSIMO_NAMED_SETTING(variable, width, kind, key, goesTo, reading) \
  {#variable, key, &DrawingSettings::variable, Reading::reading == Reading::OnlyOne},
#define TESSIMO_NOTHING(...)
#define TESSIMO_NAMED_COLOR(slot, key) {nullptr, key, ColorTableSlot{slot}},
constexpr NamedSetting kSettings[] = {
    TESSIMO_SETTINGS(TESSIMO_NAMED_SETTING, TESSIMO_NOTHING, TESSIMO_NAMED_COLOR)};
#undef TESSIMO_NAMED_SETTING
#undef TESSIMO_NOTHING
#undef TESSIMO_NAMED_COLOR

// The grid flags read as plain numbers in setup files, unlike the other view flags.
bool isViewFlag(const NamedSetting& setting) {
  const std::string_view key = setting.key;
  return setting.viewFlag || key == "visual grid f" || key == "cursor grid f";
}

// Where the value of a setting stands: among these settings, or in this colour table.
struct SettingPlace {
  DrawingSettings& settings;
  Column<Int16>& colortable;
  template <typename T>
  VariablePlace operator()(T DrawingSettings::*member) const {
    return &(settings.*member);
  }
  VariablePlace operator()(ColorTableSlot color) const {
    return TableSlot{&colortable, color.slot};
  }
};

Variable variableOf(DrawingStore& store, DrawingSettings& settings, const NamedSetting& setting) {
  return {.place = std::visit(SettingPlace{settings, store.colortable}, setting.field),
          .viewFlag = isViewFlag(setting)};
}

void addSettingVariables(FieldObject& object, DrawingStore& store, DrawingSettings& settings) {
  for (const NamedSetting& setting : kSettings) {
    if (setting.variable == nullptr) continue;
    object.add(setting.variable, variableOf(store, settings, setting));
  }
}

void bindStoreTables(lua_State* L, DrawingStore& store, CamContext& cam) {
  FieldObject object(L, "store");
  for (const NamedColumn& column : kColumns) {
    std::visit([&](auto member) { object.add(column.name, store.*member); }, column.member);
  }
  for (const NamedVariable& named : kVariables) {
    const auto place =
        std::visit([&](auto member) -> VariablePlace { return &(store.*member); }, named.member);
    object.add(named.name, {.place = place, .viewFlag = named.viewFlag, .assign = named.assign});
  }
  object.add("pathInsertMode", {.place = &cam.pathInsertMode});
  object.add("pathInsertGroup", {.place = &cam.pathInsertGroup});
  addSettingVariables(object, store, store);
  FieldObject defaults(L, "store.defaults");
  addSettingVariables(defaults, store, store.defaults);
  defaults.finish();
  object.addValue("defaults");
  object.finish();
  lua_setglobal(L, "store");
}

void addPostVariables(FieldObject& object, Application& application) {
  PostDefinition& definition = application.definition;
  NumberFormats& formats = application.session.formats;
  const std::pair<const char*, VariablePlace> variables[] = {
      {"cncheadertext", &definition.cncheadertext},
      {"cnctrailertext", &definition.cnctrailertext},
      {"cnccomment", &definition.cnccomment},
      {"absCenter", &definition.absCenter},
      {"forceXYZ", &definition.forceXYZ},
      {"forceIJK", &definition.forceIJK},
      {"cncletters", &definition.cncletters},
      {"cncfmtinch", &formats.cncfmtinch},
      {"cncfmtmm", &formats.cncfmtmm},
      {"cncfmt", &formats.cncfmt},
      {"coordfmt", &formats.coordfmt},
      {"dimfmt", &formats.dimfmt},
      {"creation date", &application.store.creationdate},
  };
  for (const auto& [name, place] : variables) object.add(name, {.place = place});
}

void bindSettings(lua_State* L, Application& application) {
  FieldObject object(L, "setting");
  for (const NamedSetting& setting : kSettings) {
    object.add(setting.key, variableOf(application.store, application.store, setting));
  }
  addPostVariables(object, application);
  object.finish();
  lua_setglobal(L, "setting");
}

}  // namespace

void bindStore(lua_State* L) {
  Application& application = scriptOf(L).application;
  bindStoreTables(L, application.store, application.interaction.cam);
  bindSettings(L, application);
}

}  // namespace tess
