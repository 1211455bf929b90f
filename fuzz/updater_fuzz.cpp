// SPDX-License-Identifier: MIT
// Any bytes as a configuration file of the older generation: the old file stays as it is, each line of the
// new one comes from the old one, and after a second update the third gives the first again.

#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"
#include "fuzz/split.h"
#include "template/pro_actualiza_archivo.h"
#include "template/testing/memory_files.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>

namespace {

using namespace zorvane;
using fuzz::require;

using Lines = std::vector<std::string>;

/// A file's lines, ended by LF or CR LF.
Lines linesOf(const std::string& text) {
    Lines lines = fuzz::split(text, '\n');
    for (std::string& line : lines)
        if (&line != &lines.back() && line.ends_with('\r')) line.pop_back();
    if (lines.back().empty()) lines.pop_back();
    return lines;
}

std::string updated(const std::string& old, const std::string& extension) {
    doubles::Memory_Files files;
    files.put("/site/SITE7." + extension, old);
    PRO_Actualiza_Archivo(files, "/site/SITE7", extension);
    require(files.text("/site/SITE7." + extension) == old, "the old file stays as it is");
    return files.text("/site/SITE7_Updated." + extension).value();
}

/// The update's lines without the widths at its end, which are always the same.
Lines ownLines(const std::string& updatedText, const std::string& widths) {
    require(updatedText.ends_with(widths), "the widths stand at the end");
    Lines lines = linesOf(updatedText.substr(0, updatedText.size() - widths.size()));
    // An update of an update keeps the lines of one CR that part the widths.
    std::erase(lines, "\r");
    return lines;
}

/// Every line was in the old file, or is one that takes another's place.
void checkOrigin(const Lines& before, const Lines& after) {
    static const std::set<std::string> written = {
        "[FIELD_1_DEFAULT]",
        "[FIELD_2_DEFAULT]",
        "[FIELD_1_COLUMNS]",
        "[FIELD_2_COLUMNS]",
        "FIELD_1=,Output Setup,Yes,Descriptions are stored offline only",
        "FIELD_2=,Channel Setup,Yes,Descriptions are stored offline only"};
    auto from = before.begin();
    for (const std::string& line : after) {
        if (!written.contains(line)) from = std::find(from, before.end(), line);
        require(from != before.end(), "each line comes from one of the old file, in order");
        if (!written.contains(line)) ++from;
    }
    require(after.size() <= before.size(), "no line is added");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string old(data, data + size);
    const std::string extension = size % 2 == 0 ? "KVRT207D" : "KVRT207";
    const std::string widths = updated("", extension);
    const std::string once = updated(old, extension);
    const Lines own = ownLines(once, widths);
    checkOrigin(linesOf(old), own);
    const std::string thrice = updated(updated(once, extension), extension);
    require(ownLines(thrice, widths) == own, "two fields change places back and forth");

    fuzz::Fuzz_Document document;
    document.readTemplate("[CONFIGURATION_FIELDS]\nFIELD_1_RC=2,3\nFIELD_2_RC=2,8\n");
    static_cast<void>(document.readConfiguration(once));
    document.writeAndReadBack();
    return 0;
}
