// SPDX-License-Identifier: MIT
#include "grids/commit/commit_value.h"
#include "grids/testing/commit_outcome.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::Commit_Outcome;
using doubles::Exchange;

/// One cell in row 1, column 0 at register 1004, with the value "7".
class Commit_Value_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    Commit_Value_Test() {
        Field_Rec& field = addTable(1, 2);
        field.Cells(1, 1).Address = "1004";
        field.Cells(1, 1).Value = "7";
    }

    Cell_Rec& cell() { return grids.cell(1, 0); }
    Cell_Rec& column() { return grids.definition(0); }
    void limits(const std::string& low, const std::string& high) {
        cell().Min_Value = low;
        cell().Max_Value = high;
    }
    /// Commits a text and tells `Rejected`.
    bool enter(const std::string& text) {
        journal.clear();
        ownLower.setRow(1);
        ownLower.setCol(0);
        ownLower.setText(text);
        bool rejected = true;
        PRO_Escribe_Valor(grids, 1, 0, text, rejected);
        return rejected;
    }
    Commit_Outcome commit(const std::string& text) {
        enter(text);
        return doubles::outcomeOf(*this);
    }
    std::vector<std::string> messages() const { return journal.beginningWith("Msgb"); }
    std::string shown() const { return ownLower.TextMatrix(1, 0); }
    int failureOf(const std::string& text) {
        try {
            enter(text);
        } catch (const Run_Time_Failure& failure) {
            return failure.number();
        }
        return 0;
    }
};

std::vector<std::string> told(const std::string& text) { return {"Msgb 64 \"Zorvane\": \"" + text + "\""}; }

// The nine ways out: every column of each, offline and online.

struct Way_Out_Case {
    const char* name;
    const char* columnType;
    const char* format;
    const char* low;
    const char* high;
    bool asciiRange;
    const char* text;
    Commit_Outcome offline;
    Commit_Outcome online; ///< with a write that succeeds
    bool rejected = false;
};

const std::string markedTitle = "* site7.abc - Zorvane";

Commit_Outcome stored(const std::string& value, const std::string& grid) {
    Commit_Outcome outcome;
    outcome.Value = value;
    outcome.grid = grid;
    return outcome;
}

Commit_Outcome marked(Commit_Outcome outcome) {
    outcome.title = markedTitle;
    outcome.save = "on";
    return outcome;
}

Commit_Outcome scanning(Commit_Outcome outcome) {
    outcome.scanStarted = true;
    return outcome;
}

Commit_Outcome written(Commit_Outcome outcome, const std::string& write, const std::string& panel) {
    outcome.scanStarted = true;
    outcome.writes = {write};
    outcome.panel = panel;
    return outcome;
}

Commit_Outcome withMessage(Commit_Outcome outcome, const std::string& message) {
    outcome.messages = told(message);
    return outcome;
}

Commit_Outcome modifiableColours(Commit_Outcome outcome) {
    outcome.colours = "modifiable";
    return outcome;
}

Commit_Outcome focused(Commit_Outcome outcome) {
    outcome.focus = 1;
    return outcome;
}

const std::string limitsMessage = "The value is out of range (value range 10 to 20)";
const std::string widthMessage = "The value is out of range (value range -32768 to 32767)";
const std::string timeMessage = "The value is out of range.";

const std::vector<Way_Out_Case> wayOutCases = {
    {"free text", "TEXT", "", "", "", false, "any text", scanning(marked(stored("any text", "any text"))),
     scanning(marked(stored("any text", "any text")))},
    {"time accepted", "TIME", "TIME", "", "", false, "1:99", stored("2:39", "2:39"),
     modifiableColours(written(stored("2:39", "2:39"), "link PresetSingleRegister 3 1004 159", ""))},
    {"time text bad", "TIME", "TIME", "", "", false, "90", stored("0:00", "0:00"), stored("0:00", "0:00")},
    {"time out of limits", "TIME", "TIME", "60", "120", false, "2:01",
     withMessage(stored("7", "2:01"), timeMessage), withMessage(scanning(stored("7", "2:01")), timeMessage),
     true},
    {"number accepted", "NUMERIC", "", "10", "20", false, "012", marked(stored("12", "012")),
     focused(marked(modifiableColours(
         written(stored("12", "012"), "link PresetSingleRegister 3 1004 12",
                 "\"Write: 012 @1004 ...Pending\"\n\"Write: 012 @1004 ...Completed\"\n"))))},
    {"number above its limits", "NUMERIC", "", "10", "20", false, "21",
     withMessage(stored("20", "20"), limitsMessage), withMessage(scanning(stored("20", "20")), limitsMessage),
     true},
    {"number below its limits", "NUMERIC", "", "10", "20", false, "5",
     withMessage(stored("20", "20"), limitsMessage), withMessage(scanning(stored("20", "20")), limitsMessage),
     true},
    {"number outside the register", "ASCII", "", "", "", false, "40000",
     withMessage(stored("7", "40000"), widthMessage), withMessage(stored("7", "40000"), widthMessage)},
    {"not numeric", "NUMERIC", "", "10", "20", false, "abc", stored("0", "0"), stored("0", "0")},
    {"ascii", "ASCII", "", "", "", true, "AB", stored("AB", "AB"),
     written(stored("AB", "AB"), "link PresetMultipleRegisters 7 1004 [16706 8224]",
             "\"Writing ascii block: 1004-1005 @AB ...Completed\"\n")},
};

class Way_Out_Test : public Commit_Value_Test, public testing::WithParamInterface<Way_Out_Case> {
  protected:
    void prepare() {
        const Way_Out_Case& each = GetParam();
        column().Column_Type = each.columnType;
        cell().Format = each.format;
        limits(each.low, each.high);
        cell().Is_Ascii_Range = each.asciiRange;
        if (each.asciiRange) cell().Address_End = "1005";
    }
};

TEST_P(Way_Out_Test, OfflineDoesWhatItsRowSays) {
    prepare();
    EXPECT_EQ(enter(GetParam().text), GetParam().rejected);
    EXPECT_EQ(doubles::outcomeOf(*this), GetParam().offline);
}

TEST_P(Way_Out_Test, OnlineDoesWhatItsRowSays) {
    prepare();
    form.Online = true;
    ownLower.setTabStop(true);
    EXPECT_EQ(enter(GetParam().text), GetParam().rejected);
    EXPECT_EQ(doubles::outcomeOf(*this), GetParam().online);
}

INSTANTIATE_TEST_SUITE_P(All, Way_Out_Test, testing::ValuesIn(wayOutCases), [](const auto& each) {
    std::string name = each.param.name;
    for (char& c : name)
        if (c == ' ') c = '_';
    return name;
});

// Numbers.

TEST_F(Commit_Value_Test, ANumericCellWithoutLimitsTakesThoseOfASignedRegister) {
    enter("40000");
    EXPECT_EQ(cell().Max_Value, "32767");
    EXPECT_EQ(cell().Min_Value, "-32768");
    EXPECT_EQ(messages(), told("The value is out of range (value range -32768 to 32767)"));
    EXPECT_EQ(shown(), "32767");
    EXPECT_EQ(cell().Value, "32767");
}

TEST_F(Commit_Value_Test, AnUnsignedCellTakes40000) {
    cell().Format = "NUMERIC_UNSIGNED";
    EXPECT_FALSE(enter("40000"));
    EXPECT_EQ(cell().Value, "40000");
    EXPECT_EQ(messages(), std::vector<std::string>{});
}

TEST_F(Commit_Value_Test, AnUnsignedCellRefusesMinus1) {
    cell().Format = "NUMERIC_UNSIGNED";
    EXPECT_TRUE(enter("-1"));
    EXPECT_EQ(messages(), told("The value is out of range (value range 0 to 65535)"));
    EXPECT_EQ(cell().Value, "65535");
    EXPECT_EQ(shown(), "65535");
}

TEST_F(Commit_Value_Test, AValueBelowTheLowerLimitBecomesTheUpperOne) {
    limits("10", "20");
    EXPECT_TRUE(enter("5"));
    EXPECT_EQ(cell().Value, "20");
    EXPECT_EQ(shown(), "20");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Commit_Value_Test, ARefusalOnlineBringsTheGridBackIntoTheTabOrder) {
    form.Online = true;
    ownLower.setTabStop(false);
    limits("10", "20");
    EXPECT_TRUE(enter("5"));
    EXPECT_TRUE(ownLower.TabStop());
    ownLower.setTabStop(false);
    column().Column_Type = "TIME";
    cell().Format = "TIME";
    EXPECT_TRUE(enter("0:05"));
    EXPECT_TRUE(ownLower.TabStop());
}

TEST_F(Commit_Value_Test, ARefusalOfflineLeavesTheTabOrder) {
    ownLower.setTabStop(false);
    limits("10", "20");
    EXPECT_TRUE(enter("5"));
    EXPECT_FALSE(ownLower.TabStop());
}

TEST_F(Commit_Value_Test, AnUnsignedColumnWithoutLimitsRefusesAllBut0) {
    column().Column_Type = "NUMERIC_UNSIGNED";
    EXPECT_TRUE(enter("1"));
    EXPECT_EQ(messages(), told("The value is out of range (value range -32768 to 32767)"));
    EXPECT_EQ(cell().Min_Value, "");
    EXPECT_EQ(cell().Max_Value, "");
    EXPECT_EQ(cell().Value, "32767");
    EXPECT_FALSE(enter("0"));
    EXPECT_EQ(cell().Value, "0");
}

TEST_F(Commit_Value_Test, AnAsciiColumnChecksTheRegisterWidthAlone) {
    column().Column_Type = "ASCII";
    limits("10", "20");
    EXPECT_FALSE(enter("40000"));
    EXPECT_EQ(messages(), told("The value is out of range (value range -32768 to 32767)"));
    EXPECT_EQ(cell().Value, "7");
    EXPECT_EQ(shown(), "40000");
    EXPECT_FALSE(form.Dirty);
    EXPECT_FALSE(enter("25"));
    EXPECT_EQ(cell().Value, "25");
}

TEST_F(Commit_Value_Test, LettersInANumericCellBecome0InSilence) {
    form.Online = true;
    enter("abc");
    EXPECT_EQ(cell().Value, "0");
    EXPECT_EQ(shown(), "0");
    EXPECT_EQ(journal.lines(), std::vector<std::string>{});
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Commit_Value_Test, AnEmptyTextInANumericCellIs0) {
    EXPECT_FALSE(enter(""));
    EXPECT_EQ(cell().Value, "0");
    limits("10", "20");
    EXPECT_TRUE(enter("   "));
    EXPECT_EQ(cell().Value, "20");
}

TEST_F(Commit_Value_Test, AFractionIsKept) {
    enter("5.5");
    EXPECT_EQ(cell().Value, "5.5");
    EXPECT_EQ(shown(), "5.5");
}

TEST_F(Commit_Value_Test, LeadingZerosAreShownAndNotStored) {
    enter("007");
    EXPECT_EQ(cell().Value, "7");
    EXPECT_EQ(shown(), "007");
}

TEST_F(Commit_Value_Test, LimitsFilledInStay) {
    enter("1");
    EXPECT_EQ(cell().Min_Value, "-32768");
    EXPECT_EQ(cell().Max_Value, "32767");
}

TEST_F(Commit_Value_Test, TheFactoryFileKeepsSaveOff) {
    document.File_Stem = "Default";
    enter("1");
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    EXPECT_EQ(mainForm.caption(), "* default.abc - Zorvane");
    EXPECT_TRUE(form.Dirty);
}

TEST_F(Commit_Value_Test, AValueThatWasNoNumberStopsTheCommitOfflineToo) {
    cell().Value = "abc";
    EXPECT_EQ(failureOf("5"), 13);
    EXPECT_EQ(cell().Value, "abc");
    EXPECT_EQ(cell().Max_Value, "32767") << "the limits were filled in before";
    EXPECT_FALSE(form.Dirty);
    cell().Value = "";
    EXPECT_EQ(failureOf("5"), 13);
}

TEST_F(Commit_Value_Test, ANumberThatNoDoubleHoldsIsBeyondTheRegister) {
    column().Column_Type = "ASCII";
    EXPECT_FALSE(enter("1e999"));
    EXPECT_EQ(messages(), told("The value is out of range (value range -32768 to 32767)"));
    EXPECT_EQ(cell().Value, "7");
    EXPECT_EQ(shown(), "1e999");
    EXPECT_FALSE(form.Dirty);
}

// Negative formats, decided offline.

TEST_F(Commit_Value_Test, ANegativeNumberIsEncodedByItsColumn) {
    const auto rawFor = [this](const std::string& bits) {
        column().Bits_Negative_Format = bits;
        const Way_Out way = wayOutOf(column(), cell(), typedEntry(column(), cell(), "-5"));
        return std::get<Number_Accepted>(way).Raw_Negative;
    };
    limits("-100", "100");
    EXPECT_EQ(rawFor("8"), 133);
    EXPECT_EQ(rawFor("16"), 65531);
    EXPECT_EQ(rawFor("x"), 0);
    EXPECT_EQ(rawFor("0"), 0);
    EXPECT_EQ(rawFor(""), 0);
}

// Times.

TEST_F(Commit_Value_Test, AnEmptyTextInATimeCellIs0) {
    cell().Format = "TIME";
    enter(" ");
    EXPECT_EQ(cell().Value, "0:00");
    EXPECT_EQ(shown(), "0:00");
}

TEST_F(Commit_Value_Test, ATimeWithOneLimitIsNotChecked) {
    cell().Format = "TIME";
    limits("60", " ");
    EXPECT_FALSE(enter("0:05"));
    EXPECT_EQ(cell().Value, "0:05");
}

TEST_F(Commit_Value_Test, ATimeAtItsLimitsIsAccepted) {
    cell().Format = "TIME";
    limits("60", "120");
    EXPECT_FALSE(enter("1:0"));
    EXPECT_EQ(cell().Value, "1:00");
    EXPECT_FALSE(enter("2:00"));
    EXPECT_TRUE(enter("0:59"));
    EXPECT_EQ(messages(), told("The value is out of range."));
    EXPECT_EQ(cell().Value, "2:00");
    EXPECT_EQ(shown(), "0:59") << "the cell keeps showing what was typed";
}

TEST_F(Commit_Value_Test, ATimeTooLongToCountIsAnOverflow) {
    cell().Format = "TIME";
    EXPECT_EQ(failureOf("99999999999:00"), 6);
    EXPECT_EQ(cell().Value, "7");
}

TEST_F(Commit_Value_Test, ACommitThatFailsRejectsNothing) {
    cell().Format = "TIME";
    bool rejected = true;
    EXPECT_THROW(PRO_Escribe_Valor(grids, 1, 0, "99999999999:00", rejected), Run_Time_Failure);
    EXPECT_FALSE(rejected);
}

TEST_F(Commit_Value_Test, MinutesUnderATimeColumnTakeAPlainNumber) {
    column().Column_Type = "TIME";
    cell().Format = "TIMEMM";
    enter("5");
    EXPECT_EQ(cell().Value, "5");
    EXPECT_EQ(cell().Min_Value, "-32768");
    EXPECT_EQ(cell().Max_Value, "32767");
    EXPECT_TRUE(form.Dirty);
}

TEST_F(Commit_Value_Test, MinutesUnderATimeColumnTakeATimeAsAWhole) {
    column().Column_Type = "TIME";
    cell().Format = "TIMEMM";
    form.Online = true;
    link.image[1004] = 125;
    enter("5:00");
    EXPECT_EQ(journal.beginningWith("link Preset"),
              std::vector<std::string>{"link PresetSingleRegister 3 1004 300"});
    EXPECT_EQ(cell().Value, "5:00");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Commit_Value_Test, MinutesUnderANumericColumnTakeATimeAs0) {
    cell().Format = "TIMEMM";
    enter("5:00");
    EXPECT_EQ(cell().Value, "0");
    EXPECT_EQ(shown(), "0");
}

// Free text and ASCII.

TEST_F(Commit_Value_Test, TheEditedColumnIsCurrentAfterwardsWhereverTheUserWent) {
    for (const char* type : {"NOTE", "NUMERIC", "ASCII"}) {
        column().Column_Type = type;
        cell().Value = "7";
        cell().Is_Ascii_Range = type == std::string("ASCII");
        ownLower.setRow(1);
        ownLower.setCol(1);
        bool rejected = true;
        PRO_Escribe_Valor(grids, 1, 0, "5", rejected);
        EXPECT_EQ(ownLower.Col(), 0) << type;
        EXPECT_EQ(cell().Value, "5") << type;
    }
}

TEST_F(Commit_Value_Test, FreeTextIsShownInTheCellThatIsCurrent) {
    column().Column_Type = "NOTE";
    ownLower.setRow(1);
    ownLower.setCol(1);
    bool rejected = true;
    PRO_Escribe_Valor(grids, 1, 0, "7 bar", rejected);
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "7 bar");
    EXPECT_EQ(cell().Value, "7 bar");
}

TEST_F(Commit_Value_Test, FreeTextStartsTheScanLast) {
    column().Column_Type = "";
    enter("  note ");
    EXPECT_EQ(cell().Value, "  note ");
    EXPECT_EQ(journal.lines(), (std::vector<std::string>{"caption = \"* site7.abc - Zorvane\"",
                                                         "MNU_Save enabled", "link StartScan"}));
}

TEST_F(Commit_Value_Test, AFailedAsciiWriteLeavesTheNewTextEverywhere) {
    column().Column_Type = "ASCII";
    cell().Is_Ascii_Range = true;
    cell().Address_End = "1004";
    form.Online = true;
    link.writes = {{Exchange{false, "", nullptr, "", ""}}};
    enter("XYZ");
    EXPECT_EQ(cell().Value, "XYZ");
    EXPECT_EQ(shown(), "XYZ");
    EXPECT_EQ(mainForm.panel(Panel::Message), "Writing ascii block: 1004-1004 @XYZ ...Failed");
    EXPECT_TRUE(ownLower.TabStop());
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Commit_Value_Test, AnAsciiWriteComesBackToItsColumn) {
    column().Column_Type = "ASCII";
    cell().Is_Ascii_Range = true;
    cell().Address_End = "1004";
    form.Online = true;
    link.writes = {{Exchange{true, "", [this] {
                                 EXPECT_FALSE(ownLower.TabStop());
                                 EXPECT_EQ(cell().Value, "XY") << "the model has it before the write ends";
                                 ownLower.setTextMatrix(1, 0, "as polled");
                                 ownLower.setCol(1);
                             }}}};
    enter("XY");
    EXPECT_EQ(ownLower.Col(), 0);
    EXPECT_EQ(shown(), "XY");
}

TEST_F(Commit_Value_Test, AnAsciiCharacterThatNoRegisterHoldsStopsTheCommit) {
    column().Column_Type = "ASCII";
    cell().Is_Ascii_Range = true;
    cell().Address_End = "1005";
    form.Online = true;
    EXPECT_EQ(failureOf("\xB0\x43"), 6);
    EXPECT_TRUE(ownLower.TabStop()) << "the grid is back in the tab order";
}

TEST_F(Commit_Value_Test, ARefusalLeavesADocumentAloneThatCameUpDuringItsMessage) {
    limits("10", "20");
    mainForm.duringMessage = [this] {
        PRO_Limpia_Modelo(document);
        document.Fields.redim(highestField);
        addTable(1, 2).Cells(1, 1).Value = "3";
        ownLower.setTextMatrix(1, 0, "3");
    };
    EXPECT_TRUE(enter("25"));
    EXPECT_EQ(cell().Value, "3");
    EXPECT_EQ(shown(), "3");
}

} // namespace
} // namespace zorvane
