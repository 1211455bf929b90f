// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/files/new_document.h"
#include "app/testing/app_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct NewDocument : testing::Test, doubles::App_Bench {};

TEST_F(NewDocument, OffersAModelForEachTemplate) {
    files.put("/app/Pump.ztp", "");
    files.put("/app/notes.txt", "");
    EXPECT_THAT(modelsOnOffer(app), ElementsAre("ABC", "Pump"));
}

TEST_F(NewDocument, HasTheValuesOfTheFactoryFile) {
    files.put("/app/DEFAULT.abc", doubles::smallDocument("77", "88"));
    newFromModel(app, "ABC");
    EXPECT_EQ(value(1), "77");
    EXPECT_EQ(value(2), "88");
    EXPECT_EQ(journal.beginningWith("caption").back(), "caption = \"untitled.abc - Zorvane\"");
    EXPECT_TRUE(document.No_Place);
    EXPECT_FALSE(document.Read_Only);
}

TEST_F(NewDocument, HasThoseOfTheTemplateWhereThereIsNoFactoryFile) {
    openFile(app, "/home/site7.abc", false);
    newFromModel(app, "ABC");
    Declara_Zorvane ofTemplate;
    PRO_Limpia_Modelo(ofTemplate);
    PRO_Prepara_Lectura(ofTemplate);
    PRO_Leer_INIFIle(ofTemplate, app.reading(), "/app/ABC.ZTP");
    EXPECT_EQ(value(1), ofTemplate.Fields(1).Cells(1, 2).Value);
    EXPECT_NE(value(1), "10");
    EXPECT_EQ(journal.beginningWith("panel 4").back(), "panel 4 = \"\"");
    EXPECT_THAT(mainForm.base.bar.lines(), IsEmpty());
}

TEST_F(NewDocument, HasNoChangesUntilTheUserMakesSome) {
    newFromModel(app, "ABC");
    openFile(app, "/home/site7.abc", false);
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(NewDocument, SaveAsksWhereTo) {
    newFromModel(app, "ABC");
    edit(1, "42");
    choose("/home/new.abc");
    MNU_Save_Click(app);
    EXPECT_THAT(files.text("/home/new.abc").value_or(""), HasSubstr("42"));
    EXPECT_FALSE(document.No_Place);
}

TEST_F(NewDocument, CancelledItLeavesTheDocumentAtHand) {
    openFile(app, "/home/site7.abc", false);
    edit(1, "42");
    answer(Msgb_Code_Cancel);
    newFromModel(app, "ABC");
    EXPECT_EQ(document.File_Stem, "SITE7");
}

} // namespace
} // namespace zorvane::app
