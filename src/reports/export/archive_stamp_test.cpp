// SPDX-License-Identifier: MIT
#include "reports/export/archive_stamp.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

const Archive_Stamp stamp{"A <b> & \"c\"", "Zorvane", "2026-11-22T07:40:05Z",
                          "0123456789abcdef0123456789abcdef"};

/// A file of two objects, as a writer makes it that knows the time of day.
std::string pdfOf(const std::string& date) {
    const std::string first = "%PDF-1.4\n1 0 obj\n<<\n/CreationDate (" + date + ")\n>>\nendobj\n";
    const std::string second = "2 0 obj\n<< >>\nendobj\n";
    const auto offset = [](std::size_t number) {
        const std::string digits = std::to_string(number);
        return std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
    };
    return first + second + "xref\n0 3\n0000000000 65535 f \n" + offset(9) + offset(first.size()) +
           "trailer\n<<\n/Size 3\n/ID [ <aa> <bb> ]\n>>\nstartxref\n" +
           std::to_string(first.size() + second.size()) + "\n%%EOF\n";
}

const std::string stamped = "/ID [ <0123456789abcdef0123456789abcdef> <0123456789abcdef0123456789abcdef> ]";

TEST(ArchiveStamp, TakesThePlaceOfTheMomentOfWriting) {
    std::string expected = pdfOf("D:20261122074005Z");
    expected.replace(expected.find("/ID ["), std::string("/ID [ <aa> <bb> ]").size(), stamped);
    EXPECT_EQ(stampedPdf(pdfOf("D:20301231235959Z"), stamp), expected);
}

TEST(ArchiveStamp, TheOffsetsFollowADateOfAnotherLength) {
    const std::string expected = stampedPdf(pdfOf("D:20261122074005Z"), stamp);
    EXPECT_EQ(stampedPdf(pdfOf("D:20301231235959+01'00'"), stamp), expected);
    EXPECT_EQ(stampedPdf(pdfOf("D:2030"), stamp).size(), expected.size());
}

TEST(ArchiveStamp, AFileWithoutATableStaysAsItIs) {
    EXPECT_EQ(stampedPdf("no PDF", stamp), "no PDF");
    EXPECT_EQ(stampedPdf("", stamp), "");
}

TEST(ArchiveStamp, TheMetadataTellWhatTheFileIs) {
    const std::string xmp = archiveMetadata(stamp, "Qt 6");
    EXPECT_NE(xmp.find("pdfaid:part=\"1\" pdfaid:conformance=\"B\""), std::string::npos);
    EXPECT_NE(xmp.find("A &lt;b&gt; &amp; &quot;c&quot;"), std::string::npos);
    EXPECT_NE(xmp.find("xmp:CreateDate=\"2026-11-22T07:40:05Z\""), std::string::npos);
    EXPECT_NE(xmp.find("pdf:Producer=\"Qt 6\""), std::string::npos);
}

} // namespace
} // namespace zorvane
