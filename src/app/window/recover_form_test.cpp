// SPDX-License-Identifier: MIT
// "Recover...": the list of copies, and what becomes of the chosen one.

#include "app/window/recover_form.h"
#include "app/window/testing/program_fixture.h"
#include "ui/testing/control_walk.h"

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Words = std::vector<std::string>;

const std::vector<Recovery_Entry> twoCopies = {
    {"2.KVRT207D", "2026-11-21 03:20:05", "SITE7.KVRT207D", "KVRT207D", "changed"},
    {"1.KVRT100", "2026-11-20 17:01:59", "B.KVRT100", "KVRT100", "before Open"}};

class Recover_Form_Test : public testing::Test {
  protected:
    explicit Recover_Form_Test(std::vector<Recovery_Entry> entries = twoCopies)
        : form(
              std::move(entries), [this](const Recovery_Entry& entry) { removed.push_back(entry.file); },
              [this](const QString& prompt, int style, const QString&) {
                  asked.push_back(std::to_string(style) + " " + prompt.toStdString());
                  return answer;
              },
              nullptr) {
        form.show();
        QApplication::setActiveWindow(&form);
    }
    template <class Widget> Widget& named(const char* name) { return *form.findChild<Widget*>(name); }
    QTableWidget& table() { return named<QTableWidget>("LST_Copies"); }
    void key(Qt::Key code) { QTest::keyClick(QApplication::focusWidget(), code); }
    [[nodiscard]] std::string chosen() const { return form.chosen() ? form.chosen()->file : "none"; }

    Words removed;
    Words asked;
    int answer = Msgb_Code_Yes;
    Recover_Form form;
};

TEST_F(Recover_Form_Test, ListsTimeNameModelAndReason) {
    Words texts;
    for (int column = 0; column < table().columnCount(); ++column) {
        texts.push_back(table().horizontalHeaderItem(column)->text().toStdString());
        texts.push_back(table().item(0, column)->text().toStdString());
    }
    EXPECT_EQ(texts, (Words{"Time", "2026-11-21 03:20:05", "Document", "SITE7.KVRT207D", "Model", "KVRT207D",
                            "Kept because", "changed"}));
    EXPECT_EQ(table().rowCount(), 2);
    EXPECT_EQ(form.windowTitle(), "Recover");
    EXPECT_EQ(form.accessibleDescription(), "FrmRecover");
    EXPECT_EQ(table().accessibleName(), "Recovery copies");
    EXPECT_EQ(
        doubles::captions(form),
        (Words{"Documents with changes that were not saved. A copy opens as a document of its own; save it "
               "where you want it.",
               "&Delete", "&Open", "Cancel"}));
}

TEST_F(Recover_Form_Test, IsUsableByKeyboardAndScreenReader) {
    EXPECT_THAT(doubles::controlFaults(form), IsEmpty());
    EXPECT_THAT(doubles::keyClashes(form), IsEmpty());
    EXPECT_THAT(doubles::tabOrder(form), ElementsAre("LST_Copies", "BOT_Delete", "BOT_Open", "BOT_Cancel"));
}

TEST_F(Recover_Form_Test, EveryColumnShowsItsTextsWhole) {
    for (int column = 0; column < table().columnCount(); ++column)
        for (int row = 0; row < table().rowCount(); ++row)
            EXPECT_GE(table().columnWidth(column),
                      table().fontMetrics().horizontalAdvance(table().item(row, column)->text()))
                << row << "," << column;
}

TEST_F(Recover_Form_Test, TheNewestCopyIsChosenAndEnterOpensIt) {
    EXPECT_EQ(chosen(), "2.KVRT207D");
    key(Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(Recover_Form_Test, KeysChooseAnotherCopy) {
    key(Qt::Key_Down);
    named<QPushButton>("BOT_Open").click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(chosen(), "1.KVRT100");
}

TEST_F(Recover_Form_Test, EscapeAndCancelLeaveEverythingAsItIs) {
    key(Qt::Key_Escape);
    EXPECT_EQ(form.result(), QDialog::Rejected);
    form.show();
    named<QPushButton>("BOT_Cancel").click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(removed, IsEmpty());
}

TEST_F(Recover_Form_Test, DeleteAsksFirst) {
    answer = Msgb_Code_No;
    key(Qt::Key_Delete);
    EXPECT_THAT(asked,
                ElementsAre("36 Do you want to delete the copy of SITE7.KVRT207D from 2026-11-21 03:20:05?"));
    EXPECT_THAT(removed, IsEmpty());
    EXPECT_EQ(table().rowCount(), 2);
}

TEST_F(Recover_Form_Test, DeleteGoesOnWithTheNextCopyUntilNoneIsLeft) {
    key(Qt::Key_Delete);
    EXPECT_EQ(chosen(), "1.KVRT100");
    named<QPushButton>("BOT_Delete").click();
    EXPECT_THAT(removed, ElementsAre("2.KVRT207D", "1.KVRT100"));
    EXPECT_EQ(chosen(), "none");
    EXPECT_FALSE(named<QPushButton>("BOT_Open").isEnabled());
    EXPECT_FALSE(named<QPushButton>("BOT_Delete").isEnabled());
}

class Empty_Recover_Form_Test : public Recover_Form_Test {
  protected:
    Empty_Recover_Form_Test() : Recover_Form_Test({}) {}
};

TEST_F(Empty_Recover_Form_Test, SaysThatThereIsNothing) {
    EXPECT_EQ(named<QLabel>("LBL_Words").text(), "No document with unsaved changes has been kept.");
    EXPECT_FALSE(named<QPushButton>("BOT_Open").isEnabled());
    key(Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
}

/// In the whole program.
class Recover_Command_Window : public doubles::Program_Fixture {
  protected:
    Recover_Command_Window() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT207D", path("site7.KVRT207D"));
        startWith("site7.KVRT207D");
        selectField(3);
        type(1, 1, "1130");
        answers = {Msgb_Code_No};
        choose("MNU_Close");
    }
    /// The user presses a button of the dialog once it is there.
    void recoverWith(const char* button) {
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, &user, [button] {
            if (QWidget* form = QApplication::activeModalWidget())
                form->findChild<QPushButton*>(button)->click();
        });
        user.start(1);
        choose("MNU_Recover");
    }
};

TEST_F(Recover_Command_Window, OpensACopyAsADocumentOfItsOwn) {
    recoverWith("BOT_Open");
    EXPECT_EQ(title(), "* site7.kvrt207d - Zorvane");
    selectField(3);
    EXPECT_EQ(lower().TextMatrix(1, 1), "1130");
    EXPECT_FALSE(enabled("MNU_Save"));
    EXPECT_TRUE(enabled("MNU_Saveas"));
}

TEST_F(Recover_Command_Window, CancelOpensNothing) {
    recoverWith("BOT_Cancel");
    EXPECT_EQ(title(), "Zorvane");
}

} // namespace
} // namespace zorvane::app
