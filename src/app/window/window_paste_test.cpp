// SPDX-License-Identifier: MIT
// What the whole window says of a text that a cell doesn't take.

#include "app/window/testing/program_fixture.h"

#include <QClipboard>

namespace zorvane::app {
namespace {

using testing::HasSubstr;

class Window_Paste : public doubles::Program_Fixture {
  protected:
    Window_Paste() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT207D", path("site7.KVRT207D"));
    }
};

TEST_F(Window_Paste, APastedBlockIsRefusedInTheMessageBar) {
    startWith("site7.KVRT207D");
    selectField(3);
    const std::string before = lower().TextMatrix(1, 1);
    QGuiApplication::clipboard()->setText("1100\t1200\n");
    lower().setRow(1);
    lower().setCol(1);
    focus(lower());
    QTest::keyClick(&lower().view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(lower().TextMatrix(1, 1), before);
    ASSERT_NE(program->mainForm().messageBar().find("refused input"), nullptr);
    EXPECT_THAT(program->mainForm().messageBar().find("refused input")->text,
                HasSubstr("The clipboard holds several cells or lines"));
    type(1, 1, "1100");
    EXPECT_EQ(program->mainForm().messageBar().find("refused input"), nullptr);
}

} // namespace
} // namespace zorvane::app
