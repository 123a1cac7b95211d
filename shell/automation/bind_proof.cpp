// `proof`: the path proof as a table.
#include "shell/automation/bindings.h"
#include "toolpath/proof_text.h"

namespace tess {
namespace {

template <typename Value>
void setField(lua_State* L, const char* field, const Value& value) {
  push(L, value);
  lua_setfield(L, -2, field);
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
  lua_createtable(L, 0, 5);
  setField(L, "depth", gouge.depth);
  setField(L, "row", gouge.row);
  setField(L, "group", gouge.group);
  setField(L, "x", gouge.x);
  setField(L, "y", gouge.y);
}

void pushPlace(lua_State* L, const MissedPlace& place) {
  lua_createtable(L, 0, 5);
  setField(L, "x", place.x);
  setField(L, "y", place.y);
  setField(L, "width", place.width);
  setField(L, "height", place.height);
  setField(L, "area", place.area);
}

void pushArea(lua_State* L, const MissedArea& missed) {
  lua_createtable(L, 0, 6);
  setField(L, "share", missed.share());
  setField(L, "area", missed.area);
  setField(L, "reach", missed.reach);
  pushList(L, missed.places, [L](const MissedPlace& place) { pushPlace(L, place); });
  lua_setfield(L, -2, "places");
}

// By the numbers of the groups.
void pushMissed(lua_State* L, const std::vector<MissedFinding>& missed) {
  lua_createtable(L, 0, static_cast<int>(missed.size()));
  for (const MissedFinding& job : missed) {
    pushArea(L, job.atClearance);
    setField(L, "group", job.group);
    pushArea(L, job.atWall);
    lua_setfield(L, -2, "wall");
    lua_rawseti(L, -2, job.group);
  }
}

void pushRapid(lua_State* L, const RapidFinding& rapid) {
  lua_createtable(L, 0, 4);
  setField(L, "row", rapid.row);
  setField(L, "group", rapid.group);
  setField(L, "x", rapid.x);
  setField(L, "y", rapid.y);
}

void pushPlunge(lua_State* L, const PlungeFinding& plunge) {
  lua_createtable(L, 0, 5);
  setField(L, "row", plunge.row);
  setField(L, "group", plunge.group);
  setField(L, "x", plunge.x);
  setField(L, "y", plunge.y);
  setField(L, "depth", plunge.depth);
}

void pushJob(lua_State* L, const JudgedJob& job) {
  lua_createtable(L, 0, 3);
  setField(L, "group", job.group);
  setField(L, "kind", kindText(job.kind));
  setField(L, "by", job.byRecord ? "record" : "rows");
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
  pushList(L, proof.plunges, [L](const PlungeFinding& plunge) { pushPlunge(L, plunge); });
  lua_setfield(L, -2, "plunges");
  pushList(L, proof.jobs, [L](const JudgedJob& job) { pushJob(L, job); });
  lua_setfield(L, -2, "jobs");
  pushList(L, proof.unjudged, [L](int row) { push(L, row); });
  lua_setfield(L, -2, "unjudged");
  setField(L, "clean", !proof.isBeyondLimits());
  setField(L, "text", proofText(proof));
  return 1;
}

}  // namespace

void bindProof(lua_State* L) {
  lua_register(L, "proof", guarded<proveJob>);
}

}  // namespace tess
