// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/toy_slave.h"
#include "ctl/survey/known_template.h"
#include "ctl/survey/listen_report.h"
#include "template/testing/memory_files.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

using survey::Heard_Frame;
using survey::lineToListenTo;
using survey::Listening_Report;
using survey::namesAsked;
using survey::registersAsked;

constexpr Line_Settings line{9600, 'N', 8, 1};

Heard_Frame heard(const char* pairs, Micros at) {
    Heard_Frame frame;
    frame.bytes = zorvane::testing::withCrc(zorvane::testing::bytesOf(pairs));
    frame.firstAt = frame.lastAt = at;
    return frame;
}

/// Two polls of registers 100 and 101 of unit 1, and one answer that nobody asked for.
Listening_Report twoPolls() {
    Listening_Report report;
    report.opened = true;
    for (Micros at : {Micros{0}, Micros{500000}})
        report.table.take({heard("01 03 00 64 00 02", at), heard("01 03 04 00 01 00 02", at + 12300)});
    report.table.take({std::nullopt, heard("07 83 02", 900000)});
    report.frames = 5;
    report.bytes = 39;
    report.noiseBytes = 0;
    report.duration = microsPerSecond;
    return report;
}

struct Template_Rig {
    Template_Rig() {
        files.put("/app/ABC.ZTP",
                  "[HARDWARE]\r\nCONTROLLER=abc\r\n[PORT_CONFIGURATION]\r\nSETTINGS=4800,e,8,"
                  "1\r\nADDRESSBASE=40001\r\n"
                  "HOLDINGREGISTERSBLOCK_1=40101-40102\r\n[CONFIGURATION_COLUMNS]\r\nCONFIGURATION_NC=2\r\n"
                  "[CONFIGURATION_FIELDS]\r\nFIELD_1_DESC=Outputs\r\nFIELD_1_RC=2,2\r\n[FIELD_1_COLUMNS]\r\n"
                  "COL_1_DESC=Name\r\nCOL_2_DESC=Level\r\n[FIELD_1_CONFIGURATION]\r\nROWADDRESS_1=,40101\r\n"
                  "ROWADDRESS_2=,40102\r\n");
        read.emplace(readKnownTemplates(context, {"/app/ABC.ZTP"}).value());
        templates = read->known;
    }
    doubles::Memory_Files files;
    std::ostringstream out;
    std::ostringstream err;
    Call_Context context{files, out, err, "/app", false, nullptr};
    std::optional<Known_Templates> read;
    std::vector<survey::Known_Template> templates;
};

TEST(ListenReport, PrintsItsJson) {
    EXPECT_EQ(
        compactJson(listenJson(twoPolls(), line, {})),
        R"({"frames":5,"requests":2,"answers":3,"unpaired":1,"load_percent":4.1,"units":[)"
        R"({"unit":1,"requests":2,"answers":2,"refusals":0,"unpaired":0,"answer_ms":{"median":12.3,"p99":12.3},)"
        R"("asks":[{"function":3,"address":100,"count":2,"registers":"100-101","names":[],"times":2,)"
        R"("answered":2,"refused":0,"period_ms":500,"answer_ms":{"median":12.3,"p99":12.3}}]},)"
        R"({"unit":7,"requests":0,"answers":1,"refusals":1,"unpaired":1,"answer_ms":null,)"
        R"("asks":[]}]})");
}

TEST(ListenReport, NamesWhatIsAskedAsTheTemplateDoes) {
    Template_Rig rig;
    const survey::Asked both{1, 3, 100, 2};
    EXPECT_EQ(registersAsked(both, rig.templates), "40101-40102");
    EXPECT_EQ(namesAsked(both, rig.templates),
              (std::vector<std::string>{"Outputs, row 1", "Outputs, row 2"}));
    EXPECT_EQ(registersAsked({1, 6, 101, 1}, rig.templates), "40102");
    EXPECT_EQ(registersAsked({1, 3, 300, 2}, rig.templates), "300-301");
    EXPECT_EQ(registersAsked({1, 1, 100, 2}, rig.templates), "");
    EXPECT_EQ(namesAsked({1, 1, 100, 2}, rig.templates), std::vector<std::string>{});
}

TEST(ListenReport, TakesTheTemplatesLineWhereNoneIsGiven) {
    Template_Rig rig;
    EXPECT_EQ(formatLineSettings(lineToListenTo("", rig.templates)), "4800,e,8,1");
    EXPECT_EQ(formatLineSettings(lineToListenTo("1200,o,8,1", rig.templates)), "1200,o,8,1");
    EXPECT_EQ(formatLineSettings(lineToListenTo("", {})), "9600,n,8,1");
}

TEST(ListenReport, PrintsATableForPeople) {
    Template_Rig rig;
    std::ostringstream out;
    printHeard(out, twoPolls(), line, rig.templates);
    EXPECT_EQ(out.str(),
              "5 frames: 2 requests and 3 answers, 1 of them without the other. Load 4.1 %.\n"
              "Unit  Function  Registers    Times  Every     Answered  Refused  After    99 % within  What\n"
              "1     3         40101-40102  2      500.0 ms  2         0        12.3 ms  12.3 ms      "
              "Outputs, row 1; "
              "Outputs, row 2\n");
}

/// One request without an answer has neither a period nor an answer time.
TEST(ListenReport, TellsNoTimesThatNobodyMeasured) {
    Listening_Report report;
    report.table.take({heard("01 03 00 64 00 02", 0), std::nullopt});
    const Json asked = listenJson(report, line, {})["units"][0]["asks"][0];
    EXPECT_TRUE(asked["period_ms"].is_null());
    EXPECT_TRUE(asked["answer_ms"].is_null());
    std::ostringstream out;
    printHeard(out, report, line, {});
    EXPECT_EQ(out.str(),
              "0 frames: 1 requests and 0 answers, 1 of them without the other. Load 0 %.\n"
              "Unit  Function  Registers  Times  Every  Answered  Refused  After  99 % within  What\n"
              "1     3         100-101    1             0         0\n");
}

TEST(ListenReport, SaysWhatToDo) {
    Listening_Report report;
    report.reason = "No such port: plug the adapter in, or choose another port.";
    EXPECT_EQ(survey::listenNotes(report, "ttyUSB9", line, "--settings gives others."),
              std::vector<std::string>{
                  "The port ttyUSB9: No such port: plug the adapter in, or choose another port."});
    report = {};
    report.opened = true;
    EXPECT_EQ(survey::listenNotes(report, "p", line, "--settings gives others."),
              std::vector<std::string>{
                  "Nothing came in at 9600,n,8,1. Does a master ask on this line, and is its cable "
                  "in this port?"});
    report.bytes = report.noiseBytes = 40;
    EXPECT_EQ(survey::listenNotes(report, "p", line, "--settings gives others."),
              std::vector<std::string>{
                  "40 bytes came in, and no frame was among them. Are 9600,n,8,1 the settings of "
                  "this line? --settings gives others."});
    report.frames = 2;
    report.noiseBytes = 3;
    EXPECT_EQ(survey::listenNotes(report, "p", line, "--settings gives others."),
              std::vector<std::string>{"3 of 40 bytes belong to no whole frame."});
}

} // namespace
} // namespace zorvane::ctl
