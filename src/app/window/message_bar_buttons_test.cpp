// SPDX-License-Identifier: MIT
// The lines of the message bar in the program: shown, pressed, taken away, gone with their document.

#include "app/document/document_rows.h"
#include "app/window/testing/program_fixture.h"
#include "comm/main_form/bar_topics.h"
#include "ui/main/message_bar_view.h"

#include <QLabel>
#include <QPushButton>

namespace zorvane::app {
namespace {

struct Message_Bar_Buttons : doubles::Program_Fixture {
    [[nodiscard]] Bar_Lines& bar() const { return program->mainForm().messageBar(); }
    [[nodiscard]] ui::Message_Bar_View& view() const { return program->window().messageBar(); }
    template <class Widget> Widget& named(const char* name) {
        QApplication::processEvents();
        Widget* widget = program->window().findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
};

TEST_F(Message_Bar_Buttons, a_line_that_is_told_is_shown) {
    putModels();
    start();
    EXPECT_FALSE(view().isVisible());
    bar().tell({"save", Bar_Kind::Warning, "Not saved: 5 \xB5V", {{"Save As...", {}}}});
    EXPECT_TRUE(view().isVisible());
    EXPECT_EQ(named<QLabel>("BAR_1_Text").text(), QStringLiteral("Not saved: 5 µV"));
    EXPECT_EQ(named<QPushButton>("BAR_1_Button1").text(), "Save As...");
}

TEST_F(Message_Bar_Buttons, its_cross_takes_a_line_away) {
    putModels();
    start();
    bar().tell({"save", Bar_Kind::Warning, "Not saved", {}});
    QTest::mouseClick(&named<QPushButton>("BAR_1_Close"), Qt::LeftButton);
    EXPECT_TRUE(bar().lines().empty());
    EXPECT_FALSE(view().isVisible());
}

TEST_F(Message_Bar_Buttons, after_a_transfer_a_line_offers_to_compare) {
    putModels();
    startWith("app/EXAMPLE.KVRT100");
    std::vector<std::string> compared;
    program->mainForm().extras.compare = [&](const std::string& path) { compared.push_back(path); };
    bar().tell({bar_topic::downloadEnd, Bar_Kind::Note, "Download of 3 values", {{"Log...", {}}}});
    QPushButton& button = named<QPushButton>("BAR_1_Button2");
    EXPECT_EQ(button.text(), "Compare");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(compared, std::vector<std::string>{""}) << "with the controller";
}

TEST_F(Message_Bar_Buttons, a_button_that_fails_ends_as_every_command_does) {
    putModels();
    start();
    int pressed = 0;
    bar().tell({"save", Bar_Kind::Warning, "Not saved", {{"Undo", [&] {
                                                              ++pressed;
                                                              bar().withdraw("save");
                                                          }}}});
    QTest::mouseClick(&named<QPushButton>("BAR_1_Button1"), Qt::LeftButton);
    EXPECT_EQ(pressed, 1);
    EXPECT_FALSE(view().isVisible());
    bar().tell({"save", Bar_Kind::Warning, "Not saved", {{"Undo", [] {
                                                              throw Run_Time_Failure(Failure::Subscript);
                                                          }}}});
    QTest::mouseClick(&named<QPushButton>("BAR_1_Button1"), Qt::LeftButton);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].text, "Run-time error '9': Subscript out of range");
}

TEST_F(Message_Bar_Buttons, lines_of_a_document_go_with_it) {
    putModels();
    startWith("app/EXAMPLE.KVRT207D");
    const auto tellBoth = [this] {
        bar().tell({"copies", Bar_Kind::Note, "One copy is there", {}, false});
        bar().tell({"limits", Bar_Kind::Warning, "One value is outside its limits", {}});
    };
    tellBoth();
    chosenFile.clear();
    choose("MNU_Open");
    EXPECT_NE(bar().find("limits"), nullptr) << "the dialog was cancelled";
    open("app/EXAMPLE.KVRT100");
    EXPECT_EQ(bar().find("limits"), nullptr);
    EXPECT_NE(bar().find("copies"), nullptr);
    tellBoth();
    choose("MNU_Close");
    EXPECT_EQ(bar().find("limits"), nullptr);
    EXPECT_NE(bar().find("copies"), nullptr);
    EXPECT_TRUE(view().isVisible()) << "without a frame, too";
}

TEST_F(Message_Bar_Buttons, opening_and_closing_leave_the_keyboard_out_of_it) {
    putModels();
    start();
    bar().tell({"copies", Bar_Kind::Note, "One copy is there", {{"Recover...", {}}}, false});
    open("app/EXAMPLE.KVRT207D");
    QWidget* owner = program->window().focusWidget();
    EXPECT_FALSE(view().isAncestorOf(owner)) << owner->objectName().toStdString();
    choose("MNU_Close");
    EXPECT_FALSE(view().isAncestorOf(program->window().focusWidget()));
    open("app/EXAMPLE.KVRT207D");
    EXPECT_FALSE(view().isAncestorOf(program->window().focusWidget()));
}

TEST_F(Message_Bar_Buttons, the_documents_of_the_models_fit_and_say_nothing) {
    putModels();
    start();
    for (const char* model : {"KVRT", "KVRT100", "KVRT207D", "R7702-16"})
        for (const char* name : {"app/EXAMPLE.", "app/DEFAULT."}) {
            open(std::string(name) + model);
            EXPECT_FALSE(view().isVisible())
                << name << model << ": " << (bar().lines().empty() ? "" : bar().lines().front().text);
        }
}

TEST_F(Message_Bar_Buttons, show_goes_to_the_cell_and_scrolls_to_it) {
    putModels();
    std::string text = this->text("app/EXAMPLE.KVRT207D");
    const std::string last = "ROW_12=Phase shift,-300,";
    ASSERT_NE(text.find(last), std::string::npos);
    put("site7.kvrt207d", text.replace(text.find(last), last.size(), "ROW_12=Phase shift,-40000,"));
    startWith("site7.kvrt207d");
    ASSERT_EQ(bar().lines().size(), 1U);
    EXPECT_EQ(bar().lines()[0].text, "One value is outside its limits: Regulation, row 12, Value (-40000).");
    QTest::mouseClick(&named<QPushButton>("BAR_1_Button1"), Qt::LeftButton);
    EXPECT_EQ(upper().Row(), 3);
    EXPECT_EQ(lower().Row(), 12);
    EXPECT_EQ(lower().Col(), 1);
    QApplication::processEvents();
    const QRect cell = lower().view().visualRect(lower().view().currentIndex());
    const int barTop = lower().view().viewport()->mapFromGlobal(view().mapToGlobal(QPoint())).y();
    EXPECT_GE(cell.top(), 0);
    EXPECT_LT(cell.bottom(), barTop);
}

TEST_F(Message_Bar_Buttons, open_as_text_hands_the_file_to_the_desktop) {
    putModels();
    put("site7.kvrt100", "[Field_1_Default]\r\nROW_1=1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18\r\n");
    startWith("site7.kvrt100");
    ASSERT_FALSE(bar().lines().empty());
    EXPECT_THAT(bar().lines().front().text,
                testing::StartsWith("SITE7_Updated.KVRT100 was read in part: line 2 stopped it"));
    QTest::mouseClick(&named<QPushButton>("BAR_1_Button2"), Qt::LeftButton);
    EXPECT_THAT(opened, testing::ElementsAre(
                            testing::ElementsAre("Open", "SITE7_Updated.KVRT100", "", folder.path())));
}

TEST_F(Message_Bar_Buttons, a_text_without_room_in_panel_4_stands_in_the_bar) {
    putModels();
    startWith("app/EXAMPLE.KVRT207D");
    program->mainForm().setPanel(Panel::Message, "READ ONLY FILE. Can't modify the value.");
    EXPECT_FALSE(view().isVisible()) << "it may be gone in a moment";
    ASSERT_TRUE(QTest::qWaitFor([&] { return view().isVisible(); }));
    EXPECT_EQ(named<QLabel>("BAR_1_Text").text(), "READ ONLY FILE. Can't modify the value.");
    EXPECT_EQ(named<QLabel>("BAR_1_Word").text(), "Note");
    program->window().resize(1200, 600);
    QApplication::processEvents();
    EXPECT_FALSE(view().isVisible());
    program->window().resize(456, 450);
    ASSERT_TRUE(QTest::qWaitFor([&] { return view().isVisible(); }));
    program->mainForm().setPanel(Panel::Message, "");
    EXPECT_FALSE(view().isVisible());
}

TEST_F(Message_Bar_Buttons, an_upload_tells_of_values_that_no_cell_takes) {
    putModels();
    startWith("app/EXAMPLE.KVRT207D");
    program->app().document().Unlisted = {{{1, 1, 2}, "of the file"}};
    program->app().document().Fields(3).Cells(1, 2).Value = "31000";
    tellUploaded(program->app());
    EXPECT_EQ(bar().lines().front().text,
              "One value is outside its limits: Regulation, row 1, Value (31000).");
}

} // namespace
} // namespace zorvane::app
