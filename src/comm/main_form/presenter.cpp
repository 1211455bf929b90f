// SPDX-License-Identifier: MIT
#include "comm/main_form/presenter.h"

#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

const std::string downloading = "Transferring data to controller...";
const std::string transferLost = "Error. The controller does not respond.";
const std::string pollingLost = "The controller does not respond...";
const std::string pending = " ...Pending";

std::string progressText(Write_Progress progress) {
    switch (progress) {
    case Write_Progress::Pending:
        return pending;
    case Write_Progress::Failed:
        return " ...Failed";
    case Write_Progress::Completed:
        break;
    }
    return " ...Completed";
}

void offerTransfers(Main_Form& mainForm, bool offered) {
    mainForm.setMenuEnabled(Menu_Entry::MNU_Download, offered);
    mainForm.setMenuEnabled(Menu_Entry::MNU_Upload, offered);
}

} // namespace

std::string statusLine(const event::Value_Written& write) {
    return "Write: " + write.value + " @" + write.address + progressText(write.progress);
}

std::string statusLine(const event::Text_Written& write) {
    return "Writing ascii block: " + numberText(write.first) + "-" + numberText(write.last) + " @" +
           write.text + progressText(write.failed ? Write_Progress::Failed : Write_Progress::Completed);
}

// Upload and download.

void Presenter::operator()(const event::Upload_Began& event) const {
    form_.setPanel(Panel::Tx, "");
    form_.setPanel(Panel::Rx, "");
    form_.setFormEnabled(false);
    form_.setPanel(Panel::LinkState, "Upload");
    say("Uploading... Wait a moment please");
    Progress_Form& progress = form_.Porcentaje();
    progress.setLabel("Uploading data from the controller...");
    // 32-bit arithmetic: beyond it, failure 6
    progress.setRange(toLong(static_cast<double>(event.passes) * event.blocks));
    progress.show();
}

void Presenter::operator()(const event::Download_Asked& /*event*/) const {
    say(downloading);
    form_.setPanel(Panel::Tx, "");
    form_.setPanel(Panel::Rx, "");
}

void Presenter::operator()(const event::Download_Began& event) const {
    form_.setFormEnabled(false);
    form_.setPanel(Panel::LinkState, "Download");
    Progress_Form& progress = form_.Porcentaje();
    progress.setRange(event.cells);
    progress.setLabel(downloading);
    progress.show();
}

/// A full bar stays full.
void Presenter::operator()(const event::Step_Done& /*event*/) const {
    Progress_Form& progress = form_.Porcentaje();
    if (progress.value() < progress.maximum()) progress.setValue(progress.value() + 1);
}

void Presenter::operator()(const event::Value_Kept_Back& event) const {
    say(event.address + " ...No Download");
}

void Presenter::operator()(const event::Value_Written& event) const { say(statusLine(event)); }

void Presenter::operator()(const event::Text_Written& event) const { say(statusLine(event)); }

void Presenter::operator()(const event::Transfer_Finished& event) const {
    if (event.isUpload) say("Ready");
    form_.Porcentaje().unload();
    if (!event.isUpload) say("Ready");
    form_.setFormEnabled(true);
}

void Presenter::operator()(const event::Controller_Silent& /*event*/) const {
    form_.setFormEnabled(true);
    form_.setPanel(Panel::LinkState, "Offline");
    say(transferLost);
}

/// The progress form stays open with its Ok button, and the main form is free again.
void Presenter::operator()(const event::Transfer_Lost& /*event*/) const {
    form_.Porcentaje().setLabel(transferLost);
    form_.Porcentaje().Deshabilita_Cancelar();
    (*this)(event::Controller_Silent{});
}

void Presenter::operator()(const event::Transfer_Cancelled& event) const {
    form_.Porcentaje().unload();
    say(event.isUpload ? "Upload cancelled..." : "Download cancelled...");
    form_.setFormEnabled(true);
}

void Presenter::operator()(const event::Download_Left& /*event*/) const { form_.setFormEnabled(true); }

void Presenter::operator()(const event::Transfer_Dropped& /*event*/) const {
    form_.Porcentaje().unload();
    form_.setFormEnabled(true);
}

void Presenter::operator()(const event::Transfers_Offered& event) const {
    offerTransfers(form_, event.offered);
}

// The session and polling.

void Presenter::operator()(const event::Polling_Began& /*event*/) const {
    form_.setMenuEnabled(Menu_Entry::MNU_Disconnect, true);
    offerTransfers(form_, false);
}

void Presenter::operator()(const event::Session_Ending& /*event*/) const {
    form_.setMenuEnabled(Menu_Entry::MNU_Disconnect, false);
}

void Presenter::operator()(const event::Port_Closed& event) const {
    if (event.documentClosed) return form_.setPanel(Panel::LinkState, "");
    form_.setPanel(Panel::Tx, "");
    form_.setPanel(Panel::Rx, "");
    form_.setPanel(Panel::LinkState, "Offline");
}

void Presenter::operator()(const event::Polling_Lost& event) const {
    (*this)(event::Link_Retrying{});
    if (!event.newly) return;
    say(pollingLost);
    form_.setLostComShown(true);
}

void Presenter::operator()(const event::Polling_Answered& event) const {
    if (!event.transferRuns) form_.setPanel(Panel::LinkState, "Online");
    if (event.again) takeBackMessage(form_, pollingLost);
    form_.setLostComShown(false);
}

void Presenter::operator()(const event::Link_Retrying& /*event*/) const {
    form_.setFormEnabled(true);
    form_.setPanel(Panel::LinkState, "Retrying");
}

void Presenter::operator()(const event::Link_Silent& /*event*/) const { say(pollingLost); }

void Presenter::operator()(const event::Link_Given_Up& /*event*/) const {
    form_.Porcentaje().unload();
    form_.setFormEnabled(true);
    form_.setPanel(Panel::LinkState, "Offline");
}

void Presenter::operator()(const event::Traffic_Seen& event) const {
    form_.setPanel(Panel::Tx, event.sent ? "Tx" : "");
    form_.setPanel(Panel::Rx, event.received ? "Rx" : "");
}

/// Without a number the panel keeps its text.
void Presenter::operator()(const event::Unit_Known& event) const {
    if (!(Val(event.number) > 0)) return;
    const std::string text = "RTU: " + std::string(trimBlanks(event.number));
    if (text != trimBlanks(form_.panel(Panel::Unit))) form_.setPanel(Panel::Unit, text);
}

void Presenter::operator()(const event::Monitor_Looked_At& event) const {
    form_.setMenuEnabled(Menu_Entry::separador4, !event.onScreen);
}

/// A line about a write of a document that is gone would stand for ever.
void Presenter::operator()(const event::Live_Write_Dropped& /*event*/) const {
    if (form_.panel(Panel::Message).ends_with(pending)) say("");
}

// What others need of panel 4.

void takeBackMessage(Main_Form& mainForm, std::string_view text) {
    if (mainForm.panel(Panel::Message) == text) mainForm.setPanel(Panel::Message, "");
}

void keepingMessage(Main_Form& mainForm, const std::function<void()>& run) {
    const std::string message = mainForm.panel(Panel::Message);
    run();
    if (!message.empty()) mainForm.setPanel(Panel::Message, message);
}

} // namespace zorvane
