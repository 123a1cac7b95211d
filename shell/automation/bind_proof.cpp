// `proof`: the path proof as a table.
#include "shell/automation/bindings.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

void setFields(lua_State* /*L*/) {}

// Names and values in turn, into the table on top of the stack.
template <typename Value, typename... More>
void setFields(lua_State* L, const char* field, const Value& value, const More&... more) {
  push(L, value);
  lua_setfield(L, -2, field);
  setFields(L, more...);
}

// A table of these fields.
template <typename... Fields>
void pushTable(lua_State* L, const Fields&... fields) {
  lua_createtable(L, 0, static_cast<int>(sizeof...(fields) / 2));
  setFields(L, fields...);
}

// A list of what `pushOne` leaves on the stack for each.
template <typename Values, typename PushOne>
void pushList(lua_State* L, const Values& values, PushOne pushOne) {
  lua_createtable(L, static_cast<int>(values.size()), 0);
  lua_Integer place = 0;
  for (const auto& value : values) {
    pushOne(value);
    lua_rawseti(L, -2, ++place);
  }
}

void pushGouge(lua_State* L, const GougeFinding& gouge) {
  pushTable(L, "depth", gouge.depth, "row", gouge.row, "group", gouge.group, "x", gouge.x, "y",
            gouge.y);
}

void pushPlace(lua_State* L, const MissedPlace& place) {
  pushTable(L, "x", place.x, "y", place.y, "width", place.width, "height", place.height, "area",
            place.area);
}

void pushArea(lua_State* L, const MissedArea& missed) {
  pushTable(L, "share", missed.share(), "area", missed.area, "reach", missed.reach);
  pushList(L, missed.places, [L](const MissedPlace& place) { pushPlace(L, place); });
  lua_setfield(L, -2, "places");
}

// By the numbers of the groups.
void pushMissed(lua_State* L, const std::vector<MissedFinding>& missed) {
  lua_createtable(L, 0, static_cast<int>(missed.size()));
  for (const MissedFinding& job : missed) {
    pushArea(L, job.atClearance);
    setFields(L, "group", job.group);
    pushArea(L, job.atWall);
    lua_setfield(L, -2, "wall");
    lua_rawseti(L, -2, job.group);
  }
}

void pushRapid(lua_State* L, const RapidFinding& rapid) {
  pushTable(L, "row", rapid.row, "group", rapid.group, "x", rapid.x, "y", rapid.y);
}

void pushTab(lua_State* L, const TabFinding& tab) {
  pushTable(L, "group", tab.group, "x", tab.x, "y", tab.y, "width", tab.width, "height",
            tab.height);
}

void pushOvercut(lua_State* L, const OvercutFinding& corner) {
  pushTable(L, "group", corner.group, "x", corner.x, "y", corner.y, "depth", corner.depth, "left",
            corner.left);
}

void pushPlunge(lua_State* L, const PlungeFinding& plunge) {
  pushTable(L, "row", plunge.row, "group", plunge.group, "x", plunge.x, "y", plunge.y, "depth",
            plunge.depth);
}

void pushEngagement(lua_State* L, const Engagement& engagement) {
  pushTable(L, "share", engagement.share, "row", engagement.row, "x", engagement.x, "y",
            engagement.y);
}

void pushJob(lua_State* L, const JudgedJob& job) {
  pushTable(L, "group", job.group, "kind", kindText(job.kind), "by",
            job.byRecord ? "record" : "rows");
  pushEngagement(L, job.engagement);
  lua_setfield(L, -2, "engagement");
}

int proveJob(Script& script, lua_State* L) {
  const PathProof proof = script.application.proofWatch.prove();
  lua_createtable(L, 0, 8);
  pushGouge(L, proof.gouge);
  lua_setfield(L, -2, "gouge");
  pushMissed(L, proof.missed);
  lua_setfield(L, -2, "missed");
  pushList(L, proof.rapids, [L](const RapidFinding& rapid) { pushRapid(L, rapid); });
  lua_setfield(L, -2, "rapids");
  pushList(L, proof.tabs, [L](const TabFinding& tab) { pushTab(L, tab); });
  lua_setfield(L, -2, "tabs");
  pushList(L, proof.overcuts, [L](const OvercutFinding& corner) { pushOvercut(L, corner); });
  lua_setfield(L, -2, "overcuts");
  pushList(L, proof.plunges, [L](const PlungeFinding& plunge) { pushPlunge(L, plunge); });
  lua_setfield(L, -2, "plunges");
  pushList(L, proof.jobs, [L](const JudgedJob& job) { pushJob(L, job); });
  lua_setfield(L, -2, "jobs");
  pushList(L, proof.unjudged, [L](int row) { push(L, row); });
  lua_setfield(L, -2, "unjudged");
  setFields(L, "clean", !proof.isBeyondLimits(), "text", proofText(proof));
  return 1;
}

}  // namespace

void bindProof(lua_State* L) {
  lua_register(L, "proof", guarded<proveJob>);
}

}  // namespace tess
