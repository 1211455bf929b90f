#include "simulator/controller/controller.h"
#include "simulator/line/frame_log.h"
#include "simulator/line/line_server.h"
#include "simulator/line/pseudo_terminal.h"
#include "simulator/line/serial_device.h"
#include "simulator/options.h"
#include "simulator/registers/document_registers.h"
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

Register_Map registers(const Options& options) {
    Native_Files files;
    const auto native = [](const std::string& path) { return path.empty() ? path : pathFromNative(path); };
    Register_Map map =
        readRegisters(files, native(templateFile(options.templateFile)), native(options.configuration), warn);
    if (options.registers.empty()) return map;
    try {
        applyRegisterJson(files.read(native(options.registers)), map);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(options.registers + ": " + error.what());
    }
    return map;
}

std::unique_ptr<Line_Port> openPort(const Options& options) {
    if (!options.ptyLink.empty()) return std::make_unique<Pseudo_Terminal>(options.ptyLink);
    return std::make_unique<Serial_Device>(options.device, options.settings);
}

void serve(const Options& options) {
    const Unique_Fd end = endSignals();
    Controller controller(registers(options), options.slave, options.faults, options.seed);
    Frame_Log log(options.log, std::cout, std::cerr, std::chrono::steady_clock::now());
    const auto port = openPort(options);
    Line_Server server(*port, controller, log,
                       {paceOf(options), std::chrono::milliseconds(options.turnaroundMs)});
    std::cout << "ready " << (options.ptyLink.empty() ? options.device : options.ptyLink) << std::endl;
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
