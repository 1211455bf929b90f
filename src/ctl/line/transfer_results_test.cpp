// SPDX-License-Identifier: MIT
// What a transfer in a terminal tells of each request: read or written, refused, unanswered, not sent.
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/block_results.h"
#include "ctl/document/own_values.h"
#include "ctl/line/transfer.h"
#include "ctl/line/transfer_text.h"

#include <gmock/gmock.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

using doubles::Comm_Bench;
using ::testing::HasSubstr;
using ::testing::Not;

const std::string illegalAddress = "Illegal data address (exception 2)";

Register_Reading unread(std::optional<std::string> fault = std::nullopt) {
    return {Reading_Age::Never, std::move(fault)};
}

/// Blocks 100-101, 110-111, 120-121 and 130-131, of which only the first one was read.
struct Results : ::testing::Test, Comm_Bench {
    Results() {
        for (const std::int32_t first : {100, 110, 120, 130})
            addScanBlock(first, first + 1);
        link.readings[111] = unread(illegalAddress);
        link.readings[120] = link.readings[121] = unread("");
        link.readings[130] = link.readings[131] = unread();
        link.image = {{100, 7}, {101, 0}};
    }
    static std::string told(const Transfer_Report& report) {
        std::ostringstream err;
        tellTransfer(err, "Download", report);
        return err.str();
    }
};

TEST_F(Results, EveryBlockIsInOneList) {
    Json json = Json::object();
    addBlockLists(json, blockResults(comm));
    EXPECT_EQ(json, Json::parse(R"-({
        "read": [{"first": 100, "last": 101}],
        "refused": [{"first": 110, "last": 111, "answer": "Illegal data address (exception 2)"}],
        "unanswered": [{"first": 120, "last": 121}],
        "not_read": [{"first": 130, "last": 131}]})-"));
}

TEST_F(Results, ABlockWithoutRegistersWasNotRead) {
    addScanBlock(300, 299);
    Json json = Json::object();
    addBlockLists(json, blockResults(comm));
    EXPECT_EQ(json["read"], Json::parse(R"-([{"first": 100, "last": 101}])-"));
    EXPECT_EQ(json["not_read"].back(),
              Json::parse(R"-({"first": 300, "last": 299, "answer": "No registers from 300 on"})-"));
}

TEST_F(Results, ABlockThatCantBeAskedForIsNeitherRefusedNorUnanswered) {
    EXPECT_EQ(endOf("Register 70000 has no address from 0 to 65535"), Request_End::Not_Sent);
    EXPECT_EQ(endOf("BUSY"), Request_End::Refused);
    EXPECT_EQ(endOf("Exception 99"), Request_End::Refused);
    EXPECT_EQ(endOf(""), Request_End::Unanswered);
}

TEST_F(Results, RegistersThatWereNotReadAreNoZeros) {
    EXPECT_EQ(scannedRegisters(comm), (compare::Register_Values{{100, 7}, {101, 0}, {110, 0}}));
}

TEST_F(Results, ACellWhoseRegistersWereNotReadKeepsItsValue) {
    Field_Rec& field = addField(1, 6);
    field.Cells(1, 1).Value = "a name";
    field.Cells(1, 2).Address = "100";
    field.Cells(1, 3).Address = "111";
    field.Cells(1, 4).Address = "111/HI";
    field.Cells(1, 5).Address = "101"; // a text whose end wasn't read
    field.Cells(1, 5).Address_End = "111";
    field.Cells(1, 5).Is_Ascii_Range = true;
    field.Cells(1, 6).Address = "500"; // in no block
    for (std::int32_t column = 2; column <= 6; ++column)
        field.Cells(1, column).Value = "own";
    link.readings[500] = unread();
    const Own_Values own(document);
    for (std::int32_t column = 2; column <= 6; ++column)
        field.Cells(1, column).Value = "0";
    own.putBackUnread(comm);
    EXPECT_EQ(field.Cells(1, 1).Value, "a name");
    EXPECT_EQ(field.Cells(1, 2).Value, "0") << "that was read";
    for (std::int32_t column = 3; column <= 6; ++column)
        EXPECT_EQ(field.Cells(1, column).Value, "own") << column;
}

TEST_F(Results, AFailedWriteIsRefusedOrUnansweredOrNotSent) {
    Download_Result result;
    result.failed = {{"100", "10", illegalAddress},
                     {"101", "a @b", ""},
                     {"102", "text", "BUSY"},
                     {"70000", "12", "Register 70000 has no address from 0 to 65535"}};
    Transfer_Report report;
    report.outcome = Transfer_Outcome::Finished;
    report.failedWrites = failedWrites(result);
    EXPECT_FALSE(report.complete());
    EXPECT_EQ(transferResultJson(report)["failed_writes"], Json::parse(R"-([
        {"register":"100","value":"10","result":"refused","answer":"Illegal data address (exception 2)"},
        {"register":"101","value":"a @b","result":"unanswered","answer":""},
        {"register":"102","value":"text","result":"refused","answer":"BUSY"},
        {"register":"70000","value":"12","result":"not sent",
         "answer":"Register 70000 has no address from 0 to 65535"}])-"));
    EXPECT_EQ(
        told(report),
        "zorvanectl: Write: 10 @100 ...Failed: Illegal data address (exception 2)\n"
        "zorvanectl: Write: a @b @101 ...Failed: no answer\n"
        "zorvanectl: Write: text @102 ...Failed: BUSY\n"
        "zorvanectl: Write: 12 @70000 ...Failed: Register 70000 has no address from 0 to 65535\n"
        "zorvanectl: The controller refused 2 of the requests above. Check that the template fits the "
        "controller.\n"
        "zorvanectl: The controller did not answer 1 of the requests above. Whether it took them is not "
        "known. Check the cable, the port, its settings and the slave number.\n"
        "zorvanectl: It was not possible to send 1 of the requests above. Check the register numbers of "
        "the template.\n");
}

TEST_F(Results, SilenceIsNotCalledARefusal) {
    Transfer_Report report;
    report.outcome = Transfer_Outcome::Finished;
    report.failedWrites = {{"Write: 10 @100 ...Failed", "100", "10", Request_End::Unanswered, ""}};
    EXPECT_THAT(told(report), Not(HasSubstr("refused")));
}

TEST_F(Results, AllTextsOfThePanelAreListed) {
    Transfer_Report report;
    report.panel4 = "Ready";
    report.panel4_lines = {"Transferring data to controller...", "Ready"};
    const Json json = transferResultJson(report);
    EXPECT_EQ(json["panel4"], "Ready");
    EXPECT_EQ(json["panel4_lines"], Json::parse(R"(["Transferring data to controller...","Ready"])"));
}

} // namespace
} // namespace zorvane::ctl
