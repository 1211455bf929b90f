// SPDX-License-Identifier: MIT
#include "comm/transfer/download_step.h"

#include "cells/format/cell_encoding.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/requests/ascii_block.h"
#include "comm/transfer/transfer_records.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

Info_Rec_Errors exchangeRecord(const Link_Exchanges& link, const Cell_Rec& cell, const std::string& noAnswer,
                               std::int32_t tries) {
    const std::string response = link.LastResponse();
    Info_Rec_Errors record;
    record.Start_Address = link.ExchangeLine1();
    record.End_Address = link.ExchangeLine2();
    record.Function_Text = "FC-6";
    record.Register = cell.Address;
    record.Value = cell.Value;
    record.Response = trimBlanks(response).empty() ? noAnswer : response;
    record.Retry = retryNumber(tries);
    return record;
}

/// Starts the write of an order.
struct Sender {
    const Comm_Context& comm;
    const Cell_Place& place;

    void operator()(std::monostate) const {}
    void operator()(const Single_Write& write) const {
        comm.link.PresetSingleRegister(write.slave, write.address, write.value);
    }
    void operator()(const Multiple_Write& write) const {
        comm.link.PresetMultipleRegisters(write.slave, write.address, write.values);
    }
    void operator()(const Ascii_Write& write) const {
        bool failed = false;
        PRO_Escribe_Bloque_Ascii(comm, write.text, place.field, place.column, place.row, "", failed);
    }
};

} // namespace

bool Download_Step::run(const Cell_Place& place) {
    const Cell_Table& cells = comm_.document.Fields(place.field).Cells;
    const Cell_Rec& definition = cells(0, place.column);
    const Cell_Rec& cell = cells(place.row, place.column);
    if (const auto word = negativeWord(definition, cell)) Negative_Word_ = *word;
    if (isNotDownloadable(comm_.document, cell.Address)) {
        comm_.tell(event::Value_Kept_Back{cell.Address});
        ++comm_.form.Last_Download.withoutWrite;
    } else if (!transfer(place, cell)) {
        return false;
    }
    comm_.tell(event::Step_Done{});
    return true;
}

bool Download_Step::transfer(const Cell_Place& place, const Cell_Rec& cell) {
    const std::uint32_t before = comm_.link.WritesEnded();
    lastAnswer_.clear();
    send(place);
    if (!document_.holds()) return false;
    const bool ended = awaitWrite(cell);
    if (document_.holds()) count(cell, before);
    if (!ended) return false;
    report(cell);
    return true;
}

void Download_Step::count(const Cell_Rec& cell, std::uint32_t writesBefore) {
    Download_Result& result = comm_.form.Last_Download;
    if (comm_.link.WritesEnded() == writesBefore)
        ++result.withoutWrite;
    else
        result.count(cell.Address, valueEnd());
}

Value_End Download_Step::valueEnd() const {
    switch (comm_.link.LastWriteOutcome()) {
    case Write_Outcome::Taken:
        return Value_End::Taken;
    case Write_Outcome::Refused:
        return Value_End::Refused;
    case Write_Outcome::NotSent:
        return Value_End::Unsendable;
    case Write_Outcome::None:
    case Write_Outcome::Uncertain:
        break;
    }
    return !lastAnswer_.empty() || !comm_.link.LastResponse().empty() ? Value_End::Uncertain
                                                                      : Value_End::Unanswered;
}

void Download_Step::send(const Cell_Place& place) {
    const Cell_Request request = buildRequest(sources(), place);
    std::visit(Sender{comm_, place}, request.order);
    comm_.form.Nothing_Sent = request.Nothing_Sent;
}

/// Each exchange that ends meanwhile, a retry too, leaves a record.
bool Download_Step::awaitWrite(const Cell_Rec& cell) {
    modbus_control& link = comm_.link;
    std::uint8_t mark = link.TransactionCount();
    std::int32_t tries = 0;
    do {
        comm_.form.Write_Busy = link.WriteBusy();
        if (comm_.form.Nothing_Sent) return true;
        bool cancelled = false;
        PRO_Verifica_Cancelar(comm_, false, cancelled);
        if (cancelled) return false;
        if (link.TransactionCount() != mark) {
            noteExchange(cell, ++tries);
            mark = link.TransactionCount();
        } else {
            comm_.mainForm.wait_until([&] {
                return !document_.holds() || !link.WriteBusy() || link.TransactionCount() != mark ||
                       comm_.form.Cancel_Requested;
            });
            if (!document_.holds()) return false;
        }
    } while (comm_.form.Write_Busy);
    return true;
}

void Download_Step::noteExchange(const Cell_Rec& cell, std::int32_t tries) {
    comm_.form.Transfer_Errors.push_back(exchangeRecord(comm_.link, cell, "No Response", tries));
    lastAnswer_ = comm_.link.LastResponse();
    comm_.link.ClearLastResponse();
}

void Download_Step::report(const Cell_Rec& cell) {
    modbus_control& link = comm_.link;
    comm_.tell(event::Value_Written{cell.Value, cell.Address, Write_Progress::Completed});
    if (!link.WriteFailed()) return;
    const std::string response = link.LastResponse();
    if (response != "BUSY" && !response.empty())
        comm_.form.Transfer_Errors.push_back(
            exchangeRecord(link, cell, "No Response (Exception Response)", 0));
    link.ClearWriteFailed();
    comm_.form.Last_Download.failed.push_back(
        {cell.Address, cell.Value, response.empty() ? lastAnswer_ : response});
    comm_.tell(event::Value_Written{cell.Value, cell.Address, Write_Progress::Failed});
}

Request_Sources Download_Step::sources() const {
    const Grid_View& grids = comm_.mainForm.grids();
    return Request_Sources{comm_.document, comm_.image(), longValue(comm_.link.SlaveNumber()),
                           Grid_Selection{grids.configurationRow(), grids.settingsRow(), grids.settingsCol()},
                           Negative_Word_};
}

} // namespace zorvane
