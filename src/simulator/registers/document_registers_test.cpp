// SPDX-License-Identifier: MIT
#include "simulator/registers/document_registers.h"
#include "values/run_time_failure.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace zorvane::simulator {
namespace {

/// Files that are only texts.
class Text_Files : public Files {
  public:
    explicit Text_Files(std::map<std::string, std::string> texts) : texts_(std::move(texts)) {}

    bool exists(const std::string& path) override { return texts_.contains(path); }
    std::string read(const std::string& path) override { return texts_.at(path); }
    std::unique_ptr<Text_Writer> create(const std::string&) override {
        throw Run_Time_Failure(Failure::PathFileAccess);
    }
    std::vector<std::string> list(const std::string&) override { return {}; }

  private:
    std::map<std::string, std::string> texts_;
};

const std::string layout = "[HARDWARE]\n"
                           "CONTROLLER=TEST-1\n"
                           "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=300-302\n"
                           "[CONFIGURATION_FIELDS]\n"
                           "FIELD_1_DESC=Channels\n"
                           "FIELD_1_RC=2,3\n"
                           "[FIELD_1_COLUMNS]\n"
                           "COL_1_BITSNEGATIVEFORMAT=8\n"
                           "[FIELD_1_CONFIGURATION]\n"
                           "ROWADDRESS_1=100,200,\n"
                           "ROWADDRESS_2=101,201/HI,202\n"
                           "ROWADDRESSFORMAT_1=,TIME,\n"
                           "[FIELD_1_MESSAGES]\n"
                           "ADDRESS_202=(0)Off,(1)On\n"
                           "[PORT_CONFIGURATION]\n"
                           "HOLDINGREGISTERSBLOCK_1=100-103\n"
                           "HOLDINGREGISTERSBLOCK_2=200-202\n"
                           "HOLDINGREQUESTBLOCK_2=ALWAYS\n";
const std::string values = "[FIELD_1_DEFAULT]\n"
                           "ROW_1=-5,1:30,\n"
                           "ROW_2=7,18,On\n";

using Values = std::map<std::int32_t, std::uint16_t>;

Register_Map read(std::map<std::string, std::string> texts, const std::string& configuration = "",
                  std::vector<std::string>* warnings = nullptr) {
    Text_Files files(std::move(texts));
    return readRegisters(files, "T.ZTP", configuration, [warnings](const std::string& text) {
        if (warnings != nullptr) warnings->push_back(text);
    });
}

TEST(DocumentRegisters, HoldTheTemplatesValuesInTheCellsFormats) {
    const Register_Map map = read({{"T.ZTP", layout + values}});
    EXPECT_EQ(map.values.at(100), 133);
    EXPECT_EQ(map.values.at(101), 7);
    EXPECT_EQ(map.values.at(200), 90);
    EXPECT_EQ(map.values.at(201), 0x1200);
    EXPECT_EQ(map.values.at(202), 1);
}

TEST(DocumentRegisters, OfTheBlocksWithoutACellAreZero) {
    const Register_Map map = read({{"T.ZTP", layout}});
    EXPECT_EQ(map.values, (Values{{100, 0},
                                  {101, 0},
                                  {102, 0},
                                  {103, 0},
                                  {200, 0},
                                  {201, 0},
                                  {202, 0},
                                  {300, 0},
                                  {301, 0},
                                  {302, 0}}));
}

TEST(DocumentRegisters, HoldAConfigurationsValuesBeforeTheTemplates) {
    const Register_Map map =
        read({{"T.ZTP", layout + values}, {"a.T", "[FIELD_1_DEFAULT]\nROW_1=9,0:45,\n"}}, "a.T");
    EXPECT_EQ(map.values.at(100), 9);
    EXPECT_EQ(map.values.at(200), 45);
    EXPECT_EQ(map.values.at(101), 7);
}

TEST(DocumentRegisters, OnlyCellsOfAlwaysBlocksAreLive) {
    const Register_Map map = read({{"T.ZTP", layout + values}});
    ASSERT_EQ(map.live.size(), 2U);
    EXPECT_EQ(map.live.at(200), (Live_Range{0x8000, {}}));
    EXPECT_EQ(map.live.at(202), (Live_Range{0x8000, {0, 1}}));
}

TEST(DocumentRegisters, SettingsOfAlwaysBlocksKeepStill) {
    const Register_Map map = read({{"T.ZTP", layout + values + "[FIELD_1_COLUMNS]\nCOL_3_MODIFIABLE=YES\n"}});
    ASSERT_EQ(map.live.size(), 1U);
    EXPECT_TRUE(map.live.contains(200));
}

TEST(DocumentRegisters, ACellWithoutAValueLeavesWhatAnotherCellSaid) {
    const Register_Map map = read({{"T.ZTP", "[CONFIGURATION_FIELDS]\nFIELD_1_RC=1,2\n"
                                             "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=5,5\n"
                                             "[FIELD_1_DEFAULT]\nROW_1=12\n"}});
    EXPECT_EQ(map.values, (Values{{5, 12}}));
}

TEST(DocumentRegisters, MayCountFromAnAddressBase) {
    std::vector<std::string> warnings;
    const Register_Map map = read({{"T.ZTP", "[CONFIGURATION_FIELDS]\nFIELD_1_RC=1,2\n"
                                             "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=40001,17\n"
                                             "[PORT_CONFIGURATION]\nADDRESSBASE=40001\n"}},
                                  "", &warnings);
    EXPECT_EQ(map.addressBase, 40001);
    EXPECT_EQ(map.values, (Values{{40001, 0}}));
    EXPECT_EQ(warnings, (std::vector<std::string>{
                            "register 17 has no address from 0 to 65535 on the wire and is left out"}));
}

TEST(DocumentRegisters, ABlockBeyondTheWireIsCutAtItsEnd) {
    const Register_Map map =
        read({{"T.ZTP", "[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=65534-2000000000\n"}});
    EXPECT_EQ(map.values, (Values{{65534, 0}, {65535, 0}}));
}

TEST(DocumentRegisters, ABrokenTemplateGivesWhatWasRead) {
    std::vector<std::string> warnings;
    const Register_Map map = read({{"T.ZTP", "[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=1-2\n"
                                             "HOLDINGREQUESTBLOCK_9=ALWAYS\n"}},
                                  "", &warnings);
    EXPECT_EQ(map.values.size(), 2U);
    EXPECT_EQ(warnings, (std::vector<std::string>{"T.ZTP: read in part only: Subscript out of range"}));
}

TEST(DocumentRegisters, AConfigurationOfAnotherTemplateIsReported) {
    std::vector<std::string> warnings;
    (void)read({{"T.ZTP", layout}, {"a.T", "[FIELD_1_DEFAULT]\nROW_1=1,2,3,4\n"}}, "a.T", &warnings);
    EXPECT_EQ(warnings, (std::vector<std::string>{
                            "a.T: a row has more values than its field has columns; the rest is not read"}));
}

TEST(DocumentRegisters, AMissingFileIsAnError) {
    Text_Files files({{"T.ZTP", layout}});
    const auto complaint = [&](const char* templateFile, const char* configuration) -> std::string {
        try {
            (void)readRegisters(files, templateFile, configuration, [](const std::string&) {});
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "read";
    };
    EXPECT_EQ(complaint("NO.ZTP", ""), "NO.ZTP: no such file");
    EXPECT_EQ(complaint("T.ZTP", "b.T"), "b.T: no such file");
}

} // namespace
} // namespace zorvane::simulator
