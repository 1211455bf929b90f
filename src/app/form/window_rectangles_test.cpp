// SPDX-License-Identifier: MIT
#include "app/form/window_rectangles.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"
#include "values/testing/comma_locale_linux.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>

namespace zorvane::app {

void PrintTo(const Twips_Rect& place, std::ostream* out) {
    *out << place.top << " " << place.left << ", " << place.width << " by " << place.height;
}

namespace {

using doubles::App_Bench;

struct WindowRectangles : testing::Test, App_Bench {
    void store(const std::string& section, const std::string& top, const std::string& left,
               const std::string& width, const std::string& height) {
        settings.texts["Zorvane/" + section + "/Top"] = top;
        settings.texts["Zorvane/" + section + "/Left"] = left;
        settings.texts["Zorvane/" + section + "/Width"] = width;
        settings.texts["Zorvane/" + section + "/Height"] = height;
    }
    [[nodiscard]] Twips_Rect dialogPlace(Stored_Dialog which) {
        Twips_Rect place{.left = 2, .top = 1, .width = 3, .height = 4};
        PRO_Lee_Dialogos(app, which, place.top, place.left, place.width, place.height);
        return place;
    }
    const Twips_Rect fallback{.left = 3210, .top = 3075, .width = 6990, .height = 7380};
};

TEST_F(WindowRectangles, AFirstRunKeepsTheFormsOwnPlace) {
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, (Twips_Rect{.left = 2000, .top = 1000, .width = 6990, .height = 7380}));
    EXPECT_FALSE(form.Monitor_Place);
}

TEST_F(WindowRectangles, TheFormComesBackToItsPlace) {
    store("MainWindow", "100", " 200.5 ", "3000", "4e3");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, (Twips_Rect{.left = 200.5, .top = 100, .width = 3000, .height = 4000}));
}

TEST_F(WindowRectangles, AValueThatIsntStoredIsTheForms) {
    settings.texts["Zorvane/MainWindow/Width"] = "5000";
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, (Twips_Rect{.left = 2000, .top = 1000, .width = 5000, .height = 7380}));
}

TEST_F(WindowRectangles, ATopThatIsNoNumberPutsTheMainWindowToTheFallbackAndTheOthersAreJudgedByThemselves) {
    store("MainWindow", "abc", "200", "3000", "4000");
    store("ModbusDialog", "10", "20", "300", "400");
    store("PrintDialog", "1", "-2", "30", "40");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, fallback);
    EXPECT_EQ(form.Monitor_Place, (std::array<std::int32_t, 4>{20, 10, 300, 400}));
    EXPECT_EQ(dialogPlace(Stored_Dialog::Preview),
              (Twips_Rect{.left = -2, .top = 1, .width = 30, .height = 40}));
}

TEST_F(WindowRectangles, ABadPlaceOfTheMonitorIsItsOwnMatter) {
    store("MainWindow", "100", "200", "3000", "4000");
    store("ModbusDialog", "", "20", "300", "400");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, (Twips_Rect{.left = 200, .top = 100, .width = 3000, .height = 4000}));
    EXPECT_EQ(form.Monitor_Place, (std::array<std::int32_t, 4>{3210, 3075, 6990, 7380}));
    EXPECT_EQ(dialogPlace(Stored_Dialog::Monitor), fallback);
}

TEST_F(WindowRectangles, NegativeSizesAndPlacesBeyondTheScreenFallBack) {
    const std::array<std::array<const char*, 4>, 4> bad = {{{"16201", "0", "100", "100"},
                                                            {"0", "28801", "100", "100"},
                                                            {"0", "0", "-1", "100"},
                                                            {"0", "0", "100", "-1"}}};
    for (const auto& [top, left, width, height] : bad) {
        store("MainWindow", top, left, width, height);
        PRO_Lee_Ventanas(app);
        EXPECT_EQ(mainForm.place, fallback) << top << " " << left << " " << width << " " << height;
    }
    store("MainWindow", "16200", "28800", "0", "0");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, (Twips_Rect{.left = 28800, .top = 16200, .width = 0, .height = 0}))
        << "the edge itself is good";
}

TEST_F(WindowRectangles, ANumberBeyondSinglePrecisionEndsTheReading) {
    store("MainWindow", "0", "0", "1e39", "100");
    store("ModbusDialog", "10", "20", "300", "400");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, (Twips_Rect{.left = 2000, .top = 1000, .width = 6990, .height = 7380}));
    EXPECT_FALSE(form.Monitor_Place);
}

TEST_F(WindowRectangles, ANumberBeyondSinglePrecisionThatIsBeyondTheScreenOrNegativeFallsBack) {
    store("MainWindow", "1e39", "0", "100", "100");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, fallback);
    store("MainWindow", "0", "1e400", "100", "abc");
    store("PrintDialog", "0", "0", "-1e39", "100");
    PRO_Lee_Ventanas(app);
    EXPECT_EQ(mainForm.place, fallback);
    EXPECT_EQ(dialogPlace(Stored_Dialog::Preview), fallback);
}

TEST_F(WindowRectangles, ADialogWhoseStoredNumberIsBeyondSinglePrecisionKeepsWhatItHas) {
    store("PrintDialog", "1", "2", "3", "1e39");
    EXPECT_EQ(dialogPlace(Stored_Dialog::Preview),
              (Twips_Rect{.left = 2, .top = 1, .width = 3, .height = 4}));
}

TEST_F(WindowRectangles, ADialogThatWasNeverPlacedKeepsWhatItHas) {
    EXPECT_EQ(dialogPlace(Stored_Dialog::Preview),
              (Twips_Rect{.left = 2, .top = 1, .width = 3, .height = 4}));
}

TEST_F(WindowRectangles, AreStoredAsTextOfSinglePrecision) {
    mainForm.place = {.left = 0.1, .top = 1309.0909090909, .width = 12345678, .height = 7380};
    PRO_Guarda_Ventanas(app);
    EXPECT_EQ(settings.texts["Zorvane/MainWindow/Top"], "1309.091");
    EXPECT_EQ(settings.texts["Zorvane/MainWindow/Left"], "0.1");
    EXPECT_EQ(settings.texts["Zorvane/MainWindow/Width"], "12345680");
    EXPECT_FALSE(settings.texts.contains("Zorvane/PrintDialog/Top"));
}

TEST_F(WindowRectangles, TheMonitorsIsStoredAsTextOfWholeNumbers) {
    link.monitorLeft = 123456789;
    link.monitorTop = -22;
    PRO_Guarda_Ventanas(app);
    EXPECT_EQ(settings.texts["Zorvane/ModbusDialog/Left"], "123456789");
    EXPECT_EQ(settings.texts["Zorvane/ModbusDialog/Top"], "-22");
    EXPECT_EQ(settings.texts["Zorvane/ModbusDialog/Width"], "33");
    EXPECT_EQ(settings.texts["Zorvane/ModbusDialog/Height"], "44");
}

TEST(SingleText, HasThePointInEveryLocale) {
    const doubles::Comma_Locale locale;
    EXPECT_EQ(singleText(708.6614), "708.6614");
    EXPECT_EQ(singleText(1440.0), "1440");
    EXPECT_EQ(singleText(0.00012345678), "0.0001234568");
}

} // namespace
} // namespace zorvane::app
