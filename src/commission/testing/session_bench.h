// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/testing/memory_runs.h"
#include "commission/session.h"
#include "commission/testing/toy_controller.h"
#include "compare/testing/pump.h"
#include "template/testing/reading_bench.h"

#include <string>
#include <vector>

namespace zorvane::commission::doubles {

struct Standing_Clock final : Wall_Clock {
    [[nodiscard]] Wall_Time now() const override { return {1795333205123, 60}; }
};

inline const std::string pumpIdentity = "[IDENTITY]\nREGISTER_1=30\nLOW_1=20\nHIGH_1=30\nWHAT_1=bearing\n";

/// The pump of the comparisons with its controller, and a document whose values a test changes.
struct Session_Bench {
    explicit Session_Bench(const std::string& identity = pumpIdentity) {
        bench.readTemplate(compare::doubles::pumpTemplate + identity);
        section = readIdentity(compare::doubles::pumpTemplate + identity);
        toy.registers = compare::doubles::pumpRegisters();
    }

    [[nodiscard]] Session session() {
        Session_Document document{
            bench.document, section, {"/t", "aa"}, {"/d", "bb"}, "controller.PUMP", "line", 1, {}, 2, "test"};
        document.stray = stray;
        document.port = portName;
        document.line = lineSettings;
        document.adapter = adapter;
        return Session(
            {toy, runs, clock, {}, {}, {}, [this](const std::string& why) { waited.push_back(why); }},
            std::move(document));
    }
    void set(std::int32_t field, std::int32_t row, std::int32_t column, const std::string& value) {
        bench.cell(field, row, column).Value = value;
    }
    /// Eight values that differ: codes, halves, times, texts and numbers.
    void changeMuch() {
        set(1, 1, 2, "1");
        set(1, 2, 2, "50");
        set(1, 3, 2, "0:45");
        set(1, 4, 2, "FAN 2");
        set(1, 5, 2, "9");
        set(1, 7, 2, "3");
        set(1, 9, 2, "41000");
        set(2, 1, 2, "5");
    }
    [[nodiscard]] Session_End send(const Chosen_Cells& chosen = {}) {
        Session at = session();
        const Controller_Look look = at.look();
        if (look.step == Step::Good) return at.send(at.plan(look, chosen), look);
        Session_End end;
        end.step = look.step;
        end.why = look.why;
        return end;
    }
    [[nodiscard]] std::string newestRun() const { return listRuns(runs).front().name; }
    [[nodiscard]] Session_End resume() {
        Session at = session();
        const std::string name = newestRun();
        return at.resume(name, *readRun(runs, name), at.look());
    }
    [[nodiscard]] Session_End restore(const std::string& name) {
        Session at = session();
        return at.restore(name, *readRun(runs, name), at.look());
    }

    zorvane::doubles::Reading_Bench bench;
    Identity_Section section;
    Toy_Controller toy;
    Memory_Runs runs;
    Standing_Clock clock;
    std::map<Cell_Place, std::string> stray;
    std::string portName = "line";
    Line_Settings lineSettings;
    std::string adapter;
    std::vector<std::string> waited; ///< why a controller was waited for
};

} // namespace zorvane::commission::doubles
