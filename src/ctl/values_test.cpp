// SPDX-License-Identifier: MIT
// zorvanectl set by names and from a file, export and import: a document's values by the terminal.

#include "ctl/testing/ctl_bench.h"
#include "edit/testing/relay.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace zorvane::ctl {
namespace {

using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string headings = "field,row,column,page,name,heading,register,value\r\n";

class Values : public testing::Test {
  protected:
    Ctl_Run run(const std::string& call, const std::vector<std::string>& arguments) {
        std::vector<std::string> all = {call, ztp, config};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return bench.run(all);
    }
    /// The lines of the document that was saved which hold a text.
    [[nodiscard]] std::string saved(const std::string& text) const {
        const std::string bytes = bench.bytes("out.RELAY");
        const std::size_t at = bytes.find(text);
        return at == std::string::npos ? "" : bytes.substr(at, bytes.find("\r\n", at) - at);
    }

    Ctl_Bench bench;
    std::string ztp = bench.file("RELAY.ZTP", doubles::relayTemplate());
    std::string config =
        bench.file("site.RELAY", lines({"[Field_1_Default]", "ROW_1=Set point,1130,agreed,1123"}));
    std::string out = bench.path("out.RELAY");
};

using Set_By_Name = Values;

TEST_F(Set_By_Name, PageAndRowStandForTheSetting) {
    const Ctl_Run set = run("set", {"Regulation/Set point", "1200", "--save", out});
    EXPECT_EQ(set.out, "1200\n");
    EXPECT_EQ(set.err, "");
    EXPECT_EQ(set.code, 0);
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1200,agreed,1123");
    EXPECT_EQ(run("set", {"--save", out, "regulation/set point/remark", "-agreed-"}).out, "-agreed-\n");
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1130,-agreed-,1123");
}

TEST_F(Set_By_Name, PrintsTheSameJsonAsByNumbers) {
    EXPECT_EQ(run("set", {"Regulation/Set point", "1401", "--json"}).out,
              run("set", {"1", "1", "2", "1401", "--json"}).out);
    EXPECT_EQ(run("set", {"Regulation/Set point/Reading", "7", "--json"}).out,
              run("set", {"1", "1", "4", "7", "--json"}).out);
}

TEST_F(Set_By_Name, ANameThatFitsTwoCellsFailsAndSaysWhich) {
    const Ctl_Run set = run("set", {"Timers/row 2", "5", "--save", out});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.out, "");
    EXPECT_EQ(set.err,
              "zorvanectl: \"Timers/row 2\" fits 2 cells: Timers/row 2/Pulse (2 2 1), Timers/row 2/Pause "
              "(2 2 2).\n");
    EXPECT_FALSE(bench.exists("out.RELAY"));
    const json told = json::parse(run("set", {"Timers/row 2", "5", "--json"}).out);
    EXPECT_EQ(told["refused"],
              "\"Timers/row 2\" fits 2 cells: Timers/row 2/Pulse (2 2 1), Timers/row 2/Pause (2 2 2)");
}

TEST_F(Set_By_Name, ANameThatFitsNoneSaysWhatThereIs) {
    const Ctl_Run set = run("set", {"Regulation/Setpoint", "5"});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.err,
              "zorvanectl: no cell is named \"Regulation/Setpoint\". The rows of Regulation: Set point, Drop "
              "X, Delay, Output, Tag.\n");
}

TEST_F(Set_By_Name, APlainNumberStaysTheEntrysNumber) {
    const json byNumber = json::parse(run("set", {"Regulation/Output", "2", "--json"}).out);
    EXPECT_EQ(byNumber["Value"], "2");
    EXPECT_EQ(byNumber["grid"], "Trip");
}

TEST_F(Set_By_Name, TextNamesAnEntryWhoseCodeTheCellTakes) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"Regulation/Output", "--text", "trip", "--save", out},
          {"Regulation/Output", "trip", "--text", "--save", out},
          {"1", "4", "2", "--text", "trip", "--save", out},
          {"1", "4", "2", "trip", "--save", out, "--text"},
          {"--text=trip", "--save", out, "1", "4", "2"}}) {
        const Ctl_Run set = run("set", arguments);
        EXPECT_EQ(set.out, "Trip\n");
        EXPECT_EQ(set.err, "");
        EXPECT_EQ(set.code, 0);
        EXPECT_EQ(saved("ROW_4=Output"), "ROW_4=Output,Trip,,");
    }
    EXPECT_EQ(json::parse(run("set", {"Regulation/Output", "--text", "Trip", "--json"}).out)["Value"], "7");
}

TEST_F(Set_By_Name, ATextThatNoEntryHasIsRefused) {
    const Ctl_Run set = run("set", {"Regulation/Output", "--text", "Auto", "--save", out});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.err, "zorvanectl: The cell can't be edited: \"Auto\" is not in its list (Off, On, Trip).\n"
                       "zorvanectl: The document was not written.\n");
    EXPECT_FALSE(bench.exists("out.RELAY"));
}

TEST_F(Set_By_Name, OutsideOfListsATextIsWhatIsTyped) {
    EXPECT_EQ(run("set", {"Regulation/Set point/Remark", "--text", "-x"}).out, "-x\n");
    EXPECT_EQ(run("set", {"Regulation/Set point", "--text", "1200"}).out, "1200\n");
}

TEST_F(Set_By_Name, WhatFitsNoFormIsWrongUsage) {
    EXPECT_EQ(run("set", {"Regulation/Set point"}).code, 2);
    EXPECT_EQ(run("set", {"Regulation", "5"}).code, 2) << "a name has a page and a row";
    EXPECT_EQ(run("set", {"1", "1", "5"}).code, 2);
    EXPECT_EQ(run("set", {"1", "4", "2", "--text"}).code, 2);
    EXPECT_EQ(run("set", {}).code, 2);
    EXPECT_EQ(run("set", {"Regulation/Set point", "5", "--from", "x"}).code, 2);
}

TEST_F(Set_By_Name, ATextThatNoCellHoldsIsRefusedInTheJsonToo) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"1", "1", "3", "\xC5\x81", "--save", out, "--json"},
          {"Regulation/Set point/Remark", "\xC5\x81", "--save", out, "--json"},
          {"Regulation/Output", "--text", "\xC5\x81", "--save", out, "--json"}}) {
        const Ctl_Run set = run("set", arguments);
        EXPECT_EQ(set.code, 1);
        const json told = json::parse(set.out);
        EXPECT_EQ(told["refused"], "the text has a character that no cell can hold (Windows-1252)");
        EXPECT_EQ(told["saved"], false);
        EXPECT_FALSE(bench.exists("out.RELAY"));
    }
}

using Set_From_File = Values;

TEST_F(Set_From_File, TakesAllLinesOfAFile) {
    const std::string list = bench.file("list.txt", "# agreed in May\nRegulation/Set point = 1200\n"
                                                    "Regulation/Output = Trip\n1,3,2 = 1:30\n");
    const Ctl_Run set = run("set", {"--from", list, "--save", out});
    EXPECT_EQ(set.err, "");
    EXPECT_EQ(set.out, "3 values taken, 3 changed. Written: " + out + "\n");
    EXPECT_EQ(set.code, 0);
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1200,agreed,1123");
    EXPECT_EQ(saved("ROW_3=Delay"), "ROW_3=Delay,1:30,,");
    EXPECT_EQ(saved("ROW_4=Output"), "ROW_4=Output,Trip,,");
}

TEST_F(Set_From_File, OneThatDoesntFitAndNothingIsSaved) {
    const std::string list = bench.file("list.txt", "Regulation/Set point = 1401\nRegulation/Output = 2\n");
    const Ctl_Run set = run("set", {"--from", list, "--save", out, "--json"});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(json::parse(set.out), json::parse(R"({"taken":0,"left_out":[{"line":1,
        "why":"Regulation/Set point/Value: \"1401\" is above its limit 1400"}]})"));
    EXPECT_THAT(set.err, HasSubstr("1 of 2 values fit; none was taken."));
    EXPECT_FALSE(bench.exists("out.RELAY"));
}

TEST_F(Set_From_File, TakesAFileOfExportToo) {
    const std::string csv = bench.file("values.csv", headings + "1,1,2,,,,,1200\r\n");
    EXPECT_EQ(run("set", {"--from", csv, "--save", out}).code, 0);
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1200,agreed,1123");
}

TEST_F(Set_From_File, ATableWithoutOneMeaningIsNoListOfNames) {
    const std::string csv = bench.file("values.csv", "field,row,column,value,value\r\n1,1,2,1200,1300\r\n");
    const Ctl_Run set = run("set", {"--from", csv, "--save", out});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.err, "zorvanectl: " + csv + ": the heading value stands twice.\n");
}

TEST_F(Set_From_File, AFileThatIsntThereFails) {
    const Ctl_Run set = run("set", {"--from", bench.path("gone"), "--save", out, "--json"});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(json::parse(set.out), json::parse(R"({"taken":0,"left_out":[]})"));
    EXPECT_THAT(set.err, HasSubstr("gone: File not found"));
}

using Export = Values;

TEST_F(Export, WritesTheValuesForASpreadsheet) {
    const Ctl_Run exported = run("export", {"--out", bench.path("v.csv")});
    EXPECT_EQ(exported.out, "Written: " + bench.path("v.csv") + "\n");
    EXPECT_EQ(exported.code, 0);
    EXPECT_THAT(bench.bytes("v.csv"), StartsWith("\xEF\xBB\xBF" + headings +
                                                 "1,1,2,Regulation,Set point,Value,100,1130\r\n"
                                                 "1,1,3,Regulation,Set point,Remark,,agreed\r\n"));
}

TEST_F(Export, SeparatorAndDecimalSignCanBeChosen) {
    config = bench.file("site.RELAY", lines({"[Field_1_Default]", "ROW_2=Drop X,-12.5"}));
    const auto written = [&](const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"--out", bench.path("v.csv")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(run("export", arguments).code, 0);
        return bench.bytes("v.csv");
    };
    EXPECT_THAT(written({"--separator", ";", "--decimal", ","}),
                HasSubstr("1;2;2;Regulation;Drop X;Value;101;\"-12,5\"\r\n"));
    EXPECT_THAT(written({"--separator", "tab"}),
                HasSubstr("1\t2\t2\tRegulation\tDrop X\tValue\t101\t-12.5\r\n"));
    EXPECT_THAT(written({"--decimal=,"}), HasSubstr("1,2,2,Regulation,Drop X,Value,101,\"-12,5\"\r\n"));
    for (const char* separator : {"", ".", "x", ";;", "5"})
        EXPECT_EQ(run("export", {"--out", "v.csv", "--separator", separator}).code, 2) << separator;
    EXPECT_EQ(run("export", {"--out", "v.csv", "--decimal", ";"}).code, 2);
    EXPECT_EQ(run("export", {}).code, 2);
}

TEST_F(Export, WhatCantBeReadOrWrittenFails) {
    EXPECT_EQ(run("export", {"--out", bench.path("gone/v.csv"), "--json"}).code, 1);
    EXPECT_EQ(json::parse(run("export", {"--out", bench.path("gone/v.csv"), "--json"}).out),
              json::parse(R"({"output":null})"));
    config = bench.path("gone.RELAY");
    EXPECT_EQ(run("export", {"--out", bench.path("v.csv")}).code, 1);
    EXPECT_FALSE(bench.exists("v.csv"));
}

/// The values after the line where reading stopped would be the template's.
TEST_F(Export, ADocumentThatWasReadInPartWritesNothing) {
    config = bench.file("site.RELAY", lines({"[Field_1_Default]", "ROW_1=a,1,2,3,4", "ROW_2=Drop X,-9,,"}));
    const std::string before = bench.file("v.csv", "kept");
    const Ctl_Run exported = run("export", {"--out", before, "--json"});
    EXPECT_EQ(exported.code, 1);
    EXPECT_EQ(json::parse(exported.out), json::parse(R"({"output":null})"));
    EXPECT_THAT(exported.err, HasSubstr("The document was not read to its end, so nothing was written.\n"));
    EXPECT_EQ(bench.bytes("v.csv"), "kept");
}

TEST_F(Export, TakesThePlaceOfItsOwnFilesNever) {
    const std::string before = bench.bytes("site.RELAY");
    const Ctl_Run exported = run("export", {"--out", config, "--json"});
    EXPECT_EQ(exported.code, 1);
    EXPECT_EQ(json::parse(exported.out), json::parse(R"({"output":null})"));
    EXPECT_EQ(exported.err,
              "zorvanectl: " + config + " is the document itself. Choose another file for the values.\n");
    EXPECT_EQ(bench.bytes("site.RELAY"), before);
    EXPECT_THAT(run("export", {"--out", ztp}).err, HasSubstr(" is the template itself."));
    EXPECT_EQ(bench.bytes("RELAY.ZTP"), doubles::relayTemplate());
}

using Import = Values;

TEST_F(Import, TheFileOfTheValuesIsntWrittenOver) {
    const std::string text = headings + "1,1,2,,,,,1200\r\n";
    const std::string csv = bench.file("v.csv", text);
    const Ctl_Run imported = run("import", {csv, "--save", csv, "--json"});
    EXPECT_EQ(imported.code, 1);
    EXPECT_EQ(json::parse(imported.out), json::parse(R"({"taken":0,"left_out":[]})"));
    EXPECT_EQ(imported.err,
              "zorvanectl: " + csv + " has the values. Choose another file for the document.\n");
    EXPECT_EQ(bench.bytes("v.csv"), text);
}

TEST_F(Import, AValueThatASeparatorCutIsntTakenInPart) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1200,5\r\n1,4,2,,,,,Trip\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", out, "--json"});
    EXPECT_EQ(imported.code, 1);
    EXPECT_EQ(json::parse(imported.out), json::parse(R"({"taken":0,"left_out":[{"line":2,
        "why":"the line has more values than there are headings: one with the separator in it needs quotes"}]})"));
    EXPECT_FALSE(bench.exists("out.RELAY"));
    EXPECT_EQ(run("import", {csv, "--save", out, "--all-that-fit"}).code, 4);
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1130,agreed,1123");
}

TEST_F(Import, TakesAllAndSaves) {
    const std::string csv =
        bench.file("v.csv", headings + "1,1,2,,,,,1200\r\n1,4,2,,,,,Trip\r\n1,1,3,,,,,agreed\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", out});
    EXPECT_EQ(imported.out, "3 values taken, 2 changed. Written: " + out + "\n");
    EXPECT_EQ(imported.err,
              "zorvanectl: " + csv + ": columns are separated by \",\"; decimal sign: not needed.\n");
    EXPECT_EQ(imported.code, 0);
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1200,agreed,1123");
    EXPECT_EQ(saved("ROW_4=Output"), "ROW_4=Output,Trip,,");
    EXPECT_EQ(json::parse(run("import", {csv, "--save", out, "--json"}).out),
              json::parse(R"({"taken":3,"left_out":[]})"));
}

TEST_F(Import, AnEmptyNameOfTheFileToSaveIsAnErrorOfTheCommandLine) {
    const std::string values = bench.file("v.csv", headings + "1,1,2,,,,,1200\r\n");
    const Ctl_Run import = run("import", {values, "--save", "", "--json"});
    EXPECT_EQ(import.code, 2);
    EXPECT_EQ(import.out, "");
    EXPECT_THAT(import.err, HasSubstr("--save: the value is empty"));
}

TEST_F(Import, NothingIsSavedWhereOneIsLeftOut) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1401\r\n1,4,2,,,,,Trip\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", out});
    EXPECT_EQ(imported.code, 1);
    EXPECT_EQ(imported.out, "");
    EXPECT_EQ(imported.err, "zorvanectl: " + csv +
                                ": columns are separated by \",\"; decimal sign: not needed.\n" +
                                "zorvanectl: " + csv +
                                ", line 2: Regulation/Set point/Value: \"1401\" is above its limit 1400.\n"
                                "zorvanectl: 1 of 2 values fit; none was taken.\n");
    EXPECT_FALSE(bench.exists("out.RELAY"));
    EXPECT_EQ(json::parse(run("import", {csv, "--save", out, "--json"}).out),
              json::parse(R"({"taken":0,"left_out":[
        {"line":2,"why":"Regulation/Set point/Value: \"1401\" is above its limit 1400"}]})"));
}

TEST_F(Import, AllThatFitLeavesTheOthersOut) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1401\r\n1,4,2,,,,,Trip\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", out, "--all-that-fit", "--json"});
    EXPECT_EQ(imported.code, 4);
    EXPECT_EQ(json::parse(imported.out), json::parse(R"({"taken":1,"left_out":[
        {"line":2,"why":"Regulation/Set point/Value: \"1401\" is above its limit 1400"}]})"));
    EXPECT_EQ(saved("ROW_1=Set"), "ROW_1=Set point,1130,agreed,1123");
    EXPECT_EQ(saved("ROW_4=Output"), "ROW_4=Output,Trip,,");
}

TEST_F(Import, WhereNothingFitsNothingIsSaved) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1401\r\n");
    EXPECT_EQ(run("import", {csv, "--save", out, "--all-that-fit"}).code, 1);
    EXPECT_FALSE(bench.exists("out.RELAY"));
}

TEST_F(Import, AFileWithoutHeadingsSavesNothing) {
    const std::string csv = bench.file("v.csv", "1,1,2,1200\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", out, "--json"});
    EXPECT_EQ(imported.code, 1);
    EXPECT_EQ(json::parse(imported.out), json::parse(R"({"taken":0,"left_out":[]})"));
    EXPECT_EQ(imported.err, "zorvanectl: " + csv +
                                ": its first line doesn't have the headings field, row, column and value.\n");
}

/// A script's variable that isn't set.
TEST_F(Values, AnEmptyNameOfAFileIsRefused) {
    const std::string list = bench.file("v.txt", "Regulation/Set point = 1200\n");
    EXPECT_EQ(run("set", {"--from", ""}).code, 2);
    EXPECT_EQ(run("set", {"--from", list, "--save", ""}).code, 2);
    EXPECT_EQ(run("set", {"1", "1", "2", "1200", "--save", ""}).code, 2) << "it wouldn't be saved";
    EXPECT_EQ(run("apply", {bench.file("r.json", "{}"), "--save", ""}).code, 2);
    EXPECT_EQ(run("export", {"--out", ""}).code, 2);
    EXPECT_EQ(run("import", {list, "--save", ""}).code, 2);
}

/// The template's own values would pass for those of the document.
TEST_F(Values, AnEmptyNameOfTheDocumentIsRefused) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1200\r\n");
    config = "";
    for (const auto& [call, arguments] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"export", {"--out", bench.path("w.csv")}},
             {"import", {csv, "--save", out}},
             {"set", {"1", "1", "2", "1200", "--save", out}},
             {"set", {"--from", csv, "--save", out}}}) {
        const Ctl_Run refused = run(call, arguments);
        EXPECT_EQ(refused.code, 2) << call;
        EXPECT_EQ(refused.out, "") << call;
        EXPECT_THAT(refused.err, HasSubstr("CONFIG: the value is empty")) << call;
    }
    EXPECT_FALSE(bench.exists("w.csv"));
    EXPECT_FALSE(bench.exists("out.RELAY"));
}

TEST_F(Import, ADocumentThatWasReadInPartTakesNothing) {
    config = bench.file("site.RELAY", lines({"[Field_1_Default]", "ROW_1=a,1,2,3,4"}));
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1200\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", out});
    EXPECT_EQ(imported.code, 1);
    EXPECT_THAT(imported.err, HasSubstr("The document was not read to its end, so no value was taken.\n"));
    EXPECT_FALSE(bench.exists("out.RELAY"));
}

/// A template that isn't there has no cells: the table's lines have no part in that.
TEST_F(Import, WithoutItsTemplateNoLineOfTheTableIsBlamed) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1200\r\n");
    const Ctl_Run imported =
        bench.run({"import", bench.path("NONE.ZTP"), config, csv, "--save", out, "--json"});
    EXPECT_EQ(imported.code, 1);
    EXPECT_EQ(json::parse(imported.out), json::parse(R"({"taken":0,"left_out":[]})"));
    EXPECT_THAT(imported.err, StartsWith("zorvanectl: " + bench.path("NONE.ZTP") +
                                         ": there is no such template. Check the path.\n"));
    EXPECT_THAT(imported.err, Not(HasSubstr("v.csv")));
}

TEST_F(Import, ASaveThatFailsTakesNothing) {
    const std::string csv = bench.file("v.csv", headings + "1,1,2,,,,,1200\r\n");
    const Ctl_Run imported = run("import", {csv, "--save", bench.path("gone/out.RELAY"), "--json"});
    EXPECT_EQ(imported.code, 1);
    EXPECT_EQ(json::parse(imported.out), json::parse(R"({"taken":0,"left_out":[]})"));
    EXPECT_EQ(run("import", {csv}).code, 2) << "--save is needed";
}

TEST_F(Import, WhatWasExportedComesBackByteForByte) {
    const std::string whole = bench.path("whole.RELAY");
    EXPECT_EQ(bench.run({"save", ztp, config, whole}).code, 0);
    for (const char* decimal : {".", ","}) {
        EXPECT_EQ(
            run("export", {"--out", bench.path("v.csv"), "--separator", ";", "--decimal", decimal}).code, 0);
        EXPECT_EQ(run("import", {bench.path("v.csv"), "--save", out}).code, 0);
        EXPECT_EQ(bench.bytes("out.RELAY"), bench.bytes("whole.RELAY"));
    }
}

} // namespace
} // namespace zorvane::ctl
