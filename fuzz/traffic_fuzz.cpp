// SPDX-License-Identifier: MIT
// Any bytes as a file of traffic: the pieces in which it is read play no part, every line is a row or is
// counted, a row is read again as it was written, and it has a text for each column. The first byte chooses
// the pieces.

#include "comm/modbus_control/exchange/traffic_rows.h"
#include "fuzz/require.h"
#include "survey/traffic/traffic_lines.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

struct Read_File {
    std::vector<Traffic_Entry> entries;
    std::size_t unread = 0;
};

Read_File readInPieces(std::string_view text, std::size_t size) {
    Read_File all;
    survey::Traffic_Reader reader;
    const auto keep = [&](std::vector<Traffic_Entry> entries) {
        std::move(entries.begin(), entries.end(), std::back_inserter(all.entries));
    };
    for (std::size_t at = 0; at < text.size(); at += size)
        keep(reader.take(text.substr(at, size)));
    keep(reader.end());
    all.unread = reader.unread();
    return all;
}

std::size_t linesOf(std::string_view text) {
    std::size_t lines = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        if (!line.empty() && line != "\r") ++lines;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string writtenAgain(const std::vector<Traffic_Entry>& entries) {
    std::string text;
    for (const Traffic_Entry& entry : entries)
        text += survey::trafficJsonLine(entry, 0);
    return text;
}

void checkRow(const Traffic_Entry& entry, Micros midnight) {
    const std::string line = survey::trafficJsonLine(entry, 0);
    require(line.ends_with('\n') && std::count(line.begin(), line.end(), '\n') == 1, "a row is a line");
    const auto again = survey::parseTrafficLine(line);
    require(again.has_value(), "a row's line is one");
    fuzz::requireSame(survey::trafficJsonLine(*again, 0), line, "a row is read as it was written");
    require(again->index() == entry.index(), "and of its kind");
    const std::string told = trafficLine(entry, midnight);
    for (const Traffic_Column column : trafficColumns)
        require(told.find(trafficText(entry, column, midnight)) != std::string::npos,
                "a line has the texts of all columns");
    static_cast<void>(trafficFailed(entry));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const std::string_view text = std::string_view(reinterpret_cast<const char*>(data), size).substr(1);
    const Read_File whole = readInPieces(text, std::max<std::size_t>(text.size(), 1));
    const Read_File cut = readInPieces(text, 1 + data[0]);
    require(whole.entries.size() + whole.unread == linesOf(text), "every line is a row or is counted");
    require(cut.unread == whole.unread, "pieces play no part in what is counted");
    fuzz::requireSame(writtenAgain(cut.entries), writtenAgain(whole.entries), "and none in the rows");
    for (const Traffic_Entry& entry : whole.entries)
        checkRow(entry, data[0] % 2 == 0 ? 0 : 1'700'000'000'000'000);
    return 0;
}
