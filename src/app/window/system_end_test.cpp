// SPDX-License-Identifier: MIT
// The program is ended by the system: without a question, with a copy of the changes.

#include "app/window/testing/program_fixture.h"
#include "ui/forms/msgb.h"

#include <QProcess>
#include <QPushButton>
#include <QTimer>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class System_End_Test : public doubles::Program_Fixture {
  protected:
    System_End_Test() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/DEFAULT.KVRT207D", path("site7.KVRT207D"));
    }
    ~System_End_Test() override {
        controller.terminate();
        controller.waitForFinished();
    }
    void connectSlowController() {
        controller.start(ZORVANE_SIM, {"--template", QString::fromStdString(path("app/KVRT207D.ZTP")),
                                       "--pty", QString::fromStdString(path("port")), "--pace", "300"});
        ASSERT_TRUE(controller.waitForReadyRead());
        startWith("site7.KVRT207D");
        Port_Settings settings;
        settings.port = path("port");
        settings.line.baud = 115200;
        settings.retries = 0;
        settings.timeOutMs = 5'000;
        program->link().setPortSettings(settings);
    }
    [[nodiscard]] std::vector<std::string> copiesBecause() const {
        std::vector<std::string> reasons;
        for (const Recovery_Entry& entry : Recovery(
                                               store, [] { return ""; }, "another")
                                               .list())
            reasons.push_back(entry.why);
        return reasons;
    }
    [[nodiscard]] bool waitForEnd() {
        return QTest::qWaitFor([&] { return program->edge().ended(); }, 10'000);
    }

    QProcess controller;
    mutable Native_Recovery_Folder store{path("recovery")};
};

TEST_F(System_End_Test, ChangesAreKeptAndNobodyIsAsked) {
    startWith("site7.KVRT207D");
    selectField(3);
    type(1, 1, "1077");
    program->endBySystem();
    EXPECT_TRUE(program->edge().ended());
    EXPECT_EQ(program->mainForm().exitCode(), 0);
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(copiesBecause(), ElementsAre("ended by the system"));
}

TEST_F(System_End_Test, ADocumentWithoutChangesLeavesNoCopy) {
    startWith("site7.KVRT207D");
    program->endBySystem();
    EXPECT_TRUE(program->edge().ended());
    EXPECT_THAT(copiesBecause(), IsEmpty());
}

TEST_F(System_End_Test, ATransferIsCancelledFirst) {
    connectSlowController();
    selectField(3);
    type(1, 1, "1077");
    choose("MNU_Upload");
    program->endBySystem();
    EXPECT_THAT(copiesBecause(), ElementsAre("ended by the system")) << "at once";
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(panel(4), "Upload cancelled...");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(System_End_Test, ADownloadIsCancelledFirst) {
    connectSlowController();
    QTimer::singleShot(200, &program->window(), [this] { program->endBySystem(); });
    choose("MNU_Download");
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(panel(4), "Download cancelled...");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(System_End_Test, AnOpenQuestionGoesUnanswered) {
    connectSlowController();
    program->mainForm().ask = [this](const QString& prompt, int style, const QString& title) {
        return ui::Msgb_Show(&program->window(), prompt, style, title);
    };
    choose("MNU_Upload");
    QTimer::singleShot(200, &program->window(), [this] { program->endBySystem(); });
    program->window().findChild<QPushButton*>("BOT_Cancel")->click();
    ASSERT_TRUE(waitForEnd());
    EXPECT_EQ(panel(4), "Upload cancelled...");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(System_End_Test, ASecondWishWaitsForNothing) {
    connectSlowController();
    choose("MNU_Upload");
    program->endBySystem();
    EXPECT_FALSE(program->edge().ended());
    program->endBySystem();
    EXPECT_TRUE(program->edge().ended());
}

} // namespace
} // namespace zorvane::app
