// SPDX-License-Identifier: MIT
// zorvanectl models, save and update: the calls that list and write files.

#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace zorvane::ctl {
namespace {

using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using nlohmann::json;
using testing::HasSubstr;

TEST(Models, ListsTemplatesByTheirFirstDot) {
    Ctl_Bench bench;
    for (const char* name : {"kvrt.ztp", "ABC.ZTP", "abc.x.ZTP", ".ZTP", "ZTP", "Site.ABC", "D. zTp "})
        bench.file(name, "");
    std::filesystem::create_directory(bench.path("FOLDER.ZTP"));
    const Ctl_Run run = bench.run({"models", "--json", "--app-dir", bench.path("")});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(json::parse(run.out), json::parse(R"([
        {"file":"ABC.ZTP","stem":"ABC","filter":"ABC Configuration (*.ABC)|*.ABC|"},
        {"file":"D. zTp ","stem":"D","filter":"D Configuration (*.D)|*.D|"},
        {"file":"kvrt.ztp","stem":"kvrt","filter":"kvrt Configuration (*.kvrt)|*.kvrt|"}])"));
}

TEST(Models, PrintsATableForPeople) {
    Ctl_Bench bench;
    bench.file("ABC.ZTP", "");
    bench.file("Caf\xC3\xA9.ZTP", "");
    EXPECT_EQ(bench.run({"models", "--app-dir", bench.path("")}).out,
              "Model  Template  Its files\n"
              "ABC    ABC.ZTP   *.ABC\n"
              "Caf\xC3\xA9   Caf\xC3\xA9.ZTP  *.Caf\xC3\xA9\n");
}

TEST(Models, AFolderWithoutTemplatesIsTold) {
    Ctl_Bench bench;
    const std::string folder = bench.path("empty");
    std::filesystem::create_directory(folder);
    const Ctl_Run run = bench.run({"models", "--json", "--app-dir", folder});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.err, "zorvanectl: Does not exist any .ZTP file in this directory: " + folder + "\n");
}

TEST(Models, AMissingFolderFails) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"models", "--json", "--app-dir", bench.path("gone")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, "[]\n");
    EXPECT_EQ(run.err, "zorvanectl: " + bench.path("gone") + ": there is no such folder. Check --app-dir.\n");
}

class Save : public testing::Test {
  protected:
    Ctl_Bench bench;
    std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
};

TEST_F(Save, WritesTheDocumentAnew) {
    const std::string config = bench.file(
        "site.ABC", lines({"[FIELD_1_DEFAULT]", "ROW_1=10,On", "ROW_2=-5,7", "[CONFIGURATION_DEFAULT]",
                           "FIELD_1=,Outputs", "[FIELD_1_COLUMNS]", "COL_1_WIDTH=1100", "COL_2_WIDTH=800"}));
    const Ctl_Run run = bench.run({"save", ztp, config, bench.path("out.ABC"), "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "{\n  \"Save_Failed\": false,\n  \"result\": \"\"\n}\n");
    EXPECT_EQ(bench.bytes("out.ABC"), doubles::smallConfiguration());
}

TEST_F(Save, ForPeopleItNamesTheFile) {
    const std::string config = bench.file("site.ABC", doubles::smallConfiguration());
    EXPECT_EQ(bench.run({"save", ztp, config, bench.path("out.ABC")}).out,
              "Written: " + bench.path("out.ABC") + "\n");
}

TEST_F(Save, AFolderThatIsNotThereFails) {
    const std::string config = bench.file("site.ABC", doubles::smallConfiguration());
    const Ctl_Run run = bench.run({"save", ztp, config, bench.path("gone/out.ABC"), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"Save_Failed":true,"result":"Path not found"})"));
    EXPECT_EQ(run.err,
              "zorvanectl: " + bench.path("gone/out.ABC") +
                  " could not be written: Path not found. Choose another file, or correct the cause.\n");
}

TEST_F(Save, AFieldWithTooFewUpperTextsFails) {
    const std::string config = bench.file("site.ABC", lines({"[CONFIGURATION_DEFAULT]", "FIELD_1=one"}));
    const Ctl_Run run = bench.run({"save", ztp, config, bench.path("out.ABC"), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"Save_Failed":true,"result":"Subscript out of range"})"));
}

TEST_F(Save, WithAMissingFileNothingIsWritten) {
    const std::string out = bench.file("out.ABC", "kept");
    const Ctl_Run run = bench.run({"save", ztp, bench.path("gone.ABC"), out, "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"Save_Failed":true,"result":"File not found"})"));
    EXPECT_EQ(bench.bytes("out.ABC"), "kept");
}

TEST_F(Save, ATemplateWithoutScanBlocksIsReadToItsEndSoTheSaveIsWhole) {
    const std::string empty = bench.file("EMPTY.ZTP", "");
    const std::string config = bench.file("site.EMPTY", "; nothing yet\r\n");
    const Ctl_Run run = bench.run({"save", empty, config, config, "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"Save_Failed":false,"result":""})"));
    EXPECT_EQ(bench.bytes("site.EMPTY"), "[Configuration_Default]\r\n\r\n");
    EXPECT_THAT(run.err, HasSubstr("at least one HOLDINGREGISTERSBLOCK_# line"));
}

TEST_F(Save, AFailureInTheTemplateStillWritesWhatWasRead) {
    const std::string broken = bench.file("BROKEN.ZTP", "[\r\n");
    const Ctl_Run run =
        bench.run({"save", broken, bench.file("site.BROKEN", ""), bench.path("out.BROKEN"), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"Save_Failed":false,"result":""})"));
    EXPECT_EQ(bench.bytes("out.BROKEN"), "[Configuration_Default]\r\n\r\n");
}

TEST_F(Save, ARejectedConfigurationIsNotWrittenOverItself) {
    const std::string text = lines({"[Field_1_Default]", "ROW_1=1,2,3", "ROW_2=4,5"});
    const std::string config = bench.file("site.ABC", text);
    const Ctl_Run run = bench.run({"save", ztp, config, config, "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out)["result"],
              "The file was not read to its end, and writing it would lose the rest");
    EXPECT_EQ(bench.bytes("site.ABC"), text);
    EXPECT_EQ(bench.run({"save", ztp, config, bench.path("other.ABC")}).code, 1);
    EXPECT_TRUE(bench.exists("other.ABC"));
}

TEST(Update, RewritesBesideTheOldFile) {
    Ctl_Bench bench;
    const std::string old = lines({"[Field_1_Default]", "ROW_1=1", "[Default_1_Columns]", "COL_1_WIDTH=5"});
    const Ctl_Run run = bench.run({"update", bench.file("Old Site.kvrt207d", old), "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(json::parse(run.out), json({{"output", bench.path("Old Site_Updated.kvrt207d")}}));
    EXPECT_EQ(bench.bytes("Old Site.kvrt207d"), old);
    EXPECT_THAT(
        bench.bytes("Old Site_Updated.kvrt207d"),
        testing::StartsWith("[FIELD_2_DEFAULT]\r\nROW_1=1\r\n[Default_1_Columns]\r\nCOL_1_WIDTH=1100"));
}

TEST(Update, ADocumentThatItsTemplateReadsWholeIsNotUpdated) {
    Ctl_Bench bench;
    bench.file("ABC.ZTP", doubles::smallTemplate());
    const std::string config = bench.file("site.abc", doubles::smallConfiguration());
    const Ctl_Run run = bench.run({"update", config, "--app-dir", bench.path(""), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"output":null})"));
    EXPECT_EQ(run.err, "zorvanectl: " + config +
                           ": its template ABC.ZTP reads it whole. There is nothing to update.\n");
    EXPECT_FALSE(bench.exists("site_Updated.abc"));
}

TEST(Update, ADocumentThatItsTemplateRejectsIsUpdated) {
    Ctl_Bench bench;
    bench.file("ABC.ZTP", doubles::smallTemplate());
    const std::string config = bench.file("site.ABC", lines({"[Field_1_Default]", "ROW_1=1,2,3"}));
    EXPECT_EQ(bench.run({"update", config, "--app-dir", bench.path("")}).code, 0);
    EXPECT_TRUE(bench.exists("site_Updated.ABC"));
}

TEST(Update, CutsTheNameAtItsFirstDot) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"update", bench.file("a.b.KVRT", "")});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "Written: " + bench.path("a_Updated.b.KVRT") + "\n");
    EXPECT_TRUE(bench.exists("a_Updated.b.KVRT"));
}

TEST(Update, AMissingFileFailsAndWritesNothing) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"update", bench.path("gone.KVRT"), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"({"output":null})"));
    EXPECT_EQ(run.err, "zorvanectl: " + bench.path("gone.KVRT") +
                           ": there is no such configuration file. Check the path.\n");
    EXPECT_FALSE(bench.exists("gone_Updated.KVRT"));
}

TEST(Update, ANameWithoutAnExtensionFails) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"update", bench.file("plain", "")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "zorvanectl: " + bench.path("plain") +
                           ": a configuration file's name has an extension, which names its template. "
                           "Rename the file.\n");
}

} // namespace
} // namespace zorvane::ctl
