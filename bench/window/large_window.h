// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/kvrt_principal.h"
#include "template/testing/temporary_folder.h"

#include <QString>

#include <cstdint>
#include <memory>

namespace zorvane::bench {

/// The whole program with its handlers, offline: a window with a template of one field, read and shown. The
/// cell in row 2 and column 1 is the current one.
class Large_Window {
  public:
    Large_Window(std::int32_t rows, std::int32_t columns);

    [[nodiscard]] ui::Flex_Grid& grid() { return program_->window().FLX_Settings(); }
    [[nodiscard]] ui::Flex_Grid_View& view() { return grid().view(); }

    void press(int key, const QString& text = {});
    /// Chooses a menu entry by its given name.
    void choose(const char* entry);
    /// Serves events until the widget was painted.
    void awaitPaint(QWidget& widget);

  private:
    doubles::Temporary_Folder folder_;
    std::unique_ptr<app::KVRT_Principal> program_;
};

} // namespace zorvane::bench
