// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/window_layout.h"

#include <QLabel>
#include <QStatusBar>
#include <QTimer>

#include <array>
#include <functional>

class QPushButton;

namespace zorvane::ui {

/// One panel of the status bar. A text too long for it ends in an ellipsis and is shown whole as the tool
/// tip, unless the panel has one of its own.
class Status_Panel final : public QLabel {
  public:
    Status_Panel(int number, QWidget* parent);

    void setOwnToolTip(const QString& text);
    /// Whether its text has more than its room.
    [[nodiscard]] bool isCut() const;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString ownToolTip_;
};

/// `StatusBar1`: seven panels, numbered from 1, of given widths; what doesn't fit is cut off at the right.
class Status_Bar final : public QStatusBar {
  public:
    explicit Status_Bar(QWidget* parent);

    [[nodiscard]] QString text(int panel) const { return at(panel).text(); }
    void setText(int panel, const QString& text);

    /// Called with the message panel's text once it has stood there for a moment without room for it, and
    /// with nothing once it has room or is gone. The text that the bar is made with is no message.
    std::function<void(const QString& text)> messageCut;

    /// The button "Log..." in the message panel, for the log of the last transfer.
    void setLogOffered(bool offered);
    [[nodiscard]] QWidget& BOT_Log() const;
    [[nodiscard]] bool logOffered() const;
    void setLogEnabled(bool enabled);
    std::function<void()> logChosen;

    /// In twips.
    void setPanelWidths(const std::array<double, panelCount>& widths);

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] Status_Panel& at(int panel) const {
        return *panels_.at(static_cast<std::size_t>(panel - 1));
    }
    void placePanels();
    void placeLog();
    void noteMessageCut();
    void tellMessageCut(const QString& text);

    std::array<Status_Panel*, panelCount> panels_{};
    QPushButton* log_ = nullptr;
    QTimer standing_; ///< runs while a text that is cut is new
    QString cutTold_;
    bool messageSet_ = false;
    std::array<double, panelCount> widths_ = Window_Layout{}.panelWidths;
};

} // namespace zorvane::ui
