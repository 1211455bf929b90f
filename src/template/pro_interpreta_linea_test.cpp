// SPDX-License-Identifier: MIT
#include "template/pro_interpreta_linea.h"
#include "template/testing/interpreter_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::documentText;
using doubles::Interpreter_Bench;

TEST(InterpretaLinea, SectionsAndKeysMayHaveAnyLetterCase) {
    Interpreter_Bench bench;
    bench.makeField(3, "1,1");
    EXPECT_TRUE(bench.line("field_#_Columns", 3, "Col_1_Desc", "Set Point"));
    EXPECT_TRUE(bench.line("Hardware", "Controller", " kvrt "));
    EXPECT_EQ(bench.cell(3, 0, 1).Value, "Set Point") << "values keep theirs";
    EXPECT_EQ(bench.document.Controller_Model, "KVRT");
}

TEST(InterpretaLinea, ASectionIsComparedAsAWhole) {
    Interpreter_Bench bench;
    const std::string before = documentText(bench.document);
    EXPECT_TRUE(bench.line("HARDWARE ", "CONTROLLER", "X"));
    EXPECT_TRUE(bench.line("MY HARDWARE", "CONTROLLER", "X"));
    EXPECT_TRUE(bench.line("FIELD_#_COLUMNS_2", 1, "COL_1_DESC", "X"));
    EXPECT_EQ(documentText(bench.document), before);
}

TEST(InterpretaLinea, UnknownKeysHaveNoEffectInAnySection) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,1");
    const std::string before = documentText(bench.document);
    for (const char* section :
         {"HARDWARE", "CONFIGURATION_COLUMNS", "CONFIGURATION_FIELDS", "FIELD_#_COLUMNS",
          "FIELD_#_CONFIGURATION", "FIELD_#_MESSAGES", "ADDRESS_NOTDOWNLOADABLE", "PORT_CONFIGURATION",
          "FIELD_#_DEFAULT", "CONFIGURATION_DEFAULT", "DEFAULT_#_COLUMNS", "COLORS"}) {
        EXPECT_TRUE(bench.line(section, 1, "NOTHING", "1,2,3")) << section;
        EXPECT_TRUE(bench.line(section, 1, "NOTHING_1", "1,2,3")) << section;
        EXPECT_TRUE(bench.line(section, 1, "NOTHING_1_AT_ALL", "1,2,3")) << section;
    }
    EXPECT_EQ(documentText(bench.document), before);
    EXPECT_TRUE(bench.link.calls.empty());
}

TEST(InterpretaLinea, AKeyWithATrailingBlankMatchesNothing) {
    Interpreter_Bench bench;
    EXPECT_TRUE(bench.line("CONFIGURATION_COLUMNS", "NUMERIC_ROWS ", "YES"));
    EXPECT_FALSE(bench.document.Numeric_Rows);
}

TEST(InterpretaLinea, AKeyAheadOfAnyHeaderHasNoEffect) {
    Interpreter_Bench bench;
    const std::string before = documentText(bench.document);
    EXPECT_TRUE(bench.line("", "CONTROLLER", "X"));
    EXPECT_EQ(documentText(bench.document), before);
}

TEST(InterpretaLinea, TheReservedVocabularyOfOlderTemplatesIsNoMistake) {
    Interpreter_Bench bench;
    const std::string before = documentText(bench.document);
    for (const char* key :
         {"V_PREFIX_1", "v_mirror_2", "V_Ref_x", "BOARD_DESC", "XIONUMS", "ADDR_START", "ELSE"})
        EXPECT_TRUE(bench.line("BOARDS", key, "x")) << key;
    EXPECT_EQ(documentText(bench.document), before);
}

TEST(ReservedKey, APrefixCountsInAnyLetterCaseAWholeKeyInCapitals) {
    EXPECT_TRUE(isReservedKey("V_PREFIX_1"));
    EXPECT_TRUE(isReservedKey("v_mirror_12"));
    EXPECT_TRUE(isReservedKey("V_Ref_"));
    EXPECT_TRUE(isReservedKey("BOARD_DESC"));
    EXPECT_TRUE(isReservedKey("XIONUMS"));
    EXPECT_TRUE(isReservedKey("ADDR_START"));
    EXPECT_FALSE(isReservedKey("board_desc"));
    EXPECT_FALSE(isReservedKey("Xionums"));
    EXPECT_FALSE(isReservedKey("V_PREFIX"));
    EXPECT_FALSE(isReservedKey("V_PREFIX_1_2"));
    EXPECT_FALSE(isReservedKey(""));
}

TEST(SeparaPrefijo, CutsAtTheLastUnderscore) {
    std::string tail = "x";
    std::string head = "x";
    PRO_Separa_Prefijo("V_PREFIX_12", tail, head);
    EXPECT_EQ(head, "V_PREFIX");
    EXPECT_EQ(tail, "12");
    PRO_Separa_Prefijo("_", tail, head);
    EXPECT_EQ(head + "|" + tail, "|");
}

TEST(SeparaPrefijo, GivesNothingWithoutAnUnderscore) {
    std::string tail = "x";
    std::string head = "x";
    PRO_Separa_Prefijo("XIONUMS", tail, head);
    EXPECT_EQ(head + "|" + tail, "|");
}

TEST(InterpretaLinea, TheSectionsNumberStaysAsItIs) {
    Interpreter_Bench bench;
    bench.makeField(3, "1,1");
    std::int32_t number = 3;
    bool ok = false;
    PRO_Interpreta_Linea(bench.document, bench.link, "FIELD_#_COLUMNS", "COL_1_WIDTH", "5", number, ok);
    EXPECT_EQ(number, 3);
    EXPECT_TRUE(ok);
}

TEST(KnownSection, IsNamedInAnyLetterCaseWithItsHashSign) {
    EXPECT_TRUE(isKnownSection("FIELD_#_DEFAULT"));
    EXPECT_TRUE(isKnownSection("COLORS"));
    EXPECT_TRUE(isKnownSection("Colors"));
    EXPECT_FALSE(isKnownSection("FIELD_1_DEFAULT"));
    EXPECT_FALSE(isKnownSection("BOARDS"));
}

TEST(KnownSection, TellsItsKeys) {
    EXPECT_EQ(knownSections().size(), 12U);
    EXPECT_EQ(knownKeys("Field_#_Default"), std::vector<std::string_view>{"ROW_#"});
    EXPECT_EQ(knownKeys("CONFIGURATION_FIELDS"),
              (std::vector<std::string_view>{"FIELD_#_DESC", "FIELD_#_RC"}));
    EXPECT_EQ(knownKeys("BOARDS"), std::vector<std::string_view>{});
    for (const std::string_view section : knownSections())
        EXPECT_FALSE(knownKeys(section).empty()) << section;
}

TEST(KnownSection, TakesItsKeysApart) {
    EXPECT_EQ(numberedKey("CONFIGURATION_FIELDS", "field_3_rc")->key, "FIELD_#_RC");
    EXPECT_EQ(numberedKey("CONFIGURATION_FIELDS", "field_3_rc")->number, 3);
    EXPECT_EQ(numberedKey("FIELD_#_MESSAGES", "ADDRESS_100_2")->key, "ADDRESS_#");
    EXPECT_EQ(numberedKey("BOARDS", "ADDRESS_100"), std::nullopt);
    EXPECT_EQ(doubles::failureNumber([] { (void)numberedKey("COLORS", "TXT_99999999999_NORMAL"); }), 6);
}

} // namespace
} // namespace zorvane
