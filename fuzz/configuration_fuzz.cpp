// Any bytes as a configuration file over a template. An input with a line "====" brings its own template,
// which ends there; the others are read over a template that has some of everything.

#include "fuzz/fuzz_document.h"
#include "fuzz/rich_template.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr std::string_view border = "\n====\n";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    const std::size_t end = input.find(border);
    const bool whole = end == std::string::npos;
    zorvane::fuzz::Fuzz_Document document;
    document.readTemplate(whole ? zorvane::fuzz::richTemplate : std::string_view(input).substr(0, end));
    (void)document.readConfiguration(whole ? std::string_view(input)
                                           : std::string_view(input).substr(end + border.size()));
    document.writeAndReadBack();
    return 0;
}
