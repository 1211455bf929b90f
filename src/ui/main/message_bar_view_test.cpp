// SPDX-License-Identifier: MIT
// The message bar over the lower grid of the main form.

#include "ui/main/main_window.h"
#include "ui/main/message_bar_view.h"
#include "ui/testing/control_walk.h"
#include "ui/testing/sample_window.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Words = std::vector<std::string>;

struct Message_Bar_View_Test : testing::Test {
    Message_Bar_View_Test() {
        samples::fillWindow(window);
        window.show();
        QApplication::setActiveWindow(&window);
        settle();
        window.FLX_Settings().SetFocus();
        bar.notify = [this](QAccessibleEvent& event) {
            EXPECT_EQ(event.type(), QAccessible::Alert);
            alerts.push_back(event.accessibleInterface()->text(QAccessible::Name).toStdString());
        };
    }

    static void settle() {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }
    void show(const std::vector<Shown_Line>& lines) {
        bar.setLines(lines);
        settle();
    }
    Shown_Line line(const char* topic, const char* text, const std::vector<const char*>& captions = {}) {
        Shown_Line made{topic, true, text, {}};
        for (const char* caption : captions)
            made.buttons.push_back({caption, [this, caption] { pressed.push_back(caption); }});
        return made;
    }
    template <class Widget = QWidget> Widget& named(const char* name) {
        Widget* widget = window.findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    Flex_Grid_View& grid() { return window.FLX_Settings().view(); }
    [[nodiscard]] std::string focus() const {
        return window.focusWidget() == nullptr ? "" : window.focusWidget()->objectName().toStdString();
    }
    /// The rows of the lower grid that no bar covers.
    [[nodiscard]] int lastFreeRow() {
        const QPoint corner = grid().viewport()->mapTo(window.centralWidget(), QPoint());
        const int free = bar.isVisible() ? bar.y() - corner.y() : grid().viewport()->height();
        int row = grid().rowAt(free - 1);
        return row < 0 ? window.FLX_Settings().Rows() - 1 : row + 1;
    }

    Main_Window window;
    Message_Bar_View& bar = window.messageBar();
    Words pressed;
    Words alerts; ///< what a screen reader was told
};

TEST_F(Message_Bar_View_Test, is_there_only_while_it_has_something_to_say) {
    EXPECT_FALSE(bar.isVisible());
    show({line("save", "The save failed.")});
    EXPECT_TRUE(bar.isVisible());
    show({});
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(Message_Bar_View_Test, a_line_that_is_told_again_keeps_its_drawing) {
    show({line("gaps", "Blocks 3 and 4 aren't read.")});
    const qint64 drawing = named<QLabel>("BAR_1_Icon").pixmap().cacheKey();
    show({line("gaps", "Blocks 3 and 5 aren't read.")});
    EXPECT_EQ(named<QLabel>("BAR_1_Icon").pixmap().cacheKey(), drawing);
    Shown_Line note = line("gaps", "All blocks are read.");
    note.warning = false;
    show({note});
    EXPECT_NE(named<QLabel>("BAR_1_Icon").pixmap().cacheKey(), drawing);
}

TEST_F(Message_Bar_View_Test, says_a_word_and_the_text_of_each_line) {
    Shown_Line note = line("copies", "One copy is there.");
    note.warning = false;
    show({note, line("save", "The save failed.", {"Save As..."})});
    EXPECT_EQ(named<QLabel>("BAR_1_Word").text(), "Note");
    EXPECT_EQ(named<QLabel>("BAR_1_Text").text(), "One copy is there.");
    EXPECT_EQ(named<QLabel>("BAR_2_Word").text(), "Warning");
    EXPECT_EQ(named<QLabel>("BAR_2_Text").text(), "The save failed.");
    EXPECT_FALSE(named<QLabel>("BAR_1_Icon").pixmap().isNull());
    EXPECT_NE(named<QLabel>("BAR_1_Icon").pixmap().toImage(), named<QLabel>("BAR_2_Icon").pixmap().toImage());
    EXPECT_EQ(named<QPushButton>("BAR_2_Button1").text(), "Save As...");
    EXPECT_FALSE(named<QPushButton>("BAR_2_Button2").isVisible());
}

TEST_F(Message_Bar_View_Test, moves_no_control_and_changes_no_size) {
    const auto places = [&] {
        std::vector<QRect> all;
        for (const char* name : {"Frame2", "Frame3", "FLX_Configuration", "FLX_Settings", "PicLineHoriz",
                                 "StatusBar1", "StatusBar1_4"})
            all.push_back(named(name).geometry());
        return all;
    };
    const std::vector<QRect> before = places();
    const std::vector<std::int32_t> widths{window.FLX_Settings().ColWidth(0),
                                           window.FLX_Settings().ColWidth(3)};
    show({line("a", "One"), line("b", "Two"), line("c", "Three"), line("d", "Four"), line("e", "Five")});
    EXPECT_EQ(places(), before);
    EXPECT_EQ(widths, (std::vector<std::int32_t>{window.FLX_Settings().ColWidth(0),
                                                 window.FLX_Settings().ColWidth(3)}));
}

TEST_F(Message_Bar_View_Test, takes_a_third_of_the_grid_at_most_and_scrolls_what_does_not_fit) {
    std::vector<Shown_Line> many;
    for (const char* topic : {"a", "b", "c", "d", "e", "f", "g"})
        many.push_back(line(topic, "A line of the bar", {"Show"}));
    show(many);
    EXPECT_LE(bar.height(), grid().height() / 3);
    EXPECT_GT(bar.verticalScrollBar()->maximum(), 0);
    named<QPushButton>("BAR_7_Close").setFocus();
    settle();
    EXPECT_TRUE(bar.viewport()->rect().contains(
        named("BAR_7_Close").mapTo(bar.viewport(), named("BAR_7_Close").rect().center())));
}

TEST_F(Message_Bar_View_Test, wraps_a_long_text) {
    show({line("a", "Short", {"Show", "Open as text"})});
    const int low = named("BAR_1").height();
    show({line("a", "A text that is much too long for one line of a window of that size, so it goes on below",
               {"Show", "Open as text"})});
    EXPECT_GT(named("BAR_1").height(), low);
    const QLabel& text = named<QLabel>("BAR_1_Text");
    EXPECT_GE(text.height(), 2 * text.fontMetrics().height());
    EXPECT_EQ(text.toolTip(), "");
}

TEST_F(Message_Bar_View_Test, is_one_line_with_a_tool_tip_over_a_grid_that_is_too_low) {
    show({line("a", "A text that is much too long for one line of a window of that size, so it is cut",
               {"Show"})});
    QWidget& splitter = window.PicLineHoriz();
    QTest::mousePress(&splitter, Qt::LeftButton, {}, QPoint(100, 2));
    QTest::mouseMove(&splitter, QPoint(100, 900));
    QTest::mouseRelease(&splitter, Qt::LeftButton, {}, QPoint(100, 0));
    settle();
    ASSERT_LT(grid().height() / 3, bar.lineHeight());
    EXPECT_EQ(bar.height(), bar.lineHeight());
    EXPECT_EQ(bar.geometry().bottom(), window.Frame3().geometry().bottom());
    EXPECT_EQ(named("BAR_1_Text").toolTip(),
              "A text that is much too long for one line of a window of that size, so it is cut");
}

TEST_F(Message_Bar_View_Test, is_shown_without_the_lower_frame_too) {
    window.Frame2().hide();
    window.Frame3().hide();
    show({line("copies", "One copy is there.")});
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(window.centralWidget()->rect().contains(bar.geometry()));
    window.Frame3().show();
    settle();
    EXPECT_EQ(bar.width(), grid().viewport()->width());
}

TEST_F(Message_Bar_View_Test, leaves_the_scroll_bars_of_the_grid_free) {
    show({line("a", "One")});
    ASSERT_TRUE(grid().horizontalScrollBar()->isVisible());
    for (QScrollBar* scroll : {grid().horizontalScrollBar(), grid().verticalScrollBar()}) {
        const QRect place(scroll->mapTo(window.centralWidget(), QPoint()), scroll->size());
        EXPECT_FALSE(place.intersects(bar.geometry()));
    }
}

TEST_F(Message_Bar_View_Test, the_last_row_can_be_reached_by_wheel_and_by_key) {
    show({line("a", "One"), line("b", "Two")});
    grid().verticalScrollBar()->setValue(grid().verticalScrollBar()->maximum());
    settle();
    EXPECT_EQ(lastFreeRow(), 30);
    grid().verticalScrollBar()->setValue(0);
    QTest::keyClick(&grid(), Qt::Key_End, Qt::ControlModifier);
    settle();
    EXPECT_EQ(window.FLX_Settings().Row(), 30);
    EXPECT_EQ(lastFreeRow(), 30);
    show({});
    QTest::keyClick(&grid(), Qt::Key_End, Qt::ControlModifier);
    settle();
    EXPECT_EQ(lastFreeRow(), 30);
    EXPECT_EQ(grid().verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

TEST_F(Message_Bar_View_Test, the_last_row_can_be_reached_where_all_rows_had_room) {
    window.FLX_Settings().setRows(10);
    settle();
    ASSERT_EQ(grid().verticalScrollBar()->maximum(), 0);
    show({line("a", "One"), line("b", "Two"), line("c", "Three")});
    ASSERT_LT(lastFreeRow(), 9);
    grid().verticalScrollBar()->setValue(grid().verticalScrollBar()->maximum());
    settle();
    EXPECT_EQ(lastFreeRow(), 9);
}

TEST_F(Message_Bar_View_Test, the_current_cell_does_not_stay_under_it) {
    QTest::keyClick(&grid(), Qt::Key_End, Qt::ControlModifier);
    settle();
    show({line("a", "One"), line("b", "Two")});
    EXPECT_EQ(lastFreeRow(), 30);
}

TEST_F(Message_Bar_View_Test, a_current_cell_out_of_sight_stays_there) {
    grid().verticalScrollBar()->setValue(0);
    window.FLX_Settings().setRow(30);
    settle();
    show({line("a", "One"), line("b", "Two")});
    EXPECT_EQ(grid().verticalScrollBar()->value(), 0);
}

TEST_F(Message_Bar_View_Test, its_place_stays_right_when_the_window_grows) {
    show({line("a", "One"), line("b", "Two")});
    QTest::keyClick(&grid(), Qt::Key_End, Qt::ControlModifier);
    window.resize(window.width() * 3 / 2, window.height() * 6 / 5);
    settle();
    EXPECT_EQ(bar.width(), grid().viewport()->width());
    grid().verticalScrollBar()->setValue(grid().verticalScrollBar()->maximum());
    settle();
    EXPECT_EQ(lastFreeRow(), 30);
}

TEST_F(Message_Bar_View_Test, its_buttons_take_no_focus_by_mouse) {
    show({line("a", "One", {"Show"})});
    QTest::mouseClick(&named("BAR_1_Button1"), Qt::LeftButton);
    EXPECT_THAT(pressed, ElementsAre("Show"));
    EXPECT_EQ(focus(), "FLX_Settings");
    QTest::mouseClick(&bar, Qt::LeftButton);
    EXPECT_EQ(focus(), "FLX_Settings");
}

TEST_F(Message_Bar_View_Test, tab_reaches_it_last_in_the_order_of_its_lines) {
    window.StatusBar1().setLogOffered(true);
    show({line("old", "Old", {"Show"})});
    show({line("new", "New", {"Show", "Undo"}), line("old", "Old", {"Show"})});
    EXPECT_EQ(doubles::tabOrder(window),
              (Words{"BOT_Log", "BAR_1_Button1", "BAR_1_Button2", "BAR_1_Close", "BAR_2_Button1",
                     "BAR_2_Close", "FLX_Configuration", "FLX_Settings"}));
    QTest::keyClick(&window.FLX_Settings().view(), Qt::Key_End, Qt::ControlModifier);
    settle();
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focus(), "BOT_Log"); // from the lower grid, and the bar comes after it
}

TEST_F(Message_Bar_View_Test, keys_press_its_buttons_and_leave_it) {
    show({line("a", "One", {"Show"}), line("b", "Two", {"Undo"})});
    window.FLX_Configuration().SetFocus();
    QTest::keyClick(&window.FLX_Configuration().view(), Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focus(), "BAR_2_Close");
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab, Qt::ShiftModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_THAT(pressed, ElementsAre("Undo"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
    EXPECT_THAT(pressed, ElementsAre("Undo", "Undo"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(focus(), "FLX_Settings");
}

TEST_F(Message_Bar_View_Test, a_line_that_goes_hands_the_keyboard_on) {
    const Shown_Line one = line("a", "One");
    const Shown_Line two = line("b", "Two");
    show({one, two});
    std::vector<Shown_Line> left{one, two};
    bar.onClose = [&](const QString& topic) {
        std::erase_if(left, [&](const Shown_Line& l) { return l.topic == topic; });
        bar.setLines(left);
    };
    named("BAR_1_Close").setFocus();
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(focus(), "BAR_1_Close");
    EXPECT_EQ(named<QLabel>("BAR_1_Text").text(), "Two");
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_EQ(focus(), "FLX_Settings");
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(Message_Bar_View_Test, a_grid_without_its_tab_stop_sends_nobody_there) {
    show({line("a", "One", {"Show"})});
    window.FLX_Settings().setTabStop(false);
    EXPECT_EQ(focus(), "FLX_Settings");
    window.FLX_Configuration().SetFocus();
    QTest::keyClick(&window.FLX_Configuration().view(), Qt::Key_Tab);
    EXPECT_EQ(focus(), "FLX_Configuration");
    window.FLX_Settings().setTabStop(true);
    QTest::keyClick(&window.FLX_Configuration().view(), Qt::Key_Tab);
    EXPECT_EQ(focus(), "FLX_Settings");
}

TEST_F(Message_Bar_View_Test, parts_that_are_hidden_or_disabled_send_nobody_there) {
    show({line("a", "One", {"Show"})});
    window.Frame2().hide();
    window.Frame3().hide();
    EXPECT_THAT(focus(), testing::Not(testing::StartsWith("BAR_")));
    window.Frame2().show();
    window.Frame3().show();
    window.FLX_Settings().SetFocus();
    grid().setEnabled(false);
    EXPECT_THAT(focus(), testing::Not(testing::StartsWith("BAR_")));
}

TEST_F(Message_Bar_View_Test, a_disabled_form_has_a_bar_that_can_be_read_but_not_pressed) {
    show({line("a", "One", {"Show"})});
    const QImage enabled = named("BAR_1_Text").grab().toImage();
    window.setFormEnabled(false);
    settle();
    EXPECT_EQ(named("BAR_1_Text").grab().toImage(), enabled);
    QTest::mouseClick(&named("BAR_1_Button1"), Qt::LeftButton);
    EXPECT_THAT(pressed, IsEmpty());
    EXPECT_FALSE(named("BAR_1_Close").isEnabled());
    show({line("b", "Two", {"Show"}), line("a", "One", {"Show"})});
    EXPECT_FALSE(named("BAR_1_Button1").isEnabled());
    window.setFormEnabled(true);
    EXPECT_TRUE(named("BAR_1_Button1").isEnabled());
}

TEST_F(Message_Bar_View_Test, a_screen_reader_is_told_of_each_new_text_as_of_an_alert) {
    show({line("a", "One")});
    EXPECT_THAT(alerts, ElementsAre("Warning: One"));
    show({line("b", "Two"), line("a", "One")});
    EXPECT_THAT(alerts, ElementsAre("Warning: One", "Warning: Two"));
    show({line("a", "One and a half"), line("b", "Two")});
    EXPECT_THAT(alerts, ElementsAre("Warning: One", "Warning: Two", "Warning: One and a half"));
    show({line("b", "Two")});
    EXPECT_EQ(alerts.size(), 3U);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&named("BAR_1"))->role(), QAccessible::AlertMessage);
}

TEST_F(Message_Bar_View_Test, every_control_of_it_has_name_description_and_role) {
    show({line("a", "One & two", {"Show", "Open as text"}), line("b", "Two")});
    EXPECT_EQ(doubles::controlFaults(window), Words{});
    EXPECT_EQ(doubles::keyClashes(window), Words{});
}

TEST_F(Message_Bar_View_Test, an_edit_in_progress_is_taken_before_a_button_does_its_work) {
    show({line("a", "One", {"Show"})});
    window.FLX_Settings().setRow(1);
    window.FLX_Settings().setCol(1);
    settle();
    QTest::keyClick(&grid(), Qt::Key_F2);
    ASSERT_TRUE(grid().isEditing());
    QTest::mouseClick(&named("BAR_1_Button1"), Qt::LeftButton);
    EXPECT_FALSE(grid().isEditing());
    EXPECT_THAT(pressed, ElementsAre("Show"));
}

TEST_F(Message_Bar_View_Test, a_button_may_take_its_own_line_away) {
    Shown_Line own = line("a", "One");
    own.buttons.push_back({"Undo", [this] { bar.setLines({}), pressed.push_back("done"); }});
    show({own});
    QTest::mouseClick(&named("BAR_1_Button1"), Qt::LeftButton);
    settle();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_THAT(pressed, ElementsAre("done"));
}

} // namespace
} // namespace zorvane::ui
