// From a script's text to its exit status: libraries, limits, and the line of a failure.
#include "shell/automation/script_runner.h"

#include <sys/stat.h>
#include <unistd.h>

#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "tests/support/script_run.h"

namespace tess {
namespace {

using testing::ScriptRun;
using testing::TempFolder;

class ScriptRunner : public ::testing::Test, protected ScriptRun {
 protected:
  ExitStatus runFile(const std::string& path) {
    job.path = path;
    std::ostringstream outStream;
    std::ostringstream errStream;
    status = runScript(job, {}, outStream, errStream);
    out = outStream.str();
    err = errStream.str();
    return status;
  }
};

TEST_F(ScriptRunner, PrintGoesToTheOutputAndNothingElse) {
  EXPECT_EQ(run("print('a', 1, 2.5, nil, true) print()"), ExitStatus::Done);
  EXPECT_EQ(out, "a\t1\t2.5\tnil\ttrue\n\n");
  EXPECT_EQ(err, "");
}

TEST_F(ScriptRunner, ArgumentsAreInArg) {
  job.arguments = {"4", "--fast"};
  EXPECT_EQ(valueOf("#arg, arg[1], arg[2], arg[0] == '" + job.path + "'"), "2\t4\t--fast\ttrue");
}

TEST_F(ScriptRunner, OnlyThePlainLibrariesAreThere) {
  EXPECT_EQ(valueOf("io, os, package, require, dofile, loadfile, debug, coroutine"),
            "nil\tnil\tnil\tnil\tnil\tnil\tnil\tnil");
  EXPECT_EQ(valueOf("string.rep('x', 3), math.pi > 3, utf8.char(228), #table.pack(1, 2)"),
            "xxx\ttrue\tä\t2");
}

TEST_F(ScriptRunner, FileAccessBringsTheRest) {
  job.fileAccess = true;
  EXPECT_EQ(valueOf("type(io), type(os), type(package), type(require), type(dofile)"),
            "table\ttable\ttable\tfunction\tfunction");
}

TEST_F(ScriptRunner, LoadTakesTextAndNoBytecode) {
  EXPECT_EQ(valueOf("load('return 1 + 1')(), load('return x', 'c', 't', {x = 5})()"), "2\t5");
  EXPECT_EQ(valueOf("load(string.dump(function() end))"),
            "nil\tattempt to load a binary chunk (mode is 't')");
  EXPECT_EQ(valueOf("load(string.dump(function() end), 'c', 'b')"),
            "nil\tattempt to load a binary chunk (mode is 't')");
  EXPECT_EQ(outputOf("local parts, i = {'return ', '7'}, 0 "
                     "print(load(function() i = i + 1 return parts[i] end)())"),
            "7\n");
}

TEST_F(ScriptRunner, ErrorsNameTheScriptAndTheLine) {
  struct Case {
    const char* script;
    const char* line;
  };
  const Case cases[] = {
      {"x = = 1", "test.lua:1: unexpected symbol near '='"},
      {"\n\nerror('stop')", "test.lua:3: stop"},
      {"\nerror('stop', 0)", "test.lua:2: stop"},
      {"local t\nprint(t.x)", "test.lua:2: attempt to index a nil value (local 't')"},
      {"error({})", "test.lua:1: the error is a table value"},
      {"error()", "test.lua:1: the error is a nil value"},
      {"error(setmetatable({}, {__tostring = function() return 'odd' end}))", "test.lua:1: odd"},
      {"error('two\\nlines\\r\\n')", "test.lua:1: two lines"},
      {"local function f() error('deep') end\nf()", "test.lua:1: deep"},
      {"geometry.distance(1)", "test.lua:1: Type mismatch: argument 2 is missing"},
  };
  for (const Case& c : cases) EXPECT_EQ(failureOf(c.script), c.line) << c.script;
}

TEST_F(ScriptRunner, UnknownGlobalsGiveTheNameThatWasMeant) {
  EXPECT_EQ(errorOf("opn('part.cdm')"),
            "attempt to call a nil value (global 'opn') (did you mean 'open'?)");
  EXPECT_EQ(errorOf("print(stroe.units)"),
            "attempt to index a nil value (global 'stroe') (did you mean 'store'?)");
  EXPECT_EQ(errorOf("nowhere()"), "attempt to call a nil value (global 'nowhere')");
  EXPECT_EQ(errorOf("io.open('x')"),
            "attempt to index a nil value (global 'io') (it needs --allow-io in front of --run)");
}

TEST_F(ScriptRunner, ALongNameStaysWhole) {
  const std::string deep = std::string(80, 'd') + "/";
  std::filesystem::create_directory(folder(deep));
  const std::string path = folder.write(deep + "script.lua", "error('stop')");
  EXPECT_EQ(runFile(path), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + path + ":1: stop\n");
}

TEST_F(ScriptRunner, FilesThatAreNoScripts) {
  EXPECT_EQ(runFile(folder("none.lua")), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + folder("none.lua") + ": File not found\n");
  EXPECT_EQ(runFile(folder()), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + folder() + ": it is a folder\n");
  EXPECT_EQ(runFile(folder.write("binary.lua", "\x1bLua")), ExitStatus::JobFailed);
  EXPECT_EQ(
      err, "tessimo: " + folder("binary.lua") + ": attempt to load a binary chunk (mode is 't')\n");
  if (geteuid() == 0) return;  // everything is readable then
  chmod(folder.write("locked.lua", "").c_str(), 0);
  EXPECT_EQ(runFile(folder("locked.lua")), ExitStatus::JobFailed);
  EXPECT_EQ(err, "tessimo: " + folder("locked.lua") + ": Permission denied\n");
}

TEST_F(ScriptRunner, AByteOrderMarkIsPassedOver) {
  EXPECT_EQ(outputOf("\xEF\xBB\xBFprint('here')"), "here\n");
  EXPECT_EQ(outputOf("\xEF\xBB\xBF#!tessimo\nprint('here')"), "here\n");
}

TEST_F(ScriptRunner, AFirstLineForTheShellIsPassedOver) {
  EXPECT_EQ(outputOf("#!/usr/bin/env tessimo --run\nprint('here')"), "here\n");
  EXPECT_EQ(failureOf("#!/usr/bin/env tessimo\nerror('stop')"), "test.lua:2: stop");
  EXPECT_EQ(outputOf("#!only this"), "");
}

TEST_F(ScriptRunner, AProgramThatDoesNotStartIsOneLine) {
  std::filesystem::remove(home("test.msu"));
  EXPECT_EQ(failureOf("print('never')"),
            "Could not find setup file: test.msu named in " + home("tess.def") + " line 2 field 1");
  std::filesystem::remove(home("tess.def"));
  EXPECT_EQ(failureOf("print('never')"), "File not found: " + home("tess.def"));
  EXPECT_NE(home.read("Errors.txt").find("load_defaults()"), std::string::npos);
}

TEST_F(ScriptRunner, WhatTheMainWindowWouldShowGoesToTheErrorOutput) {
  home.write("standard.msx", "SPEED,9\r\n");
  EXPECT_EQ(run("print('done')"), ExitStatus::Done);
  EXPECT_EQ(out, "done\n");
  EXPECT_EQ(err, "tessimo: Error in Post processor definition file:SPEED " + home("standard.msx") +
                     " line 1 field 1\ntessimo: Error in Post processor definition file:9 " +
                     home("standard.msx") + " line 1 field 2\n");
}

TEST_F(ScriptRunner, MemoryHasABound) {
  job.limits.memory = 8 << 20;
  const std::string line = failureOf("local t = {} while true do t[#t + 1] = ('x'):rep(1000) end");
  EXPECT_NE(line.find("not enough memory"), std::string::npos) << line;
  EXPECT_NE(failureOf("print(#string.rep('x', 1 << 40))").find("resulting string too large"),
            std::string::npos);
}

// The texts lie in the program, out of the interpreter's sight.
TEST_F(ScriptRunner, TextsInTheProgramCountAgainstTheBound) {
  job.limits.memory = 32 << 20;
  const std::string text = "local text = ('x'):rep(2000000) ";
  for (const char* statement :
       {"for tool = 0, 98 do store.toolname[tool] = text end",
        "for _, key in ipairs{'toolname', 'toolmaterial', 'toolfeedrate'} do "
        "for tool = 0, 9 do store[key][tool] = text end end",
        "for _, key in ipairs{'drawing title', 'designer name', 'drawing revision', 'part "
        "material', "
        "'part hardness', 'material condition', 'material category', 'cnc output path', "
        "'cncheadertext', 'cnctrailertext', 'cnccomment', 'cncletters', 'cncfmtinch', 'cncfmtmm', "
        "'creation date'} do setting[key] = text end store.drawingname = text"}) {
    const std::string line = failureOf(text + statement);
    EXPECT_NE(line.find("not enough memory"), std::string::npos) << statement << ": " << line;
  }
  EXPECT_EQ(outputOf(text + "for turn = 1, 100 do store.toolname[turn % 3] = text end "
                            "for tool = 0, 98 do store.toolname[tool] = text "
                            "store.toolname[tool] = '' setting['drawing title'] = text end "
                            "print(#store.toolname[1], #setting['drawing title'])"),
            "0\t2000000\n");
}

TEST_F(ScriptRunner, PathsHaveABound) {
  EXPECT_EQ(failureOf("open(('x'):rep(4097))"), "test.lua:1: a path has no more than 4096 bytes");
  EXPECT_EQ(failureOf("plot(('x'):rep(4097))"), "test.lua:1: a path has no more than 4096 bytes");
  EXPECT_EQ(failureOf("on_file(function() return ('x'):rep(4097) end) tool('miOpen')"),
            "test.lua:1: a path has no more than 4096 bytes");
}

TEST_F(ScriptRunner, DeepRecursionIsAnError) {
  EXPECT_NE(failureOf("local function f() return 1 + f() end f()").find("stack overflow"),
            std::string::npos);
  EXPECT_NE(failureOf("local t = setmetatable({}, {}) getmetatable(t).__index = function(s, k) "
                      "return s[k .. 'x'] end print(t.a)")
                .find("stack overflow"),
            std::string::npos);
  EXPECT_NE(failureOf("local s = ('('):rep(100000) load(s .. '1')() ").find("attempt to call"),
            std::string::npos);
}

TEST_F(ScriptRunner, InstructionsHaveABoundWhenAsked) {
  job.limits.instructions = 100000;
  EXPECT_EQ(failureOf("while true do pcall(function() while true do end end) end"),
            "the script has run too long");
}

TEST_F(ScriptRunner, TimeHasABoundWhenAsked) {
  job.timeout = 0.05;
  const std::string late = "the script has run longer than 0.05 s";
  EXPECT_EQ(failureOf("while true do pcall(function() while true do end end) end"),
            "test.lua:1: " + late);
  EXPECT_EQ(failureOf("local x = 0\nwhile true do\nx = geometry.distance(0, 0, x, 1)\nend"),
            "test.lua:3: " + late);
  EXPECT_EQ(failureOf("while true do\npcall(wait, 86400000) end"), "test.lua:2: " + late);
  EXPECT_EQ(failureOf("add_segment{type=1, x1=1}\non_message(function() while true do end end)\n"
                      "store.drawingsaved = false\ntool('miNew')"),
            "test.lua:2: " + late);
}

TEST_F(ScriptRunner, TimeIsNotLookedAtUnlessAsked) {
  job.timeout = 60;
  EXPECT_EQ(outputOf("print('done')"), "done\n");
  job.timeout = 0;
  EXPECT_EQ(outputOf("print('done')"), "done\n");
}

TEST_F(ScriptRunner, FinalisersRunWhileTheProgramIsStillThere) {
  EXPECT_EQ(outputOf("setmetatable({}, {__gc = function() print(store.NumSegments) "
                     "error('late') end})"),
            "0\n");
}

TEST_F(ScriptRunner, OutputThatCannotBeWrittenFailsTheJob) {
  std::ostringstream broken;
  std::ostringstream errors;
  broken.setstate(std::ios::badbit);
  EXPECT_EQ(runScriptText(job, "print('x')", {}, broken, errors), ExitStatus::JobFailed);
  EXPECT_EQ(errors.str(), "tessimo: " + job.path + ": standard output cannot be written\n");
}

TEST_F(ScriptRunner, BeepsAreCounted) {
  EXPECT_EQ(valueOf("beeps"), "0");
}

}  // namespace
}  // namespace tess
