// SPDX-License-Identifier: MIT
// The program from its start to the first painted grid. Arguments: the monotonic time of the start in ns, the
// application folder, and a folder for settings and recovery copies. Prints the ms that went by.

#include "app/window/kvrt_principal.h"
#include "bench/window/first_paint.h"

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <string>

int main(int argc, char* argv[]) {
    using namespace zorvane;
    if (argc != 4) return 2;
    const std::chrono::nanoseconds started(std::stoll(argv[1]));
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const std::string folder = argv[3];
    app::KVRT_Principal principal({argv[2], folder, QString::fromStdString(folder + "/settings.conf")});
    ui::Flex_Grid& grid = principal.window().FLX_Settings();
    bench::First_Paint painted(*grid.view().viewport(), [&] {
        const auto spent = std::chrono::steady_clock::now().time_since_epoch() - started;
        const bool whole = grid.Rows() > 1 && principal.window().isVisible();
        std::printf("%.1f\n", std::chrono::duration<double, std::milli>(spent).count());
        std::fflush(stdout);
        std::_Exit(whole ? 0 : 1);
    });
    return principal.run();
}
