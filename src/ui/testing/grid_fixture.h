// SPDX-License-Identifier: MIT
#pragma once

#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::samples {

/// An editable grid on the screen with 20 rows by 3 columns, each cell with its place as text, and a list of
/// what it told its owner.
class Grid_Fixture : public testing::Test {
  protected:
    Grid_Fixture() {
        window.resize(420, 260);
        view = new ui::Flex_Grid_View(&window);
        view->setObjectName("FLX_Settings");
        view->setGeometry(10, 10, 400, 240);
        view->setEditable(true);
        grid = std::make_unique<ui::Flex_Grid>(*view);
        fill(20, 3);
        recordEvents();
    }

    void fill(std::int32_t rows, std::int32_t cols) {
        grid->setCols(cols);
        grid->setRows(rows + 1);
        grid->setFixedRows(1);
        for (std::int32_t r = 0; r <= rows; ++r) {
            grid->setRowHeight(r, 285);
            for (std::int32_t c = 0; c < cols; ++c)
                grid->setTextMatrix(r, c, std::to_string(r) + "," + std::to_string(c));
        }
        for (std::int32_t c = 0; c < cols; ++c)
            grid->setColWidth(c, 1500);
        stand(1, 0);
    }

    void stand(std::int32_t row, std::int32_t col) {
        grid->setRow(row);
        grid->setCol(col);
    }

    void recordEvents() {
        view->events.BeforeEdit = [this](std::int32_t row, std::int32_t col, bool& cancel) {
            told.push_back("BeforeEdit " + place(row, col));
            if (beforeEdit) beforeEdit(row, col, cancel);
        };
        view->events.StartEdit = [this](std::int32_t row, std::int32_t col, bool& cancel) {
            told.push_back("StartEdit " + place(row, col));
            cancel = refuseStart;
        };
        view->events.AfterEdit = [this](std::int32_t row, std::int32_t col) {
            told.push_back("AfterEdit " + place(row, col) + " " + grid->TextMatrix(row, col));
            if (afterEdit) afterEdit(row, col);
        };
        view->events.RowColChange = [this] {
            told.push_back("RowColChange " + place(grid->Row(), grid->Col()));
        };
    }

    static std::string place(std::int32_t row, std::int32_t col) {
        return std::to_string(row) + "," + std::to_string(col);
    }

    /// On the screen, with the focus, nothing told yet.
    void show() {
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        view->setFocus();
        QApplication::processEvents();
        told.clear();
    }

    ui::Text_Cell_Editor* lineEditor() {
        for (QLineEdit* line : view->viewport()->findChildren<QLineEdit*>(Qt::FindDirectChildrenOnly))
            if (auto* editor = dynamic_cast<ui::Text_Cell_Editor*>(line);
                editor != nullptr && editor->isVisible())
                return editor;
        return nullptr;
    }
    ui::List_Cell_Editor* listEditor() {
        for (QComboBox* box : view->viewport()->findChildren<QComboBox*>(Qt::FindDirectChildrenOnly))
            if (auto* editor = dynamic_cast<ui::List_Cell_Editor*>(box);
                editor != nullptr && editor->isVisible())
                return editor;
        return nullptr;
    }

    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(target(), code, modifiers);
    }
    void type(const QString& text) {
        for (const QChar character : text)
            QTest::keyClick(target(), character.toLatin1());
    }
    /// Where the keyboard goes: to an open list, to the editor, else to the grid.
    QWidget* target() {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            auto* list = popup->findChild<QAbstractItemView*>();
            return list == nullptr ? popup : list;
        }
        return QApplication::focusWidget() == nullptr ? view : QApplication::focusWidget();
    }
    void click(std::int32_t row, std::int32_t col, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, centre(row, col));
    }
    QPoint centre(std::int32_t row, std::int32_t col) {
        view->flush();
        return view->visualRect(view->model()->index(row - 1, col)).center();
    }

    using Told = std::vector<std::string>;

    QWidget window;
    ui::Flex_Grid_View* view = nullptr;
    std::unique_ptr<ui::Flex_Grid> grid;
    Told told;
    bool refuseStart = false;
    std::function<void(std::int32_t, std::int32_t, bool&)> beforeEdit;
    std::function<void(std::int32_t, std::int32_t)> afterEdit;
};

} // namespace zorvane::samples
