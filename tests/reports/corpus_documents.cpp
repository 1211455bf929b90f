// SPDX-License-Identifier: MIT
// Writes the reports that the inputs of a fuzz target stand for.
//
//   corpus_documents FORMAT FOLDER INPUT...    FORMAT is html, rtf or xls; INPUT "name" becomes
//   "FOLDER/name.FORMAT"

#include "fuzz/fuzz_report.h"
#include "reports/export/byte_file.h"
#include "reports/export/export_html.h"
#include "reports/export/export_rtf.h"
#include "reports/export/xls/export_xls.h"
#include "reports/export/xls/ole_container.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>

namespace {

using namespace zorvane;

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string written(const Report_Content& content, const std::string& format) {
    if (format == "html") return exportHtml(content);
    if (format == "rtf") return exportRtf(content);
    return oleFile("Workbook", biffWorkbook(content));
}

} // namespace

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() < 4) {
        std::cerr << "usage: corpus_documents FORMAT FOLDER INPUT...\n";
        return 2;
    }
    const std::string format = arguments[1];
    const std::filesystem::path folder = arguments[2];
    for (const char* argument : arguments.subspan(3)) {
        const std::filesystem::path input = argument;
        const std::string name = input.filename().string() + "." + format;
        writeByteFile((folder / name).string(), written(fuzz::reportFrom(bytesOf(input)), format));
    }
}
