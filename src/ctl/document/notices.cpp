// SPDX-License-Identifier: MIT
#include "ctl/document/notices.h"

#include "template/services/native_files.h"
#include "values/code_page.h"

#include <array>
#include <ostream>
#include <utility>

namespace zorvane::ctl {

namespace {

constexpr std::array<std::pair<int, const char*>, 9> advices = {{
    {5, "Look for a header that is only \"[\", or a list item whose \")\" stands before its \"(\"."},
    {6, "Look for a number that is too large for its place."},
    {9, "Look for a field, row, column or block number that the template doesn't declare. A template needs "
        "FIELD_#_RC before the cells of a field, and at least one HOLDINGREGISTERSBLOCK_# line."},
    {13, "Look for a text where a number must stand."},
    {53, "Check the path."},
    {61, "Make room on the disk and try again."},
    {70, "Check the permissions of the file and of its folder."},
    {75, "Check that the file is a readable file and that its disk works."},
    {76, "Check that the folder is there."},
}};

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

/// UTF-8 control characters, the ones of 0x80 to 0x9F included, as dots.
std::string harmless(std::string text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool second =
            i + 1 < text.size() && text[i] == '\xC2' && static_cast<unsigned char>(text[i + 1]) < 0xA0;
        out += isControl(text[i]) || second ? '.' : text[i];
        if (second) ++i;
    }
    return out;
}

std::string place(const Reading_Note& note) {
    const std::string file = printablePath(note.path);
    return note.line > 0 ? file + ", line " + std::to_string(note.line) : file;
}

constexpr const char* linesAfter = "The lines after it were not read.";

/// Why a file that isn't there, or has a line too many values, wasn't read; not of a failure.
std::string plainFault(const Reading_Note& note, const std::string& kind) {
    if (!note.loaded) return printablePath(note.path) + ": there is no such " + kind + ". Check the path.";
    return place(note) + ": more values than the template has columns. The file was written for another "
                         "template; this line's other values and the lines after it were not read. "
                         "Choose the template that fits, or try zorvanectl update.";
}

void tellReading(std::ostream& err, const Reading_Note& note, const std::string& kind) {
    if (note.loaded && note.failure) {
        tellFailure(err, place(note), *note.failure);
        if (note.line > 0) tell(err, linesAfter);
    } else if (!note.loaded || !note.ok) {
        tell(err, plainFault(note, kind));
    }
}

const std::string templateKind = "template";
const std::string configurationKind = "configuration file";

} // namespace

std::string printable(std::string_view text) { return harmless(toUtf8(text)); }

std::string printablePath(std::string_view text) { return harmless(pathToNative(text)); }

void tell(std::ostream& err, const std::string& text) { err << "zorvanectl: " << text << '\n'; }

std::string advice(int failure) {
    for (const auto& [number, text] : advices)
        if (number == failure) return text;
    return "";
}

std::string failureNotice(const std::string& what, const Failure_Note& failure) {
    return what + ": " + printable(failure.description) + " (failure " + std::to_string(failure.number) +
           "). " + advice(failure.number);
}

void tellFailure(std::ostream& err, const std::string& what, const Failure_Note& failure) {
    tell(err, failureNotice(what, failure));
}

bool hasField(const Opened_Document& opened, std::int32_t field) {
    return field <= opened.document.Field_Count;
}

void tellMissingField(std::ostream& err, const Opened_Document& opened, std::int32_t field) {
    const std::int32_t count = opened.document.Field_Count;
    if (hasField(opened, field)) return;
    if (count == 0) {
        if (opened.ztp.toTheEnd()) tell(err, "The template has no fields.");
        return;
    }
    tell(err, "The template has no field " + std::to_string(field) + ". Its fields are 1 to " +
                  std::to_string(count) + "; dump lists them.");
}

void tellReadings(std::ostream& err, const Opened_Document& opened) {
    tellReading(err, opened.ztp, templateKind);
    if (opened.configuration) tellReading(err, *opened.configuration, configurationKind);
}

std::string documentFault(const Opened_Document& opened) {
    if (opened.readToTheEnd()) return {};
    const bool ofTemplate = !opened.ztp.toTheEnd();
    const Reading_Note& note = ofTemplate ? opened.ztp : *opened.configuration;
    if (!note.loaded || !note.failure) return plainFault(note, ofTemplate ? templateKind : configurationKind);
    return failureNotice(place(note), *note.failure) + (note.line > 0 ? std::string(" ") + linesAfter : "");
}

} // namespace zorvane::ctl
