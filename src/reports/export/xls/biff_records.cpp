// SPDX-License-Identifier: MIT
#include "reports/export/xls/biff_records.h"

#include "values/code_page.h"
#include "values/utf8.h"

#include <algorithm>
#include <bit>

namespace zorvane {

namespace {

constexpr std::uint32_t wideCharacters = 1; ///< the mark of a text of 16-bit characters

void addNumber(std::string& bytes, std::uint64_t value, int count) {
    for (int index = 0; index < count; ++index)
        bytes += static_cast<char>(value >> (8 * index) & 0xFFU);
}

} // namespace

std::string toUtf16(std::string_view text) {
    const std::string utf8 = toUtf8(text);
    std::string wide;
    for (std::size_t place = 0; place < utf8.size();)
        addNumber(wide, takeUtf8(utf8, place), 2); // no character of Windows-1252 needs more
    return wide;
}

Biff_Bytes& Biff_Bytes::u8(std::uint32_t value) {
    addNumber(bytes_, value, 1);
    return *this;
}

Biff_Bytes& Biff_Bytes::u16(std::uint32_t value) {
    addNumber(bytes_, value, 2);
    return *this;
}

Biff_Bytes& Biff_Bytes::u32(std::uint32_t value) {
    addNumber(bytes_, value, 4);
    return *this;
}

Biff_Bytes& Biff_Bytes::real(double value) {
    addNumber(bytes_, std::bit_cast<std::uint64_t>(value), 8);
    return *this;
}

Biff_Bytes& Biff_Bytes::shortText(std::string_view text) {
    u8(static_cast<std::uint32_t>(text.size())).u8(wideCharacters);
    bytes_ += toUtf16(text);
    return *this;
}

Biff_Bytes& Biff_Bytes::longText(std::string_view text) {
    u16(static_cast<std::uint32_t>(text.size())).u8(wideCharacters);
    bytes_ += toUtf16(text);
    return *this;
}

void Biff_Stream::record(Biff type, std::string_view data) {
    addNumber(bytes_, static_cast<std::uint16_t>(type), 2);
    addNumber(bytes_, data.size(), 2);
    bytes_ += data;
}

void Biff_Stream::textTable(const std::vector<std::string>& texts, std::uint32_t uses) {
    constexpr std::size_t lengthAndMark = 3;
    Biff type = Biff::Sst;
    std::string data;
    addNumber(data, uses, 4);
    addNumber(data, texts.size(), 4);
    const auto nextRecord = [&] {
        record(type, data);
        type = Biff::Continue;
        data.clear();
    };
    for (const std::string& text : texts) {
        if (data.size() + lengthAndMark > biffLargestRecord) nextRecord();
        addNumber(data, text.size(), 2);
        addNumber(data, wideCharacters, 1);
        const std::string wide = toUtf16(text);
        for (std::size_t done = 0; done < wide.size();) {
            const std::size_t room = (biffLargestRecord - data.size()) / 2 * 2;
            const std::size_t piece = std::min(room, wide.size() - done);
            data.append(wide, done, piece);
            done += piece;
            if (done == wide.size()) break;
            nextRecord();
            addNumber(data, wideCharacters,
                      1); // each further record says again how its characters are written
        }
    }
    nextRecord();
}

void Biff_Stream::patch(std::size_t place, std::uint32_t value) {
    std::string bytes;
    addNumber(bytes, value, 4);
    bytes_.replace(place, bytes.size(), bytes);
}

} // namespace zorvane
