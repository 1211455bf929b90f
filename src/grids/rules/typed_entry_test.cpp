// SPDX-License-Identifier: MIT
#include "grids/rules/typed_entry.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace zorvane {
namespace {

struct Path_Case {
    const char* columnType;
    const char* format;
    Commit_Path path;
};

const std::array<Path_Case, 30> pathCases = {{
    {"NUMERIC_UNSIGNED", "TIME", Commit_Path::Time},
    {"NUMERIC", "TIME", Commit_Path::Time},
    {"ASCII", "TIME", Commit_Path::Time},
    {"NUMERIC_OR_ASCII", "TIME", Commit_Path::Time},
    {"numeric", "time", Commit_Path::Time},
    {"NUMERIC_UNSIGNED", "", Commit_Path::Number},
    {"NUMERIC", "", Commit_Path::Number},
    {"NUMERIC", "TIMEMM", Commit_Path::Number},
    {"NUMERIC", "NUMERIC_UNSIGNED", Commit_Path::Number},
    {"NUMERIC", " TIME", Commit_Path::Number},
    {"ASCII", "whatever", Commit_Path::Number},
    {"NUMERIC_OR_ASCII", "TIMESS", Commit_Path::Number},
    {"TIME", "NUMERIC", Commit_Path::Number},
    {"TIME", "ASCII", Commit_Path::Number},
    {"TIME", "numeric_or_ascii", Commit_Path::Number},
    {"TIME", "", Commit_Path::Number},
    {"TIME", " ", Commit_Path::Time},
    {"TIME", "TIME", Commit_Path::Time},
    {"TIME", "TIMEMM", Commit_Path::Time},
    {"TIME", "TIMESS", Commit_Path::Time},
    {"TIME", "NUMERIC_UNSIGNED", Commit_Path::Time},
    {"time", "x", Commit_Path::Time},
    {"", "", Commit_Path::Free_Text},
    {"", "TIME", Commit_Path::Free_Text},
    {" NUMERIC", "", Commit_Path::Free_Text},
    {"NUMERIC ", "TIME", Commit_Path::Free_Text},
    {" TIME", "TIME", Commit_Path::Free_Text},
    {"TEXT", "TIME", Commit_Path::Free_Text},
    {"TIMEMM", "", Commit_Path::Free_Text},
    {"NUMERIC_ASCII", "", Commit_Path::Free_Text},
}};

TEST(Commit_Path_Test, FollowsColumnTypeAndFormat) {
    for (const Path_Case& each : pathCases)
        EXPECT_EQ(commitPath(each.columnType, each.format), each.path)
            << "\"" << each.columnType << "\" with \"" << each.format << "\"";
}

struct Entry_Case {
    const char* columnType;
    const char* format;
    bool asciiRange;
    const char* text;
    Entry_Kind kind;
    const char* becomes;
};

const std::array<Entry_Case, 24> entryCases = {{
    {"", "", false, "", Entry_Kind::Free_Text, ""},
    {"TEXT", "TIME", false, "  ", Entry_Kind::Free_Text, "  "},
    {"NUMERIC", "TIME", false, "1:30", Entry_Kind::Time, "1:30"},
    {"NUMERIC", "TIME", false, "", Entry_Kind::Time, "0:00"},
    {"NUMERIC", "TIME", false, "   ", Entry_Kind::Time, "0:00"},
    {"NUMERIC", "TIME", false, "90", Entry_Kind::Bad_Time, "90"},
    {"NUMERIC", "TIME", false, "1:", Entry_Kind::Bad_Time, "1:"},
    {"TIME", "TIMEMM", false, "5", Entry_Kind::Number, "5"},
    {"TIME", "TIMEMM", false, "5:00", Entry_Kind::Time, "5:00"},
    {"TIME", "TIMEMM", false, "five", Entry_Kind::Bad_Time, "five"},
    {"TIME", "TIMEMM", true, "5", Entry_Kind::Ascii, "5"},
    {"NUMERIC", "TIMEMM", false, "5:00", Entry_Kind::Not_Numeric, "5:00"},
    {"NUMERIC", "", false, "", Entry_Kind::Number, "0"},
    {"NUMERIC", "", false, "  ", Entry_Kind::Number, "0"},
    {"NUMERIC", "", false, " 12 ", Entry_Kind::Number, " 12 "},
    {"NUMERIC", "", false, "12abc", Entry_Kind::Not_Numeric, "12abc"},
    {"NUMERIC", "", false, "1,5", Entry_Kind::Not_Numeric, "1,5"},
    {"NUMERIC", "", false, "1e3", Entry_Kind::Number, "1e3"},
    {"ASCII", "", false, "12", Entry_Kind::Number, "12"},
    {"ASCII", "", true, "12", Entry_Kind::Ascii, "12"},
    {"ASCII", "", true, "Tank 1", Entry_Kind::Ascii, "Tank 1"},
    {"ASCII", "", true, "", Entry_Kind::Ascii, "0"},
    {"ASCII", "TIME", true, "1:30", Entry_Kind::Time, "1:30"},
    {"TIME", "", false, "1:30", Entry_Kind::Not_Numeric, "1:30"},
}};

TEST(Typed_Entry_Test, SortsATypedText) {
    for (const Entry_Case& each : entryCases) {
        Cell_Rec definition;
        definition.Column_Type = each.columnType;
        Cell_Rec cell;
        cell.Format = each.format;
        cell.Is_Ascii_Range = each.asciiRange;
        const Typed_Entry entry = typedEntry(definition, cell, each.text);
        const std::string name =
            std::string(each.columnType) + ", " + each.format + ", \"" + each.text + "\"";
        EXPECT_EQ(entry.kind, each.kind) << name;
        EXPECT_EQ(entry.text, each.becomes) << name;
    }
}

} // namespace
} // namespace zorvane
