// SPDX-License-Identifier: MIT
#include "app/window/message_bar_buttons.h"

#include "comm/main_form/bar_topics.h"
#include "template/services/native_files.h"
#include "ui/main/message_bar_view.h"

namespace zorvane::app {

namespace {

const std::string cutMessageTopic = "panel 4";

/// After a transfer that left something open, what the controller has is worth a look.
bool wantsComparison(const std::string& topic) {
    return topic == bar_topic::downloadEnd || topic == bar_topic::uploadGaps;
}

ui::Shown_Line shownLine(const Bar_Line& line, Window_Form& mainForm, Event_Edge& edge) {
    ui::Shown_Line shown{
        QString::fromStdString(line.topic), line.kind == Bar_Kind::Warning, shownText(line.text), {}};
    for (const Bar_Button& button : line.buttons)
        shown.buttons.push_back({shownText(button.caption), [&edge, press = button.press] {
                                     edge.run([&] {
                                         if (press) press();
                                     });
                                 }});
    if (wantsComparison(line.topic))
        shown.buttons.push_back({QStringLiteral("Compare"), [&mainForm, &edge] {
                                     edge.run([&mainForm] { mainForm.compareWith({}); });
                                 }});
    return shown;
}

/// Panel 4 of a small window has no room for its text. The text is the window's, so it goes to the core as
/// one.
void tellCutMessage(Message_Bar& bar, const QString& text) {
    if (text.isEmpty()) return bar.withdraw(cutMessageTopic);
    bar.tell({cutMessageTopic, Bar_Kind::Note, pathFromNative(text.toStdString()), {}, false});
}

} // namespace

void connectMessageBar(Window_Form& mainForm, Event_Edge& edge) {
    ui::Message_Bar_View& view = mainForm.window().messageBar();
    mainForm.messageBar().changed = [&mainForm, &view, &edge] {
        std::vector<ui::Shown_Line> lines;
        for (const Bar_Line& line : mainForm.messageBar().lines())
            lines.push_back(shownLine(line, mainForm, edge));
        view.setLines(lines);
    };
    mainForm.window().StatusBar1().messageCut = [&mainForm](const QString& text) {
        tellCutMessage(mainForm.messageBar(), text);
    };
    view.onClose = [&mainForm](const QString& topic) { mainForm.messageBar().withdraw(topic.toStdString()); };
}

} // namespace zorvane::app
