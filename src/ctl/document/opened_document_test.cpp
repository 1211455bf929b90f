// SPDX-License-Identifier: MIT
// What the reading of a document tells the link.

#include "ctl/document/opened_document.h"
#include "ctl/testing/small_model.h"
#include "template/services/native_files.h"

#include <gtest/gtest.h>

namespace zorvane::ctl {
namespace {

class Noted_Link : public Link_Notice {
  public:
    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override {
        told += "timings " + std::to_string(requestMs) + " " + std::to_string(outMs) + "; ";
    }
    void SetHoldingRegisters(std::int16_t, double count, bool, std::int16_t) override {
        told += "registers " + std::to_string(static_cast<int>(count)) + "; ";
    }
    void SetAddressBase(std::int32_t base) override { told += "base " + std::to_string(base) + "; "; }

    std::string told;
};

TEST(OpenedDocument, TellsTheLinkWhatTheTemplateSaysOfIt) {
    doubles::Ctl_Bench bench;
    const std::string ztp = bench.file(
        "ABC.ZTP", doubles::smallTemplate() + doubles::lines({"[PORT_CONFIGURATION]", "ADDRESSBASE=40001"}));
    Native_Files files;
    Noted_Link link;
    const Opened_Document opened = openDocument({files, "/opt/zorvane", ztp, {}, &link});
    EXPECT_TRUE(opened.whole());
    EXPECT_EQ(link.told, "timings 20 0; timings 20 600; registers 400; base 40001; ");
    EXPECT_EQ(opened.Holding_Registers, 400);
    EXPECT_EQ(opened.document.File_Stem, "");
}

} // namespace
} // namespace zorvane::ctl
