#include "reports/biff_records.h"
#include "reports/export_xls.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using testing::HasSubstr;

/// A record as it stands in the stream.
std::string recordText(Biff type, const std::string& text) {
    Biff_Stream stream;
    stream.record(type, Biff_Bytes().longText(text));
    return stream.take();
}

TEST(Export_Xls, PageHeaderAndFooterHaveTheirTexts) {
    Report_Content content;
    content.title = "A & B";
    content.route = "/SITE/SITE7.ABC";
    content.date = "11/21/2026  9:05";
    const std::string book = biffWorkbook(content);
    EXPECT_THAT(book, HasSubstr(recordText(Biff::Header, "&LA && B&RPage: &P / &N")));
    EXPECT_THAT(book, HasSubstr(recordText(Biff::Footer, "&L/SITE/SITE7.ABC&R11/21/2026  9:05")));
}

TEST(Export_Xls, TextsTooLongForAPageHeaderAreCut) {
    Report_Content content;
    content.title = std::string(4100, 'x');
    content.route = std::string(100, '&');
    content.date = std::string(100, 'd');
    const std::string book = biffWorkbook(content);
    EXPECT_THAT(book, HasSubstr(recordText(Biff::Header, "&L" + std::string(60, 'x') + "&RPage: &P / &N")));
    EXPECT_THAT(book, HasSubstr(recordText(Biff::Footer,
                                           "&L" + std::string(120, '&') + "&R" + std::string(60, 'd'))));
}

} // namespace
} // namespace zorvane
