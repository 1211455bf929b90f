// SPDX-License-Identifier: MIT
#include "bench/link/exchange_cells.h"

#include "bench/link/libmodbus_engine.h"
#include "bench/link/pymodbus_engine.h"
#include "bench/link/simulator_process.h"
#include "bench/link/table.h"
#include "bench/link/zorvane_engine.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>

namespace zorvane::bench {

namespace {

constexpr std::uint16_t firstRegister = 10;
constexpr int registerCount = 200;

/// The engines take turns after so many exchanges; one more goes before them unmeasured, so that each
/// measured one comes right after another.
constexpr int turn = 8;

struct Named_Request {
    std::string name;
    Rtu_Request request;
};

std::vector<Named_Request> requests() {
    return {{"FC3 x10", readRequest(1, firstRegister, 10)},
            {"FC3 x50", readRequest(1, firstRegister, 50)},
            {"FC3 x125", readRequest(1, firstRegister, 125)},
            {"FC6", presetSingle(1, firstRegister, expectedValue(firstRegister))}};
}

/// The wire of a baud rate; without a pace the masters keep the silences of 115200 baud.
Wire wireOf(int baud) { return baud == 0 ? Wire{115200, false} : Wire{baud, true}; }

/// A template without cells, and the registers that it gets.
void writeController(const std::string& folder) {
    std::ofstream(folder + "/BENCH.ZTP") << "[HARDWARE]\nCONTROLLER=BENCH\n";
    nlohmann::json registers;
    for (int i = 0; i < registerCount; ++i)
        registers[std::to_string(i)] = expectedValue(i);
    std::ofstream(folder + "/registers.json") << registers;
}

/// An engine on a simulated controller of its own.
struct Seat {
    std::unique_ptr<Simulator_Process> controller;
    std::unique_ptr<Engine> engine;
};

std::vector<Seat> seats(const Bench_Setup& setup, const Wire& wire) {
    const QStringList arguments{"--template", QString::fromStdString(setup.folder + "/BENCH.ZTP"),
                                "--registers", QString::fromStdString(setup.folder + "/registers.json")};
    std::vector<Seat> seats(3);
    int number = 0;
    for (Seat& seat : seats)
        seat.controller = std::make_unique<Simulator_Process>(
            setup.simulator, setup.folder + "/line" + std::to_string(++number), wire, arguments);
    seats[0].engine = std::make_unique<Zorvane_Engine>(seats[0].controller->device(), wire);
    seats[1].engine = std::make_unique<Libmodbus_Engine>(seats[1].controller->device(), wire);
    seats[2].engine = std::make_unique<Pymodbus_Engine>(setup.python, setup.pymodbusScript,
                                                        seats[2].controller->device(), wire);
    return seats;
}

/// The median of each engine in ms.
std::vector<double> measureCell(std::vector<Seat>& seats, const Rtu_Request& request, int exchanges) {
    std::vector<std::vector<double>> times(seats.size());
    for (int done = 0; done < exchanges; done += turn) {
        const int count = std::min(turn, exchanges - done);
        for (std::size_t i = 0; i < seats.size(); ++i) {
            const std::vector<double> round = seats[i].engine->exchange(request, count + 1);
            times[i].insert(times[i].end(), round.begin() + 1, round.end());
        }
    }
    std::vector<double> medians;
    std::transform(times.begin(), times.end(), std::back_inserter(medians),
                   [](const std::vector<double>& all) { return median(all); });
    return medians;
}

std::vector<std::string> rowOf(const Wire& wire, const Named_Request& request,
                               const std::vector<double>& medians) {
    const double limit = wireLimitMs(wire, request.request);
    std::vector<std::string> row{wire.name(), request.name, wire.paced ? fixed(limit, 2) : "-"};
    for (const double time : medians) {
        row.push_back(fixed(time, 3));
        row.push_back(wire.paced ? fixed(time / limit, 3) : "-");
    }
    return row;
}

} // namespace

void measureExchanges(const Bench_Setup& setup) {
    writeController(setup.folder);
    std::vector<std::vector<std::string>> rows{{"wire", "request", "limit ms", "Zorvane ms", "ratio",
                                                "libmodbus ms", "ratio", "pymodbus ms", "ratio"}};
    for (const int baud : setup.bauds) {
        const Wire wire = wireOf(baud);
        std::vector<Seat> engines = seats(setup, wire);
        for (const Named_Request& request : requests()) {
            std::cerr << "measuring " << wire.name() << ", " << request.name << " ...\n";
            rows.push_back(rowOf(wire, request, measureCell(engines, request.request, setup.exchanges)));
        }
    }
    std::cout << "Median time of an exchange, " << setup.exchanges
              << " of each engine in each cell, 11 bits a character\n";
    printTable(std::cout, rows);
}

} // namespace zorvane::bench
