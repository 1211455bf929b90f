// SPDX-License-Identifier: MIT
// Any bytes as a template: the reader ends, with or without a run-time failure, what stands after a line on
// which it fails has no effect, and what it made can be written.

#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;

/// The document of the lines up to the one that stopped the reader.
void checkWhatWasRead(fuzz::Fuzz_Document& document, const std::string& text, std::int32_t stop) {
    fuzz::Fuzz_Document shorter;
    const auto again = shorter.readTemplate(fuzz::firstLines(text, stop));
    fuzz::require(again == stop, "the same line stops the reader");
    fuzz::require(shorter.written() == document.written(), "lines after the failing one have no effect");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    fuzz::Fuzz_Document document;
    const auto stop = document.readTemplate(text);
    if (stop.value_or(0) > 0) checkWhatWasRead(document, text, *stop);
    document.writeAndReadBack();
    return 0;
}
