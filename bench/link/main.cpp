// SPDX-License-Identifier: MIT
#include "bench/link/exchange_cells.h"
#include "bench/link/upload_time.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <CLI/CLI.hpp>

#include <iostream>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    zorvane::bench::Bench_Setup setup;
    CLI::App app("Exchange and upload times of the link against the limit of the wire", "link_bench");
    app.add_option("--simulator", setup.simulator, "The program zorvane-sim")->required();
    app.add_option("--python", setup.python, "A Python that has pymodbus")->required();
    app.add_option("--pymodbus-master", setup.pymodbusScript, "The script pymodbus_master.py")->required();
    app.add_option("--models", setup.models, "Folder of the templates whose uploads are measured")
        ->required();
    app.add_option("--exchanges", setup.exchanges, "Exchanges of each engine in each cell")
        ->check(CLI::Range(1, 100000))
        ->capture_default_str();
    app.add_option("--uploads", setup.uploads, "Uploads of each model; 0 leaves them out")
        ->check(CLI::Range(0, 1000))
        ->capture_default_str();
    app.add_option("--baud", setup.bauds, "Wires: baud rates, 0 for unpaced")
        ->delimiter(',')
        ->capture_default_str();
    CLI11_PARSE(app, argc, argv);
    try {
        const QTemporaryDir folder;
        setup.folder = folder.path().toStdString();
        zorvane::bench::measureExchanges(setup);
        if (setup.uploads > 0) zorvane::bench::measureUploads(setup);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "link_bench: " << error.what() << '\n';
        return 1;
    }
}
