// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

namespace zorvane::ui {

/// A text from elsewhere as a cell takes it: one line.
struct Pasted_Text {
    QString line;              ///< a blank stands for each line end and each tab
    bool severalCells = false; ///< there was a tab or a line end in it
};

/// The clipboard's text. One line end at its end, as many programs leave, doesn't count.
[[nodiscard]] Pasted_Text pastedText(QString clipboard);

/// The text with a blank for each line end and each tab, as many characters as before.
[[nodiscard]] QString asOneLine(QString text);

/// The first character that the code page lacks, as "U+03A9"; "" when there is none.
[[nodiscard]] std::string missingCharacter(const QString& text);

} // namespace zorvane::ui
