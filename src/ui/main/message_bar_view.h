// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/message_line.h"

#include <QAccessible>
#include <QPointer>
#include <QScrollArea>

#include <vector>

namespace zorvane::ui {

/// The message bar on the screen, there only while it has lines. More lines than fit are scrolled. It takes
/// no focus by mouse, and by keyboard only when somebody goes there with Tab.
class Message_Bar_View final : public QScrollArea {
  public:
    explicit Message_Bar_View(QWidget* parent);

    std::function<void(const QString& topic)> onClose; ///< the cross of that line
    std::function<void()>
        onLeave; ///< the keyboard goes back to where it was; it has no business here any more
    std::function<void()> beforeButton;   ///< before the function of a line's button
    std::function<void()> contentChanged; ///< the height that it needs may be another one
    /// Tells a screen reader; a test replaces it.
    std::function<void(QAccessibleEvent& event)> notify;

    /// Shows these lines, the first one on top. A screen reader is told of each that is new or says something
    /// else than before.
    void setLines(const std::vector<Shown_Line>& lines);
    [[nodiscard]] bool isEmpty() const { return lines_.empty(); }

    /// Pixels of all lines at that width, and of one line whose text is cut.
    [[nodiscard]] int neededHeight(int width);
    [[nodiscard]] int lineHeight() const;
    /// Whether there is room for one line only, with its text cut.
    void setCut(bool cut);

    /// Whether Tab reaches the buttons.
    void setTabStops(bool on);
    [[nodiscard]] bool holdsFocus() const;
    /// The widget from which Tab goes on into the bar.
    void setStopBefore(QWidget& widget) { stopBefore_ = &widget; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] Message_Line* lineOf(const QString& topic) const;
    Message_Line& addLine();
    void orderStops();
    void placeLines();
    void giveFocusOn(std::size_t index);

    QWidget* sheet_ = nullptr;
    std::vector<Message_Line*> lines_; ///< belong to the sheet
    QPointer<QWidget> stopBefore_;
    bool cut_ = false;
};

} // namespace zorvane::ui
