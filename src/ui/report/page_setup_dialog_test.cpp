// SPDX-License-Identifier: MIT
#include "ui/report/page_setup_dialog.h"
#include "ui/testing/control_walk.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

struct PageSetup : testing::Test {
    void open(bool metric = true) {
        dialog = std::make_unique<Page_Setup_Dialog>(page, printer, QStringList{"laser", "plotter"}, metric,
                                                     nullptr);
    }
    template <class Widget> Widget& named(const char* name) { return *dialog->findChild<Widget*>(name); }

    Page_Settings page;
    Report_Printer printer;
    std::unique_ptr<Page_Setup_Dialog> dialog;
};

TEST_F(PageSetup, ShowsWhatIsInForce) {
    page.TopMargin = 720;
    printer.DeviceName = "plotter";
    open();
    EXPECT_EQ(dialog->windowTitle(), "Page Setup");
    EXPECT_EQ(named<QComboBox>("Printer").currentText(), "plotter");
    EXPECT_EQ(named<QComboBox>("PaperSize").currentText(), "Letter (215.9 x 279.4 mm)");
    EXPECT_TRUE(named<QRadioButton>("Portrait").isChecked());
    EXPECT_EQ(named<QDoubleSpinBox>("LeftMargin").text(), "25.4 mm");
    EXPECT_EQ(named<QDoubleSpinBox>("TopMargin").text(), "12.7 mm");
    open(false);
    EXPECT_EQ(named<QComboBox>("PaperSize").currentText(), "Letter (8.5 x 11 in)");
    EXPECT_EQ(named<QDoubleSpinBox>("LeftMargin").text(), "1.00 in");
}

TEST_F(PageSetup, NoTwoControlsAnswerToOneLetter) {
    open();
    dialog->show();
    EXPECT_EQ(doubles::keyClashes(*dialog), std::vector<std::string>{});
}

TEST_F(PageSetup, SaysWhatEachSettingIs) {
    open();
    EXPECT_EQ(doubles::captions(*dialog),
              (std::vector<std::string>{"Printer", "&Name:", "Paper", "&Size:", "&Portrait", "L&andscape",
                                        "Orientation:", "Margins", "&Left:", "&Right:", "&Top:", "&Bottom:",
                                        "The margins leave no room on the paper.", "OK", "Cancel"}));
    EXPECT_EQ(named<QComboBox>("Printer").itemText(0).toStdString(), "The desktop's own");
    std::vector<std::string> papers;
    for (int entry = 0; entry < named<QComboBox>("PaperSize").count(); ++entry)
        papers.push_back(named<QComboBox>("PaperSize").itemText(entry).toStdString());
    EXPECT_EQ(papers,
              (std::vector<std::string>{"Letter (215.9 x 279.4 mm)", "Legal (215.9 x 355.6 mm)",
                                        "Executive (184.1 x 266.7 mm)", "Tabloid (279.4 x 431.8 mm)",
                                        "A3 (297 x 420 mm)", "A4 (210 x 297 mm)", "A5 (148 x 210 mm)"}));
    for (const auto& [name, words] :
         {std::pair("PaperSize", "Paper size"), std::pair("LeftMargin", "Left margin"),
          std::pair("RightMargin", "Right margin"), std::pair("TopMargin", "Top margin"),
          std::pair("BottomMargin", "Bottom margin")})
        EXPECT_EQ(named<QWidget>(name).accessibleName(), words);
}

TEST_F(PageSetup, WhatWasNotTouchedStaysExact) {
    page.LeftMargin = 1000.25;
    page.PaperWidth = 5000;
    printer.DeviceName = "gone";
    open();
    EXPECT_EQ(named<QComboBox>("Printer").currentText(), "gone (not there now)");
    EXPECT_EQ(dialog->page(), page);
    EXPECT_EQ(dialog->printer(), printer);
}

TEST_F(PageSetup, TakesPrinterPaperOrientationAndMargins) {
    open(false);
    named<QComboBox>("Printer").setCurrentText("laser");
    named<QComboBox>("PaperSize")
        .setCurrentIndex(named<QComboBox>("PaperSize").findText("A4 (8.268 x 11.69 in)"));
    named<QRadioButton>("Landscape").setChecked(true);
    named<QDoubleSpinBox>("LeftMargin").setValue(0.5);
    named<QDoubleSpinBox>("RightMargin").setValue(0.75);
    named<QDoubleSpinBox>("TopMargin").setValue(2);
    named<QDoubleSpinBox>("BottomMargin").setValue(0);
    EXPECT_EQ(dialog->printer().DeviceName, "laser");
    const Page_Settings taken = dialog->page();
    EXPECT_EQ(taken.PaperWidth, 16838);
    EXPECT_EQ(taken.PaperHeight, 11906);
    EXPECT_EQ(taken.LeftMargin, 720);
    EXPECT_EQ(taken.RightMargin, 1080);
    EXPECT_EQ(taken.TopMargin, 2880);
    EXPECT_EQ(taken.BottomMargin, 0);
}

TEST_F(PageSetup, MarginsWithoutRoomCannotBeConfirmed) {
    open(false);
    dialog->show();
    named<QDoubleSpinBox>("LeftMargin").setValue(6.6);
    EXPECT_FALSE(named<QPushButton>("OKButton").isEnabled());
    EXPECT_TRUE(named<QLabel>("Complaint").isVisible());
    EXPECT_EQ(named<QLabel>("Complaint").text(), "The margins leave no room on the paper.");
    named<QRadioButton>("Landscape").setChecked(true);
    EXPECT_TRUE(named<QPushButton>("OKButton").isEnabled());
    EXPECT_FALSE(named<QLabel>("Complaint").isVisible());
}

} // namespace
} // namespace zorvane::ui
