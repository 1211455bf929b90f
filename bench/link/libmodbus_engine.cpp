// SPDX-License-Identifier: MIT
#include "bench/link/libmodbus_engine.h"

#include <QMetaObject>

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace zorvane::bench {

Libmodbus_Engine::Libmodbus_Engine(const std::string& device, const Wire& wire)
    : context_(modbus_new_rtu(device.c_str(), wire.baud, 'E', 8, 1), modbus_free),
      silence_(frameSilence(wire.line())) {
    modbus_set_slave(context_.get(), 1);
    modbus_set_response_timeout(context_.get(), 2, 0);
    if (modbus_connect(context_.get()) != 0) throw std::runtime_error(device + ": " + modbus_strerror(errno));
    thread_ = std::thread([this] { work(); });
}

Libmodbus_Engine::~Libmodbus_Engine() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_one();
    thread_.join();
    modbus_close(context_.get());
}

std::vector<double> Libmodbus_Engine::exchange(const Rtu_Request& request, int count) {
    request_ = request;
    remaining_ = count;
    times_.clear();
    fault_.clear();
    handOver();
    loop_.exec();
    if (!fault_.empty()) throw std::runtime_error("libmodbus: " + fault_);
    return std::exchange(times_, {});
}

void Libmodbus_Engine::handOver() {
    handedOver_ = Clock::now();
    {
        const std::lock_guard lock(mutex_);
        pending_ = true;
    }
    wake_.notify_one();
}

void Libmodbus_Engine::finished(const std::string& fault) {
    const std::chrono::duration<double, std::milli> took = Clock::now() - handedOver_;
    times_.push_back(took.count());
    fault_ = fault;
    if (!fault_.empty() || --remaining_ == 0)
        loop_.quit();
    else
        handOver();
}

void Libmodbus_Engine::work() {
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return pending_ || ending_; });
        if (ending_) return;
        pending_ = false;
        lock.unlock();
        const std::string fault = perform();
        QMetaObject::invokeMethod(
            &receiver_, [this, fault] { finished(fault); }, Qt::QueuedConnection);
        lock.lock();
    }
}

std::string Libmodbus_Engine::perform() {
    std::this_thread::sleep_until(lineFree_);
    std::vector<std::uint16_t> registers(request_.count);
    const int done =
        request_.function == Function_Code::ReadHoldingRegisters
            ? modbus_read_registers(context_.get(), request_.address, request_.count, registers.data())
            : modbus_write_register(context_.get(), request_.address, request_.values.at(0));
    lineFree_ = Clock::now() + silence_;
    if (done != request_.count) return modbus_strerror(errno);
    if (request_.function != Function_Code::ReadHoldingRegisters) return {};
    int address = request_.address;
    for (const std::uint16_t value : registers)
        if (value != expectedValue(address++)) return "a wrong value";
    return {};
}

} // namespace zorvane::bench
