// SPDX-License-Identifier: MIT
// Any bytes as a file among the recovery copies, and as the document to keep: the list holds whole entries,
// and a kept copy gives the document back.

#include "app/testing/memory_recovery_folder.h"
#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"
#include "fuzz/rich_template.h"
#include "recovery/recovery.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

const std::string strangeFile = "20261121032005-1-1.ABC";

/// A model's name as a copy's header gives it.
std::string listedModel(std::string model) {
    model.resize(std::min<std::size_t>(model.size(), 255));
    std::replace(model.begin(), model.end(), '\r', '?');
    return model;
}

void checkList(const std::vector<Recovery_Entry>& entries, std::size_t most) {
    require(entries.size() <= most, "each copy is listed once");
    for (const Recovery_Entry& entry : entries) {
        require(!entry.time.empty() && !entry.file.empty(), "an entry has a time and a file");
        for (const std::string& text : {entry.time, entry.name, entry.model, entry.why})
            require(text.find('\n') == std::string::npos, "an entry's texts are of one line");
    }
}

void checkKept(fuzz::Fuzz_Document& document, const std::string& copy) {
    const std::string text(withoutHeader(copy));
    require(text == recoveryText(document.document()), "a copy holds the document");
    if (const auto file = document.written()) require(text == *file, "a copy is what the writer writes");
    fuzz::Fuzz_Document again;
    again.readTemplate(fuzz::richTemplate);
    require(again.readConfiguration(copy).has_value() == again.readConfiguration(text).has_value(),
            "a copy is read as the document's file is");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    doubles::Journal journal;
    doubles::Memory_Recovery_Folder folder(journal);
    folder.texts[strangeFile] = input;
    Recovery recovery(folder, [] { return std::string("2026-11-21 03:20:05"); });
    checkList(recovery.list(), 1);
    require(input.ends_with(withoutHeader(input)), "what follows the header stays as it is");

    fuzz::Fuzz_Document document;
    document.readTemplate(fuzz::richTemplate);
    static_cast<void>(document.readConfiguration(input));
    if (!document.mayBeWritten()) return 0;
    require(recovery.keep(document.document(), "ABC", "changed"), "the copy is written");
    require(folder.texts.size() == 2 && folder.texts[strangeFile] == input, "another's copy stays as it is");
    checkList(recovery.list(), 1); // not that of the document at hand
    for (const auto& [name, text] : folder.texts)
        if (name != strangeFile) checkKept(document, text);
    recovery.leave();
    checkList(recovery.list(), 2);
    const std::vector<Recovery_Entry> entries = recovery.list();
    const auto isOwn = [&document](const Recovery_Entry& entry) {
        return entry.file != strangeFile && entry.name == "UNTITLED.ABC" &&
               entry.model == listedModel(document.document().Controller_Model) && entry.why == "changed";
    };
    require(std::count_if(entries.begin(), entries.end(), isOwn) == 1, "the kept copy is listed");
    return 0;
}
