// SPDX-License-Identifier: MIT
// The notice of a lost link beside a question.

#include "ui/base/beside.h"
#include "ui/forms/lost_com.h"
#include "ui/forms/msgb.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

const QRect screenArea(0, 0, 1280, 1024);
const QSize notice(410, 70);

TEST(Beside, BelowWhereThereIsRoom) {
    EXPECT_EQ(placeBeside(notice, {400, 400, 440, 130}, screenArea, 36), QPoint(414, 566));
}

TEST(Beside, AboveWhereThereIsNoneBelow) {
    EXPECT_EQ(placeBeside(notice, {400, 880, 440, 130}, screenArea, 36), QPoint(414, 774));
}

TEST(Beside, RightOrLeftOfAWindowAsHighAsTheScreen) {
    EXPECT_EQ(placeBeside(notice, {0, 0, 440, 1024}, screenArea, 36), QPoint(476, 476));
    EXPECT_EQ(placeBeside(notice, {800, 0, 480, 1024}, screenArea, 36), QPoint(354, 476));
}

TEST(Beside, InTheCornerOfAScreenWithoutRoom) {
    EXPECT_EQ(placeBeside(notice, screenArea, screenArea, 36), QPoint(870, 954));
    EXPECT_EQ(placeBeside({2000, 2000}, screenArea, screenArea, 36), QPoint(0, 0));
}

TEST(Beside, StaysOnTheScreenBesideAWindowAtItsEdge) {
    EXPECT_EQ(placeBeside(notice, {-200, 400, 440, 130}, screenArea, 36), QPoint(0, 566));
}

class Lost_Com_Beside_Question : public testing::Test {
  protected:
    void SetUp() override {
        window.setGeometry(100, 100, 600, 500);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    /// Asks a question, and does something once it stands.
    int askAnd(const std::function<void(QWidget&)>& meanwhile) {
        QTimer::singleShot(0, &window, [&] {
            QWidget* question = QApplication::activeModalWidget();
            ASSERT_NE(question, nullptr);
            QApplication::processEvents();
            meanwhile(*question);
            question->findChild<QPushButton*>("BOT_1")->click();
        });
        return Msgb_Show(&window, "Do you want to save this file?", 35, "Zorvane");
    }
    void expectBesideAndAlive(QWidget& question) {
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return !lost.frameGeometry().intersects(question.frameGeometry()); }));
        QTest::mouseClick(lost.findChild<QPushButton*>("OKButton"), Qt::LeftButton);
        EXPECT_FALSE(lost.isVisible()) << "its button is dead";
        EXPECT_TRUE(question.isVisible());
    }
    QWidget window;
    Lost_Com lost{&window};
};

TEST_F(Lost_Com_Beside_Question, OpenedWhileAQuestionStands) {
    askAnd([this](QWidget& question) {
        lost.show();
        QApplication::processEvents();
        expectBesideAndAlive(question);
    });
}

TEST_F(Lost_Com_Beside_Question, OpenedBeforeTheQuestion) {
    lost.show();
    askAnd([this](QWidget& question) { expectBesideAndAlive(question); });
}

TEST_F(Lost_Com_Beside_Question, MovesAwayFromAQuestionThatMoves) {
    askAnd([this](QWidget& question) {
        lost.show();
        QApplication::processEvents();
        question.move(lost.pos());
        QApplication::processEvents();
        expectBesideAndAlive(question);
    });
}

TEST_F(Lost_Com_Beside_Question, OutlivesTheQuestionAndStandsBesideTheNext) {
    askAnd([this](QWidget&) { lost.show(); });
    EXPECT_TRUE(lost.isVisible());
    askAnd([this](QWidget& question) { expectBesideAndAlive(question); });
}

TEST_F(Lost_Com_Beside_Question, AQuestionOfAQuestionHasItBesideItToo) {
    askAnd([this](QWidget&) {
        lost.show();
        askAnd([this](QWidget& second) { expectBesideAndAlive(second); });
    });
}

} // namespace
} // namespace zorvane::ui
