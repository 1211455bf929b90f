// SPDX-License-Identifier: MIT
#include "ctl/line/watch.h"

#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/port_subcommand.h"
#include "ctl/document/field_argument.h"
#include "ctl/document/notices.h"

#include <QDateTime>

#include <CLI/CLI.hpp>

#include <ostream>
#include <utility>

namespace zorvane::ctl {

namespace {

/// The present time with its offset from UTC, as "2026-03-01T12:30:45.678+01:00".
std::string presentTime() {
    const QDateTime now = QDateTime::currentDateTime();
    return now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs).toStdString();
}

class Watch_Subcommand : public Port_Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        Port_Subcommand::addArguments(arguments);
        addField(arguments, field_);
        arguments.add_option("--count", count_, "End after so many refreshes (default: at Ctrl+C)")
            ->type_name("N")
            ->check(countedFromOne());
    }

  protected:
    [[nodiscard]] std::string fault(const Opened_Document& opened) const override {
        return watchFault(opened.document, field_);
    }

    [[nodiscard]] Grid_Selection selection(const Declara_Zorvane& /*document*/) const override {
        return {field_, 0, 0};
    }

    [[nodiscard]] int work(const Port_Work& work) const override {
        const Call_Context& context = work.context;
        bool lost = false;
        const auto show = [&](const Live_Refresh& refresh) {
            if (std::exchange(lost, refresh.lost) != refresh.lost)
                tell(context.err, lost ? "Lost communication to device..." : "The controller answers again.");
            if (context.json)
                context.out << compactJson(refreshJson(work.opened.document, field_, refresh)) << '\n';
            else
                printRefresh(context.out, work.opened.document, field_, refresh);
            context.out.flush();
        };
        const auto ended = [&context](const std::string& why) { tell(context.err, why); };
        const Watch_Plan plan{field_,      count_, show, [&work] { return work.line.portOpen(); },
                              presentTime, ended};
        return runWatch(work.comm, work.mainForm, plan) ? Exit_Success : Exit_Failed;
    }

    [[nodiscard]] int refuse(const Call_Context& /*context*/) const override { return Exit_Failed; }

  private:
    std::int32_t field_ = 0;
    std::int32_t count_ = 0;
};

} // namespace

std::unique_ptr<Subcommand> makeWatchSubcommand() { return std::make_unique<Watch_Subcommand>(); }

} // namespace zorvane::ctl
