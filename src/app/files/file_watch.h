// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <functional>
#include <optional>
#include <string>

namespace zorvane::app {

/// What the bar's line about a changed file offers.
struct Changed_File_Offers {
    std::function<void()> reload;
    std::function<void()> compare; ///< empty where nothing can compare
};

/// Tells when another program changes the file of the document in the window. It is told itself when to look.
class File_Watch {
  public:
    explicit File_Watch(const App_Context& app) : app_(app) {}

    /// What the file holds now is what the document was read from or written to.
    void settle();
    /// A save has ended: what it wrote is what the document holds. One that wrote nothing leaves all as it
    /// was.
    void saved();
    /// Looks at the file: a line of the bar says that it holds something else than the program knows of, or
    /// is gone. What was told isn't told again, and the line goes once the file is as it was. What a save of
    /// this program wrote is known from that moment on, though the save itself goes on for a second.
    void look(const Changed_File_Offers& offers);

    /// The file that is watched; nothing for a document without one.
    [[nodiscard]] const std::optional<std::string>& path() const { return path_; }

  private:
    void takeOwnWrite();
    void tell(const std::string& text, const Changed_File_Offers& offers);

    const App_Context& app_;
    std::optional<std::string> path_;
    std::optional<std::string> settled_; ///< the bytes; nothing when they couldn't be read
    std::optional<std::string> seen_;    ///< at the last look
};

} // namespace zorvane::app
