// SPDX-License-Identifier: MIT
#pragma once

#include "commission/desk/send_desk.h"

#include <QTableWidget>

#include <cstddef>
#include <functional>

namespace zorvane::app {

/// The rows of "Send Changes": ticks before they go out, states afterwards. Columns that are too narrow wrap
/// their texts, so that all of each can be read.
class Send_Table final : public QTableWidget {
  public:
    explicit Send_Table(QWidget* parent);

    std::function<void(std::size_t row, bool ticked)> ticked; ///< what somebody ticked; may be empty

    /// Shows the rows of a desk; `other` when they are other ones than before, or at another stage.
    void showRows(const commission::Desk_State& state, bool other);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void showHeadings(const commission::Desk_State& state);
    void showState(int row, const commission::Desk_Row& shown, bool ticks);
    void setCell(int row, int column, const QString& text);
    void toggleCurrent();
    void fitColumns();
    void fitRows();
    struct Column_Room {
        int wanted = 0; ///< pixels
        int least = 0;
    };
    [[nodiscard]] Column_Room roomOf(int column) const;
    [[nodiscard]] int widthOf(const QString& text) const;
    [[nodiscard]] int widthOf(int row, int column) const;

    bool filling_ = false;
};

} // namespace zorvane::app
