// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"

namespace zorvane::commission::doubles {

/// A run of three values, one of which was refused and one of which was stored otherwise.
inline Record sampleRecord() {
    Record record;
    record.run = "20261122-084005-KVRT207D-1-1";
    record.kind = "send";
    record.state = "finished";
    record.head = {"North", "Feeder 7", "4711", "Ann", "Bob"};
    record.controller = {
        "KVRT207D", 1, "S-12", "2.1", "is", "", {{"320-327", "name", "KVRT207D", "KVRT207D", "fits"}}};
    record.port = "/dev/ttyUSB0";
    record.settings = "9600,n,8,1";
    record.started = {"2026-11-22T07:40:05.123Z", "2026-11-22T08:40:05+01:00"};
    record.ended = {"2026-11-22T07:40:09.456Z", "2026-11-22T08:40:09+01:00"};
    record.files = {{"template", "/t/KVRT207D.ZTP", "aa"}, {"journal", "", "bb"}};
    record.rows = {
        {2, 1, 3, "Regulation", "Set point", "Value", "40001", "100", "120", "120", "verified", ""},
        {2, 2, 3, "Regulation", "Band", "Value", "40002", "5", "7", "5", "refused", "illegal data value"},
        {2, 3, 3, "Regulation", "Delay", "", "40003", "30", "33", "30", "stored_otherwise", ""}};
    record.deviations =
        std::vector<Record_Deviation>{{"Regulation", "Set point", "Value", "40001", "100", "120"}};
    record.link = {20, 3, 1, 0, 12.345, 25.0};
    record.checks = {"Busbar isolated"};
    record.documentName = "before.KVRT207D";
    record.document = "[FIELD_1_DEFAULT]\r\nROW_1=\xE4,5\r\n";
    record.before = {{40001, 100}, {40002, 5}};
    record.left = {{40001, 120}, {40002, 5}};
    record.folder = {{"run.json", "{\"model\": \"\xC3\xA4\"}"}, {"journal", "00000000 {}\n"}};
    return record;
}

} // namespace zorvane::commission::doubles
