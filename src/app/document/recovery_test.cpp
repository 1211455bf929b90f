// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/document/recovery_keeper.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"
#include "grids/fill/fill_settings.h"
#include "recovery/recovery.h"
#include "template/testing/document_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::smallDocument;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string firstCopy = "20261121032005-1-1.ABC";

std::string copyOf(const std::string& low, const std::string& why,
                   const std::string& time = "2026-11-21 03:20:05") {
    return ";time=" + time + "\r\n;name=SITE7.ABC\r\n;model=ABC 100\r\n;kept=" + why + "\r\n" +
           smallDocument(low, "20");
}

struct RecoveryCopies : testing::Test, App_Bench {
    RecoveryCopies() {
        openFile(app, "/home/site7.abc", false);
        edit(1, "11");
        journal.clear();
    }
    [[nodiscard]] std::string onlyCopy() const {
        return folder.texts.size() == 1 ? folder.texts.begin()->second : std::string("not one copy");
    }
    /// The reasons of the copies of unsaved changes on offer.
    [[nodiscard]] std::vector<std::string> offered() {
        std::vector<std::string> reasons;
        for (const Recovery_Entry& entry : recovery.list())
            if (!entry.beforeSave) reasons.push_back(entry.why);
        return reasons;
    }
    void openOther(int response) {
        answer(response);
        choose("/home/site7.abc");
        MNU_Open_Click(app);
    }
};

TEST_F(RecoveryCopies, ACopyIsTheFileAsTheWriterWritesItWithFourLinesInFront) {
    EXPECT_TRUE(keepCopy(app, "changed"));
    EXPECT_EQ(folder.texts, (std::map<std::string, std::string>{{firstCopy, copyOf("11", "changed")}}));
}

TEST_F(RecoveryCopies, ACopyOpensWithTheReaderAndHoldsEveryValue) {
    keepCopy(app, "changed");
    const std::string before = doubles::documentText(document);
    files.put("/elsewhere/copy.abc", onlyCopy());
    form.Dirty = false;
    openFile(app, "/elsewhere/copy.abc", false);
    EXPECT_EQ(doubles::documentText(document), before);
}

TEST_F(RecoveryCopies, AreKeptBeforeOpenEmptiesTheModel) {
    for (const int response : {Msgb_Code_No, Msgb_Code_Cancel, Msgb_Code_Yes}) {
        openOther(response);
        EXPECT_EQ(onlyCopy(), copyOf("11", "before Open")) << response;
        folder.texts.clear();
        form.Dirty = false;
        openFile(app, "/home/site7.abc", false);
        edit(1, "11");
    }
}

TEST_F(RecoveryCopies, AreKeptBeforeCloseAsks) {
    answer(Msgb_Code_No);
    MNU_Close_Click(app);
    EXPECT_EQ(onlyCopy(), copyOf("11", "before Close"));
}

TEST_F(RecoveryCopies, AreKeptBeforeEitherExitAsks) {
    answer(Msgb_Code_No);
    MNU_Exit_Click(app);
    EXPECT_EQ(onlyCopy(), copyOf("11", "before exit"));
    edit(1, "12");
    answer(Msgb_Code_No);
    std::int16_t cancel = 0;
    Form_QueryUnload(app, cancel, 0);
    EXPECT_EQ(onlyCopy(), copyOf("12", "before exit"));
}

TEST_F(RecoveryCopies, ADocumentWithoutChangesHasNone) {
    edit(1, "10");
    form.Dirty = false;
    openFile(app, "/home/site7.abc", false);
    MNU_Close_Click(app);
    MNU_Exit_Click(app);
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(RecoveryCopies, OneDocumentHasOneCopyThatIsRefreshed) {
    keepCopy(app, "changed");
    edit(1, "12");
    time = "2026-11-21 03:20:35";
    keepCopy(app, "changed");
    EXPECT_EQ(folder.texts, (std::map<std::string, std::string>{
                                {firstCopy, copyOf("12", "changed", "2026-11-21 03:20:35")}}));
}

TEST_F(RecoveryCopies, ATextThatIsKeptAlreadyIsntWrittenAgain) {
    keepCopy(app, "changed");
    keepCopy(app, "changed");
    EXPECT_EQ(folder.writes, 1);
    keepCopy(app, "before Open");
    EXPECT_EQ(onlyCopy(), copyOf("11", "before Open")) << "a newer reason is worth a line";
}

TEST_F(RecoveryCopies, AreDroppedAfterAGoodSave) {
    keepCopy(app, "changed");
    MNU_Save_Click(app);
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(RecoveryCopies, AreDroppedAfterAGoodSaveAs) {
    keepCopy(app, "changed");
    choose("/home/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(RecoveryCopies, AreKeptBeforeAFileIsOverwrittenSinceACrashMayLeaveItTorn) {
    std::string duringWrite;
    mainForm.base.duringPause = [&](std::int32_t) { duringWrite = onlyCopy(); };
    MNU_Save_Click(app);
    EXPECT_EQ(duringWrite, copyOf("11", "before Save"));
}

TEST_F(RecoveryCopies, AreKeptBeforeSaveAsToo) {
    files.put("/home/default.abc", "factory");
    choose("/home/default.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(onlyCopy(), copyOf("11", "before Save As")) << "a refused Save As leaves it";
}

TEST_F(RecoveryCopies, StayWhenASaveFailsThoughItsTitleGoesClean) {
    files.failAfter(30);
    MNU_Save_Click(app);
    EXPECT_EQ(onlyCopy(), copyOf("11", "Save failed"));
    files.failAfter(doubles::Memory_Files::noLimit);
    MNU_Save_Click(app);
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(RecoveryCopies, StayWhenASaveAsFails) {
    choose("/nowhere/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(onlyCopy(), testing::HasSubstr(";kept=Save As failed\r\n"));
    EXPECT_EQ(withoutHeader(onlyCopy()), smallDocument("11", "20"));
}

TEST_F(RecoveryCopies, AChangeMadeWhileSaveWaitsIsKeptSinceItIsntInTheFile) {
    mainForm.base.duringPause = [&](std::int32_t) { edit(1, "12"); };
    MNU_Save_Click(app);
    EXPECT_EQ(files.text("/home/site7.abc"), smallDocument("11", "20"));
    EXPECT_EQ(onlyCopy(), copyOf("12", "changed while saving"));
}

TEST_F(RecoveryCopies, AnEmptiedModelNeverOverwritesAGoodCopy) {
    openOther(Msgb_Code_Cancel);
    for (const int response : {Msgb_Code_Cancel, Msgb_Code_Cancel}) {
        openOther(response);
        answer(response);
        MNU_Close_Click(app);
        answer(response);
        MNU_Exit_Click(app);
        TMR_Copia_Timer(app, 0);
        MNU_Save_Click(app);
        form.Dirty = true;
    }
    EXPECT_EQ(onlyCopy(), copyOf("11", "before Open"));
    EXPECT_EQ(folder.writes, 1);
}

TEST_F(RecoveryCopies, TheNextDocumentHasACopyOfItsOwn) {
    openOther(Msgb_Code_No);
    edit(1, "33");
    keepCopy(app, "changed");
    EXPECT_EQ(folder.texts,
              (std::map<std::string, std::string>{{firstCopy, copyOf("11", "before Open")},
                                                  {"20261121032005-1-2.ABC", copyOf("33", "changed")}}));
    MNU_Save_Click(app);
    EXPECT_EQ(onlyCopy(), copyOf("11", "before Open")) << "what was thrown away stays";
}

TEST_F(RecoveryCopies, AFullDiskKeepsTheOlderCopy) {
    keepCopy(app, "changed");
    folder.full = true;
    edit(1, "12");
    EXPECT_FALSE(keepCopy(app, "changed"));
    EXPECT_EQ(onlyCopy(), copyOf("11", "changed"));
    folder.full = false;
    EXPECT_TRUE(keepCopy(app, "changed"));
    EXPECT_EQ(onlyCopy(), copyOf("12", "changed"));
}

TEST_F(RecoveryCopies, ALineThatCantBeMadeIsLeftOutOfTheCopy) {
    document.Fields(1).Cells(1, 2).Has_Messages = true;
    document.Fields(1).Cells(1, 2).Value = "99999999999";
    keepCopy(app, "changed");
    std::string expected = copyOf("11", "changed");
    expected.erase(expected.find("ROW_1=low,11\r\n"), 14);
    EXPECT_EQ(onlyCopy(), expected);
}

TEST_F(RecoveryCopies, FiftyAreKeptAndTheOldestGoFirst) {
    for (int k = 10; k < 70; ++k) {
        time = "2026-11-21 03:20:" + std::to_string(k);
        edit(1, std::to_string(k));
        openOther(Msgb_Code_No);
    }
    EXPECT_EQ(folder.texts.size(), recoveryLimit);
    EXPECT_EQ(folder.texts.begin()->first, "20261121032020-1-1.ABC");
    const std::vector<Recovery_Entry> entries = recovery.list();
    EXPECT_EQ(entries.front().time, "2026-11-21 03:20:69");
    EXPECT_EQ(entries.back().time, "2026-11-21 03:20:20");
}

TEST_F(RecoveryCopies, TheListTellsTimeNameModelAndReason) {
    openOther(Msgb_Code_No);
    folder.texts["note.txt"] = "not a copy";
    const std::vector<Recovery_Entry> entries = recovery.list();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].file, firstCopy);
    EXPECT_EQ(entries[0].time, "2026-11-21 03:20:05");
    EXPECT_EQ(entries[0].name, "SITE7.ABC");
    EXPECT_EQ(entries[0].model, "ABC 100");
    EXPECT_EQ(entries[0].why, "before Open");
}

TEST_F(RecoveryCopies, AModelsNameOfAnyLengthLeavesTheReasonInTheHeader) {
    document.Controller_Model = "ABC\r100" + std::string(5'000, 'X');
    keepCopy(app, "changed");
    recovery.leave();
    const std::vector<Recovery_Entry> entries = recovery.list();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].model, "ABC?100" + std::string(248, 'X'));
    EXPECT_EQ(entries[0].why, "changed");
}

TEST_F(RecoveryCopies, TheDocumentAtHandIsntOnOffer) {
    keepCopy(app, "changed");
    EXPECT_THAT(recovery.list(), IsEmpty());
}

TEST_F(RecoveryCopies, ADocumentThatNeverHadAFileIsKeptUnderAnotherName) {
    App_Bench start;
    start.files.put("/app/kvrt.ztp", doubles::smallTemplate());
    TMR_Abre_ZTP_Timer(start.app);
    start.edit(1, "11");
    keepCopy(start.app, "changed");
    ASSERT_THAT(start.folder.list(), ElementsAre("20261121032005-1-1.KVRT"));
    EXPECT_THAT(start.folder.texts.begin()->second, testing::HasSubstr(";name=UNTITLED.KVRT\r\n"));
}

TEST_F(RecoveryCopies, TheCopyBelongsToTheTemplateThatWasReadWhateverSaveAsNamesIt) {
    files.failAfter(0);
    choose("/home/site8.xyz");
    MNU_Saveas_Click(app);
    edit(1, "12");
    recovery.leave();
    keepCopy(app, "changed");
    EXPECT_THAT(folder.list(), ElementsAre(firstCopy, "20261121032005-1-2.ABC"));
}

TEST_F(RecoveryCopies, AFailedSavesCopyIsOnOfferAtOnceAndUntilAGoodSave) {
    files.failAfter(30);
    bool listedInTheSecond = false;
    mainForm.base.duringPause = [&](std::int32_t) { listedInTheSecond = !offered().empty(); };
    MNU_Save_Click(app);
    mainForm.base.duringPause = nullptr;
    EXPECT_TRUE(listedInTheSecond);
    EXPECT_THAT(offered(), ElementsAre("Save failed"));
    EXPECT_TRUE(form.Document_Open);
    files.failAfter(doubles::Memory_Files::noLimit);
    MNU_Save_Click(app);
    EXPECT_THAT(offered(), IsEmpty());
}

TEST_F(RecoveryCopies, AFailedSaveAsIsOnOfferAtOnceToo) {
    choose("/nowhere/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_THAT(offered(), ElementsAre("Save As failed"));
}

TEST_F(RecoveryCopies, ACopyOfTheDocumentAtHandThatTheUserDeletesIsMadeAnew) {
    files.failAfter(0);
    MNU_Save_Click(app);
    for (const Recovery_Entry& entry : recovery.list())
        recovery.remove(entry);
    EXPECT_THAT(folder.texts, IsEmpty());
    EXPECT_THAT(filesBefore.texts, IsEmpty());
    TMR_Copia_Timer(app, 0);
    EXPECT_EQ(onlyCopy(), copyOf("11", "changed"));
    EXPECT_THAT(offered(), IsEmpty());
}

TEST_F(RecoveryCopies, TheFileIsKeptAsItWasBeforeASaveWritesOverIt) {
    files.put("/home/site7.abc", "what was there; with a remark");
    MNU_Save_Click(app);
    ASSERT_EQ(recovery.list().size(), 1U);
    const Recovery_Entry kept = recovery.list()[0];
    EXPECT_EQ(kept.why, "before Save");
    EXPECT_EQ(kept.name, "SITE7.ABC");
    EXPECT_EQ(kept.model, "ABC 100");
    EXPECT_EQ(keptBytes(filesBefore.texts.at(kept.file)), "what was there; with a remark");
}

TEST_F(RecoveryCopies, TheFileIsKeptBeforeTheFirstByteOfASaveIsWritten) {
    files.failAfter(0);
    MNU_Save_Click(app);
    EXPECT_EQ(files.text("/home/site7.abc"), "");
    ASSERT_EQ(filesBefore.texts.size(), 1U);
    EXPECT_EQ(keptBytes(filesBefore.texts.begin()->second), smallDocument("10", "20"));
}

TEST_F(RecoveryCopies, SaveAsKeepsTheFileThatItWritesOverAsOneOfItsOwnTemplate) {
    files.put("/app/XYZ.ZTP", doubles::smallTemplate());
    files.put("/home/other.xyz", "another document");
    choose("/home/other.xyz");
    MNU_Saveas_Click(app);
    ASSERT_THAT(filesBefore.list(), ElementsAre("20261121032005-1-1.XYZ"));
    EXPECT_EQ(filesBefore.texts.begin()->second, ";time=2026-11-21 03:20:05\r\n;name=other.xyz\r\n"
                                                 ";model=\r\n;kept=before Save\r\nanother document");
}

TEST_F(RecoveryCopies, ASaveThatLosesNothingKeepsNoFile) {
    choose("/home/new.abc");
    MNU_Saveas_Click(app);
    MNU_Save_Click(app);
    EXPECT_THAT(filesBefore.texts, IsEmpty());
}

TEST_F(RecoveryCopies, ACopyThatASaveDidntComeToTheEndOfSaysSo) {
    keepCopy(app, "before Save");
    recovery.leave();
    EXPECT_EQ(recovery.list().at(0).why, "during Save");
}

struct RecoveryTimer : RecoveryCopies {
    void tickUntil(std::int64_t& now, std::int64_t end) {
        for (; now < end; now += recoveryTickMs)
            TMR_Copia_Timer(app, now);
    }
};

TEST_F(RecoveryTimer, TheFirstChangeIsKeptAtTheNextTick) {
    TMR_Copia_Timer(app, 1000);
    EXPECT_EQ(onlyCopy(), copyOf("11", "changed"));
}

TEST_F(RecoveryTimer, NoChangeWaitsLongerThanHalfAMinute) {
    for (std::int64_t late = 0; late < recoveryIntervalMs; late += 1000) {
        std::int64_t now = 0;
        TMR_Copia_Timer(app, now);
        tickUntil(now, late);
        edit(1, std::to_string(late + 100000));
        tickUntil(now, late + recoveryIntervalMs);
        EXPECT_EQ(withoutHeader(onlyCopy()), smallDocument(std::to_string(late + 100000), "20")) << late;
        state.lastCopyMs.reset();
    }
}

TEST_F(RecoveryTimer, TypingOnAndOnWritesFarLessOftenThanItTicks) {
    std::int64_t now = 0;
    for (int k = 0; k < 60; ++k, now += recoveryTickMs) {
        edit(1, std::to_string(k));
        TMR_Copia_Timer(app, now);
    }
    EXPECT_EQ(folder.writes, 15) << "every 20 s of 300 s";
}

TEST_F(RecoveryTimer, WithoutChangesNothingIsWritten) {
    edit(1, "10");
    form.Dirty = false;
    TMR_Copia_Timer(app, 0);
    EXPECT_EQ(folder.writes, 0);
}

TEST_F(RecoveryTimer, ACopyThatFailedIsTriedAgainAtTheNextTick) {
    folder.full = true;
    TMR_Copia_Timer(app, 0);
    folder.full = false;
    TMR_Copia_Timer(app, recoveryTickMs);
    EXPECT_EQ(onlyCopy(), copyOf("11", "changed"));
}

TEST_F(RecoveryTimer, ThatNoCopyCanBeKeptIsToldOnceAndTakenBackWhenOneCan) {
    const auto told = [this] {
        std::vector<std::string> texts;
        for (const Bar_Line& line : mainForm.messageBar().lines())
            texts.push_back(line.text);
        return texts;
    };
    folder.full = true;
    TMR_Copia_Timer(app, 0);
    EXPECT_THAT(told(),
                ElementsAre("No copy of the unsaved changes can be kept in /recovery: a crash would lose "
                            "them. Save the document, and see whether there is "
                            "room and leave to write."));
    mainForm.messageBar().withdraw("no copy"); // somebody read it
    TMR_Copia_Timer(app, recoveryTickMs);
    EXPECT_THAT(told(), IsEmpty());
    folder.full = false;
    TMR_Copia_Timer(app, 2 * recoveryTickMs);
    folder.full = true;
    edit(1, "12");
    TMR_Copia_Timer(app, 2 * recoveryTickMs + recoveryIntervalMs);
    EXPECT_THAT(told(), SizeIs(1));
    MNU_Save_Click(app);
    EXPECT_THAT(told(), IsEmpty()) << "the file has them";
}

TEST_F(RecoveryTimer, AfterASaveTheNextChangeIsTheFirstAgain) {
    TMR_Copia_Timer(app, 0);
    MNU_Save_Click(app);
    TMR_Copia_Timer(app, 1000);
    edit(1, "12");
    TMR_Copia_Timer(app, 2000);
    EXPECT_EQ(onlyCopy(), copyOf("12", "changed"));
}

TEST_F(RecoveryTimer, AnEmptiedModelIsLeftAlone) {
    openOther(Msgb_Code_Cancel);
    TMR_Copia_Timer(app, 0);
    EXPECT_EQ(onlyCopy(), copyOf("11", "before Open"));
}

TEST_F(RecoveryTimer, AChangeWithoutAMarkIsKeptToo) {
    MNU_Save_Click(app);
    ASSERT_FALSE(form.Dirty);
    document.Fields(1).Cells(1, 2).Value = "0";
    TMR_Copia_Timer(app, 0);
    EXPECT_EQ(onlyCopy(), copyOf("0", "changed"));
    MNU_Close_Click(app);
    EXPECT_EQ(onlyCopy(), copyOf("0", "before Close")) << "nobody was asked";
}

TEST_F(RecoveryTimer, WhatPollingOrTheFillOfAPagePutThereIsNoChange) {
    MNU_Save_Click(app);
    Cell_Rec& cell = document.Fields(1).Cells(1, 2);
    document.Passing.put(cell, {1, 1, 2}, "4711");
    for (int tick = 0; tick < 100; ++tick)
        TMR_Copia_Timer(app, std::int64_t{tick} * recoveryLookMs);
    EXPECT_THAT(folder.texts, IsEmpty());
    edit(2, "21");
    TMR_Copia_Timer(app, std::int64_t{100} * recoveryLookMs);
    const std::string both = smallDocument("4711", "21");
    EXPECT_EQ(withoutHeader(onlyCopy()), both) << "a copy is what Save would write";
    const int writes = folder.writes;
    document.Passing.put(cell, {1, 1, 2}, "4712");
    for (int tick = 200; tick < 300; ++tick)
        TMR_Copia_Timer(app, std::int64_t{tick} * recoveryLookMs);
    EXPECT_EQ(folder.writes, writes);
}

TEST_F(RecoveryTimer, AFilledPageOfHalfRegistersIsNoChange) {
    document.Fields(1).Cells(1, 2).Address = "40001/HI";
    document.Fields(1).Cells(1, 2).Value = "007";
    settleDocument(app);
    PRO_Llena_Settings(app.grids, 1, false);
    EXPECT_EQ(value(1), "7");
    TMR_Copia_Timer(app, 0);
    EXPECT_THAT(folder.texts, IsEmpty());
}

TEST_F(RecoveryTimer, TheFirstChangeIsKeptWithinASecondAlsoRightAfterASave) {
    TMR_Copia_Timer(app, 0);
    for (std::int64_t now = recoveryLookMs; now < 20'000; now += recoveryLookMs) {
        MNU_Save_Click(app);
        const std::string low = std::to_string(now + 100'000);
        edit(1, low);
        TMR_Copia_Timer(app, now);
        EXPECT_EQ(withoutHeader(onlyCopy()), smallDocument(low, "20")) << now;
    }
    EXPECT_LE(recoveryLookMs, firstCopyMs / 2) << "a look and the time to write";
}

TEST_F(RecoveryTimer, AfterAQuietWhileTheNextChangeIsTheFirstAgain) {
    TMR_Copia_Timer(app, 0);
    for (std::int64_t now = recoveryLookMs; now < 60'000; now += recoveryLookMs)
        TMR_Copia_Timer(app, now);
    edit(1, "12");
    TMR_Copia_Timer(app, 60'000);
    EXPECT_EQ(onlyCopy(), copyOf("12", "changed"));
}

TEST_F(RecoveryTimer, AFailedSavesChangesAreKeptThoughTheTitleIsClean) {
    files.failAfter(0);
    MNU_Save_Click(app);
    ASSERT_FALSE(form.Dirty);
    document.Fields(1).Cells(2, 2).Value = "22";
    TMR_Copia_Timer(app, 0);
    EXPECT_EQ(withoutHeader(onlyCopy()), smallDocument("11", "22"));
}

TEST_F(RecoveryTimer, TheDefaultTemplatesValuesAreNoChange) {
    App_Bench start;
    start.files.put("/app/kvrt.ztp", doubles::smallTemplate());
    TMR_Abre_ZTP_Timer(start.app);
    TMR_Copia_Timer(start.app, 0);
    EXPECT_THAT(start.folder.texts, IsEmpty());
    start.document.Fields(1).Cells(1, 2).Value = "12";
    TMR_Copia_Timer(start.app, recoveryLookMs);
    EXPECT_EQ(start.folder.texts.size(), 1U);
}

TEST_F(RecoveryTimer, ATableOfTheLargestSizeIsComparedByItsWrittenCellsOnly) {
    document.Fields(2).Cells.redim(32767, 32767);
    document.Fields(2).Rows = 32767;
    document.Fields(2).Columns = 32767;
    document.Fields(2).Cells(32767, 32767).Value = "last";
    settleDocument(app);
    EXPECT_LT(ownText(document).size(), 1000U);
    EXPECT_FALSE(recovery.changed(document));
    document.Fields(1).Cells(1, 2).Value = "12";
    EXPECT_TRUE(recovery.changed(document));
}

TEST_F(RecoveryTimer, AChangedWidthAndACodeThatIsNoNumberAreChangesToo) {
    settleDocument(app);
    document.Fields(2).Cells(0, 1).Width = 950;
    EXPECT_TRUE(recovery.changed(document));
    settleDocument(app);
    document.Fields(1).Cells(1, 2).Has_Messages = true;
    document.Fields(1).Cells(1, 2).Value = "99999999999";
    settleDocument(app);
    document.Fields(1).Cells(1, 2).Value = "99999999998";
    EXPECT_TRUE(recovery.changed(document));
}

TEST_F(RecoveryTimer, ACellThatWasOnlyLookedAtIsNoChange) {
    settleDocument(app);
    document.Passing.put(document.Fields(2).Cells(1, 2), {2, 1, 2}, "3");
    (void)document.Fields(2).Cells(1, 2);
    EXPECT_FALSE(recovery.changed(document));
}

} // namespace
} // namespace zorvane::app
