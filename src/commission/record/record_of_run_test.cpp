// SPDX-License-Identifier: MIT
#include "commission/folder/digests.h"
#include "commission/folder/journal.h"
#include "commission/folder/testing/memory_runs.h"
#include "commission/record/record_of_run.h"

#include <gmock/gmock.h>

namespace zorvane::commission {
namespace {

using ::testing::ElementsAre;

const char* const head =
    R"j({"version": 1, "sequence": 3, "started_ms": 1, "started": "2026-11-22T07:40:05.123Z",
  "started_local": "2026-11-22T08:40:05+01:00", "model": "KVRT207D", "unit": 1, "although": null,
  "restores": null, "program": "zorvanectl", "adapter": "FT232R USB UART"})j";
const char* const plan = R"j({"version": 1,
  "template": {"path": "/t/KVRT207D.ZTP", "sha256": "aa"}, "document": {"path": "/d/SITE.KVRT207D", "sha256": "bb"},
  "identity": {"verdict": "is", "model": "KVRT207D", "unit": 1, "serial": "S-12", "firmware": null,
    "evidence": [{"register": "320", "what": "name", "expected": "5", "found": "5", "result": "fits"}]},
  "line": {"port": "/dev/ttyUSB0", "unit": 1, "settings": "9600,n,8,1"},
  "rows": [
    {"field": 2, "row": 1, "column": 3, "page": "Regulation", "name": "Set point", "heading": "Value",
     "register": "40001", "left": "12.0", "right": "10.0", "left_raw": 120, "right_raw": 100, "sign": "differs"},
    {"field": 2, "row": 2, "column": 3, "page": "Regulation", "name": "Band", "heading": "Value",
     "register": "40002", "left": "7", "right": "5", "left_raw": 7, "right_raw": 5, "sign": "differs"}],
  "writes": [{"function": 6, "address": 40001, "values": [120], "cells": [[2, 1, 3]]},
             {"function": 6, "address": 40002, "values": [7], "cells": [[2, 2, 3]]}],
  "before": {"40001": 100, "40002": 5}, "run": null})j";
const char* const result = R"j({"run": "r-1", "state": "finished", "why": "",
  "counts": {"verified": 1, "refused": 1, "stored_otherwise": 0, "unknown": 0, "not_sent": 0, "rows": 2},
  "rows": [
    {"field": 2, "row": 1, "column": 3, "register": "40001", "before": 100, "sent": 120, "read_back": 120,
     "state": "verified", "answer": ""},
    {"field": 2, "row": 2, "column": 3, "register": "40002", "before": 5, "sent": 7, "read_back": 5,
     "state": "refused", "answer": "illegal data value (exception 3)"
}],
  "requests": {"reads": 20, "writes": 3}
})j";

struct Record_Of_Run : ::testing::Test {
    Record_Of_Run() {
        files["run.json"] = head;
        files["plan.json"] = plan;
        files["before.json"] = R"({"40001": 100, "40002": 5})";
        files["controller.KVRT207D"] = "[FIELD_1_DEFAULT]\r\n";
    }
    void journal(const std::vector<Json>& records) {
        for (const Json& record : records)
            files["journal"] += journalLine(record) + "\n";
    }
    void finish() {
        files["after.json"] = R"({"40001": 120, "40002": 5})";
        files["result.json"] = result;
        journal({{{"event", "begin"}},
                 {{"event", "write"}, {"write", 0}, {"address", 40001}, {"values", {120}}},
                 {{"event", "answer"}, {"write", 0}, {"end", "no answer"}, {"us", 300000}},
                 {{"event", "write"}, {"write", 0}, {"address", 40001}, {"values", {120}}},
                 {{"event", "answer"}, {"write", 0}, {"end", "acknowledged"}, {"us", 12000}},
                 {{"event", "write"}, {"write", 1}, {"address", 40002}, {"values", {7}}},
                 {{"event", "answer"}, {"write", 1}, {"end", "refused"}, {"us", 14500}},
                 {{"event", "end"}, {"time", "2026-11-22T23:40:09.456Z"}}});
    }
    [[nodiscard]] Record record() const { return recordOfRun(runs, "r-1").value(); }

    doubles::Memory_Runs runs;
    doubles::Memory_Runs::Files& files = runs.runs["r-1"];
};

TEST_F(Record_Of_Run, TellsWhoAndWhereAndWhen) {
    finish();
    const Record told = record();
    EXPECT_EQ(told.kind, "send");
    EXPECT_EQ(told.adapter, "FT232R USB UART");
    EXPECT_EQ(told.state, "finished");
    EXPECT_EQ(told.controller.verdict, "is");
    EXPECT_EQ(told.controller.serial, "S-12");
    EXPECT_EQ(told.controller.firmware, "");
    EXPECT_THAT(told.controller.evidence, ElementsAre(Record_Evidence{"320", "name", "5", "5", "fits"}));
    EXPECT_EQ(told.port, "/dev/ttyUSB0");
    EXPECT_EQ(told.settings, "9600,n,8,1");
    EXPECT_EQ(told.started, (Record_Moment{"2026-11-22T07:40:05.123Z", "2026-11-22T08:40:05+01:00"}));
    EXPECT_EQ(told.ended, (Record_Moment{"2026-11-22T23:40:09.456Z", "2026-11-23T00:40:09+01:00"}));
}

TEST_F(Record_Of_Run, HasTheHashesOfItsFiles) {
    finish();
    EXPECT_THAT(record().files, ElementsAre(Record_File{"template", "/t/KVRT207D.ZTP", "aa"},
                                            Record_File{"document", "/d/SITE.KVRT207D", "bb"},
                                            Record_File{"plan", "", sha256(plan)},
                                            Record_File{"journal", "", sha256(files["journal"])}));
}

TEST_F(Record_Of_Run, ShowsTheTextsOfTheValuesAndWhatARegisterHoldsOtherwise) {
    finish();
    EXPECT_THAT(record().rows,
                ElementsAre(Record_Row{2, 1, 3, "Regulation", "Set point", "Value", "40001", "10.0", "12.0",
                                       "12.0", "verified", ""},
                            Record_Row{2, 2, 3, "Regulation", "Band", "Value", "40002", "5", "7",
                                       "register: 5", "refused", "illegal data value (exception 3)"}));
}

TEST_F(Record_Of_Run, ShowsEachRegisterOfATextThatTheControllerHoldsOtherwise) {
    finish();
    files["result.json"] = R"j({"run": "r-1", "state": "finished", "why": "",
  "counts": {"verified": 0, "refused": 0, "stored_otherwise": 1, "unknown": 0, "not_sent": 0, "rows": 1},
  "rows": [{"field": 3, "row": 1, "column": 2, "register": "40010-40012", "before": [16705, 8224, 8224],
            "sent": [20565, 19792, 8224], "read_back": [20565, null, 8224], "state": "stored_otherwise"}]})j";
    EXPECT_THAT(record().rows, ElementsAre(Record_Row{3, 1, 2, "", "", "", "40010-40012", "16705, 8224, 8224",
                                                      "20565, 19792, 8224", "register: 20565, ?, 8224",
                                                      "stored_otherwise", ""}));
}

TEST_F(Record_Of_Run, CountsWhatTheLineDid) {
    finish();
    const Record_Link link = record().link;
    EXPECT_EQ(link.reads, 20);
    EXPECT_EQ(link.writes, 3);
    EXPECT_EQ(link.retries, 1);
    EXPECT_EQ(link.unanswered, 1);
    EXPECT_EQ(link.medianMs, 14.5);
    EXPECT_EQ(link.p99Ms, 14.5);
}

TEST_F(Record_Of_Run, HoldsTheDocumentAndTheRegisters) {
    finish();
    const Record told = record();
    EXPECT_EQ(told.documentName, "controller.KVRT207D");
    EXPECT_EQ(told.document, "[FIELD_1_DEFAULT]\r\n");
    EXPECT_EQ(told.before, (std::map<std::int32_t, std::uint16_t>{{40001, 100}, {40002, 5}}));
    EXPECT_EQ(told.left, (std::map<std::int32_t, std::uint16_t>{{40001, 120}, {40002, 5}}));
    EXPECT_EQ(told.folder.size(), 6U);
    EXPECT_EQ(told.folder.at("plan.json"), plan);
    EXPECT_EQ(told.folder.at("journal"), files["journal"]);
}

TEST_F(Record_Of_Run, OfAnInterruptedRunARefusedValueIsKnown) {
    journal({{{"event", "begin"}},
             {{"event", "write"}, {"write", 0}, {"address", 40001}, {"values", {120}}},
             {{"event", "answer"}, {"write", 0}, {"end", "refused"}, {"us", 12000}},
             {{"event", "write"}, {"write", 1}, {"address", 40002}, {"values", {7}}}});
    const Record told = record();
    ASSERT_EQ(told.rows.size(), 2U);
    EXPECT_EQ(told.rows[0].state, "refused");
    EXPECT_EQ(told.rows[1].state, "unknown");
    EXPECT_EQ(told.left, (std::map<std::int32_t, std::uint16_t>{{40001, 100}, {40002, 7}}));
}

TEST_F(Record_Of_Run, WhatAReadingBroughtAlongIsntWhatTheRunLeft) {
    finish();
    files["after.json"] = R"({"40000": 9, "40001": 120, "40002": 5, "40003": 8})";
    EXPECT_EQ(record().left, (std::map<std::int32_t, std::uint16_t>{{40001, 120}, {40002, 5}}));
}

TEST_F(Record_Of_Run, FindsTheDocumentUnderTheTemplatesNameWhateverTheDocumentsTypeIs) {
    files.erase("controller.KVRT207D");
    files["controller.PLANT"] = "[FIELD_2_DEFAULT]\r\n";
    std::string other = plan;
    other.replace(other.find("/t/KVRT207D.ZTP"), 15, "/t/Plant.ztp");
    files["plan.json"] = other;
    EXPECT_EQ(record().documentName, "controller.PLANT");
    EXPECT_EQ(record().document, "[FIELD_2_DEFAULT]\r\n");
}

TEST_F(Record_Of_Run, OfAnInterruptedOneABegunWriteIsUnknown) {
    journal(
        {{{"event", "begin"}}, {{"event", "write"}, {"write", 0}, {"address", 40001}, {"values", {120}}}});
    const Record told = record();
    EXPECT_EQ(told.state, "interrupted");
    EXPECT_EQ(told.ended, Record_Moment{});
    ASSERT_EQ(told.rows.size(), 2U);
    EXPECT_EQ(told.rows[0].state, "unknown");
    EXPECT_EQ(told.rows[0].sent, "12.0");
    EXPECT_EQ(told.rows[1].state, "not_sent");
    EXPECT_EQ(told.rows[1].sent, "");
    EXPECT_EQ(told.left, (std::map<std::int32_t, std::uint16_t>{{40001, 120}, {40002, 5}}));
    EXPECT_EQ(told.notes.size(), 1U);
}

TEST_F(Record_Of_Run, OfAnInterruptedOneALongTextIsUnknownWhenOneOfItsWritesBegan) {
    Json paper = Json::parse(plan);
    paper["writes"][1]["cells"] = {{2, 1, 3}};
    files["plan.json"] = paper.dump();
    journal(
        {{{"event", "begin"}}, {{"event", "write"}, {"write", 0}, {"address", 40001}, {"values", {120}}}});
    const Record told = record();
    ASSERT_EQ(told.rows.size(), 1U);
    EXPECT_EQ(told.rows[0].state, "unknown");
}

TEST_F(Record_Of_Run, SaysThatTheJournalIsDamaged) {
    finish();
    files["journal"].insert(0, "00000000 {}\n");
    EXPECT_THAT(record().notes,
                ElementsAre("The journal is damaged: what it says after the damage isn't in this record."));
}

TEST_F(Record_Of_Run, OneThatWasTakenBackIsRestored) {
    finish();
    files["restored"] = "r-2";
    EXPECT_EQ(record().state, "restored");
}

TEST_F(Record_Of_Run, OneThatWentOnAfterwardsIsNot) {
    finish();
    files["restored"] = "";
    EXPECT_EQ(record().state, "finished");
}

TEST_F(Record_Of_Run, WithoutHeadOrPlanThereIsNoRecord) {
    EXPECT_FALSE(recordOfRun(runs, "r-9"));
    files["plan.json"] = "{";
    EXPECT_FALSE(recordOfRun(runs, "r-1"));
}

} // namespace
} // namespace zorvane::commission
