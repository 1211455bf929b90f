// SPDX-License-Identifier: MIT
// What is painted otherwise than the store says, by switches.

#include "ui/testing/dark_palette.h"
#include "ui/testing/grid_fixture.h"

#include <QHeaderView>

namespace zorvane::ui {
namespace {

class Grid_Looks : public samples::Grid_Fixture {
  protected:
    [[nodiscard]] int widthOf(int column) const { return view->horizontalHeader()->sectionSize(column); }
    [[nodiscard]] int lastColumn() const { return grid->Cols() - 1; }
};

TEST_F(Grid_Looks, TheLastColumnTakesTheRoomThatIsLeft) {
    view->setFillsRoom(true);
    view->resize(900, 300);
    show();
    const auto kept = grid->ColWidth(lastColumn());
    EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
    EXPECT_EQ(grid->ColWidth(lastColumn()), kept);
    view->resize(1100, 300);
    EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
    EXPECT_THAT(told, testing::IsEmpty()) << "nobody dragged";
}

TEST_F(Grid_Looks, ItIsNeverNarrowerThanItsOwn) {
    view->setFillsRoom(true);
    show();
    view->resize(60, 300);
    EXPECT_GT(view->horizontalHeader()->length(), view->viewport()->width());
    view->setFillsRoom(false);
    view->flush();
    const int own = widthOf(lastColumn());
    view->setFillsRoom(true);
    view->flush();
    EXPECT_EQ(widthOf(lastColumn()), own);
}

TEST_F(Grid_Looks, SwitchedOffItHasItsOwnWidthAgain) {
    view->resize(900, 300);
    show();
    const int own = widthOf(lastColumn());
    view->setFillsRoom(true);
    view->flush();
    EXPECT_GT(widthOf(lastColumn()), own);
    view->setFillsRoom(false);
    view->flush();
    EXPECT_EQ(widthOf(lastColumn()), own);
}

TEST_F(Grid_Looks, PaleGroundsAreDarkOnADarkDesktopOnly) {
    stand(1, 0);
    grid->setCellBackColor(0xC0FFFF); // pale yellow
    const auto groundAt = [this] {
        view->flush();
        const QRect cell = view->visualRect(view->model()->index(0, 0));
        return view->viewport()->grab().toImage().pixelColor(cell.right() - 2, cell.top() + 2);
    };
    stand(2, 1);
    show();
    EXPECT_GT(groundAt().lightness(), 200);
    view->setDarkGrounds(true);
    EXPECT_GT(groundAt().lightness(), 200);
    view->setPalette(samples::darkPalette());
    EXPECT_LT(groundAt().lightness(), 90);
    view->setDarkGrounds(false);
    EXPECT_GT(groundAt().lightness(), 200);
}

} // namespace
} // namespace zorvane::ui
