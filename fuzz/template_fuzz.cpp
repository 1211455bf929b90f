// Any bytes as a template: the reader ends, with or without a run-time failure, and what it made can be
// written.

#include "fuzz/fuzz_document.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zorvane::fuzz::Fuzz_Document document;
    document.readTemplate(std::string(data, data + size));
    document.writeAndReadBack();
    return 0;
}
