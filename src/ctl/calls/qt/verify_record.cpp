// SPDX-License-Identifier: MIT
#include "commission/folder/digests.h"
#include "commission/record/record_json.h"
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

using commission::Record;

constexpr std::size_t mostInOneRequest = 125;

/// A register that the run touched, as it was left and as it is.
struct Left_Register {
    std::int32_t number = 0;
    std::uint16_t left = 0;
    std::optional<std::uint16_t> now;

    [[nodiscard]] const char* sign() const {
        if (!now) return "not_read";
        return *now == left ? "as_left" : "changed";
    }
};
using Left_Registers = std::vector<Left_Register>;

std::size_t countOf(const Left_Registers& rows, std::string_view sign) {
    return static_cast<std::size_t>(std::count_if(
        rows.begin(), rows.end(), [sign](const Left_Register& row) { return row.sign() == sign; }));
}

/// The registers that a run left, but for those that can't be read back, in rows of neighbours.
std::vector<Register_Range> rangesOf(const Record& record, const Identity_Section& section) {
    std::vector<Register_Range> ranges;
    for (const auto& [number, value] : record.left) {
        if (holdsRegister(section.writeOnly, number)) continue;
        const bool goesOn = !ranges.empty() && ranges.back().last + 1 == number &&
                            static_cast<std::size_t>(number - ranges.back().first) < mostInOneRequest;
        if (goesOn)
            ranges.back().last = number;
        else
            ranges.push_back({number, number});
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
        const Port_Settings settings = settingsFor(*record);
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
        return verify(context, *record, opened, *line, settings.slave);
    }

  private:
    /// The line as the run had it, unless the user says otherwise.
    [[nodiscard]] Port_Settings settingsFor(const Record& record) const {
        Port_Settings settings = port_.settings();
        if (given_->count("--slave") == 0) settings.slave = record.controller.unit;
        const auto line = parseLineSettings(record.settings);
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

    static int verify(const Call_Context& context, const Record& record, const Opened_Document& opened,
                      Controller_Line& line, std::int32_t unit) {
        const Identity_Section section = identitySectionOf(context, opened);
        const auto asked = compare::askWhoIsThere({opened.document, section, line.reader(), unit});
        if (asked.end != compare::Reading_End::Done)
            return refuse(context, readingFault(asked.end, asked.fault));
        if (asked.identity.verdict == compare::Verdict::Isnt && record.controller.although.empty()) {
            tell(context.err, "The controller isn't " + printable(record.controller.model) + ".");
            print(context, record.run, {});
            return Exit_Wrong_Controller;
        }
        const auto read = compare::readRanges(line.reader(), unit, rangesOf(record, section));
        if (!read.done()) return refuse(context, readingFault(read.end, read.fault));
        Left_Registers rows;
        for (const auto& [number, value] : record.left)
            if (!holdsRegister(section.writeOnly, number))
                rows.push_back({number, value, read.registers.valueAt(number)});
        print(context, record.run, rows);
        if (countOf(rows, "not_read") > 0) return Exit_Cant_Tell;
        return countOf(rows, "changed") > 0 ? Exit_Differs : Exit_Success;
    }

    static int refuse(const Call_Context& context, const std::string& why) {
        tell(context.err, why);
        print(context, {}, {});
        return Exit_Failed;
    }

    static void print(const Call_Context& context, const std::string& run, const Left_Registers& rows) {
        if (context.json)
            printRows(context, run, rows);
        else if (!run.empty())
            printText(context, rows);
    }

    static void printRows(const Call_Context& context, const std::string& run, const Left_Registers& rows) {
        Json counts = Json::object();
        for (const char* const sign : {"as_left", "changed", "not_read"})
            counts[sign] = countOf(rows, sign);
        counts["rows"] = rows.size();
        Json list = Json::array();
        for (const Left_Register& row : rows)
            list.push_back({{"register", row.number},
                            {"left", row.left},
                            {"now", row.now ? Json(*row.now) : Json()},
                            {"sign", row.sign()}});
        printJson(context.out,
                  {{"run", run.empty() ? Json() : jsonText(run)}, {"counts", counts}, {"rows", list}});
    }

    static void printText(const Call_Context& context, const Left_Registers& rows) {
        for (const Left_Register& row : rows)
            if (row.sign() != std::string_view("as_left"))
                context.out << "Register " << row.number << ": left " << row.left << ", "
                            << (row.now ? "now " + std::to_string(*row.now) : std::string("not read"))
                            << '\n';
        context.out << countOf(rows, "as_left") << " of " << rows.size() << " registers as left.\n";
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
