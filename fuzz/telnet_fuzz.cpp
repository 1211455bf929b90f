// SPDX-License-Identifier: MIT
// Any bytes as what a server of RFC 2217 says: they mean the same however they are cut, what is kept of them
// stays small, and data that are escaped come out as they went in. The first byte chooses the cuts.
#include "comm/modbus_control/line/com_port_option.h"
#include "comm/modbus_control/line/telnet.h"
#include "fuzz/require.h"

#include <algorithm>

namespace {

using namespace zorvane;
using fuzz::require;

Telnet_Reader::Content readInPieces(Byte_View bytes, std::size_t size) {
    Telnet_Reader reader;
    Telnet_Reader::Content all;
    for (std::size_t at = 0; at < bytes.size(); at += size) {
        const auto part = reader.take(bytes.subspan(at, std::min(size, bytes.size() - at)));
        all.data.insert(all.data.end(), part.data.begin(), part.data.end());
        all.offers.insert(all.offers.end(), part.offers.begin(), part.offers.end());
        all.messages.insert(all.messages.end(), part.messages.begin(), part.messages.end());
    }
    return all;
}

void checkMessages(const Telnet_Reader::Content& content) {
    for (const Telnet_Message& message : content.messages) {
        require(message.content.size() <= Telnet_Reader::longestMessage, "a message stays small");
        if (const auto setting = settingTold(message))
            require(!settingText(*setting).empty(), "a setting has words");
        Telnet_Reader reader;
        const auto again = reader.take(telnetMessage(message));
        require(again.data.empty() && again.messages.size() == 1 && again.messages[0] == message,
                "a message comes out as it went in");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const Byte_View bytes = Byte_View(data, size).subspan(1);
    const auto whole = readInPieces(bytes, std::max<std::size_t>(bytes.size(), 1));
    const auto cut = readInPieces(bytes, 1U + data[0] % 8U);
    require(whole.data == cut.data && whole.offers == cut.offers && whole.messages == cut.messages,
            "cuts change nothing");
    require(whole.data.size() <= bytes.size(), "nothing is made up");
    checkMessages(whole);
    Telnet_Reader reader;
    const auto plain = reader.take(telnetData(bytes));
    require(std::equal(plain.data.begin(), plain.data.end(), bytes.begin(), bytes.end()),
            "data come out as they went in");
    require(plain.offers.empty() && plain.messages.empty(), "data say nothing");
    return 0;
}
