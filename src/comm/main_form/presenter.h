// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "comm/main_form/transfer_events.h"

#include <functional>
#include <string>
#include <string_view>

namespace zorvane {

/// Turns events into panels, menu entries and the progress form, in the required order. Besides the form's
/// own code nobody else shows a transfer, a live write or polling, and nobody at all looks at the text of a
/// panel to learn what happened.
class Presenter {
  public:
    explicit Presenter(Main_Form& mainForm) : form_(mainForm) {}

    void show(const Transfer_Event& event) const { std::visit(*this, event); }

    void operator()(const event::Upload_Began& event) const;
    void operator()(const event::Download_Asked& event) const;
    void operator()(const event::Download_Began& event) const;
    void operator()(const event::Step_Done& event) const;
    void operator()(const event::Value_Kept_Back& event) const;
    void operator()(const event::Value_Written& event) const;
    void operator()(const event::Text_Written& event) const;
    void operator()(const event::Transfer_Finished& event) const;
    void operator()(const event::Controller_Silent& event) const;
    void operator()(const event::Transfer_Lost& event) const;
    void operator()(const event::Transfer_Cancelled& event) const;
    void operator()(const event::Download_Left& event) const;
    void operator()(const event::Transfer_Dropped& event) const;
    void operator()(const event::Transfers_Offered& event) const;
    void operator()(const event::Polling_Began& event) const;
    void operator()(const event::Session_Ending& event) const;
    void operator()(const event::Port_Closed& event) const;
    void operator()(const event::Polling_Lost& event) const;
    void operator()(const event::Polling_Answered& event) const;
    void operator()(const event::Link_Retrying& event) const;
    void operator()(const event::Link_Silent& event) const;
    void operator()(const event::Link_Given_Up& event) const;
    void operator()(const event::Traffic_Seen& event) const;
    void operator()(const event::Unit_Known& event) const;
    void operator()(const event::Monitor_Looked_At& event) const;
    void operator()(const event::Live_Write_Dropped& event) const;

  private:
    void say(const std::string& text) const { form_.setPanel(Panel::Message, text); }

    Main_Form& form_;
};

/// "Write: 120 @1004 ...Completed", for panel 4.
[[nodiscard]] std::string statusLine(const event::Value_Written& write);
/// "Writing ascii block: 200-203 @abc ...Failed", for panel 4.
[[nodiscard]] std::string statusLine(const event::Text_Written& write);

/// Empties panel 4 if it still says this; what came there meanwhile is left as it is.
void takeBackMessage(Main_Form& mainForm, std::string_view text);

/// Runs what may write to panel 4, and gives back what was said there before, if anything was.
void keepingMessage(Main_Form& mainForm, const std::function<void()>& run);

} // namespace zorvane
