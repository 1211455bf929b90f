// SPDX-License-Identifier: MIT
#include "commission/folder/digests.h"
#include "commission/record/record_json.h"
#include "commission/taking_back.h"
#include "ctl/calls/qt/left_report.h"
#include "ctl/calls/qt/port_calls.h"
#include "ctl/compare/looked_at.h"
#include "ctl/document/notices.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <ostream>

namespace zorvane::ctl {

namespace {

using commission::Kept_Run;
using commission::Left_Row;
using commission::Record;

constexpr std::size_t mostInOneRequest = 125;

using Left_Rows = std::vector<Left_Row>;

/// What a record without the files of its run says: each register that was left, as a whole.
Kept_Run bareRunOf(const Record& record) {
    Kept_Run run;
    run.paper.unit = record.controller.unit;
    run.paper.settings = record.settings;
    run.paper.identity = {{"serial", toUtf8(record.controller.serial)}};
    for (const auto& [number, value] : record.left) {
        commission::Plan_Write write;
        write.address = number;
        write.values = {value};
        write.parts = {commission::Part::Whole};
        run.paper.writes.push_back(std::move(write));
    }
    run.after = record.left;
    return run;
}

/// The run of which the record tells, as the files of its folder in the record have it.
Kept_Run runOf(const Record& record) {
    auto run = commission::readRun([&record](std::string_view file) -> std::optional<std::string> {
        const auto found = record.folder.find(std::string(file));
        if (found == record.folder.end()) return std::nullopt;
        return found->second;
    });
    return run ? std::move(*run) : bareRunOf(record);
}

/// The run's writes, each register with its part; nothing when the template has other cells.
std::optional<std::vector<commission::Plan_Write>>
writesOf(const Kept_Run& run, const Opened_Document& opened, const Identity_Section& section) {
    std::vector<commission::Plan_Write> writes = run.paper.writes;
    const bool known = std::all_of(writes.begin(), writes.end(), [](const commission::Plan_Write& write) {
        return write.parts.size() == write.values.size();
    });
    if (!known && !commission::completeWrites(writes, opened.document, section)) return std::nullopt;
    return writes;
}

/// The registers of the rows, but for those that can't be read back, in rows of neighbours.
std::vector<Register_Range> rangesOf(const Left_Rows& rows, const Identity_Section& section) {
    std::vector<Register_Range> ranges;
    for (const Left_Row& row : rows) {
        if (holdsRegister(section.writeOnly, row.number)) continue;
        const bool goesOn = !ranges.empty() && ranges.back().last + 1 == row.number &&
                            static_cast<std::size_t>(row.number - ranges.back().first) < mostInOneRequest;
        if (goesOn)
            ranges.back().last = row.number;
        else
            ranges.push_back({row.number, row.number});
    }
    return ranges;
}

bool isUnit(std::int32_t number) { return number >= 1 && number <= 247; }

class Verify_Record_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        arguments.add_option("FILE", file_, "The JSON of a record")->required();
        port_.add(arguments);
        given_ = &arguments;
    }

    int run(const Call_Context& context) override {
        const auto text = context.files.bytes(pathFromNative(file_));
        const auto record = text ? commission::recordOfJson(*text) : std::nullopt;
        const bool ownUnit = given_->count("--slave") > 0;
        if (!record || record->files.empty() || !(ownUnit || isUnit(record->controller.unit)))
            return refuse(context, printablePath(pathFromNative(file_)) + " is not the JSON of a record.");
        const Kept_Run kept = runOf(*record);
        const Port_Settings settings = settingsFor(kept);
        if (const std::string wrong = settingsFault(settings); !wrong.empty()) {
            tell(context.err, wrong);
            return Exit_Usage;
        }
        const std::unique_ptr<Controller_Line> line = makeQtControllerLine(settings);
        Document_Arguments files;
        files.templatePath = toUtf8(record->files.front().path);
        const Opened_Document opened = openFor(context, files, port_, line.get());
        std::string fault = templateFault(context, *record, opened);
        if (fault.empty()) fault = line->open();
        if (!fault.empty()) return refuse(context, fault);
        return verify(context, {*record, kept}, opened, *line, settings);
    }

  private:
    struct Recorded {
        const Record& record;
        const Kept_Run& run;
    };

    /// The line as the run left it, unless the user says otherwise.
    [[nodiscard]] Port_Settings settingsFor(const Kept_Run& run) const {
        Port_Settings settings = port_.settings();
        if (given_->count("--slave") == 0) settings.slave = commission::unitOf(run);
        const auto line = parseLineSettings(commission::settingsOf(run));
        if (given_->count("--settings") == 0 && line) settings.line = *line;
        return settings;
    }

    static std::string templateFault(const Call_Context& context, const Record& record,
                                     const Opened_Document& opened) {
        if (std::string fault = documentFault(opened); !fault.empty()) return fault;
        const auto bytes = context.files.bytes(opened.ztp.path);
        if (bytes && commission::sha256(*bytes) == record.files.front().sha256) return {};
        return "The template was changed since the run: " + printablePath(opened.ztp.path) + ".";
    }

    static int verify(const Call_Context& context, const Recorded& recorded, const Opened_Document& opened,
                      Controller_Line& line, const Port_Settings& settings) {
        const std::int32_t unit = settings.slave;
        const Record& record = recorded.record;
        const Identity_Section section = identitySectionOf(context, opened);
        const auto writes = writesOf(recorded.run, opened, section);
        if (!writes) return refuse(context, "The template has other cells than the run's.");
        const auto asked = compare::askWhoIsThere({opened.document, section, line.reader(), unit});
        if (asked.end != compare::Reading_End::Done)
            return refuse(context, readingFault(settings.port, asked.end, asked.fault));
        if (asked.identity.verdict == compare::Verdict::Isnt && record.controller.although.empty()) {
            tell(context.err, "The controller isn't " + printable(record.controller.model) + ".");
            printLeft(context, record.run, {});
            return Exit_Wrong_Controller;
        }
        if (const std::string why = commission::anotherController(recorded.run, section, asked.identity);
            !why.empty()) {
            tell(context.err, why);
            printLeft(context, record.run, {});
            return Exit_Wrong_Controller;
        }
        const auto read = compare::readRanges(
            line.reader(), unit, rangesOf(commission::leftRows(recorded.run, *writes, {}), section));
        if (!read.done()) return refuse(context, readingFault(settings.port, read.end, read.fault));
        const Left_Rows rows = commission::leftRows(recorded.run, *writes, read.registers);
        printLeft(context, record.run, rows);
        return exitOfLeft(rows);
    }

    static int refuse(const Call_Context& context, const std::string& why) {
        tell(context.err, why);
        printLeft(context, {}, {});
        return Exit_Failed;
    }

    std::string file_;
    Port_Arguments port_;
    const CLI::App* given_ = nullptr;
};

} // namespace

std::unique_ptr<Subcommand> makeVerifyRecordSubcommand() {
    return std::make_unique<Verify_Record_Subcommand>();
}

} // namespace zorvane::ctl
