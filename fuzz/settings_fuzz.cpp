// SPDX-License-Identifier: MIT
// Any lines as the values of the settings store: the program starts with them, what is read can be used, and
// stored again it is read the same.

#include "app/document/document_commands.h"
#include "app/form/font_size.h"
#include "app/form/port_store.h"
#include "app/form_life.h"
#include "app/print_commands.h"
#include "app/testing/app_bench.h"
#include "app/testing/recording_print_form.h"
#include "comm/main_form/monitor.h"
#include "fuzz/require.h"
#include "fuzz/split.h"
#include "reports/testing/even_metrics.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

/// A line of the input for each; an empty one is a value that was never stored.
constexpr std::array keys = {"ModbusPort/Settings",      "ModbusPort/Slave",
                             "ModbusPort/Retries",       "ModbusPort/TimeOut",
                             "ModbusPort/Rts",           "ModbusPort/TxDelay",
                             "ModbusPort/AdapterEchoes", "ModbusPort/Port",
                             "Settings/FontSize",        "Settings/Grid",
                             "Settings/PrintLeftMargin", "Settings/PrintRigthMargin",
                             "Settings/PrinttopMargin",  "Settings/PrintbottonMargin",
                             "MainWindow/Top",           "MainWindow/Left",
                             "MainWindow/Width",         "MainWindow/Height",
                             "ModbusDialog/Top",         "ModbusDialog/Left",
                             "ModbusDialog/Width",       "ModbusDialog/Height",
                             "PrintDialog/Top",          "PrintDialog/Left",
                             "PrintDialog/Width",        "PrintDialog/Height",
                             "MainWindow/filtro"};

class No_Painted_Formats : public Page_Exporters {
  public:
    [[nodiscard]] std::string pdf(const Page_Document&, const std::string&) const override { return {}; }
    [[nodiscard]] std::string tiff(const Page_Document&) const override { return {}; }
};

bool usable(const Twips_Rect& place) {
    return std::isfinite(place.left) && std::isfinite(place.top) && std::isfinite(place.width) &&
           std::isfinite(place.height) && place.width >= 0 && place.height >= 0;
}

void checkPort(Settings_Store& store) {
    const Port_Settings port = app::storedPortSettings(store);
    require(settingsFault(port).empty(), "the port settings can be used");
    app::storePortSettings(store, port);
    require(app::storedPortSettings(store) == port, "the port settings are read as they were stored");
}

void checkRectangle(Settings_Store& store, const std::string& section, const Twips_Rect& screen) {
    const Twips_Rect usual{.left = 20, .top = 10, .width = 3000, .height = 4000};
    ignoringFailure([&] {
        const Twips_Rect read = app::storedRectangle(store, section, usual, screen);
        require(usable(read), "a window's place can be used");
        app::storeRectangle(store, section, read);
        const Twips_Rect stored = app::storedRectangle(store, section, usual, screen);
        app::storeRectangle(store, section, stored);
        require(app::storedRectangle(store, section, usual, screen) == stored,
                "a place is read as it was stored");
    });
}

void checkMargins(doubles::App_Bench& bench) {
    const doubles::Even_Metrics metrics;
    const No_Painted_Formats painted;
    doubles::Recording_Print_Form frame(bench.journal);
    app::Print_Commands commands(bench.app, frame,
                                 {metrics,
                                  [] {
                                      return Report_Time{"1/2/2026", 9, 5};
                                  },
                                  "Sans",
                                  painted,
                                  {}});
    commands.LoadSettingsPrint();
    const Page_Settings paper = commands.Report_Setup().PageSettings;
    for (const double margin : {paper.LeftMargin, paper.TopMargin, paper.RightMargin, paper.BottomMargin})
        require(std::isfinite(margin), "a margin is a number");
    commands.PrintAllPages();
    require(commands.PrintAll()->Pages.Count() < 100, "a small document has few pages");
    commands.SaveSettingsPrint();
    commands.LoadSettingsPrint();
    const Page_Settings stored = commands.Report_Setup().PageSettings;
    commands.SaveSettingsPrint();
    commands.LoadSettingsPrint();
    require(commands.Report_Setup().PageSettings == stored, "margins are read as they were stored");
}

/// What the link says of its slave number, which the port settings hold.
void checkUnit(doubles::App_Bench& bench, const std::string& number) {
    bench.link.slaveNumber = number;
    TMR_Verifica_monitor_Timer(bench.app.grids.comm);
    const std::string shown = bench.mainForm.panel(Panel::Unit);
    require(shown.empty() || (shown.starts_with("RTU: ") && Val(shown.substr(5)) > 0),
            "a unit's number is shown");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> lines = fuzz::split({reinterpret_cast<const char*>(data), size}, '\n');
    doubles::App_Bench bench;
    for (std::size_t index = 0; index < std::min(keys.size(), lines.size()); ++index)
        if (!lines[index].empty())
            bench.settings.texts[std::string("Zorvane/") + keys.at(index)] = lines[index];

    PRO_Leer_INIFIle(bench.document, bench.app.reading(), "/app/ABC.ZTP");
    app::Form_Load(bench.app);
    const auto isSize = [&](const Font_Size_Entry& entry) { return entry.applied == bench.state.Font_Size; };
    require(std::any_of(fontSizes.begin(), fontSizes.end(), isSize), "the font has a size of the list");
    require(usable(bench.mainForm.place), "the window has a place");

    checkPort(bench.settings);
    for (const std::string& section : {app::mainWindowSection, app::monitorSection, app::previewSection})
        checkRectangle(bench.settings, section, bench.mainForm.screen());
    checkMargins(bench);
    checkUnit(bench, lines.size() > keys.size() ? lines[keys.size()] : "");

    bench.choose("/home/site7.abc");
    app::MNU_Open_Click(bench.app);
    require(bench.value(1) == "10", "a document is opened whatever type was chosen last");
    return 0;
}
