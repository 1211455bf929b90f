// SPDX-License-Identifier: MIT
#include "comm/modbus_control/modbus_link.h"

#include "values/run_time_failure.h"

#include <cctype>
#include <utility>

namespace zorvane {

Modbus_Link::Modbus_Link(const Parts& parts, const Port_Settings& settings)
    : port_(parts.port), clock_(parts.clock), asker_(parts.asker), windows_(parts.windows),
      settings_(settings), transaction_(parts.port, parts.clock, *this), session_(parts.port, parts.finder),
      scanAlarm_(parts.clock.makeAlarm([this] { ringScanAlarm(); })),
      reopenAlarm_(parts.clock.makeAlarm([this] { tryReopen(); })) {
    transaction_.setLine(settings_);
    applyWaits();
}

Modbus_Link::~Modbus_Link() {
    transaction_.abandon();
    port_.close();
}

// Port and timing.

void Modbus_Link::setPortSettings(const Port_Settings& settings) {
    const bool reopen = portWanted_ && !(settings == settings_);
    if (reopen) releasePort();
    settings_ = settings;
    transaction_.setLine(settings_);
    applyWaits();
    if (reopen) PrepareScan();
}

void Modbus_Link::setTimeOutMs(std::int32_t timeOutMs) {
    settings_.timeOutMs = timeOutMs;
    applyWaits();
}

std::int32_t Modbus_Link::pauseMs() const { return requestMs_ > 0 ? requestMs_ : 0; }

std::int32_t Modbus_Link::timeOutMs() const { return outMs_ > 0 ? outMs_ : settings_.timeOutMs; }

void Modbus_Link::applyWaits() { transaction_.setWaits(pauseMs() * microsPerMs, timeOutMs() * microsPerMs); }

void Modbus_Link::SetTimings(std::int32_t requestMs, std::int32_t outMs) {
    requestMs_ = requestMs;
    outMs_ = outMs;
    applyWaits();
}

void Modbus_Link::SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) {
    // The image holds any register; it needs no size.
}

void Modbus_Link::SetAddressBase(std::int32_t base) { addressBase_ = base; }

void Modbus_Link::SetCommPort(std::int16_t port, const std::string& settings) {
    const auto line = parseLineSettings(settings);
    if (!line) throw Run_Time_Failure(Failure::InvalidCall);
    Port_Settings changed = settings_;
    changed.port = portOfNumber(port);
    changed.line = *line;
    if (!settingsFault(changed).empty()) throw Run_Time_Failure(Failure::InvalidCall);
    setPortSettings(changed);
}

std::vector<std::string> Modbus_Link::PortParameters() const {
    std::string line = formatLineSettings(settings_.line);
    for (char& letter : line) {
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    return {SlaveNumber(),
            line,
            portNumberText(settings_.port),
            std::to_string(settings_.retries),
            std::to_string(settings_.timeOutMs),
            std::to_string(settings_.txDelayMs)};
}

std::string Modbus_Link::SlaveNumber() const { return std::to_string(settings_.slave); }

// Blocks.

void Modbus_Link::ClearBlocks() {
    scan_.plan().clear();
    image_.clear();
    together_.clear();
    uncut_.clear();
    addressBase_ = 0;
    restartScan();
}

void Modbus_Link::AddScanBlock(std::int32_t first, std::int32_t last, bool, const std::string& request,
                               std::int32_t& slave) {
    const bool hadNone = scan_.plan().numbers().empty();
    scan_.plan().add({first, last, request, slave});
    if (hadNone && !scan_.plan().numbers().empty()) restartScan();
}

void Modbus_Link::AddHoldingBlock(std::int16_t unit, std::int16_t first, std::int16_t last, bool,
                                  std::int16_t) {
    std::int32_t slave = unit;
    AddScanBlock(first, last, false, "NONE", slave);
}

// Scan control.

void Modbus_Link::SetScanMode(const std::string& mode) {
    scan_.plan().setMode(mode);
    restartScan();
}

std::string Modbus_Link::ScanMode() const { return scan_.plan().mode(); }

std::int32_t Modbus_Link::ScanBlockCount() const {
    return static_cast<std::int32_t>(scan_.plan().numbers().size());
}

std::int32_t Modbus_Link::ScanBlockIndex() const { return scan_.index(); }

void Modbus_Link::ScanBlockSeen() {
    scan_.indexSeen();
    scanLookedAt();
}

void Modbus_Link::ResetScan() { restartScan(); }

void Modbus_Link::PrepareScan() {
    halted_ = false;
    portWanted_ = true;
    if (opening_ != Opening::None) return openingIsWanted();
    if (port_.isOpen() || openPort()) next();
}

void Modbus_Link::OpenPort() { PrepareScan(); }

void Modbus_Link::StartScan() {
    missDue_ = true;
    wish_ = true;
    halted_ = false;
    next();
}

void Modbus_Link::EndSession() {
    wish_ = false;
    withdrawScan();
}

void Modbus_Link::StopScan() {
    halted_ = true;
    takeHeldTry();
    transaction_.abandon();
    current_ = {};
    scanTries_ = 0;
    scanAlarm_->disarm();
    failWrites();
}

void Modbus_Link::ClosePort() {
    portWanted_ = false;
    releasePort();
}

void Modbus_Link::PauseScan() {
    paused_ = true;
    withdrawScan();
}

void Modbus_Link::ResumeScan() {
    paused_ = false;
    next();
}

// Results.

std::int32_t Modbus_Link::RegisterValue(std::int32_t slave, std::int32_t address, bool isSigned) const {
    const std::uint16_t value = image_.at(slaveOf(slave), address);
    return isSigned ? static_cast<std::int16_t>(value) : static_cast<std::int32_t>(value);
}

Register_Reading Modbus_Link::readingOf(std::int32_t slave, std::int32_t address) const {
    return image_.reading(slaveOf(slave), address);
}

std::uint8_t Modbus_Link::TransactionCount() const { return status_.transactionCount; }

bool Modbus_Link::LastRequestFailed() const { return status_.lastRequestFailed; }

void Modbus_Link::LastRequestSeen() {
    scan_.failureSeen();
    scanLookedAt();
}

bool Modbus_Link::CommLost() const { return status_.commLost; }
std::string Modbus_Link::LastResponse() const { return status_.lastResponse; }
void Modbus_Link::ClearLastResponse() { status_.lastResponse.clear(); }
std::string Modbus_Link::ExchangeLine1() const { return status_.line1; }
std::string Modbus_Link::ExchangeLine2() const { return status_.line2; }
std::int32_t Modbus_Link::TxCount() const { return status_.txCount; }
std::int32_t Modbus_Link::RxCount() const { return status_.rxCount; }

void Modbus_Link::ClearCounters() {
    status_.transactionCount = 0;
    status_.txCount = 0;
    status_.rxCount = 0;
}

void Modbus_Link::ResetTransferLog() {
    status_.line1.clear();
    status_.line2.clear();
    status_.lastResponse.clear();
    status_.lastRequestFailed = false;
}

// Writes.

void Modbus_Link::PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) {
    writes_.addSingle(slaveOf(slave), address, value);
    beginWrite();
}

void Modbus_Link::PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                          const std::vector<std::int32_t>& values) {
    writes_.addMultiple(slaveOf(slave), startAddress, values);
    beginWrite();
}

void Modbus_Link::beginWrite() {
    status_.lastResponse.clear();
    status_.writeOutcome = Write_Outcome::None;
    if (!port_.isOpen() && opening_ != Opening::Wanted) return failWrites();
    next();
}

bool Modbus_Link::WriteBusy() const { return !writes_.empty(); }
bool Modbus_Link::WriteFailed() const { return status_.writeFailed; }
void Modbus_Link::ClearWriteFailed() { status_.writeFailed = false; }

void Modbus_Link::failWrites() {
    if (writes_.empty()) return;
    const Write_Job& job = writes_.front();
    endWrite(job.unanswered || job.done > 0 ? Write_Outcome::Uncertain : Write_Outcome::NotSent);
    writes_.clear();
    status_.writeFailed = true;
}

} // namespace zorvane
