// SPDX-License-Identifier: MIT
#include "recovery/recovery.h"

#include "template/line_scanner.h"
#include "template/pro_escribe_archivo.h"
#include "template/sections/messages.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

namespace zorvane {

namespace {

class String_Writer : public Text_Writer {
  public:
    void writeLine(std::string_view text) override {
        text_ += text;
        text_ += "\r\n";
    }
    void close() override {}
    [[nodiscard]] std::string take() { return std::move(text_); }

  private:
    std::string text_;
};

constexpr std::string_view timeMark = ";time=";
constexpr std::string_view nameMark = ";name=";
constexpr std::string_view modelMark = ";model=";
constexpr std::string_view whyMark = ";kept=";

constexpr std::array headerMarks = {timeMark, nameMark, modelMark, whyMark};
const std::string beforeSave = "before Save";

/// Longer names would push the rest of the header out of a file's beginning.
constexpr std::size_t longestName = 255;

/// The names of files and models may hold any character.
std::string oneLine(std::string text) {
    if (text.size() > longestName) text.resize(longestName);
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, '?');
    return text;
}

std::string header(const Recovery_Entry& entry) {
    String_Writer writer;
    writer.writeLine(std::string(timeMark) + entry.time);
    writer.writeLine(std::string(nameMark) + oneLine(entry.name));
    writer.writeLine(std::string(modelMark) + oneLine(entry.model));
    writer.writeLine(std::string(whyMark) + entry.why);
    return writer.take();
}

std::optional<Recovery_Entry> entryOf(const std::string& file, std::string_view text) {
    Recovery_Entry entry{file, {}, {}, {}, {}, false};
    while (const auto line = takeLine(text)) {
        if (!line->starts_with(';')) break;
        if (line->starts_with(timeMark)) entry.time = line->substr(timeMark.size());
        if (line->starts_with(nameMark)) entry.name = line->substr(nameMark.size());
        if (line->starts_with(modelMark)) entry.model = line->substr(modelMark.size());
        if (!line->starts_with(whyMark)) continue;
        entry.why = line->substr(whyMark.size());
        break; // what follows may begin with such lines of its own
    }
    return entry.time.empty() ? std::nullopt : std::optional(entry);
}

std::string onlyDigits(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return digits;
}

/// A copy made before a save is still there only where the save didn't come to its end.
std::string whyListed(const std::string& why) {
    return why.starts_with(beforeSave) ? "during" + why.substr(std::string_view("before").size()) : why;
}

constexpr char separator = '\x1F';

/// What the writer makes of a cell's value. A code that is no number stands for itself: its line can't be
/// written, but a change of it is one all the same.
std::string comparedValue(const Cell_Rec& cell, const std::string& own) {
    std::string text = own;
    if (cell.Has_Messages) ignoringFailure([&] { text = messageText(cell, longValue(own)); });
    return text;
}

/// The values of a row that aren't empty, each with its place; of row 0 the widths.
std::string rowText(const Declara_Zorvane& document, std::int32_t f, std::int32_t r) {
    const Cell_Table& cells = document.Fields(f).Cells;
    std::string text;
    for (std::int32_t c = 1; c <= cells.lastWrittenColumn(r); ++c) {
        const Cell_Rec& cell = cells(r, c);
        const std::string value = r == 0 ? numberText(std::int32_t{cell.Width})
                                         : comparedValue(cell, document.Passing.own(cell, {f, r, c}));
        if (value.empty()) continue;
        text += numberText(f) + separator + numberText(r) + separator + numberText(c) + separator;
        text += value + separator;
    }
    return text;
}

std::vector<Recovery_Entry> entriesOf(Recovery_Folder& folder) {
    std::vector<Recovery_Entry> entries;
    for (const std::string& file : folder.list())
        if (auto entry = entryOf(file, folder.beginning(file))) entries.push_back(std::move(*entry));
    return entries;
}

void sortNewestFirst(std::vector<Recovery_Entry>& entries) {
    std::sort(entries.begin(), entries.end(), [](const Recovery_Entry& a, const Recovery_Entry& b) {
        return std::tie(a.time, a.file) > std::tie(b.time, b.file);
    });
}

} // namespace

std::string copyName(const Declara_Zorvane& document, const std::string& type) {
    if (document.File_Stem.empty()) return "UNTITLED." + type;
    return document.File_Stem + "." + document.File_Extension;
}

std::string recoveryText(const Declara_Zorvane& document) {
    String_Writer writer;
    writeWhatHolds(document, writer);
    return writer.take();
}

std::string ownText(const Declara_Zorvane& document) {
    std::string text;
    for (std::int32_t f = 1; f <= document.Field_Count; ++f)
        ignoringFailure([&] {
            const Cell_Table& cells = document.Fields(f).Cells;
            for (std::int32_t r = 0; cells.dimensioned() && r <= cells.rows(); ++r)
                text += rowText(document, f, r);
        });
    return text;
}

std::string_view withoutHeader(std::string_view copy) {
    std::string_view rest = copy;
    while (rest.starts_with(';'))
        (void)takeLine(rest);
    return rest;
}

std::string_view keptBytes(std::string_view copy) {
    for (const std::string_view mark : headerMarks) {
        const std::size_t end = copy.find("\r\n");
        if (!copy.starts_with(mark) || end == std::string_view::npos) return copy;
        copy.remove_prefix(end + 2);
    }
    return copy;
}

void Recovery::settle(Declara_Zorvane& document) {
    document.Passing.settle();
    base_ = ownText(document);
    watched_ = true;
}

void Recovery::watchAll() {
    base_.reset();
    watched_ = true;
}

bool Recovery::changed(const Declara_Zorvane& document) const {
    return watched_ && document.Field_Count > 0 && (!base_ || ownText(document) != *base_);
}

bool Recovery::due(const Declara_Zorvane& document) const {
    if (!watched_ || document.Field_Count == 0) return false;
    const std::string text = ownText(document);
    const bool asTheFile = base_ && text == *base_;
    return !asTheFile && (current_.empty() || text != kept_);
}

bool Recovery::keep(const Declara_Zorvane& document, const std::string& type, std::string_view why) {
    if (document.Field_Count == 0) return true;
    std::string own = ownText(document);
    const bool same = !current_.empty() && own == kept_;
    if (same && why == why_) return true;
    const std::string time = now_();
    const bool first = current_.empty();
    const std::string file = first ? newFile(folder_, type, time) : current_;
    const Recovery_Entry entry{
        file, time, copyName(document, type), document.Controller_Model, std::string(why), false};
    if (!folder_.write(file, header(entry) + recoveryText(document))) return same;
    current_ = file;
    kept_ = std::move(own);
    why_ = why;
    if (first) trim(folder_);
    return true;
}

bool Recovery::keepFile(const File_Before_Save& file) {
    if (files_ == nullptr) return false;
    const std::string time = now_();
    const std::string name = newFile(*files_, file.type, time);
    const Recovery_Entry entry{name, time, file.name, file.model, beforeSave, true};
    if (!files_->write(name, header(entry) + file.bytes)) return false;
    trim(*files_);
    return true;
}

void Recovery::drop() {
    if (!current_.empty()) folder_.remove(current_);
    forgetCopy();
}

void Recovery::leave() {
    forgetCopy();
    base_.reset();
    watched_ = false;
}

void Recovery::forgetCopy() {
    current_.clear();
    kept_.clear();
    why_.clear();
    offered_ = false;
}

void Recovery::adopt(const std::string& file, const Declara_Zorvane& document) {
    current_ = file;
    kept_ = ownText(document);
    why_.clear();
}

std::string Recovery::newFile(Recovery_Folder& folder, const std::string& type,
                              const std::string& time) const {
    const std::vector<std::string> names = folder.list();
    const std::string stem = onlyDigits(time).append("-").append(session_).append("-");
    for (int k = 1;; ++k) {
        std::string name = stem + std::to_string(k);
        name.append(".").append(type);
        if (std::find(names.begin(), names.end(), name) == names.end()) return name;
    }
}

std::vector<Recovery_Entry> Recovery::list() {
    std::vector<Recovery_Entry> entries = entriesOf(folder_);
    std::erase_if(entries, [&](const Recovery_Entry& entry) { return entry.file == current_ && !offered_; });
    for (Recovery_Entry& entry : entries)
        entry.why = whyListed(entry.why);
    if (files_ != nullptr)
        for (Recovery_Entry& entry : entriesOf(*files_)) {
            entry.beforeSave = true;
            entries.push_back(std::move(entry));
        }
    sortNewestFirst(entries);
    return entries;
}

std::string Recovery::place() const {
    std::string place = folder_.path("");
    while (place.size() > 1 && place.ends_with('/'))
        place.pop_back();
    return place;
}

void Recovery::remove(const Recovery_Entry& entry) {
    folderOf(entry).remove(entry.file);
    if (entry.beforeSave || entry.file != current_) return;
    forgetCopy(); // what the document holds is still worth a copy, a new one
}

void Recovery::trim(Recovery_Folder& folder) {
    std::vector<Recovery_Entry> entries = entriesOf(folder);
    sortNewestFirst(entries);
    for (std::size_t k = recoveryLimit; k < entries.size(); ++k)
        if (entries[k].file != current_ && entries[k].file != spared_) folder.remove(entries[k].file);
}

} // namespace zorvane
