// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/event_edge.h"
#include "app/edit/find_session.h"

#include <QDialog>
#include <QRect>

#include <functional>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace zorvane::app {

/// "Find": what is looked for, the two filters, and the list of what was found. Enter goes to the next cell,
/// Enter in the list or a double click to that one. It stays beside the main form, and makes way for what was
/// found.
class Find_Window final : public QDialog {
  public:
    /// Both outlive it.
    Find_Window(Find_Session& session, Event_Edge& edge, QWidget* parent);

    /// Where the lower grid's current cell is on the screen, in pixels; empty where it isn't to be seen.
    std::function<QRect()> shownCell;

    /// Brings it to the front, with the text selected.
    void begin();
    /// The document, or a value of it, is another one.
    void refresh();
    void goNext();
    void goPrevious();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addQuery();
    void addTable();
    void addButtons();
    void takeQuery();
    void fillTable();
    void showPosition();
    void showRow(int row);
    void makeWay();

    Find_Session& session_;
    Event_Edge& edge_;
    std::vector<Found_Row> found_;
    QLineEdit* text_ = nullptr;
    QCheckBox* changed_ = nullptr;
    QCheckBox* factory_ = nullptr;
    QTableWidget* table_ = nullptr;
    QLabel* position_ = nullptr;
    QPushButton* next_ = nullptr;
    QPushButton* previous_ = nullptr;
};

} // namespace zorvane::app
