// SPDX-License-Identifier: MIT
#include "app/files/file_watch.h"

#include "app/files/document_place.h"
#include "values/code_page.h"

#include <utility>

namespace zorvane::app {

namespace {

const std::string changedTopic = "changed on disk";

} // namespace

void File_Watch::settle() {
    app_.state.written.reset();
    path_ = documentPlace(app_);
    settled_ = path_ ? app_.files.bytes(*path_) : std::nullopt;
    seen_ = settled_;
    app_.mainForm.messageBar().withdraw(changedTopic);
}

void File_Watch::saved() {
    if (documentPlace(app_) != path_) return settle();
    takeOwnWrite();
    if (!path_ || app_.files.bytes(*path_) != settled_) return;
    seen_ = settled_;
    app_.mainForm.messageBar().withdraw(changedTopic);
}

void File_Watch::takeOwnWrite() {
    std::optional<Written_File>& written = app_.state.written;
    if (!written || !path_ || upperCase(written->path) != upperCase(*path_)) return;
    settled_ = std::move(written->bytes);
    written.reset();
}

void File_Watch::look(const Changed_File_Offers& offers) {
    if (!path_) return;
    takeOwnWrite();
    const std::optional<std::string> now = app_.files.bytes(*path_);
    if (now == seen_ && now != settled_) return;
    seen_ = now;
    if (now == settled_) return app_.mainForm.messageBar().withdraw(changedTopic);
    const std::string at = " at " + app_.mainForm.timeOfDay() + ".";
    if (now)
        tell(*path_ + " was changed on disk by another program" + at +
                 " The window shows what it held before, and Save would write over it.",
             offers);
    else
        tell(*path_ + " is no longer on disk, or can't be read any more: seen" + at +
                 " Save would write it again from what the window shows.",
             {});
}

void File_Watch::tell(const std::string& text, const Changed_File_Offers& offers) {
    std::vector<Bar_Button> buttons;
    if (offers.compare) buttons.push_back({"Compare", offers.compare});
    if (offers.reload) buttons.push_back({"Reload", offers.reload});
    app_.mainForm.messageBar().tell({changedTopic, Bar_Kind::Warning, text, std::move(buttons), true});
}

} // namespace zorvane::app
