// SPDX-License-Identifier: MIT
#include "grids/fill/fill_configuration.h"
#include "grids/testing/grid_bench.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace zorvane {
namespace {

/// A document of two fields and an upper grid of three columns.
class Fill_Configuration_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    Fill_Configuration_Test() {
        setColumns({{"No", 345, "RIGHT"}, {"Name", 2000, "LEFT"}, {"Note", 2625, "CENTER"}});
        addNamedField("Channel Setup", {"", "", ""});
        addNamedField("Output Setup", {"", "", "No"});
    }

    struct Column {
        const char* description;
        std::int16_t width;
        const char* alignment;
    };
    void setColumns(std::initializer_list<Column> columns) {
        document.Config_Column_Count = static_cast<std::int16_t>(columns.size());
        document.Config_Columns.redim(document.Config_Column_Count);
        std::int32_t c = 0;
        for (const Column& column : columns)
            document.Config_Columns(++c) = {column.description, column.width, column.alignment, "", ""};
    }
    void addNamedField(const std::string& name, std::initializer_list<std::string> values) {
        Field_Rec& field = addField(1, 1);
        field.Description = name;
        field.Cells(0, 1).Value = name + " column";
        setValues(document.Field_Count, values);
    }
    void setValues(std::int32_t field, std::initializer_list<std::string> values) {
        auto& texts = document.Fields(field).Config_Values;
        texts.redim(static_cast<std::int32_t>(values.size()));
        std::int32_t c = 0;
        for (const std::string& value : values)
            texts(++c) = value;
    }
    void layOutAndFill() {
        PRO_Arma_Configuration(grids);
        PRO_Llena_Configuration(grids);
    }
    std::int32_t alignmentFor(const char* word) {
        document.Config_Columns(3).Alignment = word;
        layOutAndFill();
        return ownUpper.ColAlignment(2);
    }
};

TEST_F(Fill_Configuration_Test, LaysOutOneRowAField) {
    PRO_Arma_Configuration(grids);
    EXPECT_EQ(ownUpper.Rows(), 3);
    EXPECT_EQ(ownUpper.Cols(), 3);
    EXPECT_EQ(ownUpper.FixedRows(), 1);
    EXPECT_EQ(ownUpper.TextMatrix(0, 0), "No");
    EXPECT_EQ(ownUpper.TextMatrix(0, 1), "Name");
    EXPECT_EQ(ownUpper.TextMatrix(0, 2), "Note");
    EXPECT_EQ(ownUpper.ColWidth(0), 345);
    EXPECT_EQ(ownUpper.ColWidth(2), 2625);
    EXPECT_EQ(ownUpper.TextMatrix(1, 1), "Channel Setup");
    EXPECT_EQ(ownUpper.TextMatrix(2, 1), "Output Setup");
    EXPECT_EQ(ownUpper.TextMatrix(1, 2), "");
}

TEST_F(Fill_Configuration_Test, TakesRowHeightsFromTheEditors) {
    editors.EDT_Modifica_Configuration.Height = 300;
    editors.EDT_Modifica_Settings.Height = 310;
    ownLower.setRows(2);
    PRO_Arma_Configuration(grids);
    EXPECT_EQ(ownUpper.RowHeight(0), 300);
    EXPECT_EQ(ownUpper.RowHeight(2), 300);
    EXPECT_EQ(ownLower.RowHeight(0), 310);
    EXPECT_EQ(ownLower.RowHeight(1), 310);
}

TEST_F(Fill_Configuration_Test, NumbersTheFieldsOnRequest) {
    document.Numeric_Rows = true;
    layOutAndFill();
    EXPECT_EQ(ownUpper.TextMatrix(0, 0), "No");
    EXPECT_EQ(ownUpper.TextMatrix(1, 0), "1");
    EXPECT_EQ(ownUpper.TextMatrix(2, 0), "2");
}

TEST_F(Fill_Configuration_Test, WithoutNumbersColumn0IsEmptyUntilAValueArrives) {
    document.Numeric_Rows = false;
    setValues(2, {"second", "", ""});
    layOutAndFill();
    EXPECT_EQ(ownUpper.TextMatrix(1, 0), "");
    EXPECT_EQ(ownUpper.TextMatrix(2, 0), "second");
}

TEST_F(Fill_Configuration_Test, AValueForColumn2ReplacesTheFieldsDescription) {
    setValues(1, {"", "Inputs", ""});
    layOutAndFill();
    EXPECT_EQ(ownUpper.TextMatrix(1, 1), "Inputs");
    EXPECT_EQ(ownUpper.TextMatrix(2, 1), "Output Setup");
}

TEST_F(Fill_Configuration_Test, DoesNotTrimAlignmentWords) {
    EXPECT_EQ(alignmentFor(" RIGHT "), 0);
    EXPECT_EQ(alignmentFor("RIGHT"), 6);
}

TEST_F(Fill_Configuration_Test, ReadsAlignmentWordsInAnyLetterCase) {
    EXPECT_EQ(alignmentFor("center"), 3);
    EXPECT_EQ(alignmentFor("Rigth"), 6);
    EXPECT_EQ(alignmentFor("Left"), 0);
    EXPECT_EQ(alignmentFor("middle"), 0);
    EXPECT_EQ(alignmentFor(""), 0);
}

TEST_F(Fill_Configuration_Test, CentresTheHeadings) {
    layOutAndFill();
    for (std::int32_t c = 0; c < 3; ++c)
        EXPECT_EQ(ownUpper.FixedAlignment(c), 4);
    ownUpper.setFixedAlignment(1, 0);
    ownUpper.setFixedRows(0);
    PRO_Llena_Configuration(grids);
    EXPECT_EQ(ownUpper.FixedAlignment(1), 0) << "without a heading row there is nothing to centre";
}

TEST_F(Fill_Configuration_Test, AFreshLayoutSaysOfflineEvenWhileTheLinkIsUp) {
    form.Online = true;
    mainForm.setPanel(Panel::LinkState, "Online");
    PRO_Arma_Configuration(grids);
    EXPECT_EQ(mainForm.panel(Panel::LinkState), "Offline");
}

TEST_F(Fill_Configuration_Test, AFieldWithTooFewValuesIsASubscriptFailure) {
    setValues(2, {"", ""});
    PRO_Arma_Configuration(grids);
    EXPECT_THROW(PRO_Llena_Configuration(grids), Run_Time_Failure);
    document.Fields(1).Config_Values.erase();
    EXPECT_THROW(PRO_Llena_Configuration(grids), Run_Time_Failure);
}

TEST_F(Fill_Configuration_Test, SelectsTheFirstRowFromColumn1On) {
    layOutAndFill();
    PRO_Selecciona_Primera(grids);
    EXPECT_EQ(ownUpper.Row(), 1);
    EXPECT_EQ(ownUpper.RowSel(), 1);
    EXPECT_EQ(ownUpper.Col(), 1);
    EXPECT_EQ(ownUpper.ColSel(), 2);
    EXPECT_EQ(ownUpper.selectionHighlight(), 1);
    EXPECT_EQ(ownLower.TextMatrix(0, 0), "Channel Setup column");
}

TEST_F(Fill_Configuration_Test, HidesItsTextEditor) {
    editors.EDT_Modifica_Configuration.Text = "typed";
    editors.EDT_Modifica_Configuration.Visible = true;
    PRO_Oculta_EDT_Configuration(editors);
    EXPECT_EQ(editors.EDT_Modifica_Configuration.Text, "");
    EXPECT_FALSE(editors.EDT_Modifica_Configuration.Visible);
}

} // namespace
} // namespace zorvane
