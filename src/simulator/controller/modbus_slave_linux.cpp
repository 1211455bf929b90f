// SPDX-License-Identifier: MIT
#include "simulator/controller/modbus_slave.h"
#include "simulator/wire/request.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace zorvane::simulator {

namespace {

constexpr int registerCount = 0x10000;

[[noreturn]] void fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

} // namespace

Modbus_Slave::Modbus_Slave(int unit) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) fail("socket pair");
    inner_ = Unique_Fd(ends[0]);
    outer_ = Unique_Fd(ends[1]);
    // The device's name and settings are never used: the context is given an open descriptor instead.
    context_.reset(modbus_new_rtu("socket pair", 9600, 'N', 8, 1));
    registers_.reset(modbus_mapping_new(0, 0, registerCount, 0));
    if (!context_ || !registers_) fail("libmodbus");
    setUnit(unit);
    modbus_set_socket(context_.get(), inner_.get());
    // Requests are handed over whole, so these waits only guard against a misreading.
    modbus_set_indication_timeout(context_.get(), 0, 10'000);
    modbus_set_byte_timeout(context_.get(), 0, 10'000);
    modbus_set_response_timeout(context_.get(), 0, 1'000);
}

int Modbus_Slave::setUnit(int unit) {
    if (modbus_set_slave(context_.get(), unit) != 0) fail("slave number");
    return unit;
}

Bytes Modbus_Slave::sealed(Bytes_View body) {
    Bytes copy(body.begin(), body.end());
    if (modbus_send_raw_request(context_.get(), copy.data(), static_cast<int>(copy.size())) < 0)
        fail("libmodbus");
    return written();
}

bool Modbus_Slave::checkSumRight(Bytes_View frame) {
    if (frame.size() < shortestFrame || frame.size() > longestFrame) return false;
    return std::ranges::equal(sealed(frame.first(frame.size() - 2)), frame);
}

Bytes Modbus_Slave::answer(Bytes_View request) {
    // libmodbus would take the frame after a request to another unit for that unit's answer.
    if (request[0] != MODBUS_BROADCAST_ADDRESS && request[0] != modbus_get_slave(context_.get())) return {};
    if (::send(outer_.get(), request.data(), request.size(), MSG_NOSIGNAL) !=
        static_cast<ssize_t>(request.size()))
        fail("socket pair");
    Bytes received(MODBUS_RTU_MAX_ADU_LENGTH);
    const int length = modbus_receive(context_.get(), received.data());
    if (length > 0) (void)modbus_reply(context_.get(), received.data(), length, registers_.get());
    // What libmodbus left of a request that it didn't like must not meet the next one.
    Bytes rest(longestFrame);
    (void)::recv(inner_.get(), rest.data(), rest.size(), MSG_DONTWAIT);
    return written();
}

std::uint16_t Modbus_Slave::value(std::uint16_t address) const { return registers_->tab_registers[address]; }

void Modbus_Slave::setValue(std::uint16_t address, std::uint16_t value) {
    registers_->tab_registers[address] = value;
}

Bytes Modbus_Slave::written() {
    Bytes bytes(2 * longestFrame);
    const ssize_t got = ::recv(outer_.get(), bytes.data(), bytes.size(), MSG_DONTWAIT);
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
}

} // namespace zorvane::simulator
