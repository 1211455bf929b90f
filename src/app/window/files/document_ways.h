// SPDX-License-Identifier: MIT
#pragma once

#include "app/files/file_watch.h"
#include "app/handover/handed_file.h"
#include "app/window/form/menu_context.h"

#include <QFileSystemWatcher>

#include <memory>

class QMenu;

namespace zorvane::app {

/// Ways to a document beside Open, and an eye on its file: "New from Model", "Recent Files", files that
/// zorvane-open hands over, and the bar's line about a file that another program changed.
class Document_Ways {
  public:
    /// What is in `menu` outlives it.
    explicit Document_Ways(const Menu_Context& menu);
    ~Document_Ways();
    Document_Ways(const Document_Ways&) = delete;
    Document_Ways& operator=(const Document_Ways&) = delete;

    /// From now on files may be handed over at that place; nothing when another window listens there.
    void listen(const QString& place);
    /// Opens a file of the desktop as Open does behind its dialog, in an event of its own. Why it can't be
    /// now; empty when it will be.
    [[nodiscard]] QString take(const QString& path);

  private:
    void fillNew();
    void fillRecent();
    void open(const std::string& path, bool readOnly = false);
    void opened();
    void saved();
    void watchFile();
    void look();
    [[nodiscard]] QString whyNotNow() const;
    void refuse(const QString& path, const QString& why);

    Menu_Context menu_;
    File_Watch watch_;
    QFileSystemWatcher watcher_;
    std::unique_ptr<QMenu> new_;
    std::unique_ptr<QMenu> recent_;
    Handed_Files handed_;
};

} // namespace zorvane::app
