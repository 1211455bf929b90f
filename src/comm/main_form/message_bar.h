// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zorvane {

/// How much a line of the message bar matters: a word and an icon in front of its text.
enum class Bar_Kind { Note, Warning };

struct Bar_Button {
    std::string caption;
    std::function<void()> press;
};

/// One line of the message bar.
struct Bar_Line {
    std::string topic; ///< a newer line of the same topic takes the place of the older one
    Bar_Kind kind = Bar_Kind::Note;
    std::string text;                ///< Windows-1252, as every text of the core
    std::vector<Bar_Button> buttons; ///< two at most
    bool ofDocument = true;          ///< it goes when the document is closed or another one opened
    /// What it has to say by now, "" once it is no longer so; without it the text stands until it is taken
    /// back.
    std::function<std::string()> textNow{};
};

/// The bar over the lower edge of the main form. It says what happened where a command is silent: it asks
/// nothing, takes no focus and stops nothing, so a command may tell it something at any step.
class Message_Bar {
  public:
    virtual ~Message_Bar() = default;
    /// The line becomes the first.
    virtual void tell(Bar_Line line) = 0;
    /// The line of that topic, if there is one, says this from now on, and stays where it is.
    virtual void amend(Bar_Line line) = 0;
    /// Whether there is a line of that topic.
    [[nodiscard]] virtual bool holds(const std::string& topic) const = 0;
    /// Takes back the line of that topic, if there is one.
    virtual void withdraw(const std::string& topic) = 0;
    /// Takes back every line that belongs to the document.
    virtual void documentGone() = 0;
    /// Each line that knows says what is so by now, or goes.
    virtual void review() = 0;
};

/// The lines of a bar, the newest first.
class Bar_Lines final : public Message_Bar {
  public:
    void tell(Bar_Line line) override;
    void amend(Bar_Line line) override;
    [[nodiscard]] bool holds(const std::string& topic) const override { return find(topic) != nullptr; }
    void withdraw(const std::string& topic) override;
    void documentGone() override;
    void review() override;

    [[nodiscard]] const std::vector<Bar_Line>& lines() const noexcept { return lines_; }
    /// The line of that topic, or null.
    [[nodiscard]] const Bar_Line* find(const std::string& topic) const;

    std::function<void()> changed; ///< called after each change; may be empty

  private:
    std::vector<Bar_Line> lines_;
};

} // namespace zorvane
