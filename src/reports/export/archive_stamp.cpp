// SPDX-License-Identifier: MIT
#include "reports/export/archive_stamp.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>

namespace zorvane {

namespace {

constexpr std::size_t digitsOfOffset = 10;

std::string xmlText(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '&')
            escaped += "&amp;";
        else if (character == '<')
            escaped += "&lt;";
        else if (character == '>')
            escaped += "&gt;";
        else if (character == '"')
            escaped += "&quot;";
        else
            escaped += character;
    }
    return escaped;
}

/// "2026-11-22T07:40:05Z" as "D:20261122074005Z".
std::string pdfDate(const std::string& utc) {
    std::string date = "D:";
    std::copy_if(utc.begin(), utc.end(), std::back_inserter(date),
                 [](unsigned char character) { return std::isdigit(character) != 0; });
    return date + "Z";
}

/// The place between two marks, the first time that they come in that order.
struct Between {
    std::size_t begin = 0;
    std::size_t end = 0;
};
std::optional<Between> between(const std::string& pdf, std::string_view before, std::string_view after) {
    const std::size_t mark = pdf.find(before);
    if (mark == std::string::npos) return std::nullopt;
    const std::size_t begin = mark + before.size();
    const std::size_t end = pdf.find(after, begin);
    if (end == std::string::npos) return std::nullopt;
    return Between{begin, end};
}

/// The number that stands at a place, moved on when it is an offset beyond `from`.
void moveOffset(std::string& pdf, std::size_t place, std::size_t from, std::ptrdiff_t by) {
    std::size_t offset = 0;
    const char* const begin = pdf.data() + place;
    const char* const end = std::from_chars(begin, pdf.data() + pdf.size(), offset).ptr;
    if (end == begin || offset <= from) return;
    const auto length = static_cast<std::size_t>(end - begin);
    std::string moved = std::to_string(static_cast<std::ptrdiff_t>(offset) + by);
    if (moved.size() < length) moved.insert(0, length - moved.size(), '0');
    pdf.replace(place, length, moved);
}

/// Puts a text in a place and lets the cross-reference table and its own offset follow.
void replaceAt(std::string& pdf, const Between& place, const std::string& text) {
    const auto by =
        static_cast<std::ptrdiff_t>(text.size()) - static_cast<std::ptrdiff_t>(place.end - place.begin);
    pdf.replace(place.begin, place.end - place.begin, text);
    if (by == 0) return;
    const std::size_t table = pdf.rfind("\nxref\n");
    const std::size_t trailer = pdf.rfind("\ntrailer\n");
    const std::size_t start = pdf.rfind("\nstartxref\n");
    for (std::size_t line = pdf.find(" n", table); line < trailer; line = pdf.find(" n", line + 1))
        moveOffset(pdf, line - digitsOfOffset - 6, place.begin, by);
    moveOffset(pdf, start + std::string_view("\nstartxref\n").size(), place.begin, by);
}

bool hasOneTable(const std::string& pdf) {
    const std::size_t table = pdf.find("\nxref\n");
    return table != std::string::npos && table == pdf.rfind("\nxref\n") &&
           pdf.find("\ntrailer\n", table) != std::string::npos &&
           pdf.find("\nstartxref\n", table) != std::string::npos;
}

} // namespace

std::string archiveMetadata(const Archive_Stamp& stamp, std::string_view producer) {
    const std::string creator = xmlText(stamp.creator);
    return "<?xpacket begin='' id='W5M0MpCehiHzreSzNTczkc9d'?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
           "  <rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
           "    <rdf:Description xmlns:dc=\"http://purl.org/dc/elements/1.1/\" rdf:about=\"\">\n"
           "      <dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">" +
           xmlText(stamp.title) +
           "</rdf:li></rdf:Alt></dc:title>\n"
           "    </rdf:Description>\n"
           "    <rdf:Description xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" rdf:about=\"\" "
           "xmp:CreatorTool=\"" +
           creator + "\" xmp:CreateDate=\"" + stamp.utc +
           "\"/>\n"
           "    <rdf:Description xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\" rdf:about=\"\" pdf:Producer=\"" +
           xmlText(producer) +
           "\"/>\n"
           "    <rdf:Description xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\" rdf:about=\"\" "
           "pdfaid:part=\"1\" pdfaid:conformance=\"B\"/>\n"
           "  </rdf:RDF>\n"
           "</x:xmpmeta>\n"
           "<?xpacket end='w'?>\n";
}

std::string stampedPdf(std::string pdf, const Archive_Stamp& stamp) {
    if (!hasOneTable(pdf)) return pdf;
    if (const auto date = between(pdf, "/CreationDate (", ")")) replaceAt(pdf, *date, pdfDate(stamp.utc));
    const std::size_t trailer = pdf.rfind("\ntrailer\n");
    const std::size_t ids = pdf.find("/ID [", trailer);
    if (ids == std::string::npos) return pdf;
    const std::size_t end = pdf.find(']', ids);
    pdf.replace(ids, end - ids, "/ID [ <" + stamp.id + "> <" + stamp.id + "> ");
    return pdf;
}

} // namespace zorvane
