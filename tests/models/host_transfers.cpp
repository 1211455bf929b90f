// SPDX-License-Identifier: MIT
// Uploads and downloads over the real link, on a line that fails where the case says so. The time is a
// clock's that nobody waits for.

#include "comm/main_form/testing/recording_form.h"
#include "comm/modbus_control/testing/link_rig.h"
#include "comm/transfer/download.h"
#include "comm/transfer/session.h"
#include "comm/transfer/upload.h"
#include "tests/models/host.h"

#include <cstdint>
#include <stdexcept>

namespace zorvane::models {

namespace {

using testing::Link_Rig;

/// What becomes of the first requests that touch some registers.
struct Fault {
    std::int32_t first;
    std::int32_t last;
    bool reads;
    std::string kind;
    std::int32_t times; ///< below 0 for ever
    std::uint8_t exception;
};

struct Session {
    explicit Session(const Json& asked) : rig(settingsOf(asked)) {
        document.Fields.redim(highestField);
        document.Download_Blocks.redim(0);
        document.Holding_Blocks.redim(0);
        document.Controller_Model = asked["model"].get<std::string>();
        link().SetHoldingRegisters(1, 2000, true, 1);
        for (const Json& table : asked["fields"])
            addField(table);
        addBlocks(asked);
        for (const auto& [address, value] : asked["registers"].items())
            rig.slave.registers[static_cast<std::uint16_t>(std::stoi(address))] = value.get<std::uint16_t>();
        mainForm.advance = [this] {
            rig.clock.runFor(microsPerMs);
            return true;
        };
        mainForm.duringPause = [this](std::int32_t ms) { rig.clock.runFor(ms * microsPerMs); };
        rig.faults = [this](int, const Byte_Array& request) { answer(request); };
        PRO_Registra_Bloques(comm);
    }

    static Port_Settings settingsOf(const Json& asked) {
        Port_Settings settings = Link_Rig::defaults();
        settings.retries = asked["retries"].get<std::int32_t>();
        return settings;
    }

    Modbus_Link& link() { return rig.link; }

    void addField(const Json& table) {
        Field_Rec& field = document.Fields(++document.Field_Count);
        field.Rows = table["rows"].get<std::int16_t>();
        field.Columns = static_cast<std::int16_t>(table["columns"].size());
        field.Cells.redim(field.Rows, field.Columns);
        fillField(field, table);
        mainForm.grid.rows = document.Field_Count + 1;
    }

    void addBlocks(const Json& asked) {
        for (const Json& block : asked["blocks"]) {
            document.Holding_Blocks.redimPreserve(++document.Holding_Block_Count);
            document.Holding_Blocks(document.Holding_Block_Count) = Holding_Block_Rec{
                block[0].get<std::int32_t>(), block[1].get<std::int32_t>(), 3, block[2].get<std::string>()};
            if (block[2] == "ALWAYS") ++document.Always_Block_Count;
        }
        for (const Json& block : asked["download blocks"]) {
            const std::int32_t last = document.Download_Blocks.upperBound();
            document.Download_Blocks.redimPreserve(last + 1);
            document.Download_Blocks(last) =
                Download_Block_Rec{document.Controller_Model, block[0].get<std::string>(),
                                   block[1].get<std::string>(), block[2].get<std::int16_t>()};
        }
        for (const Json& address : asked["not downloadable"]) {
            document.Not_Downloadable.redimPreserve(++document.Not_Downloadable_Count);
            document.Not_Downloadable(document.Not_Downloadable_Count) = address.get<std::string>();
        }
    }

    void setFaults(const Json& list) {
        faults.clear();
        for (const Json& each : list)
            faults.push_back({each["first"].get<std::int32_t>(), each["last"].get<std::int32_t>(),
                              each["reads"].get<bool>(), each["kind"].get<std::string>(),
                              each["times"].get<std::int32_t>(), each["exception"].get<std::uint8_t>()});
    }

    Fault* faultFor(const Byte_Array& request) {
        const std::int32_t first = request[2] * 256 + request[3];
        const std::int32_t count = request[1] == 6 ? 1 : request[4] * 256 + request[5];
        for (Fault& fault : faults)
            if (fault.reads == (request[1] == 3) && fault.times != 0 && fault.first < first + count &&
                first <= fault.last)
                return &fault;
        return nullptr;
    }

    void answer(const Byte_Array& request) {
        Fault* const fault = faultFor(request);
        if (fault == nullptr) return rig.reply(rig.slave.answer(request), rig.turnaround);
        if (fault->times > 0) --fault->times;
        if (fault->kind == "lost") return; // the request never got there
        if (fault->kind == "exception")
            return rig.reply(rig.slave.exception(request, fault->exception), rig.turnaround);
        Byte_Array bytes = rig.slave.answer(request);
        if (fault->kind == "silent") return; // it was done, and nobody says so
        if (fault->kind == "damaged") bytes.back() = static_cast<std::uint8_t>(bytes.back() ^ 0x5AU);
        if (fault->kind == "cut") bytes.resize(bytes.size() - 2);
        if (fault->kind == "noise") bytes.insert(bytes.begin(), {0xFF, 0x00, 0xFF});
        rig.reply(bytes, rig.turnaround);
    }

    void upload() {
        MNU_Upload_Click(comm);
        for (int ticks = 0; form.Upload_Active; ++ticks) {
            if (ticks > 100000) throw std::runtime_error("an upload that never ends");
            rig.clock.runFor(10 * microsPerMs);
            TMR_Actualiza_valores_Timer(comm);
        }
    }

    void set(const Json& values) {
        for (const Json& each : values)
            document.Fields(each[0].get<std::int32_t>())
                .Cells(each[1].get<std::int32_t>(), each[2].get<std::int32_t>())
                .Value = bytesOf(each[3]);
    }

    void disconnect() {
        if (form.Online) MNU_Disconnect_Click(comm);
        rig.clock.runFor(2 * microsPerSecond);
    }

    Link_Rig rig;
    doubles::Journal journal;
    Declara_Zorvane document;
    Main_Form_State form;
    doubles::Recording_Form mainForm{journal};
    Comm_Context comm{document, form, rig.link, mainForm};
    std::vector<Fault> faults;
};

} // namespace

Json transfersDone(const Json& asked) {
    Session session(asked);
    Json outcome = Json::array();
    for (const Json& step : asked["steps"]) {
        session.setFaults(step["faults"]);
        session.set(step["set"]);
        (void)session.journal.take();
        const std::int32_t failure = failureOf([&] {
            if (step["up"].get<bool>())
                session.upload();
            else
                MNU_Download_Click(session.comm);
        });
        Json values = Json::array();
        for (std::int32_t f = 1; f <= session.document.Field_Count; ++f)
            values.push_back(valuesOf(session.document.Fields(f)));
        Json registers = Json::object();
        for (const auto& [address, value] : session.rig.slave.registers)
            if (value != 0) registers[std::to_string(address)] = value;
        const std::string panel = session.mainForm.panel(Panel::Message);
        outcome.push_back({{"panel", failure == 0 ? charactersOf(panel) : Json("")},
                           {"failure", failure},
                           {"online", session.form.Online},
                           {"records", !session.form.Transfer_Errors.empty()},
                           {"values", values},
                           {"registers", registers}});
        if (failure != 0) break;
        session.disconnect();
    }
    return outcome;
}

} // namespace zorvane::models
