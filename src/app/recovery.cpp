#include "app/recovery.h"

#include "template/line_scanner.h"
#include "template/pro_escribe_archivo.h"
#include "values/run_time_failure.h"

#include <algorithm>
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

/// A document that never had a file gets a name to be opened under.
std::string nameOf(const Declara_Zorvane& document, const std::string& type) {
    if (document.File_Stem.empty()) return "UNTITLED." + type;
    return document.File_Stem + "." + document.File_Extension;
}

std::string header(const Declara_Zorvane& document, const std::string& type, const std::string& time,
                   std::string_view why) {
    String_Writer writer;
    writer.writeLine(std::string(timeMark) + time);
    writer.writeLine(std::string(nameMark) + nameOf(document, type));
    writer.writeLine(std::string(modelMark) + document.Controller_Model);
    writer.writeLine(std::string(whyMark) + std::string(why));
    return writer.take();
}

std::optional<Recovery_Entry> entryOf(const std::string& file, std::string_view text) {
    Recovery_Entry entry{file, {}, {}, {}, {}};
    while (const auto line = takeLine(text)) {
        if (!line->starts_with(';')) break;
        if (line->starts_with(timeMark)) entry.time = line->substr(timeMark.size());
        if (line->starts_with(nameMark)) entry.name = line->substr(nameMark.size());
        if (line->starts_with(modelMark)) entry.model = line->substr(modelMark.size());
        if (line->starts_with(whyMark)) entry.why = line->substr(whyMark.size());
    }
    return entry.time.empty() ? std::nullopt : std::optional(entry);
}

std::string onlyDigits(std::string_view text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return digits;
}

} // namespace

std::string recoveryText(const Declara_Zorvane& document) {
    String_Writer writer;
    writeWhatHolds(document, writer);
    return writer.take();
}

std::string_view withoutHeader(std::string_view copy) {
    std::string_view rest = copy;
    while (rest.starts_with(';'))
        (void)takeLine(rest);
    return rest;
}

bool Recovery::keep(const Declara_Zorvane& document, const std::string& type, std::string_view why) {
    if (document.Field_Count == 0) return true;
    std::string text = recoveryText(document);
    const bool same = !current_.empty() && text == kept_;
    if (same && why == why_) return true;
    const std::string time = now_();
    const bool first = current_.empty();
    const std::string file = first ? newFile(type, time) : current_;
    if (!folder_.write(file, header(document, type, time, why) + text)) return same;
    current_ = file;
    kept_ = std::move(text);
    why_ = why;
    if (first) trim();
    return true;
}

void Recovery::drop() {
    if (!current_.empty()) folder_.remove(current_);
    leave();
}

void Recovery::leave() {
    current_.clear();
    kept_.clear();
    why_.clear();
}

void Recovery::adopt(const std::string& file, const Declara_Zorvane& document) {
    current_ = file;
    kept_ = recoveryText(document);
    why_.clear();
}

std::string Recovery::newFile(const std::string& type, const std::string& time) {
    const std::vector<std::string> names = folder_.list();
    const std::string stem = onlyDigits(time).append("-").append(session_).append("-");
    for (int k = 1;; ++k) {
        std::string name = stem + std::to_string(k);
        name.append(".").append(type);
        if (std::find(names.begin(), names.end(), name) == names.end()) return name;
    }
}

std::vector<Recovery_Entry> Recovery::all() {
    std::vector<Recovery_Entry> entries;
    for (const std::string& file : folder_.list())
        if (auto entry = entryOf(file, folder_.beginning(file))) entries.push_back(std::move(*entry));
    std::sort(entries.begin(), entries.end(), [](const Recovery_Entry& a, const Recovery_Entry& b) {
        return std::tie(a.time, a.file) > std::tie(b.time, b.file);
    });
    return entries;
}

std::vector<Recovery_Entry> Recovery::list() {
    std::vector<Recovery_Entry> entries = all();
    std::erase_if(entries, [&](const Recovery_Entry& entry) { return entry.file == current_; });
    return entries;
}

void Recovery::trim() {
    const std::vector<Recovery_Entry> entries = all();
    for (std::size_t k = recoveryLimit; k < entries.size(); ++k)
        if (entries[k].file != current_ && entries[k].file != spared_) folder_.remove(entries[k].file);
}

} // namespace zorvane
