// `segments`, `paths`, `add_segment` and `add_path`.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;

class RowBinding : public ::testing::Test, protected ScriptRun {};

TEST_F(RowBinding, MissingFieldsHaveTheirDefaults) {
  EXPECT_EQ(outputOf("add_segment{type=1, x1=2} add_path{type=1, x1=2} "
                     "print(store.segattr[1], store.y1[1], store.centerx[1], store.x1[1]) "
                     "print(store.pscode[1], store.psz[1], store.psvisible[1], store.psx1[1])"),
            "8\t0.0\t0.0\t2.0\n0\t0.0\t-1\t2.0\n");
}

TEST_F(RowBinding, RowsComeBackAsTheyWereGiven) {
  EXPECT_EQ(outputOf("add_segment{type=2, attr=10, x0=1, y0=2, x1=3, y1=4, xc=5, yc=6} "
                     "for row, sg in segments() do print(sg, row.type, row.attr, row.x0, row.y0, "
                     "row.x1, row.y1, row.xc, row.yc) end"),
            "1\t2\t10\t1.0\t2.0\t3.0\t4.0\t5.0\t6.0\n");
  EXPECT_EQ(
      outputOf("add_path{type=81, code=1203, x0=1, y0=2, x1=3, y1=4, xc=5, yc=6, z=-7, feed=8, "
               "visible=false} for row, ps in paths() do print(ps, row.type, row.code, row.x0, "
               "row.y0, row.x1, row.y1, row.xc, row.yc, row.z, row.feed, row.visible) end"),
      "1\t81\t1203\t1.0\t2.0\t3.0\t4.0\t5.0\t6.0\t-7.0\t8.0\tfalse\n");
}

TEST_F(RowBinding, AnEmptyDrawingIteratesOverNothing) {
  EXPECT_EQ(outputOf("for _ in segments() do print('row') end for _ in paths() do print('row') "
                     "end print('end')"),
            "end\n");
}

TEST_F(RowBinding, TwoIterationsDoNotDisturbEachOther) {
  EXPECT_EQ(outputOf("for i = 1, 3 do add_segment{type=1, x0=i} end local n = 0 "
                     "for a in segments() do for b in segments() do n = n + a.x0 * b.x0 end end "
                     "print(n)"),
            "36.0\n");
}

TEST_F(RowBinding, AppendingGoesThroughTheProgramsRoutines) {
  EXPECT_EQ(outputOf("store.drawingsaved = true print(add_segment{type=1}, store.drawingsaved) "
                     "print(add_path{type=1, code=1251}, store.drawingsaved, "
                     "store.lastplacedgroup)"),
            "1\t-1\n1\t0\t13\n");
}

TEST_F(RowBinding, AFullTableOverflows) {
  EXPECT_EQ(errorOf("store.NumSegments = 32767 add_segment{type=1}"), "Overflow");
  EXPECT_EQ(errorOf("store.NumPathSegments = 32767 add_path{type=1}"), "Overflow");
}

TEST_F(RowBinding, WrongFieldsAreErrors) {
  struct Case {
    const char* statement;
    const char* error;
  };
  const Case cases[] = {
      {"add_segment{typ=1}", "a row has no field 'typ' (did you mean 'type'?)"},
      {"add_segment{type=1, z=2}", "a row has no field 'z'"},
      {"add_path{attr=8}", "a row has no field 'attr'"},
      {"add_segment{1, 2}", "a row has no field '1'"},
      {"add_segment(1)", "a row is a table of its fields, as {type=1, x0=0, ...}"},
      {"add_segment()", "a row is a table of its fields, as {type=1, x0=0, ...}"},
      {"add_segment{x0='left'}", "Type mismatch: field 'x0'"},
      {"add_segment{attr=32768}", "Overflow: field 'attr'"},
      {"add_path{code=32768}", "Overflow: field 'code'"},
      {"add_path{x0=0/0}", "Type mismatch: field 'x0'"},
  };
  for (const Case& c : cases) EXPECT_EQ(errorOf(c.statement), c.error) << c.statement;
}

}  // namespace
}  // namespace tess
