// SPDX-License-Identifier: MIT
#pragma once

#include "ui/compare/comparison_model.h"

#include <QDialog>
#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <utility>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace zorvane::ui {

class Comparison_Table;
class Side_Bar;

/// What somebody does in the window of a comparison. Sides are 0 (left) and 1. Each may be empty.
struct Compare_Events {
    std::function<void(int side, int entry)> sideChosen;
    std::function<void(int side)> fileWanted;
    std::function<void()> readController;
    std::function<void()> cancelReading;
    std::function<void(bool on)> middleChosen; ///< the document in the middle of three sides, or not
    std::function<void()> takeLeft;            ///< from the left one of three sides
    std::function<void()> take;
    std::function<void()> send;
    std::function<void()> print;
    std::function<void()> exportTo;
};

/// "Compare": both sides, the filter, the rows and what can be done with those ticked. It shows what it is
/// given and decides nothing but which rows are listed. While the controller is read, Cancel ends only that.
class Compare_Window final : public QDialog {
  public:
    explicit Compare_Window(QWidget* parent);

    Compare_Events events;

    void setSideEntries(int side, const QStringList& entries, int current);
    void tellSide(int side, bool needsFile, const QString& name);
    /// The document stands in the middle of three sides.
    void setMiddle(bool on);
    /// Whether one of the sides is the controller, which "Read controller" reads.
    void setControllerWanted(bool wanted);
    /// The rows of a comparison, listed by the present filter.
    void setRows(compare::Row_List rows);
    /// No comparison: why.
    void setNothing(const QString& why);
    /// A line about who is at the other end, or about what was done; "" takes it away.
    void setNote(const QString& text);
    /// What can be done with ticked rows; the reasons go into the tips.
    void setTake(const QString& whyNot);
    void setSend(const QString& whyNot);
    /// A reading is `done` requests of `all` far; nothing when none goes on.
    void setReading(std::optional<std::pair<int, int>> progress);
    [[nodiscard]] bool reading() const { return reading_; }

    [[nodiscard]] const compare::Row_List& rows() const { return model_.rows(); }
    /// The words of the filter as they are in force.
    [[nodiscard]] QString filter() const { return filterInForce_; }

    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* makeSides();
    QWidget* makeMiddle();
    QWidget* makeFilterLine();
    void makeRowLine();
    void makeTable();
    QWidget* makeStateLine();
    QWidget* makeButtons();
    QPushButton& addButton(QWidget& row, const char* name, const QString& text,
                           std::function<void()> Compare_Events::*event);
    void applyFilter();
    void showState();
    void showAbilities();

    std::array<Side_Bar*, 2> sides_{};
    QLineEdit* filter_ = nullptr;
    QLabel* filterFault_ = nullptr;
    QCheckBox* all_ = nullptr;
    QCheckBox* middle_ = nullptr;
    Comparison_Model model_;
    Comparison_Table* table_ = nullptr;
    QLabel* row_ = nullptr;
    QLabel* counts_ = nullptr;
    QLabel* position_ = nullptr;
    QLabel* note_ = nullptr;
    QPushButton* read_ = nullptr;
    QPushButton* next_ = nullptr;
    QPushButton* previous_ = nullptr;
    QPushButton* tick_ = nullptr;
    QPushButton* takeLeft_ = nullptr;
    QPushButton* take_ = nullptr;
    QPushButton* send_ = nullptr;
    QPushButton* print_ = nullptr;
    QPushButton* export_ = nullptr;
    QPushButton* close_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QString filterInForce_;
    QString countsText_; ///< of all rows, or why there are none
    QString whyNotTake_;
    QString whyNotSend_;
    bool controllerWanted_ = false;
    bool compared_ = false;
    bool reading_ = false;
};

} // namespace zorvane::ui
