// Transcripts of the script front: lines in, JSON Lines out.

#include "cli/script.h"

#include <gtest/gtest.h>

#include <sstream>

#include "cli/record_json.h"
#include "support/record.h"

namespace noldarz {
namespace {

struct Transcript {
  std::string out;
  std::string errors;
  ExitStatus status;
};

Transcript run(const std::string& script) {
  Transcript transcript;
  ScriptSession session{[&](const RecordEntry& entry) { transcript.out += jsonLine(entry); }};
  std::istringstream lines(script);
  std::ostringstream errors;
  transcript.status = runScript(session, lines, "test.script", errors);
  transcript.errors = errors.str();
  return transcript;
}

TEST(Script, setsAndShowsFieldsByName) {
  const struct {
    const char* script;
    const char* out;
  } cases[] = {
      {"show htreltxt", R"j({"field":"dspmnfrm.htreltxt","text":"1"})j"},
      {"set dspmnfrm.htreltxt 2.5\nshow htreltxt", R"j({"field":"dspmnfrm.htreltxt","text":"2.5"})j"},
      {"show comput", R"j({"field":"dspmnfrm.comput","caption":"&Compute maximum concentration"})j"},
      {"show comput caption enabled",
       R"j({"field":"dspmnfrm.comput","caption":"&Compute maximum concentration",)j"
       R"j("enabled":true})j"},
      {"show prbtoptn", R"j({"field":"dspmnfrm.prbtoptn","value":1})j"},
      {"set prbtoptn 0\nshow prbtoptn", R"j({"field":"dspmnfrm.prbtoptn","value":0})j"},
      {"set conclbl(0) caption \"Conc. 0\"\nshow conclbl(0) caption value",
       R"j({"field":"dspmnfrm.conclbl(0)","caption":"Conc. 0","value":0})j"},
      {"set constn(5) backColour \"#ffe0c0\"\nshow constn(5) backColour foreColour",
       R"j({"field":"dspmnfrm.constn(5)","backColour":"#ffe0c0","foreColour":"windowText"})j"},
      {"show roghwndoptcbo entries",
       R"j({"field":"dspmnfrm.roghwndoptcbo","entries":["Level","Urban","Semi-Urban","Sub-Urban","Rural"]})j"},
      {"choose stblclscbo EF\nshow stblclscbo", R"j({"field":"dspmnfrm.stblclscbo","text":"EF"})j"},
      {"choose stblclscbo #1\nshow stblclscbo", R"j({"field":"dspmnfrm.stblclscbo","text":"AB"})j"},
      {"enter wndveltxt \" 5 \"\nshow wndveltxt", R"j({"field":"dspmnfrm.wndveltxt","text":" 5 "})j"},
      {"uncheck prbtoptn\nshow prbtoptn", R"j({"field":"dspmnfrm.prbtoptn","value":0})j"},
      {"uncheck prbtoptn\ncheck prbtoptn\nshow prbtoptn", R"j({"field":"dspmnfrm.prbtoptn","value":1})j"},
      {"click prbtoptn\nshow prbtoptn", R"j({"field":"dspmnfrm.prbtoptn","value":0})j"},
      {"show aniwait1.plumepic1 width", R"j({"field":"aniwait1.plumepic1","width":0})j"},
      {"echo \"a \\\"b\\\"\"", R"j({"echo":"a \"b\""})j"},
      {"views", R"j({"views":[{"name":"dspmnfrm","visible":true,"modal":false}],"front":"dspmnfrm"})j"},
      {"state windAtHeight bgnIdx", "{\"state\":\"windAtHeight\",\"value\":0.0}\n{\"state\":\"bgnIdx\",\"value\":0}"},
      {"wait\nwait 500\nfocus htreltxt\nleave htreltxt\ndblclick calmlbl(1)", ""},
      {"dump aniwait1",
       R"j({"view":"aniwait1","fields":{"plumepic1":{},"waitlbl1":{},"progPic1":{"width":5050},"progPic2":{},"pctdsp":{}}})j"},
  };
  for (const auto& [script, out] : cases) {
    const Transcript transcript = run(script);
    EXPECT_EQ(transcript.out, *out ? std::string{out} + '\n' : "") << script;
    EXPECT_EQ(transcript.errors, "") << script;
    EXPECT_EQ(transcript.status, ExitStatus::done) << script;
  }
}

TEST(Script, endsAtTheFirstLineAtFault) {
  const struct {
    const char* line;
    const char* error;
  } cases[] = {
      {"prees comput", "unknown command \"prees\""},
      {"show constm(0)", "no field \"constm(0)\" in view dspmnfrm"},
      {"show dspmnfrn.constn(0)", "no view \"dspmnfrn\""},
      {"show aniwait1.constn(0)", "no field \"constn(0)\" in view aniwait1"},
      {"show constn(6)", "no field \"constn(6)\" in view dspmnfrm"},
      {"show constn(0) color", "no property \"color\""},
      {"set constn(0)", "too few words behind \"set\""},
      {"set constn(0) text 1 2", "too many words behind \"set\": \"2\""},
      {"set constn(0) texts 1", "no property \"texts\""},
      {"set constn(0) enabled maybe", "the property enabled of dspmnfrm.constn(0) does not take \"maybe\""},
      {"set prbtoptn yes", "the property value of dspmnfrm.prbtoptn does not take \"yes\""},
      {"enter prntprv x", "the field dspmnfrm.prntprv is disabled"},
      {"enter molwttxt 17", "the field dspmnfrm.molwttxt is hidden"},
      {"click aniwait1.waitlbl1", "the view aniwait1 is not open"},
      {"enter comput x", "the field dspmnfrm.comput can't be typed into"},
      {"choose htreltxt x", "the field dspmnfrm.htreltxt can't be chosen from"},
      {"choose stblclscbo G", "no entry \"G\" in dspmnfrm.stblclscbo"},
      {"choose stblclscbo #11", "no entry \"#11\" in dspmnfrm.stblclscbo"},
      {"check htreltxt", "the field dspmnfrm.htreltxt can't be checked"},
      {"dblclick htreltxt", "the field dspmnfrm.htreltxt can't be clicked"},
      {"click htreltxt", "the field dspmnfrm.htreltxt can't be clicked"},
      {"wait 1e300", "\"1e300\" is no whole number from 0 up"},
      {"slide htreltxt 3", "the field dspmnfrm.htreltxt can't be slid"},
      {"focus wndvel", "the field dspmnfrm.wndvel takes no focus"},
      {"wait soon", "\"soon\" is no whole number from 0 up"},
      {"wait 1.5", "\"1.5\" is no whole number from 0 up"},
      {"state windAtHeigth", "no state variable \"windAtHeigth\""},
      {"views all", "too many words behind \"views\": \"all\""},
      {"dump a b", "too many words behind \"dump\": \"b\""},
      {"enter scnrotxtlbl M\xFCller", "a word is no text in UTF-8"},
      {"echo \"open", "the quote before \"open\" is not closed"},
      {"mouse down Drwfrm.Drw1 1 1", "the view Drwfrm is not open"},
      {"mouse press Drwfrm.Drw1 1 1", "no act of the mouse \"press\""},
      {"mouse down htreltxt 1 1", "the field dspmnfrm.htreltxt can't be pointed at"},
      {"drawing htreltxt", "the field dspmnfrm.htreltxt is no canvas"},
      {"rows \"SELECT 1\"", "no study is open"},
      {"close aniwait1", "the view aniwait1 is not open"},
      {"set dspScnorlst_1 \"no run\"", "the list has no such entry"},
  };
  for (const auto& [line, error] : cases) {
    const Transcript transcript = run(std::string{"echo before\n"} + line + "\necho after");
    EXPECT_EQ(transcript.status, ExitStatus::refused) << line;
    EXPECT_EQ(transcript.errors, std::string{"test.script:2: "} + error + "\n");
    EXPECT_EQ(transcript.out, "{\"echo\":\"before\"}\n" + jsonLine({{"error", {{"line", 2}, {"text", error}}}}));
  }
}

TEST(Script, pressesComputeAndKeepsTheRecord) {
  const Transcript transcript = run(R"j(
set scnrotypetxt PLUME
set QntyRelstxt 5
set molwttxt 29
set vapordnstytxt 1
set tempStore 27
enter htreltxt 1
enter htsmul 1
enter wndveltxt 6
click comput
show comput
set constn(0) 100
set constn(1) 200
click comput
answer yes
click comput
)j");
  EXPECT_EQ(
      transcript.out,
      R"j({"field":"dspmnfrm.comput","caption":"&Compute at given concentration"})j"
      "\n"
      R"j({"box":{"title":"QUENDARIS","text":"1. Concentration should be >0 and in descending order.\n)j"
      R"j(2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) ","icon":"critical","buttons":"ok",)j"
      R"j("default":"ok","reply":"ok"}})j"
      "\n"
      R"j({"focus":"dspmnfrm.constn(1)"})j"
      "\n"
      R"j({"box":{"title":"QUENDARIS","text":"1. Concentration should be >0 and in descending order.\n)j"
      R"j(2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) ","icon":"critical","buttons":"ok",)j"
      R"j("default":"ok","reply":"yes"}})j"
      "\n"
      R"j({"error":{"line":16,"text":"the box \"1. Concentration should be >0 and in descending order.\n)j"
      R"j(2. Concentrations (ppm) should be < Maximum Isop concentration (ppm) \" does not offer the reply \"yes\""}})j"
      "\n");
  EXPECT_EQ(transcript.status, ExitStatus::refused);
}

TEST(Script, everyStateVariableHasOneName) {
  std::vector<std::string> names;
  visitAll(RunState{}, [&](std::string_view name, auto) { names.emplace_back(name); });
  for (const auto& name : names) EXPECT_EQ(std::count(names.begin(), names.end(), name), 1) << name;
}

TEST(Script, tableShowsAllCells) {
  const Json table = Json::parse(run("table").out);
  EXPECT_EQ(table["table"].size(), 127U);
  EXPECT_EQ(table["table"][126], "0");
}

TEST(Script, countsBoxesFromTheHundredthInARowOn) {
  test::Record record;
  {
    const FoldedBoxes fold{record.taker()};
    const BoxShown box{critical("ppm should be Numeric"), "ok"};
    const BoxShown other{critical("Variable error."), "ok"};
    for (int i = 0; i < 99; ++i) fold(box);
    fold(other);
    for (int i = 0; i < 5000; ++i) fold(box);
    fold(Printed{R"({"echo":"done"})"});
    for (int i = 0; i < 100; ++i) fold(other);
  }
  ASSERT_EQ(record.size(), 99U + 1 + 99 + 1 + 1 + 99 + 1);
  EXPECT_EQ(std::get<BoxShown>(record[98]).times, 0);
  EXPECT_EQ(std::get<BoxShown>(record[199]).times, 4901);
  EXPECT_EQ(std::get<Printed>(record[200]).json, R"({"echo":"done"})");
  EXPECT_TRUE(jsonLine(record.back()).ends_with("},\"times\":1}\n"));
}

}  // namespace
}  // namespace noldarz
