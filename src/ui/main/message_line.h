// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QString>

#include <array>
#include <functional>
#include <vector>

class QLabel;
class QPushButton;

namespace zorvane::ui {

class Wrapped_Label;

struct Shown_Button {
    QString caption;
    std::function<void()> press;
};

/// A line of the message bar as the window shows it.
struct Shown_Line {
    QString topic;
    bool warning = false;
    QString text;
    std::vector<Shown_Button> buttons; ///< two at most; more aren't shown
};

/// One line of the message bar: an icon and a word, the text, its buttons and a cross. Its buttons take the
/// keyboard by Tab only.
class Message_Line final : public QFrame {
  public:
    explicit Message_Line(QWidget* parent);

    std::function<void()> onClose;      ///< the cross
    std::function<void()> onLeave;      ///< Escape
    std::function<void()> beforeButton; ///< before a button's own function
    std::function<void(QWidget& control)> onFocus;

    /// Shows a line as the `number`th of the bar. True when its text is another one than before.
    bool setLine(const Shown_Line& line, int number);
    [[nodiscard]] const QString& topic() const { return line_.topic; }

    /// Whether the text is cut to one line, with the whole of it in a tool tip.
    void setCut(bool cut);
    /// Pixels that the line needs at a width, its text wrapped.
    [[nodiscard]] int neededHeight(int width) const;
    /// Pixels of a line whose text is cut.
    [[nodiscard]] int lowestHeight() const;

    /// The controls in the order of Tab.
    [[nodiscard]] std::vector<QWidget*> stops() const;
    [[nodiscard]] QWidget& cross() const;
    /// Whether Tab reaches the controls.
    void setTabStops(bool on);
    /// Nobody finds the line or its controls by name any more.
    void forget();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Places {
        QRect text;
        int buttonsTop = 0;
        int height = 0;
    };
    /// What the icon is a drawing of. A line is told again with each round of polling, and Qt keeps each
    /// drawing for a while.
    struct Drawing {
        bool warning = false;
        int side = 0; ///< logical pixels
        qreal ratio = 0;
        bool operator==(const Drawing&) const = default;
    };
    void drawIcon();
    QPushButton& addButton();
    [[nodiscard]] int buttonHeight() const;
    [[nodiscard]] int buttonWidth(const QPushButton& button) const;
    [[nodiscard]] int buttonsWidth() const;
    [[nodiscard]] int textLeft() const;
    [[nodiscard]] int firstTop() const;
    [[nodiscard]] Places beside(int width) const;
    [[nodiscard]] Places below(int width) const;
    [[nodiscard]] Places places(int width) const;
    void place();
    void press(std::size_t number);

    Shown_Line line_;
    Drawing drawing_;
    QLabel* icon_ = nullptr;
    Wrapped_Label* word_ = nullptr;
    Wrapped_Label* text_ = nullptr;
    std::array<QPushButton*, 2> buttons_{};
    QPushButton* cross_ = nullptr;
    bool cut_ = false;
};

} // namespace zorvane::ui
