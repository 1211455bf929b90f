// SPDX-License-Identifier: MIT
#include "template/pro_actualiza_archivo.h"
#include "template/pro_escribe_archivo.h"
#include "template/pro_leer_archivo.h"
#include "template/services/native_files.h"
#include "template/testing/temporary_folder.h"
#include "values/numbers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zorvane {
namespace {

const std::string folder = std::string(ZORVANE_MODELS) + "/";

/// Collects what a reading tells; a shipped file tells nothing.
struct Silent_Asker : Asker {
    int Msgb_Show(const std::string& prompt, int /*style*/, const std::string& /*title*/) override {
        prompts.push_back(prompt);
        return Msgb_Code_Ok;
    }
    std::vector<std::string> prompts;
};

struct Noted_Link : Link_Notice {
    void SetTimings(std::int32_t request, std::int32_t out) override {
        requestMs = request;
        outMs = out;
    }
    void SetHoldingRegisters(std::int16_t /*first*/, double count, bool /*flag*/,
                             std::int16_t /*last*/) override {
        registers = count;
    }
    void SetAddressBase(std::int32_t value) override { base = value; }
    std::int32_t requestMs = 0;
    std::int32_t outMs = 0;
    double registers = 0;
    std::int32_t base = 0;
};

/// Keeps the written lines as the file's bytes.
struct Text_Sink : Text_Writer {
    void writeLine(std::string_view text) override { bytes.append(text).append("\r\n"); }
    void close() override {}
    std::string bytes;
};

/// A document as opening a file makes it, and what it was read with.
struct Opened {
    Opened() { PRO_Prepara_Lectura(document); }
    void readTemplate(const std::string& name) { PRO_Leer_INIFIle(document, services(), folder + name); }
    bool readDocument(const std::string& path) {
        bool ok = false;
        PRO_Leer_DefaultFIle(document, services(), path, ok);
        return ok;
    }
    [[nodiscard]] std::string written() const {
        Text_Sink sink;
        writeConfiguration(document, sink);
        return sink.bytes;
    }
    Reading_Services services() { return {files, asker, link, folder}; }

    Declara_Zorvane document;
    Native_Files files;
    Silent_Asker asker;
    Noted_Link link;
};

const std::map<std::string, std::string> templateOf = {{"KVRT", "kvrt.ztp"},
                                                       {"KVRT100", "KVRT100.ZTP"},
                                                       {"KVRT207D", "KVRT207D.ZTP"},
                                                       {"R7702-16", "R7702-16.ZTP"}};

class EachModel : public testing::TestWithParam<std::string> {
  protected:
    EachModel() { opened.readTemplate(templateOf.at(GetParam())); }
    Opened opened;
};

INSTANTIATE_TEST_SUITE_P(Models, EachModel, testing::Values("KVRT", "KVRT100", "KVRT207D", "R7702-16"),
                         [](const auto& model) {
                             std::string name = model.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_P(EachModel, CarriesTheNameOfItsFile) {
    EXPECT_EQ(opened.document.Controller_Model, GetParam());
    EXPECT_TRUE(opened.asker.prompts.empty());
}

TEST_P(EachModel, IsPolledWhileOnline) {
    EXPECT_GT(opened.document.Always_Block_Count, 0);
    EXPECT_GT(opened.link.requestMs, 0);
    EXPECT_GT(opened.link.outMs, 0);
}

TEST_P(EachModel, FactoryFileIsWhatTheTemplateHolds) {
    EXPECT_EQ(opened.written(), opened.files.read(folder + "DEFAULT." + GetParam()));
}

TEST_P(EachModel, FactoryFileComesBackByteForByte) {
    const std::string path = folder + "DEFAULT." + GetParam();
    EXPECT_TRUE(opened.readDocument(path));
    EXPECT_EQ(opened.written(), opened.files.read(path));
}

TEST_P(EachModel, ExampleComesBackByteForByte) {
    const std::string path = folder + "EXAMPLE." + GetParam();
    EXPECT_TRUE(opened.readDocument(path));
    EXPECT_EQ(opened.written(), opened.files.read(path));
}

TEST_P(EachModel, EveryFieldHasAValueForEachUpperColumn) {
    for (std::int32_t field = 1; field <= opened.document.Field_Count; ++field)
        EXPECT_EQ(opened.document.Fields(field).Config_Values.upperBound(),
                  opened.document.Config_Column_Count);
}

TEST_P(EachModel, EveryRegisterIsScanned) {
    std::set<std::int32_t> scanned;
    for (std::int32_t i = 1; i <= opened.document.Holding_Block_Count; ++i) {
        const Holding_Block_Rec& block = opened.document.Holding_Blocks(i);
        EXPECT_LE(block.Last_Address - block.First_Address, 124) << "one request reads 125 registers";
        for (std::int32_t number = block.First_Address; number <= block.Last_Address; ++number)
            scanned.insert(number);
    }
    for (std::int32_t f = 1; f <= opened.document.Field_Count; ++f) {
        const Field_Rec& field = opened.document.Fields(f);
        for (std::int32_t row = 1; row <= field.Rows; ++row)
            for (std::int32_t column = 1; column <= field.Columns; ++column) {
                const Cell_Rec& cell = field.Cells(row, column);
                if (cell.Address.empty()) continue;
                const auto first = longValue(cell.Address);
                const auto last = cell.Is_Ascii_Range ? longValue(cell.Address_End) : first;
                for (std::int32_t number = first; number <= last; ++number)
                    EXPECT_TRUE(scanned.contains(number)) << "register " << number;
            }
    }
}

TEST(Models, DefaultTemplateReadsWithoutRoomForDownloadBlocks) {
    Opened opened;
    opened.document.Download_Blocks.erase();
    opened.readTemplate("kvrt.ztp");
    EXPECT_EQ(opened.document.Field_Count, 4);
}

TEST(Models, Kvrt100CountsItsRegistersFrom40001) {
    Opened opened;
    opened.readTemplate("KVRT100.ZTP");
    EXPECT_EQ(opened.link.base, 40001);
}

/// The block that a download of the board family finds for a register: the first of its kind that begins at
/// or below it and, other than for numbers, ends at or above it.
const Download_Block_Rec* blockFor(const Declara_Zorvane& document, std::int16_t kind, std::int32_t number) {
    const auto& blocks = document.Download_Blocks;
    for (std::int32_t i = 0; i < blocks.upperBound(); ++i)
        if (blocks(i).Block_Kind == kind && longValue(blocks(i).First_Address) <= number &&
            (kind == 0 || number <= longValue(blocks(i).Last_Address)))
            return &blocks(i);
    return nullptr;
}

/// The kind of block that a cell is looked up in; nothing for cells that go out alone or not at all.
std::optional<std::int16_t> kindOf(const Cell_Rec& cell, bool lastColumn) {
    if (cell.Address.empty()) return std::nullopt;
    if (!isNumeric(cell.Address)) return std::int16_t{1};
    if (cell.Is_Ascii_Range) return lastColumn ? std::nullopt : std::optional(std::int16_t{2});
    if (cell.Has_Messages) return std::nullopt;
    return std::int16_t{0};
}

bool isDownloaded(const Declara_Zorvane& document, const Cell_Rec& cell) {
    for (std::int32_t i = 1; i <= document.Not_Downloadable_Count; ++i)
        if (document.Not_Downloadable(i) == cell.Address) return false;
    return true;
}

TEST(Models, BoardHasABlockForEachCellThatADownloadLooksUp) {
    Opened opened;
    opened.readTemplate("R7702-16.ZTP");
    int lookedUp = 0;
    for (std::int32_t f = 1; f <= opened.document.Field_Count; ++f) {
        const Field_Rec& field = opened.document.Fields(f);
        for (std::int32_t column = 1; column <= field.Columns; ++column)
            for (std::int32_t row = 1; field.Cells(0, column).Modifiable && row <= field.Rows; ++row) {
                const Cell_Rec& cell = field.Cells(row, column);
                const auto kind = kindOf(cell, column == field.Columns);
                if (!kind || !isDownloaded(opened.document, cell)) continue;
                const Download_Block_Rec* block = blockFor(opened.document, *kind, longValue(cell.Address));
                ASSERT_NE(block, nullptr) << cell.Address;
                EXPECT_LE(longValue(cell.Address), longValue(block->Last_Address)) << cell.Address;
                ++lookedUp;
            }
    }
    EXPECT_EQ(lookedUp, 6 + 2 + 16 * 4 + 16 + 12 + 4) << "board, its halves, inputs, names, outputs, levels";
}

class OlderDocument : public testing::Test {
  protected:
    OlderDocument() {
        std::filesystem::copy(folder + "OLDSITE.KVRT100", work);
        opened.readTemplate("KVRT100.ZTP");
    }

    doubles::Temporary_Folder temporary; // tests run beside each other
    std::string work = temporary.path() + "/";
    Opened opened;
};

TEST_F(OlderDocument, IsRejectedAsItStands) { EXPECT_FALSE(opened.readDocument(work + "OLDSITE.KVRT100")); }

TEST_F(OlderDocument, ReadsWellAfterTheUpdate) {
    ASSERT_FALSE(opened.readDocument(work + "OLDSITE.KVRT100"));
    PRO_Actualiza_Archivo(opened.files, work + "OLDSITE", "KVRT100");
    EXPECT_TRUE(opened.readDocument(work + "OLDSITE_Updated.KVRT100"));
    const Declara_Zorvane& document = opened.document;
    EXPECT_EQ(document.Fields(1).Config_Values(2), "Output Setup");
    EXPECT_EQ(document.Fields(1).Cells(9, 2).Value, "OLD QUAY 33/11 T4");
    EXPECT_EQ(document.Fields(2).Config_Values(2), "Channel Setup");
    EXPECT_EQ(document.Fields(2).Cells(1, 4).Value, "1300");
    EXPECT_EQ(document.Fields(2).Cells(0, 8).Width, 2625);
    EXPECT_EQ(document.Fields(4).Cells(0, 4).Width, 1695);
    EXPECT_TRUE(opened.asker.prompts.empty());
}

} // namespace
} // namespace zorvane
