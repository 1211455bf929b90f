// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <string>
#include <vector>

class QMenu;
class QMenuBar;

namespace zorvane::doubles {

/// What is wrong with the controls of a window for somebody who doesn't see it, one line each: "BOT_1: no
/// role". A control has a given name, which is its accessible description as well, a role, and a name in
/// words if it takes the keyboard, as everything must that is worked. Parts of a control, such as a list's
/// scroll bars, aren't controls.
[[nodiscard]] std::vector<std::string> controlFaults(QWidget& window);

/// The given names of the controls that Tab goes to, in its order, from the first one of the window.
[[nodiscard]] std::vector<std::string> tabOrder(QWidget& window);

/// What a window says in labels, on buttons and above groups, in the order in which they were made; the tip
/// of one that has it stands behind a bar, and controls without words are left out.
[[nodiscard]] std::vector<std::string> captions(const QWidget& window);

/// Letters that two controls of a window, or two entries of one menu, answer to: "s: BOT_1 BOT_2".
[[nodiscard]] std::vector<std::string> keyClashes(const QWidget& window);
[[nodiscard]] std::vector<std::string> keyClashes(const QMenuBar& bar);
[[nodiscard]] std::vector<std::string> keyClashes(const QMenu& menu);

} // namespace zorvane::doubles
