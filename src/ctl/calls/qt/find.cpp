// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"
#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/stop_signals.h"
#include "ctl/document/notices.h"
#include "ctl/line/port_arguments.h"
#include "ctl/survey/find_report.h"
#include "ctl/survey/known_template.h"
#include "ctl/survey/number_complaints.h"
#include "ctl/text/status_line.h"
#include "ctl/text/terminal.h"
#include "survey/desk/last_good.h"
#include "template/services/qt/qt_settings_store.h"

#include <QEventLoop>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <ostream>
#include <utility>

namespace zorvane::ctl {

namespace {

std::string unitsComplaint(const std::string& text) {
    return survey::parseUnits(text) ? "" : "\"" + text + "\" is not unit numbers of 1 to 247, as in 1-20,40";
}

class Find_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        arguments
            .add_option("--port", port_,
                        "Port: a name such as ttyUSB0, a path, or tcp:HOST:PORT, rtu+tcp:HOST:PORT, "
                        "rfc2217:HOST:PORT")
            ->required();
        arguments
            .add_option("--template", templates_,
                        "A template (.ZTP) whose controllers are looked for; may be given more than once")
            ->allow_extra_args(false);
        arguments.add_option("--units", units_, "Unit numbers to try (default 1-247)")
            ->check(unitsComplaint, "UNITS");
        arguments
            .add_option(
                "--settings", lines_,
                "Line settings to try, as 9600,n,8,1; may be given more than once (default the likely ones)")
            ->allow_extra_args(false)
            ->check(lineComplaint, "LINE");
        arguments
            .add_option("--listen", seconds_, "Seconds to listen before the first request (default 1.5)")
            ->type_name("SECONDS")
            ->check([](const std::string& text) { return secondsComplaint(text, 3600); }, "");
        arguments.add_option("--rts", rts_, "What switches an RS-485 driver to sending (default none)")
            ->check(rtsComplaint, "none|rts|rs485");
    }

    [[nodiscard]] int run(const Call_Context& context) override {
        Qt_Settings_Store settings;
        survey::Find_Wishes wishes = this->wishes();
        if (const std::string wrong = fault(wishes); !wrong.empty()) {
            tell(context.err, wrong);
            return Exit_Usage;
        }
        const auto templates = readKnownTemplates(context, templates_);
        if (!templates) {
            if (context.json) printJson(context.out, findJson({}, {}));
            return Exit_Failed;
        }
        wishes.lastGood = survey::lastGoodLine(settings);
        Stop stop;
        survey::Search_Report report = search(context, survey::searchPlan(wishes, templates->known), stop);
        survey::keepLastGoodLine(settings, report);
        const std::vector<survey::Found_Identity> identities =
            identify(report, wishes.port, templates->known, stop);
        if (stop.asked() && report.end == survey::Search_End::Searched)
            report.end = survey::Search_End::Stopped;
        return tellAll(context, report, identities);
    }

  private:
    /// Somebody may want the end as long as anything is asked, and hears then what was found so far.
    class Stop {
      public:
        [[nodiscard]] bool asked() const { return signals_.asked(); }
        void endsAlso(std::function<void()> work) { end_ = std::move(work); }

      private:
        std::function<void()> end_ = [] {};
        Stop_Signals signals_{[this](bool) { end_(); }};
    };

    [[nodiscard]] survey::Find_Wishes wishes() const {
        survey::Find_Wishes wishes;
        wishes.port.port = port_;
        wishes.port.rts = parseRtsMode(rts_).value_or(Rts_Mode::None);
        for (const std::string& line : lines_)
            wishes.lines.push_back(parseLineSettings(line).value_or(Line_Settings{}));
        wishes.units = survey::parseUnits(units_).value_or(std::vector<std::uint8_t>{});
        wishes.listen = static_cast<Micros>(seconds_ * microsPerSecond);
        return wishes;
    }

    [[nodiscard]] static std::string fault(const survey::Find_Wishes& wishes) {
        for (const Line_Settings& line : wishes.lines) {
            Port_Settings port = wishes.port;
            port.line = line;
            if (std::string wrong = settingsFault(port); !wrong.empty()) return wrong;
        }
        return settingsFault(wishes.port);
    }

    [[nodiscard]] static survey::Search_Report search(const Call_Context& context,
                                                      const survey::Search_Plan& plan, Stop& stop) {
        Qt_Link_Clock clock;
        Qt_Any_Port any;
        const bool terminal = standardErrorIsTerminal();
        Status_Line status(context.err, terminal);
        survey::Line_Search search(any.port(), clock, plan,
                                   [&status](const survey::Search_Progress& progress) {
                                       status.show(survey::progressText(progress));
                                   });
        survey::Search_Report report;
        QEventLoop loop;
        stop.endsAlso([&search] { search.stop(); });
        search.start([&](const survey::Search_Report& told) {
            report = told;
            loop.quit();
        });
        loop.exec();
        stop.endsAlso([] {});
        return report;
    }

    /// Asks each controller whose it is, unless somebody wants the end or the line isn't ours alone.
    [[nodiscard]] static std::vector<survey::Found_Identity>
    identify(survey::Search_Report& report, Port_Settings port,
             const std::vector<survey::Known_Template>& templates, const Stop& stop) {
        std::vector<survey::Found_Identity> identities;
        const bool mayAsk = report.end == survey::Search_End::Searched;
        for (const survey::Found_Unit& found : report.found) {
            port.line = found.line;
            port.slave = found.unit;
            port.timeOutMs = std::max(port.timeOutMs, survey::proposedTimeOutMs(found.times));
            const survey::With_Reader withReader = [&](const survey::Known_Template& known, const auto& ask) {
                if (!mayAsk || stop.asked()) return;
                Qt_Unit_Exchanges exchanges(port, [&stop] { return stop.asked(); });
                exchanges.line().SetAddressBase(known.addressBase);
                exchanges.line().onTry([&report](const Try_Result& result) {
                    report.requests += result.sent.empty() ? 0U : 1U;
                });
                if (exchanges.line().open().opened) ask(exchanges.line());
            };
            identities.push_back(survey::identityOfFound(found.unit, templates, withReader));
        }
        return identities;
    }

    [[nodiscard]] int tellAll(const Call_Context& context, const survey::Search_Report& report,
                              const std::vector<survey::Found_Identity>& identities) const {
        if (context.json)
            printJson(context.out, findJson(report, identities));
        else
            printFound(context.out, report, identities);
        for (const std::string& note : survey::findNotes(report, printablePath(port_)))
            tell(context.err, note);
        return findExit(report);
    }

    std::string port_;
    std::vector<std::string> templates_;
    std::string units_ = "1-247";
    std::vector<std::string> lines_;
    double seconds_ = 1.5;
    std::string rts_ = "none";
};

} // namespace

std::unique_ptr<Subcommand> makeFindSubcommand() { return std::make_unique<Find_Subcommand>(); }

} // namespace zorvane::ctl
