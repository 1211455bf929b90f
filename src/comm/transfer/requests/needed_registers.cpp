// SPDX-License-Identifier: MIT
#include "comm/transfer/requests/needed_registers.h"

#include "cells/format/cell_encoding.h"
#include "comm/modbus_control/dry_run_link.h"
#include "comm/transfer/requests/ascii_block.h"
#include "comm/transfer/requests/download_walk.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

/// Keeps which registers it was asked for, and which were written.
class Noting_Link final : public Dry_Run_Link {
  public:
    using Dry_Run_Link::Dry_Run_Link;

    [[nodiscard]] std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                             bool isSigned = true) const override {
        asked_.insert(address);
        return Dry_Run_Link::RegisterValue(slave, address, isSigned);
    }
    void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) override {
        written_.insert(address);
        Dry_Run_Link::PresetSingleRegister(slave, address, value);
    }
    void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                 const std::vector<std::int32_t>& values) override {
        for (std::size_t i = 0; i < values.size(); ++i)
            written_.insert(startAddress + static_cast<std::int32_t>(i));
        Dry_Run_Link::PresetMultipleRegisters(slave, startAddress, values);
    }

    [[nodiscard]] std::uint16_t valueOf(std::int32_t address) const {
        const auto found = registers().find(address);
        return found == registers().end() ? std::uint16_t{0} : found->second;
    }
    [[nodiscard]] const Register_Set& asked() const noexcept { return asked_; }
    [[nodiscard]] const Register_Set& written() const noexcept { return written_; }

  private:
    mutable Register_Set asked_;
    Register_Set written_;
};

/// A download on paper.
class Rehearsal {
  public:
    Rehearsal(const Declara_Zorvane& document, const Grid_Selection& selection, Noting_Link& link)
        : document_(document), selection_(selection), link_(link) {}

    void run() {
        ignoringFailure([&] {
            for (std::int32_t field = 1; field <= document_.Field_Count; ++field)
                visitSentCells(document_, field, [this](const Cell_Place& place) {
                    take(place);
                    return true;
                });
        });
    }

  private:
    void take(const Cell_Place& place) {
        const Cell_Table& cells = document_.Fields(place.field).Cells;
        const Cell_Rec& cell = cells(place.row, place.column);
        if (const auto word = negativeWord(cells(0, place.column), cell)) Negative_Word_ = *word;
        if (isNotDownloadable(document_, cell.Address)) return;
        const Request_Sources sources{document_, Register_Image(link_, 0), 0, selection_, Negative_Word_};
        const Cell_Request request = buildRequest(sources, place);
        if (const auto* single = std::get_if<Single_Write>(&request.order))
            link_.PresetSingleRegister(0, single->address, single->value);
        if (const auto* multiple = std::get_if<Multiple_Write>(&request.order))
            link_.PresetMultipleRegisters(0, multiple->address, multiple->values);
        if (const auto* text = std::get_if<Ascii_Write>(&request.order)) {
            const Register_Range range = asciiRegisters(document_, cell);
            link_.PresetMultipleRegisters(0, range.first,
                                          packAscii(text->text, registerCount(range.first, range.last)));
        }
    }

    const Declara_Zorvane& document_;
    const Grid_Selection& selection_;
    Noting_Link& link_;
    std::int32_t Negative_Word_ = 0;
};

/// Where these registers hold one value, the others 0.
Noting_Link rehearsed(const Declara_Zorvane& document, const Grid_Selection& selection,
                      const Register_Set& registers, std::uint16_t value) {
    Dry_Run_Link::Registers image;
    for (const std::int32_t address : registers)
        image[address] = value;
    Noting_Link link(std::move(image));
    Rehearsal(document, selection, link).run();
    return link;
}

} // namespace

Register_Set neededRegisters(const Declara_Zorvane& document, const Grid_Selection& selection) {
    return rehearsed(document, selection, {}, 0).asked();
}

Unknown_Effect effectOfUnknown(const Declara_Zorvane& document, const Grid_Selection& selection,
                               const Register_Set& unknown) {
    if (unknown.empty()) return {};
    // Both halves of this word, its minutes and its seconds differ from those of 0.
    constexpr std::uint16_t probe = 0x7FFF;
    const Noting_Link zero = rehearsed(document, selection, unknown, 0);
    const Noting_Link other = rehearsed(document, selection, unknown, probe);
    Unknown_Effect effect;
    for (const std::int32_t address : zero.written()) {
        const std::uint16_t withZero = zero.valueOf(address);
        const std::uint16_t withProbe = other.valueOf(address);
        if (withZero == withProbe) continue;
        (withZero == 0 && withProbe == probe ? effect.whole : effect.part).insert(address);
    }
    return effect;
}

} // namespace zorvane
