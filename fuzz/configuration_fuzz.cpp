// SPDX-License-Identifier: MIT
// Any bytes as a configuration file over a template. An input with a line "====" brings its own template,
// which ends there; the others are read over a template that has some of everything. What stands after a
// rejected line has no effect, and what was read can be written.

#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"
#include "fuzz/rich_template.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;

constexpr std::string_view border = "\n====\n";

/// The document of the lines up to the one that was rejected.
void checkWhatWasRead(fuzz::Fuzz_Document& document, std::string_view model, std::string_view file) {
    const std::int32_t stop = document.document().Last_Line;
    fuzz::Fuzz_Document shorter;
    shorter.readTemplate(model);
    fuzz::require(shorter.readConfiguration(fuzz::firstLines(file, stop)) == false,
                  "the same line is rejected");
    fuzz::require(shorter.written() == document.written(), "lines after the rejected one have no effect");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find(border);
    const bool whole = end == std::string_view::npos;
    const std::string_view model = whole ? fuzz::richTemplate : input.substr(0, end);
    const std::string_view file = whole ? input : input.substr(end + border.size());

    fuzz::Fuzz_Document document;
    document.readTemplate(model);
    if (document.readConfiguration(file) == false) checkWhatWasRead(document, model, file);
    document.writeAndReadBack();
    return 0;
}
