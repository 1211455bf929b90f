// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/main_form/title.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;

struct Title : ::testing::Test, doubles::Comm_Bench {
    Title() {
        document.File_Stem = "SITE7";
        document.File_Extension = "ABC";
    }
};

TEST_F(Title, NamesTheFileInSmallLettersWithAStarOnceItDiffers) {
    PRO_Titulo_Modificado(document, form, mainForm);
    EXPECT_TRUE(form.Dirty);
    PRO_Titulo_Limpio(document, form, mainForm);
    EXPECT_FALSE(form.Dirty);
    EXPECT_THAT(journal.lines(),
                ElementsAre("caption = \"* site7.abc - Zorvane\"", "caption = \"site7.abc - Zorvane\""));
}

TEST_F(Title, TheFactoryFileAndADocumentWithoutAPlaceCannotBeSaved) {
    applySaveRule(document, mainForm);
    document.File_Stem = "Default";
    applySaveRule(document, mainForm);
    document.File_Stem = "SITE7";
    document.No_Place = true;
    applySaveRule(document, mainForm);
    EXPECT_THAT(journal.lines(), ElementsAre("MNU_Save enabled", "MNU_Save disabled", "MNU_Save disabled"));
}

} // namespace
} // namespace zorvane
