// SPDX-License-Identifier: MIT
#include "reports/documents/main_rep_kvrt.h"
#include "reports/export/xls/biff_records.h"
#include "reports/export/xls/export_xls.h"
#include "reports/testing/report_bench.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::Report_Bench;
using testing::HasSubstr;

/// A record as it stands in the stream.
std::string recordText(Biff type, const std::string& text) {
    Biff_Stream stream;
    stream.record(type, Biff_Bytes().longText(text));
    return stream.take();
}

struct Export_Xls : testing::Test, Report_Bench {
    [[nodiscard]] std::string exported(const Page_Settings& page) {
        MainRepKVRT report(sources(), clock, host);
        report.PageSettings = page;
        return biffWorkbook(contentOf(report));
    }
    /// The beginning of a set-up record: its type and length, the number of the paper, three numbers that are
    /// always the same, and the bit for upright paper.
    static std::string setUp(std::uint32_t paper, std::uint32_t portrait) {
        Biff_Bytes bytes;
        bytes.u16(static_cast<std::uint32_t>(Biff::Setup)).u16(34).u16(paper).u16(100).u16(1).u16(1).u16(1);
        return bytes.u16(portrait).bytes();
    }
};

TEST_F(Export_Xls, HasThePagesHeaderAndFooter) {
    const std::string workbook = exported({});
    EXPECT_THAT(workbook, HasSubstr(toUtf16("&LZorvane&RPage:  &P / &N")));
    EXPECT_THAT(workbook, HasSubstr(toUtf16("&L/SITE/SITE7.ABC&R11/21/2026  9:05")));
}

TEST_F(Export_Xls, NoSheetBeginsWithItsPageHeader) {
    // LibreOffice passes over the first record of a sheet when it is the page header.
    constexpr std::uint32_t worksheet = 0x0010;
    const std::string workbook = exported({});
    const std::size_t kind = workbook.rfind(Biff_Bytes().u16(0x0600).u16(worksheet).bytes());
    ASSERT_NE(kind, std::string::npos);
    EXPECT_EQ(workbook.substr(kind + 16, 2), Biff_Bytes().u16(0x000D).bytes());
}

TEST_F(Export_Xls, PrintsOnThePaperOfThePageSetUp) {
    Page_Settings page;
    EXPECT_THAT(exported(page), HasSubstr(setUp(1, 2)));
    page.PaperWidth = 16838;
    page.PaperHeight = 11906;
    EXPECT_THAT(exported(page), HasSubstr(setUp(9, 0))) << "A4, lying across";
    page.PaperWidth = 5000;
    EXPECT_THAT(exported(page), HasSubstr(setUp(1, 2))) << "no paper that a workbook knows";
}

TEST(Export_Xls_Content, TextsTooLongForAPageHeaderAreCut) {
    Report_Content content;
    content.title = std::string(4100, 'x');
    content.route = std::string(100, '&');
    content.date = std::string(100, 'd');
    const std::string book = biffWorkbook(content);
    EXPECT_THAT(book, HasSubstr(recordText(Biff::Header, "&L" + std::string(60, 'x') + "&RPage:  &P / &N")));
    EXPECT_THAT(book, HasSubstr(recordText(Biff::Footer,
                                           "&L" + std::string(120, '&') + "&R" + std::string(60, 'd'))));
}

} // namespace
} // namespace zorvane
