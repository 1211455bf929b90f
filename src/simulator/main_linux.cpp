// SPDX-License-Identifier: MIT
#include "simulator/controller/controller.h"
#include "simulator/line/frame_log.h"
#include "simulator/line/line_server.h"
#include "simulator/line/mbap_collector.h"
#include "simulator/line/pseudo_terminal.h"
#include "simulator/line/request_collector.h"
#include "simulator/line/serial_device.h"
#include "simulator/line/tcp_line.h"
#include "simulator/options.h"
#include "simulator/registers/document_registers.h"
#include "simulator/registers/register_storage.h"
#include "template/services/native_files.h"
#include "values/run_time_failure.h"

#include <sys/signalfd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <system_error>

namespace {

using namespace zorvane;
using namespace zorvane::simulator;

/// Becomes readable when the program is asked to end.
Unique_Fd endSignals() {
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGTERM);
    ::sigaddset(&signals, SIGINT);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    Unique_Fd fd(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!fd.open()) throw std::system_error(errno, std::generic_category(), "signals");
    return fd;
}

void warn(const std::string& text) { std::cerr << "zorvane-sim: " << text << '\n'; }

/// A template named alone is one of this folder, else one of those beside the program.
std::string templateFile(const std::string& given) {
    namespace fs = std::filesystem;
    std::error_code error;
    if (given.find('/') != std::string::npos || fs::exists(given, error)) return given;
    const fs::path beside = fs::read_symlink("/proc/self/exe", error).parent_path() / given;
    return fs::exists(beside, error) ? beside.string() : given;
}

void addRegisters(Files& files, const std::string& path, Register_Map& map) {
    try {
        applyRegisterJson(files.read(pathFromNative(path)), map);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(path + ": " + error.what());
    }
}

/// The registers of a template, a configuration and a register file; the last two may be none.
Register_Map registers(const std::string& model, const std::string& configuration, const std::string& more) {
    Native_Files files;
    const auto native = [](const std::string& path) { return path.empty() ? path : pathFromNative(path); };
    Register_Map map = readRegisters(files, native(templateFile(model)), native(configuration), warn);
    if (!more.empty()) addRegisters(files, more, map);
    return map;
}

/// As the controller was left: what it had stored stands, and no longer moves by itself where it was changed.
void restoreStored(const std::string& path, Register_Map& map) {
    const Register_Map before = map;
    Native_Files files;
    addRegisters(files, path, map);
    for (const auto& [number, value] : map.values) {
        const auto had = before.values.find(number);
        if (had == before.values.end() || had->second != value) map.live.erase(number);
    }
}

Controller_Traits traits(const Options& options) {
    Controller_Traits traits{options.quirks, std::chrono::milliseconds(options.storeAfterMs), {}, {}};
    if (!options.storage.empty())
        traits.keep = [storage = Register_Storage(options.storage)](const auto& values) {
            storage.keep(values);
        };
    const Exchange_Options& other = options.exchange;
    if (other.after > 0)
        traits.exchange = {other.after,
                           registers(other.templateFile.empty() ? options.templateFile : other.templateFile,
                                     other.configuration, other.registers)};
    return traits;
}

Controller controller(const Options& options) {
    Register_Map map = registers(options.templateFile, options.configuration, options.registers);
    if (!options.storage.empty() && Register_Storage(options.storage).exists())
        restoreStored(options.storage, map);
    for (const auto& [number, text] : options.objects)
        map.objects[number] = text;
    return {map, options.slave, options.faults, options.seed, traits(options)};
}

/// The line, and the name under which clients find it.
struct Named_Port {
    std::unique_ptr<Line_Port> port;
    std::string name;
};

Named_Port listenAt(const Options& options) {
    auto line = std::make_unique<Tcp_Line>(options.listenAddress, *options.tcpPort);
    if (!isLoopback(options.listenAddress))
        warn("anybody on the network can reach this controller at " + line->hostAndPort());
    const std::string name = (options.rtuOverTcp ? "rtu+tcp:" : "tcp:") + line->hostAndPort();
    return {std::move(line), name};
}

Named_Port openPort(const Options& options) {
    if (options.tcpPort) return listenAt(options);
    if (!options.ptyLink.empty())
        return {std::make_unique<Pseudo_Terminal>(options.ptyLink), options.ptyLink};
    return {std::make_unique<Serial_Device>(options.device, options.settings), options.device};
}

std::unique_ptr<Line_Framing> framing(const Options& options, Controller& simulated) {
    if (speaksModbusTcp(options))
        return std::make_unique<Mbap_Collector>(
            [&simulated](Bytes_View body) { return simulated.sealed(body); });
    return std::make_unique<Request_Collector>(
        paceOf(options), [&simulated](Bytes_View frame) { return simulated.checkSumRight(frame); });
}

void serve(const Options& options) {
    const Unique_Fd end = endSignals();
    Controller simulated = controller(options);
    Frame_Log log(options.log, std::cout, std::cerr, std::chrono::steady_clock::now());
    const Named_Port line = openPort(options);
    const auto frames = framing(options, simulated);
    Line_Server server(*line.port, *frames, simulated, log,
                       {paceOf(options), std::chrono::milliseconds(options.turnaroundMs)});
    std::cout << "ready " << line.name << std::endl;
    server.run(end.get());
}

} // namespace

int main(int argc, char** argv) {
    const auto parsed = parseOptions(argc, argv, std::cout, std::cerr);
    if (const int* exitCode = std::get_if<int>(&parsed)) return *exitCode;
    try {
        serve(std::get<Options>(parsed));
        return 0;
    } catch (const std::exception& error) {
        warn(error.what());
        return 1;
    }
}
