// SPDX-License-Identifier: MIT
// zorvanectl dump: what the program understood of a template and a configuration.

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
using testing::HasSubstr;

json dumped(const Ctl_Run& run) { return json::parse(run.out); }

const char* const defaultColours = R"({"Color_Txt_Modifiable":"BLACK","Color_Txt_Exception":"RED",)"
                                   R"("Color_Txt_Writing":"BLUE","Color_Txt_Error":"RED",)"
                                   R"("Color_Txt_Normal":"BLACK","Color_Back_Modifiable":"YELLOW",)"
                                   R"("Color_Back_Exception":"YELLOW","Color_Back_Writing":"YELLOW",)"
                                   R"("Color_Back_Normal":"WHITE","Color_Back_Error":"YELLOW"})";

TEST(Dump, WritesTheWholeModelInItsOrder) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"dump", "--json", bench.file("ABC.ZTP", doubles::smallTemplate()),
                                   bench.file("site.ABC", doubles::smallConfiguration())});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, std::string(R"({
  "template": {"loaded":true,"failure":null},
  "configuration": {"ok":true,"loaded":true,"failure":null},
  "messages": [],
  "Controller_Model": "ABC",
  "Field_Count": 1,
  "Config_Column_Count": 2,
  "Numeric_Rows": false,
  "Always_Block_Count": 1,
  "Config_Columns": [{"Description":"No.","Width":450,"Alignment":"","Column_Type":""},)"
                                   R"({"Description":"","Width":0,"Alignment":"","Column_Type":""}],
  "Fields": {"1": {"Description": "Outputs","Rows": 2,"Columns": 2,"Config_Values": ["","Outputs"],"Cells": [)"
                                   R"([{"Column":1,"Modifiable":true,"Value":"Level","Width":1100},)"
                                   R"({"Column":2,"Modifiable":true,"Value":"State","Width":800}],)"
                                   R"([{"Address":"100","Value":"10"},)"
                                   R"({"Address":"102","Value":"1","Has_Messages":true,)"
                                   R"("Messages":[{"Code":0,"Text":"Off"},{"Code":1,"Text":"On"}]}],)"
                                   R"([{"Address":"101","Value":"-5"},{"Address":"103","Value":"7"}]]}},
  "Download_Blocks": [{"Model":"","First_Address":"","Last_Address":"","Block_Kind":0}],
  "Not_Downloadable": ["103"],
  "Holding_Blocks": [{"First_Address":100,"Last_Address":103,"Function_Code":3,"Request":"ALWAYS"}],
  "Comm_Request_Ms": 20,
  "Comm_Out_Ms": 600,
  "Comm_Size": 0,
  "Holding_Registers": 400,
  "Colors": )") + defaultColours +
                           "\n}\n");
}

TEST(Dump, OfATemplateAloneHasNoConfiguration) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"dump", bench.file("ABC.ZTP", doubles::smallTemplate()), "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(dumped(run)["configuration"], nullptr);
    EXPECT_EQ(dumped(run)["Fields"]["1"]["Config_Values"], json::array());
}

TEST(Dump, EveryMemberThatDiffersFromEmptyStandsInItsCell) {
    Ctl_Bench bench;
    const std::string ztp = bench.file(
        "A.ZTP", lines({"[PORT_CONFIGURATION]", "HOLDINGREGISTERSBLOCK_1=1", "[CONFIGURATION_FIELDS]",
                        "FIELD_3_RC=1,1", "[FIELD_3_COLUMNS]", "COL_1_ALIGNMENT=RIGTH", "COL_1_TYPE=NUMERIC",
                        "COL_1_MDBUSREQUEST=always", "COL_1_BITSNEGATIVEFORMAT=8", "[FIELD_3_CONFIGURATION]",
                        "ROWASCIIRANGE_1=200-207", "ROWADDRESSNUMERICMAXVALUE_1=9",
                        "ROWADDRESSNUMERICMINVALUE_1=", "ROWADDRESSFORMAT_1= TIME"}));
    const Ctl_Run run = bench.run({"dump", ztp, "--json"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(dumped(run)["Fields"].size(), 1U);
    EXPECT_THAT(run.out, HasSubstr(R"({"3": {"Description": "","Rows": 1,"Columns": 1,"Config_Values": [],)"
                                   R"("Cells": [[{"Column":1,"Alignment":"RIGTH","Column_Type":"NUMERIC",)"
                                   R"("Modbus_Request":"ALWAYS","Bits_Negative_Format":"8"}],)"
                                   R"([{"Min_Value":"-32768","Max_Value":"9","Address":"200",)"
                                   R"("Address_End":"207","Is_Ascii_Range":true,"Format":"TIME"}]]}})"));
    EXPECT_EQ(dumped(run)["Holding_Blocks"],
              json::parse(R"([{"First_Address":0,"Last_Address":0,"Function_Code":0,"Request":""}])"));
    EXPECT_EQ(dumped(run)["Holding_Registers"], nullptr);
}

TEST(Dump, ATouchedFieldWithoutATableHasNoCells) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("A.ZTP", lines({"[CONFIGURATION_DEFAULT]", "FIELD_7=a,b"}));
    const Ctl_Run run = bench.run({"dump", ztp, "--json"});
    EXPECT_EQ(dumped(run)["Fields"], json::parse(R"({"7":{"Description":"","Rows":0,"Columns":0,
        "Config_Values":["a","b"],"Cells":[]}})"));
}

TEST(Dump, AMissingTemplateIsToldAndTheConfigurationIsReadAllTheSame) {
    Ctl_Bench bench;
    const std::string missing = bench.path("GONE.ZTP");
    const Ctl_Run run = bench.run(
        {"dump", missing, bench.file("site.ABC", lines({"[CONFIGURATION_DEFAULT]", "FIELD_1=x"})), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "zorvanectl: " + missing + ": there is no such template. Check the path.\n");
    EXPECT_EQ(dumped(run)["template"], json::parse(R"({"loaded":false,"failure":null})"));
    EXPECT_EQ(dumped(run)["configuration"], json::parse(R"({"ok":true,"loaded":true,"failure":null})"));
    EXPECT_EQ(dumped(run)["messages"],
              json::array({{{"style", 16},
                            {"title", "Zorvane"},
                            {"text", "The ZTP file (" + missing + ") was not found in: \r\n/opt/zorvane"}}}));
    EXPECT_EQ(dumped(run)["Fields"]["1"]["Config_Values"], json::array({"x"}));
}

TEST(Dump, AMissingConfigurationIsTold) {
    Ctl_Bench bench;
    const std::string missing = bench.path("site.ABC");
    const Ctl_Run run = bench.run({"dump", bench.file("ABC.ZTP", doubles::smallTemplate()), missing, "--json",
                                   "--app-dir", "/srv/models/"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "zorvanectl: " + missing + ": there is no such configuration file. Check the path.\n");
    EXPECT_EQ(dumped(run)["configuration"], json::parse(R"({"ok":false,"loaded":false,"failure":null})"));
    EXPECT_EQ(dumped(run)["messages"], json::parse(R"([{"style":64,"title":"Zorvane",
                               "text":"The default file was not found in: \r\n/srv/models"}])"));
}

TEST(Dump, AFailureInTheTemplateKeepsWhatWasReadAndTheConfigurationComesOverIt) {
    Ctl_Bench bench;
    const std::string ztp =
        bench.file("ABC.ZTP", lines({"[CONFIGURATION_FIELDS]", "FIELD_1_RC=1,1", "[FIELD_2_COLUMNS]",
                                     "COL_1_DESC=too early", "[CONFIGURATION_FIELDS]", "FIELD_2_RC=1,1"}));
    const Ctl_Run run =
        bench.run({"dump", ztp, bench.file("site.ABC", lines({"[FIELD_1_DEFAULT]", "ROW_1=7"})), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(
        run.err,
        "zorvanectl: " + ztp +
            ", line 4: Subscript out of range (failure 9). Look for a field, row, column or block number "
            "that the template doesn't declare. A template needs FIELD_#_RC before the cells of a field, "
            "and at least one HOLDINGREGISTERSBLOCK_# line.\n"
            "zorvanectl: The lines after it were not read.\n");
    EXPECT_EQ(
        dumped(run)["template"],
        json::parse(R"({"loaded":true,"failure":{"number":9,"description":"Subscript out of range"}})"));
    EXPECT_EQ(dumped(run)["Fields"]["1"]["Cells"], json::parse(R"([[{}],[{"Value":"7"}]])"));
}

TEST(Dump, ATemplateWithoutScanBlocksFailsAfterItsLastLine) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"dump", bench.file("A.ZTP", ""), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(dumped(run)["template"]["failure"]["number"], 9);
    EXPECT_EQ(dumped(run)["Holding_Blocks"], json::array());
}

TEST(Dump, AFailureInsideTheConfigurationLeavesOkTrue) {
    Ctl_Bench bench;
    const Ctl_Run run =
        bench.run({"dump", bench.file("ABC.ZTP", doubles::smallTemplate()),
                   bench.file("site.ABC", lines({"[FIELD_1_COLUMNS]", "COL_1_WIDTH=wide"})), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(
        dumped(run)["configuration"],
        json::parse(R"({"ok":true,"loaded":true,"failure":{"number":13,"description":"Type mismatch"}})"));
}

TEST(Dump, ARejectedConfigurationStopsAtItsLine) {
    Ctl_Bench bench;
    const std::string config =
        bench.file("site.ABC", lines({"[Field_1_Default]", "ROW_1=1,On,3", "ROW_2=9,9"}));
    const Ctl_Run run =
        bench.run({"dump", bench.file("ABC.ZTP", doubles::smallTemplate()), config, "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err,
              "zorvanectl: " + config +
                  ", line 2: more values than the template has columns. The file was written for another "
                  "template; this line's other values and the lines after it were not read. Choose the "
                  "template that fits, or try zorvanectl update.\n");
    EXPECT_EQ(dumped(run)["configuration"], json::parse(R"({"ok":false,"loaded":true,"failure":null})"));
    EXPECT_EQ(dumped(run)["Fields"]["1"]["Cells"][1][0]["Value"], "1");
    EXPECT_EQ(dumped(run)["Fields"]["1"]["Cells"][2][0].contains("Value"), false);
}

TEST(Dump, TextsAreUtf8) {
    Ctl_Bench bench;
    const std::string ztp =
        bench.file("A.ZTP", lines({"[HARDWARE]", "CONTROLLER=caf\xE9 \x80 \x81", "[PORT_CONFIGURATION]",
                                   "HOLDINGREGISTERSBLOCK_1=1-2"}));
    const Ctl_Run run = bench.run({"dump", ztp, "--json"});
    EXPECT_EQ(dumped(run)["Controller_Model"], "CAF\xC3\x89 \xE2\x82\xAC \xC2\x81");
}

TEST(Dump, APathThatIsNoUtf8IsStillAJsonText) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"dump", bench.path("caf\xE9.ZTP"), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(dumped(run)["messages"][0]["text"].get<std::string>(), HasSubstr("caf\xEF\xBF\xBD.ZTP"));
}

TEST(Dump, AnyBytesAreReadWithoutACrash) {
    Ctl_Bench bench;
    std::string bytes;
    for (int round = 0; round < 3; ++round)
        for (int b = 0; b < 256; ++b)
            bytes += static_cast<char>(b);
    const std::string file = bench.file("A.ZTP", bytes);
    EXPECT_EQ(bench.run({"dump", file, file, "--json"}).code, 1);
    EXPECT_EQ(bench.run({"dump", file, file}).code, 1);
}

TEST(Dump, PrintsTablesForPeople) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    const std::string config = bench.file("site.ABC", doubles::smallConfiguration());
    const Ctl_Run run = bench.run({"dump", ztp, config});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "Controller: ABC\n"
                       "Template:   " +
                           ztp +
                           "\n"
                           "Document:   " +
                           config +
                           "\n"
                           "\n"
                           "Field 1: Outputs\n"
                           "  [2] Outputs\n"
                           "     Level  State\n"
                           "  1  10     On\n"
                           "  2  -5     7\n"
                           "\n"
                           "Scanned registers\n"
                           "  1  100-103  ALWAYS\n"
                           "\n"
                           "Never written: 103\n");
}

TEST(Dump, PrintsTheBlocksOfABoardForPeople) {
    Ctl_Bench bench;
    const std::string ztp =
        bench.file("ABC.ZTP", doubles::smallTemplate() +
                                  lines({"[HARDWARE]", "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-101",
                                         "DOWNLOAD_2_MULTIPLEREGISTERBLOCKMESSAGELIST=102-103",
                                         "DOWNLOAD_3_MULTIPLEREGISTERBLOCKASCII=110-117"}));
    EXPECT_THAT(bench.run({"dump", ztp}).out, HasSubstr("\nRegisters written as blocks\n"
                                                        "  100-101  numeric\n"
                                                        "  102-103  message list\n"
                                                        "  110-117  ASCII\n"));
}

TEST(Dump, ControlCharactersDoNotReachTheTerminal) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run(
        {"dump", bench.file("A.ZTP", lines({"[HARDWARE]", "CONTROLLER=\x1B[2J\x9B", "[PORT_CONFIGURATION]",
                                            "HOLDINGREGISTERSBLOCK_1=1-2"}))});
    EXPECT_THAT(run.out, HasSubstr("Controller: .[2J\xE2\x80\xBA\n"));
}

TEST(Dump, ALargeTableIsCutForPeople) {
    Ctl_Bench bench;
    const Ctl_Run run =
        bench.run({"dump", bench.file("A.ZTP", lines({"[CONFIGURATION_FIELDS]", "FIELD_1_RC=32767,32767"}))});
    EXPECT_THAT(run.out, HasSubstr("  ... of 32767 rows and 32767 columns; --json has all\n"));
}

} // namespace
} // namespace zorvane::ctl
