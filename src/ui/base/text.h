// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>
#include <string_view>

class QTextDocument;
class QWidget;

namespace zorvane::ui {

/// The text of the core, bytes in Windows-1252, as the window shows it.
[[nodiscard]] QString fromCore(std::string_view text);

/// What the user wrote, as the core keeps it. A character that the code page lacks becomes "?".
[[nodiscard]] std::string toCore(const QString& text);

/// A text on the screen, whole, as the core keeps it: lines end in CR LF, and a blank that doesn't break is
/// none that does, which `toPlainText` would make of it.
[[nodiscard]] std::string toCore(const QTextDocument& document);

/// Whether every character has a place in the code page.
[[nodiscard]] bool fitsCodePage(const QString& text);

/// A tool tip's text that is shown as it stands, whatever it looks like, with long lines wrapped. "" stays
/// "".
[[nodiscard]] QString plainTip(const QString& text);

/// The same for a text that is a tool tip by itself unless it looks like HTML.
[[nodiscard]] QString literalTip(const QString& text);

/// Gives a control its own name: as the object's name, for the program, and as its accessible description,
/// for whoever looks from outside. The accessible name stays free, since it would hide the text of a label.
void giveName(QWidget& widget, const QString& name);

} // namespace zorvane::ui
