#include "ctl/line/watch.h"

#include "ctl/calls/qt/port_call.h"
#include "ctl/calls/qt/port_calls.h"
#include "ctl/document/field_argument.h"
#include "ctl/document/notices.h"

#include <QDateTime>

#include <CLI/CLI.hpp>

#include <ostream>
#include <utility>

namespace zorvane {

namespace {

/// The present time with its offset from UTC, as "2026-03-01T12:30:45.678+01:00".
std::string presentTime() {
    const QDateTime now = QDateTime::currentDateTime();
    return now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODateWithMs).toStdString();
}

class Watch_Call : public Port_Call {
  public:
    void addArguments(CLI::App& arguments) override {
        Port_Call::addArguments(arguments);
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
        const Surroundings& surroundings = work.surroundings;
        bool lost = false;
        const auto show = [&](const Live_Refresh& refresh) {
            if (std::exchange(lost, refresh.lost) != refresh.lost)
                tell(surroundings.err,
                     lost ? "Lost communication to device..." : "The controller answers again.");
            if (surroundings.json)
                surroundings.out << compactJson(refreshJson(work.opened.document, field_, refresh)) << '\n';
            else
                printRefresh(surroundings.out, work.opened.document, field_, refresh);
            surroundings.out.flush();
        };
        const auto ended = [&surroundings](const std::string& why) { tell(surroundings.err, why); };
        const Watch_Plan plan{field_,      count_, show, [&work] { return work.line.portOpen(); },
                              presentTime, ended};
        return runWatch(work.comm, work.frame, plan) ? Exit_Success : Exit_Failed;
    }

    [[nodiscard]] int refuse(const Surroundings& /*surroundings*/) const override { return Exit_Failed; }

  private:
    std::int32_t field_ = 0;
    std::int32_t count_ = 0;
};

} // namespace

std::unique_ptr<Call> makeWatchCall() { return std::make_unique<Watch_Call>(); }

} // namespace zorvane
