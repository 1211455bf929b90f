// SPDX-License-Identifier: MIT
// zorvanectl show and set: the table of a field, and an entry in one of its cells.

#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace zorvane::ctl {
namespace {

using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;

/// The small model, its first column a number.
class Field_Table : public testing::Test {
  protected:
    Ctl_Run run(const std::string& call, const std::vector<std::string>& arguments) {
        std::vector<std::string> all = {call, ztp, config};
        all.insert(all.end(), arguments.begin(), arguments.end());
        return bench.run(all);
    }
    json parsed(const Ctl_Run& run) { return json::parse(run.out); }

    Ctl_Bench bench;
    std::string ztp =
        bench.file("ABC.ZTP", doubles::smallTemplate() + lines({"[FIELD_1_COLUMNS]", "COL_1_TYPE=NUMERIC"}));
    std::string config = bench.file("site.ABC", doubles::smallConfiguration());
};

TEST_F(Field_Table, ShowPrintsHeadingsAndTexts) {
    const Ctl_Run shown = run("show", {"1"});
    EXPECT_EQ(shown.code, 0);
    EXPECT_EQ(shown.out, "Level  State\n10     On\n-5     7\n");
    EXPECT_EQ(run("show", {"1", "--json"}).out,
              "{\n  \"headings\": [\"Level\",\"State\"],\n  \"grid\": [[\"10\",\"On\"],[\"-5\",\"7\"]],\n"
              "  \"failure\": null\n}\n");
}

TEST_F(Field_Table, ShowUsesARegisterImageForTheBlocksScanned) {
    const std::string registers = bench.file("r.json", R"({"100": 65535, "102": 0, "103": 9})");
    const auto grid = [&](const std::string& word, const std::vector<std::string>& more) {
        std::vector<std::string> arguments = {"1", "--json", "--registers", registers, "--request", word};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return parsed(run("show", arguments))["grid"];
    };
    EXPECT_EQ(grid("", {}), json::parse(R"([["-1","Off"],["0","9"]])"));
    EXPECT_EQ(grid("", {"--lost"}), json::parse(R"([["???","???"],["???","???"]])"));
    EXPECT_EQ(grid("ALWAYS", {}), json::parse(R"([["10","1"],["-5","7"]])"));
}

TEST_F(Field_Table, ShowNeedsRegistersAndRequestTogether) {
    const std::string registers = bench.file("r.json", "{}");
    EXPECT_EQ(run("show", {"1", "--registers", registers}).code, 2);
    EXPECT_EQ(run("show", {"1", "--request", "ALWAYS"}).code, 2);
    EXPECT_EQ(run("show", {"1", "--lost"}).code, 2);
    EXPECT_EQ(run("show", {"0"}).code, 2);
}

TEST_F(Field_Table, ShowTellsAFailureAndKeepsWhatCameBefore) {
    ztp = bench.file("ABC.ZTP",
                     doubles::smallTemplate() + lines({"[FIELD_1_CONFIGURATION]", "ROWADDRESS_2=101/HI,103",
                                                       "[FIELD_1_DEFAULT]", "ROW_2=none,7"}));
    config = bench.file("site.ABC", "");
    const Ctl_Run shown = run("show", {"1", "--json"});
    EXPECT_EQ(shown.code, 1);
    EXPECT_EQ(parsed(shown)["failure"], json::parse(R"({"number":13,"description":"Type mismatch"})"));
    EXPECT_EQ(parsed(shown)["headings"], json::parse(R"(["Level","State"])"));
    EXPECT_THAT(shown.err, HasSubstr("The field could not be shown whole: Type mismatch (failure 13)"));
}

TEST_F(Field_Table, SetCommitsANumber) {
    const Ctl_Run set = run("set", {"1", "1", "1", "012", "--json"});
    EXPECT_EQ(set.code, 0);
    EXPECT_EQ(set.out, "{\n  \"refused\": null,\n  \"Value\": \"12\",\n  \"Min_Value\": \"-32768\",\n"
                       "  \"Max_Value\": \"32767\",\n  \"grid\": \"012\",\n  \"messages\": [],\n"
                       "  \"Dirty\": true,\n  \"failure\": null\n}\n");
}

TEST_F(Field_Table, SetCommitsAnEntryOfAListByItsNumber) {
    const json set = parsed(run("set", {"1", "1", "2", "0", "--json"}));
    EXPECT_EQ(set["Value"], "0");
    EXPECT_EQ(set["grid"], "Off");
    EXPECT_EQ(set["Dirty"], true);
}

TEST_F(Field_Table, SetTakesNegativeNumbersAndAnythingBehindTwoHyphens) {
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "-5", "--json"}))["Value"], "-5");
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "--json", "--", "-.5"}))["Value"], "-0.5");
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "", "--json"}))["Value"], "0");
}

TEST_F(Field_Table, SetTakesATextThatBeginsLikeAnOption) {
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "-.5", "--json"}))["Value"], "-0.5");
    EXPECT_EQ(parsed(run("set", {"--json", "1", "1", "1", "-abc"}))["Value"], "0");
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "++", "--json"}))["Value"], "0");
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "--json", "--", "--json"}))["Value"], "0");
    EXPECT_EQ(run("set", {"1", "1", "1", "-.5", "--save", bench.path("out.ABC")}).out, "-.5\n");
    EXPECT_EQ(run("set", {"1", "1", "1", "5", "--jsom"}).code, 2) << "one argument too many";
    EXPECT_EQ(run("set", {"1", "1", "1", "--json"}).code, 2) << "an option's name is an option";
}

TEST_F(Field_Table, AnOptionsEmptyValueIsNotTheNextArgument) {
    const std::string registers = bench.file("r.json", R"({"100": 7})");
    const Ctl_Run shown = run("show", {"1", "--registers=" + registers, "--request=", "--json"});
    EXPECT_EQ(parsed(shown)["grid"][0][0], "7");
}

TEST_F(Field_Table, SetTellsARefusedNumberAndKeepsTheUpperLimit) {
    const Ctl_Run set = run("set", {"1", "1", "1", "40000", "--json"});
    EXPECT_EQ(set.code, 0);
    EXPECT_EQ(parsed(set)["messages"],
              json::array({{{"style", 64},
                            {"title", "Zorvane"},
                            {"text", "The value is out of range (value range -32768 to 32767)"}}}));
    EXPECT_EQ(parsed(set)["grid"], "32767");
    EXPECT_EQ(parsed(set)["Dirty"], false);
    EXPECT_THAT(set.err, HasSubstr("The value is out of range"));
}

TEST_F(Field_Table, SetRefusesAColumnThatIsNotModifiable) {
    ztp =
        bench.file("ABC.ZTP", doubles::smallTemplate() + lines({"[FIELD_1_COLUMNS]", "COL_1_MODIFIABLE=NO"}));
    const Ctl_Run set = run("set", {"1", "1", "1", "5", "--json", "--save", bench.path("out.ABC")});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(parsed(set)["refused"], "not modifiable");
    EXPECT_EQ(set.err, "zorvanectl: The cell can't be edited: not modifiable.\n"
                       "zorvanectl: The document was not written.\n");
    EXPECT_EQ(parsed(set)["Value"], "10");
    EXPECT_FALSE(bench.exists("out.ABC"));
}

TEST_F(Field_Table, SetTellsAPlaceThatIsNotThere) {
    const Ctl_Run set = run("set", {"1", "3", "1", "5", "--json"});
    EXPECT_EQ(set.code, 1);
    EXPECT_THAT(set.err, HasSubstr("zorvanectl: The entry could not be committed: Subscript out of range "
                                   "(failure 9). Look for a field, row, column"));
    EXPECT_EQ(parsed(set)["failure"], json::parse(R"({"number":9,"description":"Subscript out of range"})"));
    EXPECT_EQ(run("set", {"1", "0", "1", "5"}).code, 2);
}

TEST_F(Field_Table, SetNamesTheEntriesOfAListThatWasGivenAText) {
    const std::string advice = "zorvanectl: The cell is a list. Give the number of an entry: 0 Off, 1 On.\n";
    EXPECT_THAT(run("set", {"1", "1", "2", "On"}).err, EndsWith(advice));
    EXPECT_THAT(run("set", {"1", "1", "2", "99"}).err, EndsWith(advice));
    EXPECT_EQ(run("set", {"1", "1", "2", "1"}).err, "");
}

TEST_F(Field_Table, SetTellsHowLargeTheFieldIs) {
    EXPECT_THAT(run("set", {"1", "3", "1", "5"}).err,
                EndsWith("zorvanectl: Field 1 has 2 rows and 2 columns.\n"));
    EXPECT_THAT(run("set", {"1", "1", "3", "5"}).err,
                EndsWith("zorvanectl: Field 1 has 2 rows and 2 columns.\n"));
}

TEST_F(Field_Table, AFieldThatTheTemplateDoesNotHaveIsTold) {
    const std::string advice =
        "zorvanectl: The template has no field 7. Its fields are 1 to 1; dump lists them.\n";
    EXPECT_EQ(run("show", {"7"}).err, advice);
    EXPECT_THAT(run("set", {"7", "1", "1", "5"}).err, EndsWith(advice));
}

TEST_F(Field_Table, NumbersBelowOneAreWrongUsage) {
    EXPECT_EQ(run("show", {"0"}).err, "FIELD: Value 0 not in range 1 to 2147483647\n"
                                      "Run with --help for more information.\n");
}

TEST_F(Field_Table, SetSavesTheChangedDocument) {
    const Ctl_Run set = run("set", {"1", "2", "1", "99", "--save", bench.path("out.ABC")});
    EXPECT_EQ(set.code, 0);
    EXPECT_EQ(set.out, "99\n");
    EXPECT_THAT(bench.bytes("out.ABC"), HasSubstr("ROW_1=10,On\r\nROW_2=99,7\r\n"));
    EXPECT_EQ(bench.bytes("site.ABC"), doubles::smallConfiguration());
}

TEST_F(Field_Table, AFieldThatIsNotThereShowsNothing) {
    const Ctl_Run shown = run("show", {"2"});
    EXPECT_EQ(shown.code, 1);
    EXPECT_EQ(shown.out, "");
    EXPECT_EQ(shown.err,
              "zorvanectl: The template has no field 2. Its fields are 1 to 1; dump lists them.\n");
    EXPECT_EQ(parsed(run("show", {"2", "--json"})), json::parse(R"({"headings":[],"grid":[],
                              "failure":{"number":9,"description":"Subscript out of range"}})"));
}

TEST_F(Field_Table, ATemplateWithoutFieldsShowsNothing) {
    ztp = bench.file("ABC.ZTP", lines({"[HARDWARE]", "CONTROLLER=abc"}));
    config = bench.file("site.ABC", "");
    const Ctl_Run shown = run("show", {"1"});
    EXPECT_EQ(shown.code, 1);
    EXPECT_EQ(shown.out, "");
    EXPECT_THAT(shown.err, EndsWith("zorvanectl: The template has no fields.\n"));
}

TEST_F(Field_Table, AMissingDocumentShowsNoFactoryValues) {
    config = bench.path("gone.ABC");
    const Ctl_Run shown = run("show", {"1"});
    EXPECT_EQ(shown.code, 1);
    EXPECT_EQ(shown.out, "");
    EXPECT_EQ(shown.err,
              "zorvanectl: " + config + ": there is no such configuration file. Check the path.\n");
    EXPECT_EQ(parsed(run("show", {"1", "--json"})), json::parse(R"({"headings":[],"grid":[],
                              "failure":{"number":53,"description":"File not found"}})"));
}

TEST_F(Field_Table, SetSavesNoLimitInPlaceOfTheText) {
    const std::string out = bench.path("out.ABC");
    const Ctl_Run set = run("set", {"1", "1", "1", "40000", "--save", out});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.out, "32767\n");
    EXPECT_EQ(set.err, "zorvanectl: The value is out of range (value range -32768 to 32767)\n"
                       "zorvanectl: \"40000\" was not taken: the cell would be saved as \"32767\". Give "
                       "another text, or --accept.\n"
                       "zorvanectl: The document was not written.\n");
    EXPECT_FALSE(bench.exists("out.ABC"));
    EXPECT_EQ(parsed(run("set", {"1", "1", "1", "40000", "--save", out, "--json"}))["saved"], false);
}

TEST_F(Field_Table, SetSavesNoZeroInPlaceOfLetters) {
    const std::string out = bench.path("out.ABC");
    const Ctl_Run set = run("set", {"1", "1", "1", "12a", "--save", out});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.err, "zorvanectl: \"12a\" was not taken: the cell would be saved as \"0\". Give another "
                       "text, or --accept.\n"
                       "zorvanectl: The document was not written.\n");
    EXPECT_FALSE(bench.exists("out.ABC"));
    EXPECT_EQ(run("set", {"1", "1", "1", "12a"}).code, 0) << "nothing was to be saved";
}

TEST_F(Field_Table, SetSavesNoZeroInPlaceOfABadTime) {
    ztp = bench.file("ABC.ZTP", doubles::smallTemplate() +
                                    lines({"[FIELD_1_COLUMNS]", "COL_1_TYPE=TIME", "[FIELD_1_CONFIGURATION]",
                                           "ROWADDRESSFORMAT_1=TIME"}));
    config = bench.file("site.ABC", lines({"[Configuration_Default]", "FIELD_1=,Outputs", "[Field_1_Default]",
                                           "ROW_1=1:30,On", "ROW_2=0:05,7"}));
    EXPECT_EQ(run("set", {"1", "1", "1", "soon", "--save", bench.path("out.ABC")}).code, 1);
    EXPECT_FALSE(bench.exists("out.ABC"));
    EXPECT_EQ(run("set", {"1", "1", "1", "2:45", "--save", bench.path("out.ABC")}).code, 0);
    EXPECT_THAT(bench.bytes("out.ABC"), HasSubstr("ROW_1=2:45,On"));
}

TEST_F(Field_Table, SetSavesWhatTookThePlaceOfTheTextForWhoAccepts) {
    const Ctl_Run limit =
        run("set", {"1", "1", "1", "40000", "--accept", "--save", bench.path("limit.ABC"), "--json"});
    EXPECT_EQ(limit.code, 0);
    EXPECT_EQ(parsed(limit)["saved"], true);
    EXPECT_THAT(bench.bytes("limit.ABC"), HasSubstr("ROW_1=32767,On"));
    EXPECT_EQ(run("set", {"1", "1", "1", "abc", "--accept", "--save", bench.path("zero.ABC")}).code, 0);
    EXPECT_THAT(bench.bytes("zero.ABC"), HasSubstr("ROW_1=0,On"));
    EXPECT_EQ(run("set", {"1", "1", "1", "5", "--accept"}).code, 2) << "there is nothing to accept";
}

TEST_F(Field_Table, AnEmptyTextIsZeroAndIsSaved) {
    EXPECT_EQ(run("set", {"1", "1", "1", "", "--save", bench.path("out.ABC")}).code, 0);
    EXPECT_THAT(bench.bytes("out.ABC"), HasSubstr("ROW_1=0,On"));
}

TEST_F(Field_Table, SetAcceptsNothingForACellWithoutAnEditor) {
    ztp =
        bench.file("ABC.ZTP", doubles::smallTemplate() + lines({"[FIELD_1_COLUMNS]", "COL_1_MODIFIABLE=NO"}));
    EXPECT_EQ(run("set", {"1", "1", "1", "5", "--accept", "--save", bench.path("out.ABC")}).code, 1);
    EXPECT_FALSE(bench.exists("out.ABC"));
}

TEST_F(Field_Table, SetRefusesACharacterThatNoCellHolds) {
    const Ctl_Run set = run("set", {"1", "1", "1", "\xE2\x86\x92"});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.err, "zorvanectl: The text has a character that no cell can hold (Windows-1252).\n");
}

TEST_F(Field_Table, SetSavesNoLineEndWhichWouldBeALineOfItsOwnInTheFile) {
    const Ctl_Run set = run("set", {"1", "2", "2", "7\nROW_1=99", "--save", bench.path("out.ABC")});
    EXPECT_EQ(set.code, 1);
    EXPECT_EQ(set.err,
              "zorvanectl: The text has a line end, which no file holds. The document was not written.\n");
    EXPECT_FALSE(bench.exists("out.ABC"));
}

} // namespace
} // namespace zorvane::ctl
