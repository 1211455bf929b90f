// SPDX-License-Identifier: MIT
#include "commission/record/record_json.h"
#include "commission/record/testing/sample_record.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zorvane::commission {
namespace {

using doubles::sampleRecord;

TEST(RecordJson, HoldsAllOfARecord) {
    const Record record = sampleRecord();
    const auto read = recordOfJson(recordJson(record));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, record);
}

TEST(RecordJson, TheDocumentComesBackByteForByte) {
    Record record = sampleRecord();
    record.document.clear();
    for (int byte = 0; byte < 256; ++byte)
        record.document += static_cast<char>(byte);
    EXPECT_EQ(recordOfJson(recordJson(record))->document, record.document);
}

TEST(RecordJson, TheCountsAddUpToTheRows) {
    const auto json = nlohmann::json::parse(recordJson(sampleRecord()));
    EXPECT_EQ(json["version"], 1);
    EXPECT_EQ(json["counts"].dump(), "{\"not_sent\":0,\"refused\":1,\"rows\":3,\"stored_otherwise\":1,"
                                     "\"unknown\":0,\"verified\":1}");
    EXPECT_EQ(json["rows"].size(), 3U);
}

TEST(RecordJson, TheSameRecordGivesTheSameBytes) {
    EXPECT_EQ(recordJson(sampleRecord()), recordJson(sampleRecord()));
    Record other = sampleRecord();
    other.rows[0].readBack = "121";
    EXPECT_NE(shortHash(recordJson(other)), shortHash(recordJson(sampleRecord())));
    EXPECT_EQ(shortHash(""), "e3b0c44298fc"); // SHA-256 of nothing, FIPS 180-4
}

TEST(RecordJson, AnythingElseIsNoRecord) {
    EXPECT_FALSE(recordOfJson(""));
    EXPECT_FALSE(recordOfJson("[]"));
    EXPECT_FALSE(recordOfJson("{\"run\":\"a\"}"));
    EXPECT_FALSE(recordOfJson("{\"version\":2,\"run\":\"a\"}"));
    EXPECT_TRUE(recordOfJson("{\"version\":1,\"run\":\"a\"}"));
    EXPECT_EQ(recordOfJson("{\"version\":1,\"run\":\"a\",\"left\":{\"1\":70000,\"x\":1,\"2\":3}}")->left,
              (std::map<std::int32_t, std::uint16_t>{{2, 3}}));
}

TEST(RecordJson, ANumberBeyondItsRangeIsNone) {
    const auto record =
        recordOfJson(R"({"version":1,"run":"a","controller":{"unit":4294967297},)"
                     R"("link":{"reads":1e300,"retries":1e300,"unanswered":2,"median_ms":1.5}})");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->controller.unit, 0);
    EXPECT_EQ(record->link.reads, 0);
    EXPECT_EQ(record->link.retries, std::nullopt);
    EXPECT_EQ(record->link.unanswered, 2);
    EXPECT_EQ(record->link.medianMs, 1.5);
}

} // namespace
} // namespace zorvane::commission
