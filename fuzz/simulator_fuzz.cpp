// SPDX-License-Identifier: MIT
// Any bytes as the faults of a simulated controller and as what a client sends it: no byte of a client is
// lost, every frame that goes out is whole where no fault strikes, and only a good write changes a register.
//
// An input is the texts of faults, a line each, up to an empty line, then the client's bytes. Each byte 0xFE
// among them is a pause instead.

#include "fuzz/require.h"
#include "fuzz/split.h"
#include "simulator/controller/controller.h"
#include "simulator/line/request_collector.h"
#include "simulator/wire/request.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>

namespace {

using namespace zorvane::simulator;
using zorvane::fuzz::require;

constexpr int unit = 7;
constexpr std::int32_t firstRegister = 95;
constexpr std::int32_t lastRegister = 130;
constexpr std::uint8_t pauseByte = 0xFE;

Register_Map smallMap() {
    Register_Map map;
    map.addressBase = 1;
    for (std::int32_t number = firstRegister; number <= lastRegister; ++number)
        map.values[number] = static_cast<std::uint16_t>(number);
    map.live[100] = {};
    map.live[101] = {0, {1, 2, 5}};
    return map;
}

std::vector<Fault_Rule> faultsFrom(std::string_view text) {
    std::vector<Fault_Rule> faults;
    for (const std::string& line : zorvane::fuzz::split(text, '\n')) {
        try {
            faults.push_back(parseFault(line));
            require(faults.back().text == line, "a fault keeps its text");
        } catch (const Bad_Fault& reason) {
            // An argument of a program ends at its first zero byte, and so does the reason.
            require(std::string_view(reason.what()).find(line.c_str()) != std::string_view::npos,
                    "a refusal names the fault");
        }
    }
    return faults;
}

/// Sends the bytes to a controller as they come in.
class Line {
  public:
    explicit Line(std::vector<Fault_Rule> faults)
        : faultless_(faults.empty()), controller_(smallMap(), unit, std::move(faults), 1),
          collector_(Line_Pace(9600, 10),
                     [this](Bytes_View frame) { return controller_.checkSumRight(frame); }) {}

    void send(Bytes_View bytes) {
        sent_.insert(sent_.end(), bytes.begin(), bytes.end());
        collector_.feed(bytes, now_);
        takeArrivals();
    }

    void pause() {
        if (const auto deadline = collector_.deadline()) now_ = *deadline;
        takeArrivals();
    }

    void end() {
        pause();
        require(!collector_.deadline().has_value() && arrived_ == sent_, "no byte of a client is lost");
    }

  private:
    void takeArrivals() {
        while (const auto arrival = collector_.next(now_)) {
            require(!arrival->frame.empty(), "an arrival has bytes");
            arrived_.insert(arrived_.end(), arrival->frame.begin(), arrival->frame.end());
            require(arrival->wireBegin < arrival->wireEnd, "bytes take time");
            if (arrival->broken.empty()) takeRequest(arrival->frame);
        }
    }

    void takeRequest(Bytes_View request) {
        const auto before = registers();
        const Reaction reaction = controller_.take(request);
        const Frame_Facts facts = requestFacts(request);
        const bool writes =
            facts.function == functionWriteRegister || facts.function == functionWriteRegisters;
        if (!writes && facts.function != functionReadRegisters)
            require(registers() == before, "only reads and writes move registers");
        if (facts.unit != unit && facts.unit != 0)
            require(reaction.outgoing.empty() && registers() == before,
                    "another unit's request is let alone");
        if (facts.unit == 0) require(reaction.outgoing.empty(), "a broadcast isn't answered");
        if (faultless_)
            for (const Outgoing& outgoing : reaction.outgoing)
                checkAnswer(outgoing.bytes, facts);
    }

    void checkAnswer(Bytes_View answer, const Frame_Facts& request) {
        require(controller_.checkSumRight(answer), "an answer's check sum is right");
        require(answer[0] == unit && (answer[1] & 0x7F) == (request.function & 0x7F),
                "an answer is one to its request");
    }

    [[nodiscard]] std::map<std::int32_t, std::uint16_t> registers() const {
        std::map<std::int32_t, std::uint16_t> values;
        for (std::int32_t number = firstRegister; number <= lastRegister; ++number)
            values[number] = controller_.value(number);
        return values;
    }

    bool faultless_;
    Controller controller_;
    Request_Collector collector_;
    Instant now_{std::chrono::seconds(1)};
    Bytes sent_;
    Bytes arrived_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find("\n\n");
    const bool hasFaults = end != std::string_view::npos;
    Line line(hasFaults ? faultsFrom(input.substr(0, end)) : std::vector<Fault_Rule>());
    Bytes_View rest = Bytes_View(data, size).subspan(hasFaults ? end + 2 : 0);
    while (!rest.empty()) {
        const auto pause = std::find(rest.begin(), rest.end(), pauseByte);
        const auto length = static_cast<std::size_t>(pause - rest.begin());
        if (length > 0) line.send(rest.first(length));
        rest = rest.subspan(length);
        if (rest.empty()) break;
        line.pause();
        rest = rest.subspan(1);
    }
    line.end();
    return 0;
}
