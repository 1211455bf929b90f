// SPDX-License-Identifier: MIT
#include "reports/qt/qt_archive_pdf.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>

namespace zorvane {
namespace {

using testing::HasSubstr;
using testing::Not;

const Archive_Stamp stamp{"Record", "Zorvane", "2026-11-22T07:40:05Z", "0123456789abcdef0123456789abcdef"};

/// Pages with texts in two fonts, a box and a rule.
Page_Document somePages() {
    Page_Document pages{11906, 16838, {}, {Page{}, Page{}}, {}};
    Text_Style bold;
    bold.Font.Bold = true;
    for (Page& page : pages.pages) {
        page.items.emplace_back(Box_Item{1440, 1400, 3000, 288, 0xE0E0E0});
        page.items.emplace_back(
            Text_Item{1440, 1440, 3000, 288, pages.styles.indexOf(Text_Style{}), "Set point \xE4"});
        page.items.emplace_back(Text_Item{1440, 1800, 3000, 288, pages.styles.indexOf(bold), "Result"});
        page.items.emplace_back(Line_Item{1440, 2200, 9000, 2200, 0, Border_Solid});
    }
    return pages;
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
        ++count;
    return count;
}

TEST(ArchivePdf, IsOneForTheArchive) {
    const std::string pdf = archivePdf(somePages(), stamp);
    EXPECT_EQ(pdf.substr(0, 9), "%PDF-1.4\n");
    EXPECT_THAT(pdf, HasSubstr("/S/GTS_PDFA1"));
    EXPECT_THAT(pdf, HasSubstr("pdfaid:part=\"1\" pdfaid:conformance=\"B\""));
    EXPECT_THAT(pdf, Not(HasSubstr("/Encrypt")));
    EXPECT_THAT(pdf, Not(HasSubstr("/SMask /Luminosity")));
}

TEST(ArchivePdf, SaysTheSameInItsMetadataAndItsDictionary) {
    const std::string pdf = archivePdf(somePages(), stamp);
    EXPECT_THAT(pdf, HasSubstr("/CreationDate (D:20261122074005Z)"));
    EXPECT_THAT(pdf, HasSubstr("xmp:CreateDate=\"2026-11-22T07:40:05Z\""));
    EXPECT_THAT(pdf, HasSubstr("/ID [ <0123456789abcdef0123456789abcdef>"));
}

TEST(ArchivePdf, EmbedsEachFont) {
    const std::string pdf = archivePdf(somePages(), stamp);
    EXPECT_EQ(countOf(pdf, "/FontDescriptor\n"), 2U);
    EXPECT_EQ(countOf(pdf, "/FontFile2 "), 2U);
}

TEST(ArchivePdf, TheSamePagesGiveTheSameBytes) {
    EXPECT_EQ(archivePdf(somePages(), stamp), archivePdf(somePages(), stamp));
}

TEST(ArchivePdf, ItsTableLeadsToItsObjects) {
    const std::string pdf = archivePdf(somePages(), stamp);
    const std::size_t table = std::stoul(pdf.substr(pdf.rfind("startxref") + 9));
    ASSERT_EQ(pdf.substr(table, 4), "xref");
    std::size_t line = pdf.find('\n', pdf.find('\n', table) + 1) + 1 + 20; // after that of object 0
    for (std::size_t number = 1; pdf.substr(line, 7) != "trailer"; ++number, line += 20) {
        const std::string head = std::to_string(number) + " 0 obj";
        EXPECT_EQ(pdf.substr(std::stoul(pdf.substr(line, 10)), head.size()), head);
    }
}

} // namespace
} // namespace zorvane
