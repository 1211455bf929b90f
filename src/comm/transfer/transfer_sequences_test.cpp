// SPDX-License-Identifier: MIT
// What the user sees of each kind of transfer, in order: the panels and the label of the progress form.
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/download.h"
#include "comm/transfer/online.h"
#include "comm/transfer/session.h"
#include "comm/transfer/upload.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::string>;

bool isText(const std::string& line) {
    return line.starts_with("panel ") || line.starts_with("Porcentaje label") ||
           line.starts_with("LostCom") || line == "Porcentaje closing" || line == "Porcentaje unloaded";
}

TEST(RegistersBlocks, EachBlockOfTheDocumentGoesToTheLinkWithoutItsFlag) {
    doubles::Comm_Bench bench;
    bench.addScanBlock(1, 5, "NONE");
    bench.addScanBlock(10, 15, "ALWAYS");
    bench.form.Unit_Id = 3;
    PRO_Registra_Bloques(bench.comm);
    EXPECT_THAT(bench.journal.lines(),
                ElementsAre("link AddScanBlock 1 5 False NONE 3", "link AddScanBlock 10 15 False ALWAYS 3"));
}

/// One field of two rows, whose second column goes to registers 100 and 101.
struct Sequence : ::testing::Test, doubles::Comm_Bench {
    Sequence() : field(addField(2, 2)) {
        field.Cells(1, 2).Address = "100";
        field.Cells(1, 2).Value = "120";
        field.Cells(2, 2).Address = "101";
        field.Cells(2, 2).Value = "121";
    }

    Texts texts() {
        Texts found;
        for (const std::string& line : journal.take())
            if (isText(line)) found.push_back(line);
        return found;
    }

    void uploadStarts(const std::string& secondBlock = "NONE") {
        addScanBlock(100, 109);
        addScanBlock(200, 209, secondBlock);
        MNU_Upload_Click(comm);
    }
    void scanTo(std::int32_t index, bool good = true) {
        link.finishScan(good);
        link.blockIndex = index;
        TMR_Actualiza_valores_Timer(comm);
    }
    Texts download(std::vector<doubles::Write_Script> writes = {}) {
        link.writes = {writes.begin(), writes.end()};
        MNU_Download_Click(comm);
        return texts();
    }
    /// What a download shows around its cells.
    static Texts downloadWith(const Texts& walk,
                              const Texts& end = {"Porcentaje unloaded", "panel 4 = \"Ready\""}) {
        Texts all = downloadStart;
        all.insert(all.end(), walk.begin(), walk.end());
        all.insert(all.end(), end.begin(), end.end());
        return all;
    }

    static inline const Texts uploadStart = {"panel 5 = \"\"", "panel 6 = \"\"", "panel 2 = \"Upload\"",
                                             "panel 4 = \"Uploading... Wait a moment please\"",
                                             "Porcentaje label = \"Uploading data from the controller...\""};
    static inline const Texts downloadStart = {"panel 4 = \"Transferring data to controller...\"",
                                               "panel 5 = \"\"", "panel 6 = \"\"", "panel 2 = \"Download\"",
                                               "Porcentaje label = \"Transferring data to controller...\""};
    static inline const Texts disconnected = {"panel 5 = \"\"", "panel 6 = \"\"", "panel 2 = \"Offline\"",
                                              "Porcentaje unloaded"};
    static constexpr const char* silent = "panel 4 = \"Error. The controller does not respond.\"";
    Field_Rec& field;
};

TEST_F(Sequence, CleanUploadWithoutPolledBlocks) {
    uploadStarts();
    EXPECT_EQ(texts(), uploadStart);
    scanTo(2);
    EXPECT_THAT(texts(), IsEmpty());
    scanTo(1);
    EXPECT_THAT(texts(), ElementsAre("panel 4 = \"Ready\"", "Porcentaje unloaded"));
    EXPECT_FALSE(form.Online);
}

TEST_F(Sequence, CleanUploadWithPolledBlocksGoesOnlineAtTheNextTick) {
    uploadStarts("ALWAYS");
    scanTo(2);
    scanTo(1);
    texts();
    TMR_Actualiza_online_Timer(comm);
    EXPECT_THAT(texts(), ElementsAre("panel 2 = \"Online\"", "LostCom unloaded"));
}

TEST_F(Sequence, UploadWithAFailedBlockEndsLikeACleanOneAndStaysOffline) {
    uploadStarts("ALWAYS");
    texts();
    scanTo(2, false);
    scanTo(1);
    EXPECT_THAT(texts(), ElementsAre("panel 4 = \"Ready\"", "Porcentaje unloaded"));
    EXPECT_FALSE(form.Online);
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
    EXPECT_TRUE(form.Transfer_Was_Upload);
}

TEST_F(Sequence, UploadFromASilentController) {
    uploadStarts();
    texts();
    link.lost = true;
    scanTo(2, false);
    EXPECT_THAT(texts(), ElementsAre("Porcentaje label = \"Error. The controller does not respond.\"",
                                     "Porcentaje closing", "panel 2 = \"Offline\"", silent));
}

TEST_F(Sequence, UploadCancelledWithYesAndWithNo) {
    uploadStarts();
    texts();
    mainForm.answers = {Msgb_Code_No, Msgb_Code_Yes};
    BOT_Cancel_Click(comm);
    scanTo(2);
    EXPECT_THAT(texts(), IsEmpty());
    BOT_Cancel_Click(comm);
    TMR_Actualiza_valores_Timer(comm);
    Texts expected = disconnected;
    expected.push_back("panel 4 = \"Upload cancelled...\"");
    EXPECT_EQ(texts(), expected);
}

TEST_F(Sequence, CleanDownload) {
    EXPECT_EQ(download(), downloadWith({"panel 4 = \"Write: 120 @100 ...Completed\"",
                                        "panel 4 = \"Write: 121 @101 ...Completed\""}));
    EXPECT_FALSE(form.Transfer_Was_Upload);
}

TEST_F(Sequence, DownloadGoesOnAfterAnExceptionABusyControllerAndSilence) {
    for (const char* response : {"Illegal data value (exception 3)", "BUSY", ""}) {
        EXPECT_EQ(download({{{.good = false, .response = response}}}),
                  downloadWith({"panel 4 = \"Write: 120 @100 ...Completed\"",
                                "panel 4 = \"Write: 120 @100 ...Failed\"",
                                "panel 4 = \"Write: 121 @101 ...Completed\""}))
            << response;
    }
}

TEST_F(Sequence, DownloadShowsCellsThatItSkips) {
    addNotDownloadable("100");
    EXPECT_EQ(download(), downloadWith({"panel 4 = \"100 ...No Download\"",
                                        "panel 4 = \"Write: 121 @101 ...Completed\""}));
}

TEST_F(Sequence, DownloadToABoardShowsItsCellsAsToAnyOther) {
    document.Controller_Model = "R7702-16";
    addDownloadBlock("100", "102", 0);
    EXPECT_EQ(download(), downloadWith({"panel 4 = \"Write: 120 @100 ...Completed\"",
                                        "panel 4 = \"Write: 121 @101 ...Completed\""}));
}

TEST_F(Sequence, DownloadToALostController) {
    addField(1, 2).Cells(1, 2).Address = "200";
    EXPECT_EQ(download({{}, {{.good = false, .before = [this] { link.lost = true; }}}}),
              downloadWith({"panel 4 = \"Write: 120 @100 ...Completed\"",
                            "panel 4 = \"Write: 121 @101 ...Completed\"",
                            "panel 4 = \"Write: 121 @101 ...Failed\""},
                           {"Porcentaje label = \"Error. The controller does not respond.\"",
                            "Porcentaje closing", "panel 2 = \"Offline\"", silent}));
}

TEST_F(Sequence, DownloadCancelledDuringAWrite) {
    mainForm.answers = {Msgb_Code_Yes};
    Texts end = disconnected;
    end.push_back("panel 4 = \"Download cancelled...\"");
    EXPECT_EQ(download({{{.before = [this] { BOT_Cancel_Click(comm); }}, {}}}), downloadWith({}, end));
}

TEST_F(Sequence, LinkLostWhileOnlineAndBack) {
    addScanBlock(100, 109, "ALWAYS");
    goOnline(comm);
    texts();
    link.lost = true;
    TMR_Actualiza_online_Timer(comm);
    EXPECT_THAT(texts(), ElementsAre("panel 2 = \"Retrying\"",
                                     "panel 4 = \"The controller does not respond...\"", "LostCom shown"));
    TMR_Actualiza_online_Timer(comm);
    EXPECT_THAT(texts(), ElementsAre("panel 2 = \"Retrying\""));
    link.lost = false;
    TMR_Actualiza_online_Timer(comm);
    EXPECT_THAT(texts(), ElementsAre("panel 2 = \"Online\"", "panel 4 = \"\"", "LostCom unloaded"));
}

} // namespace
} // namespace zorvane
