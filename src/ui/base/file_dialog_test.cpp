// SPDX-License-Identifier: MIT
#include "ui/base/file_dialog.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

class File_Dialog_Test : public testing::Test {
  protected:
    File_Dialog_Test() {
        dialog.DialogTitle = "Open";
        dialog.Filter = "ABC Configuration (*.ABC)|*.ABC|DEF Configuration (*.DEF)|*.DEF|";
        dialog.InitDir = folder.path();
        dialog.run = [this](QFileDialog& shown) {
            shown.show();
            if (look) look(shown);
            if (!typed.isEmpty()) type(shown, typed);
            return shown.result() == QDialog::Accepted;
        };
    }
    void create(const QString& name) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    static void type(QFileDialog& shown, const QString& name) {
        auto* edit = shown.findChild<QLineEdit*>("fileNameEdit");
        ASSERT_NE(edit, nullptr);
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    QTemporaryDir folder;
    File_Dialog dialog;
    QString typed;
    std::function<void(QFileDialog&)> look;
};

TEST_F(File_Dialog_Test, OffersTheFiltersAsTheyStand) {
    dialog.FilterIndex = 2;
    look = [](QFileDialog& shown) {
        EXPECT_EQ(shown.windowTitle(), "Open");
        EXPECT_EQ(shown.nameFilters(),
                  (QStringList{"ABC Configuration (*.ABC)", "DEF Configuration (*.DEF)"}));
        EXPECT_EQ(shown.selectedNameFilter(), "DEF Configuration (*.DEF)");
        EXPECT_TRUE(shown.testOption(QFileDialog::DontUseNativeDialog));
    };
    EXPECT_FALSE(dialog.ShowOpen(nullptr));
}

TEST_F(File_Dialog_Test, GivesTheFileTheFilterAndTheReadOnlyTick) {
    create("site7.def");
    typed = "site7.def";
    look = [](QFileDialog& shown) {
        shown.selectNameFilter("DEF Configuration (*.DEF)");
        auto* box = shown.findChild<QCheckBox*>("CHK_ReadOnly");
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "Open as &read-only");
        EXPECT_FALSE(box->isChecked());
        box->setChecked(true);
    };
    EXPECT_TRUE(dialog.ShowOpen(nullptr));
    EXPECT_EQ(dialog.FileName, folder.filePath("site7.def"));
    EXPECT_EQ(dialog.FilterIndex, 2);
    EXPECT_EQ(dialog.Flags & 1, 1);
}

TEST_F(File_Dialog_Test, ClearsTheReadOnlyFlagWithoutATick) {
    create("site7.abc");
    typed = "site7.abc";
    dialog.Flags = 1;
    look = [](QFileDialog& shown) { shown.findChild<QCheckBox*>("CHK_ReadOnly")->setChecked(false); };
    EXPECT_TRUE(dialog.ShowOpen(nullptr));
    EXPECT_EQ(dialog.Flags, 0);
}

TEST_F(File_Dialog_Test, CanHideTheReadOnlyBox) {
    dialog.Flags = 4;
    look = [](QFileDialog& shown) { EXPECT_EQ(shown.findChild<QCheckBox*>("CHK_ReadOnly"), nullptr); };
    EXPECT_FALSE(dialog.ShowOpen(nullptr));
}

TEST_F(File_Dialog_Test, GivesATypedNameThatDoesntExist) {
    typed = "missing.abc";
    EXPECT_TRUE(dialog.ShowOpen(nullptr));
    EXPECT_EQ(dialog.FileName, folder.filePath("missing.abc"));
}

TEST_F(File_Dialog_Test, TellsThatTheUserCancelled) {
    dialog.FileName = "";
    look = [](QFileDialog& shown) { shown.reject(); };
    EXPECT_FALSE(dialog.ShowOpen(nullptr));
    EXPECT_EQ(dialog.FileName, "");
}

TEST_F(File_Dialog_Test, ListsFilesInAnyLetterCase) {
    create("one.abc");
    create("TWO.ABC");
    create("three.def");
    QStringList listed;
    look = [&](QFileDialog& shown) {
        auto* files = shown.findChild<QFileSystemModel*>();
        ASSERT_NE(files, nullptr);
        const QModelIndex root = files->index(folder.path());
        ASSERT_TRUE(QTest::qWaitFor([&] { return files->rowCount(root) == 2; }));
        for (int row = 0; row < 2; ++row)
            listed << files->index(row, 0, root).data().toString();
    };
    EXPECT_FALSE(dialog.ShowOpen(nullptr));
    listed.sort();
    EXPECT_EQ(listed, (QStringList{"TWO.ABC", "one.abc"}));
}

TEST_F(File_Dialog_Test, SavesOverAFileWithoutAQuestionUnlessTheFlagSaysSo) {
    create("site7.abc");
    typed = "site7.abc";
    dialog.Flags = 4;
    look = [](QFileDialog& shown) {
        EXPECT_TRUE(shown.testOption(QFileDialog::DontConfirmOverwrite));
        EXPECT_EQ(shown.findChild<QCheckBox*>("CHK_ReadOnly"), nullptr);
    };
    EXPECT_TRUE(dialog.ShowSave(nullptr));
    EXPECT_EQ(dialog.FileName, folder.filePath("site7.abc"));
    typed.clear();
    dialog.Flags = 2;
    look = [](QFileDialog& shown) { EXPECT_FALSE(shown.testOption(QFileDialog::DontConfirmOverwrite)); };
    EXPECT_FALSE(dialog.ShowSave(nullptr));
}

TEST_F(File_Dialog_Test, AppendsTheExtensionThatTheOwnerGives) {
    typed = "site8";
    dialog.DefaultExt = "ABC";
    EXPECT_TRUE(dialog.ShowSave(nullptr));
    EXPECT_EQ(dialog.FileName, folder.filePath("site8.ABC"));
    dialog.DefaultExt = "";
    typed = "site9";
    EXPECT_TRUE(dialog.ShowSave(nullptr));
    EXPECT_EQ(dialog.FileName, folder.filePath("site9"));
}

} // namespace
} // namespace zorvane::ui
