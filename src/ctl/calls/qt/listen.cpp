// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/network_port.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/stop_signals.h"
#include "ctl/document/given_value.h"
#include "ctl/document/notices.h"
#include "ctl/line/port_arguments.h"
#include "ctl/survey/known_template.h"
#include "ctl/survey/listen_report.h"
#include "ctl/survey/number_complaints.h"
#include "survey/desk/capture_file.h"
#include "survey/qt/qt_listening_port.h"

#include <QDateTime>
#include <QEventLoop>

#include <CLI/CLI.hpp>

#include <optional>
#include <ostream>
#include <string_view>

namespace zorvane::ctl {

namespace {

class Listen_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        arguments.add_option("--port", port_, "Serial port: a name such as ttyUSB0, or a path")->required();
        arguments
            .add_option("--template", templates_,
                        "A template (.ZTP) that names the registers; may be given more than once")
            ->allow_extra_args(false);
        arguments
            .add_option("--settings", line_,
                        "Baud, parity, data bits, stop bits (default the template's, or 9600,n,8,1)")
            ->check(lineComplaint, "LINE");
        arguments.add_option("--seconds", seconds_, "End after so many seconds (default: at Ctrl+C)")
            ->type_name("SECONDS")
            ->check([](const std::string& text) { return secondsComplaint(text, 1000000000); }, "");
        arguments.add_option("--frames", frames_, "End after so many frames")
            ->type_name("N")
            ->check(framesComplaint, "");
        arguments.add_option("--out", out_, "Write the frames to a file for Wireshark and tshark (pcapng)")
            ->type_name("FILE")
            ->check(givenValue());
    }

    [[nodiscard]] int run(const Call_Context& context) override {
        Port_Settings settings;
        settings.port = port_;
        settings.line = parseLineSettings(line_).value_or(Line_Settings{});
        if (const std::string wrong = settingsFault(settings); !wrong.empty()) {
            tell(context.err, wrong);
            return Exit_Usage;
        }
        if (onNetwork(port_)) {
            tell(context.err,
                 "The port " + printablePath(port_) +
                     ": only a serial port can be listened to, since a connection over a network "
                     "brings the answers to its own requests alone. Name a serial port.");
            return failed(context);
        }
        const auto templates = readKnownTemplates(context, templates_);
        if (!templates) return failed(context);
        const survey::Listening_Plan plan = this->plan(survey::lineToListenTo(line_, templates->known));
        std::optional<survey::Capture_File> capture;
        if (!out_.empty()) capture.emplace(out_, port_, sinceEpoch());
        if (capture && !capture->good()) {
            tellUnwritten(context);
            return failed(context);
        }
        const Heard_All heard = listen(plan, capture);
        const bool written = !capture || capture->end();
        return report(context, heard, plan, templates->known, written);
    }

  private:
    struct Heard_All {
        survey::Listening_Report report;
        bool ended = true; ///< by itself, or by Ctrl+C
    };

    [[nodiscard]] survey::Listening_Plan plan(const Line_Settings& line) const {
        survey::Listening_Plan plan{port_, line, {}, frames_};
        if (seconds_) plan.duration = static_cast<Micros>(*seconds_ * microsPerSecond);
        return plan;
    }

    /// What the clock's times lack to microseconds since 1970.
    [[nodiscard]] static std::int64_t sinceEpoch() {
        return QDateTime::currentMSecsSinceEpoch() * microsPerMs - Qt_Link_Clock().now();
    }

    [[nodiscard]] static Heard_All listen(const survey::Listening_Plan& plan,
                                          std::optional<survey::Capture_File>& capture) {
        Qt_Link_Clock clock;
        survey::Qt_Listening_Port port;
        survey::Line_Listener listener(port, clock, plan, [&](const survey::Heard_Frame& frame) {
            if (!capture) return;
            capture->add(frame);
            if (!capture->good()) listener.stop();
        });
        Heard_All heard;
        QEventLoop loop;
        const Stop_Signals stop([&listener](bool) { listener.stop(); });
        listener.start([&](const survey::Listening_Report& report) {
            heard.report = report;
            loop.quit();
        });
        loop.exec();
        heard.ended = !stop.asked() || std::string_view(stop.signal()) == "SIGINT";
        return heard;
    }

    [[nodiscard]] int report(const Call_Context& context, const Heard_All& heard,
                             const survey::Listening_Plan& plan,
                             const std::vector<survey::Known_Template>& templates, bool written) const {
        if (context.json)
            printJson(context.out, listenJson(heard.report, plan.line, templates));
        else if (heard.report.opened)
            printHeard(context.out, heard.report, plan.line, templates);
        for (const std::string& note :
             survey::listenNotes(heard.report, printablePath(port_), plan.line, "--settings gives others."))
            tell(context.err, note);
        if (!written) tellUnwritten(context);
        return heard.ended && written && heard.report.reason.empty() ? Exit_Success : Exit_Failed;
    }

    void tellUnwritten(const Call_Context& context) const {
        tell(context.err,
             printablePath(out_) + " can't be written. Check the path, and whether its disk has room.");
    }

    [[nodiscard]] static int failed(const Call_Context& context) {
        if (context.json) printJson(context.out, listenJson({}, {}, {}));
        return Exit_Failed;
    }

    std::string port_;
    std::vector<std::string> templates_;
    std::string line_;
    std::optional<double> seconds_;
    std::optional<std::uint64_t> frames_;
    std::string out_;
};

} // namespace

std::unique_ptr<Subcommand> makeListenSubcommand() { return std::make_unique<Listen_Subcommand>(); }

} // namespace zorvane::ctl
