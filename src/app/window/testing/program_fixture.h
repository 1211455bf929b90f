// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/kvrt_principal.h"
#include "template/testing/temporary_folder.h"
#include "ui/base/text.h"

#include <QAction>
#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// A message that the program showed.
struct Shown_Message {
    std::string text;
    int style;
    std::string title;
    bool operator==(const Shown_Message&) const = default;
};

inline void PrintTo(const Shown_Message& message, std::ostream* out) {
    *out << message.style << " \"" << message.title << "\": \"" << message.text << "\"";
}

/// The whole program in a folder of its own, driven from inside: messages are answered from a list, and kept.
class Program_Fixture : public testing::Test {
  protected:
    Program_Fixture() { std::filesystem::create_directory(folder.path() + "/app"); }
    ~Program_Fixture() override;

    /// The templates and documents of the system lie in the application folder.
    void putModels() {
        for (const auto& entry : std::filesystem::directory_iterator(ZORVANE_MODELS))
            if (entry.is_regular_file())
                std::filesystem::copy_file(entry.path(),
                                           appFolder() + "/" + entry.path().filename().string());
    }
    void put(const std::string& name, const std::string& text) const {
        std::ofstream(folder.path() + "/" + name, std::ios::binary) << text;
    }
    [[nodiscard]] std::string text(const std::string& name) const {
        std::ostringstream whole;
        whole << std::ifstream(path(name), std::ios::binary).rdbuf();
        return whole.str();
    }
    [[nodiscard]] std::string path(const std::string& name) const { return folder.path() + "/" + name; }
    [[nodiscard]] std::string appFolder() const { return path("app"); }

    /// The program, not started.
    void make() {
        program = std::make_unique<app::KVRT_Principal>(app::Program_Places{
            appFolder(), path("recovery"), QString::fromStdString(path("settings.conf"))});
        program->mainForm().ask = [this](const QString& prompt, int style, const QString& title) {
            messages.push_back({prompt.toStdString(), style, title.toStdString()});
            if (answers.empty()) return int{Msgb_Code_Ok};
            const int answer = answers.front();
            answers.pop_front();
            return answer;
        };
        program->desktop().shell = [this](const std::string& operation, const std::string& file,
                                          const std::string& parameters, const std::string& where) {
            opened.push_back({operation, file, parameters, where});
            return true;
        };
        program->mainForm().dialog().run = [this](QFileDialog& dialog) { return whenAsked(dialog); };
    }

    /// The program as it stands after its two start timers.
    void start() {
        if (!program) make();
        program->start();
        program->mainForm().timers().fire(Timer_Name::TMR_Abre_ZTP);
        program->mainForm().timers().fire(Timer_Name::TMR_Inicial_ZTP);
        QApplication::processEvents();
    }

    /// ... and with a document of the folder open.
    void startWith(const std::string& document) {
        start();
        open(document);
    }
    void open(const std::string& document) {
        chosenFile = path(document);
        choose("MNU_Open");
    }

    void choose(const char* entry) {
        QAction& action = program->window().menu().action(entry);
        ASSERT_TRUE(action.isEnabled()) << entry;
        action.trigger();
        QApplication::processEvents();
    }
    [[nodiscard]] bool enabled(const char* entry) const {
        return program->window().menu().action(entry).isEnabled();
    }
    /// The entries of a list that can be chosen.
    [[nodiscard]] std::vector<std::string> enabledOf(const std::vector<std::string>& entries) const {
        std::vector<std::string> found;
        for (const std::string& entry : entries)
            if (enabled(entry.c_str())) found.push_back(entry);
        return found;
    }
    [[nodiscard]] std::string panel(int number) const {
        return program->window().StatusBar1().text(number).toStdString();
    }
    [[nodiscard]] std::string title() const { return program->window().windowTitle().toStdString(); }
    [[nodiscard]] ui::Flex_Grid& upper() const { return program->window().FLX_Configuration(); }
    [[nodiscard]] ui::Flex_Grid& lower() const { return program->window().FLX_Settings(); }
    [[nodiscard]] static std::vector<std::string> rowOf(const ui::Flex_Grid& grid, std::int32_t row) {
        std::vector<std::string> texts;
        for (std::int32_t col = 0; col < grid.Cols(); ++col)
            texts.push_back(grid.TextMatrix(row, col));
        return texts;
    }

    /// Without a window manager nobody gives the window the focus back after a dialog.
    void focus(ui::Flex_Grid& grid) {
        QApplication::setActiveWindow(&program->window());
        grid.view().setFocus();
    }
    /// The user selects a field in the upper grid by keys.
    void selectField(std::int32_t row) {
        focus(upper());
        while (upper().Row() != row)
            QTest::keyClick(&upper().view(), upper().Row() < row ? Qt::Key_Down : Qt::Key_Up);
        QApplication::processEvents();
    }
    /// The user types into a cell of the lower grid.
    void type(std::int32_t row, std::int32_t col, const QString& entry) {
        lower().setRow(row);
        lower().setCol(col);
        focus(lower());
        QTest::keyClick(&lower().view(), Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), entry);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QApplication::processEvents();
    }

    Temporary_Folder folder;
    std::unique_ptr<app::KVRT_Principal> program;
    std::vector<Shown_Message> messages;
    std::vector<std::vector<std::string>>
        opened;              ///< outside the program: operation, file, parameters, folder
    std::deque<int> answers; ///< codes; beyond them every message is left with Ok
    std::string chosenFile;  ///< what the user chooses in the file dialog; empty for Cancel
    std::string chosenType;  ///< the extension of the file type chosen there; empty for the one on offer
    bool readOnlyTicked = false;

  private:
    bool whenAsked(QFileDialog& dialog);
};

} // namespace zorvane::doubles
