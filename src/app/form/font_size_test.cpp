// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/form/font_size.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"
#include "values/testing/failure_number.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::failureNumber;

using Lines = std::vector<std::string>;

struct FontSize : testing::Test, App_Bench {
    void stored(const std::string& text) { settings.texts["Zorvane/Settings/FontSize"] = text; }
    [[nodiscard]] std::int16_t index() {
        std::int16_t result = 99;
        PRO_Indice_Font(app, result);
        return result;
    }
    [[nodiscard]] double loaded() {
        PRO_Carga_Font(app);
        return state.Font_Size;
    }
    /// A document of five fields with one row each.
    void openFiveFields() {
        std::string text =
            "[CONFIGURATION_COLUMNS]\r\nCONFIGURATION_NC=2\r\nCOL_1_WIDTH=450\r\nCOL_2_WIDTH=1600\r\n";
        for (const char* number : {"1", "2", "3", "4", "5"})
            text += "[CONFIGURATION_FIELDS]\r\nFIELD_" + std::string(number) + "_DESC=F" + number +
                    "\r\nFIELD_" + number + "_RC=1,1\r\n[CONFIGURATION_DEFAULT]\r\nFIELD_" + number +
                    "=,\r\n[FIELD_" + number + "_DEFAULT]\r\nROW_1=v" + number + "\r\n";
        files.put("/app/FIVE.ZTP", text);
        files.put("/home/a.five", "");
        openFile(app, "/home/a.five", false);
    }
};

TEST_F(FontSize, TheListedSizesStandForOthers) {
    const std::vector<std::pair<double, double>> map = {{8, 7.5},   {8.5, 8.25},   {9, 9},  {9.5, 9.75},
                                                        {10, 10.5}, {10.5, 11.25}, {11, 12}};
    std::vector<std::string> texts;
    for (const auto& [listed, applied] : map) {
        EXPECT_EQ(Font_Size_Map(listed), applied);
        texts.push_back(listedFontSize(texts.size()));
    }
    EXPECT_EQ(texts, (Lines{" 8", " 8.5", " 9", " 9.5", " 10", " 10.5", " 11"}));
}

TEST_F(FontSize, WithoutAStoredKeyIndexOneAppliesEightAndAQuarter) {
    EXPECT_EQ(index(), 1);
    EXPECT_EQ(loaded(), 8.25);
}

TEST_F(FontSize, AStoredNineShowsElevenAndAppliesTwelve) {
    stored("9");
    EXPECT_EQ(index(), 6);
    EXPECT_EQ(listedFontSize(6), " 11");
    EXPECT_EQ(loaded(), 12);
}

TEST_F(FontSize, WhatIsStoredIsReadAsANumber) {
    const std::vector<std::tuple<const char*, std::int16_t, double>> cases = {
        {"0", 0, 7.5}, {"3", 3, 9.75}, {"2.5", 2, 9}, {"abc", 1, 8.25}, {"-2", -2, 12}, {"-99999", 1, 8.25}};
    for (const auto& [text, expectedIndex, size] : cases) {
        stored(text);
        EXPECT_EQ(index(), expectedIndex) << text;
        EXPECT_EQ(loaded(), size) << text;
    }
}

TEST_F(FontSize, HoweverLargeAStoredIndexIsItMeansTheLastSize) {
    for (const char* text : {"7", "32768", "99999", "1e30"}) {
        stored(text);
        EXPECT_EQ(index(), 6) << text;
        EXPECT_EQ(loaded(), 12) << text;
    }
}

TEST_F(FontSize, TheChoiceIsStoredAsTheIndex) {
    storeFontIndex(app, 4);
    EXPECT_EQ(settings.texts["Zorvane/Settings/FontSize"], "4");
}

TEST_F(FontSize, WithoutADocumentTheFramesStayHidden) {
    PRO_Carga_Font(app);
    EXPECT_EQ(journal.lines(),
              (Lines{"Frame2 hidden", "Frame3 hidden", "panel 4 = \"Processing Font size...\"",
                     "previews restarted with 8.25", "panel 4 = \"\""}));
}

TEST_F(FontSize, TheDefaultTemplateIsHiddenToo) {
    files.put("/app/kvrt.ztp", doubles::smallTemplate());
    TMR_Abre_ZTP_Timer(app);
    FontSizeDialog_ChangeFont(app, 12);
    EXPECT_FALSE(mainForm.visible(Form_Part::Frame2));
    EXPECT_EQ(upper.Row(), 1) << "and nothing is selected";
    EXPECT_EQ(upper.ColWidth(1), 12 * 10 * 7 + 270) << "its columns fit their texts";
}

TEST_F(FontSize, AnOpenDocumentIsLaidOutAnewAndShown) {
    openFile(app, "/home/site7.abc", false);
    journal.clear();
    FontSizeDialog_ChangeFont(app, 12);
    EXPECT_EQ(journal.lines(),
              (Lines{"Frame2 hidden", "Frame3 hidden", "panel 4 = \"Processing Font size...\"",
                     "FLX_Configuration 3x2 at row 0", "panel 2 = \"Offline\"",
                     "FLX_Configuration 3x2 at row 1", "FLX_Settings 3x2 at row 2",
                     "previews restarted with 12", "Frame2 shown", "Frame3 shown", "panel 4 = \"\""}));
    EXPECT_EQ(upper.FontSize(), 12);
    EXPECT_EQ(lower.FontSize(), 12);
    EXPECT_EQ(upper.ColWidth(1), 1600) << "the layout has the template's widths";
    EXPECT_EQ(upper.TextMatrix(2, 0), "2");
    EXPECT_EQ(upper.TextMatrix(2, 1), "Outputs");
    EXPECT_EQ(upper.ColSel(), 1);
}

TEST_F(FontSize, TheSelectedRowMovesOnByThreeAndFromTheLastToTheFirst) {
    openFiveFields();
    const std::vector<std::pair<std::int32_t, std::int32_t>> moves = {{4, 2}, {1, 4}, {5, 3}, {3, 1}, {2, 5}};
    for (const auto& [from, to] : moves) {
        upper.setRow(from);
        PRO_Aplica_Font(app);
        EXPECT_EQ(upper.Row(), to) << from;
        EXPECT_EQ(document.Selected_Field, to) << from;
        EXPECT_EQ(lower.TextMatrix(1, 0), "v" + std::to_string(to)) << from;
    }
}

TEST_F(FontSize, LeavesNoTextOfItsOwnInTheUpperGrid) {
    openFiveFields();
    PRO_Aplica_Font(app);
    for (std::int32_t row = 1; row <= 5; ++row)
        EXPECT_EQ(upper.TextMatrix(row, 0), "") << row;
}

TEST_F(FontSize, AFieldThatCantBeShownDoesntLeaveTheWindowEmpty) {
    openFiveFields();
    for (const std::int32_t field : {1, 2, 3, 4, 5}) {
        document.Fields(field).Cells(1, 1).Address = "5/HI";
        document.Fields(field).Cells(1, 1).Value = "no number";
    }
    PRO_Aplica_Font(app);
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame2));
    EXPECT_EQ(mainForm.panel(Panel::Message), "");
}

TEST_F(FontSize, AFailureOfAPreviewPassesOnWithTheWindowAsItShouldBe) {
    openFiveFields();
    mainForm.previewsFail = true;
    EXPECT_EQ(failureNumber([&] { PRO_Aplica_Font(app); }), 9);
    EXPECT_TRUE(mainForm.visible(Form_Part::Frame3));
    EXPECT_EQ(mainForm.panel(Panel::Message), "");
}

TEST_F(FontSize, AColumnGetsTheWidthOfItsWidestTrimmedText) {
    upper.setCols(2);
    upper.setRows(3);
    upper.setFontSize(8.25);
    upper.setTextMatrix(0, 1, "Heading");
    upper.setTextMatrix(1, 1, "  wider text  ");
    bool ok = false;
    PRO_Ajusta_Columna(widths, upper, 1, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(upper.ColWidth(1), 1095) << "10 characters of 82.5 twips, and 270";
}

TEST_F(FontSize, ATextTooWideForSixteenBitsLeavesTheColumnAsItIs) {
    upper.setCols(1);
    upper.setRows(1);
    upper.setColWidth(0, 500);
    upper.setTextMatrix(0, 0, std::string(5000, 'x'));
    bool ok = false;
    EXPECT_EQ(failureNumber([&] { PRO_Ajusta_Columna(widths, upper, 0, ok); }), 6);
    EXPECT_FALSE(ok);
    EXPECT_EQ(upper.ColWidth(0), 500);
}

} // namespace
} // namespace zorvane::app
