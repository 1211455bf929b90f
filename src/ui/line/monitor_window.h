// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "comm/modbus_control/link_windows.h"
#include "survey/listen/read_times.h"
#include "survey/traffic/native_traffic_files.h"
#include "ui/base/file_dialog.h"
#include "ui/base/fixed_dialog.h"
#include "ui/line/traffic_feed.h"
#include "ui/line/traffic_view.h"

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;

namespace zorvane::ui {

/// What the monitor asks of the link.
struct Monitor_Line {
    std::function<Port_Settings()> settings; ///< those in force
    /// Whether the template's time-out is in force, so that the settings' own doesn't count.
    std::function<bool()> timeOutOfTemplate;
    std::function<void(std::int32_t timeOutMs)> takeTimeOut;
};

/// The monitor: a table of exchanges, and the raw bytes of the one selected. Closing it only hides it. All
/// traffic can go to a file as well, whether the window is shown, paused or neither.
class Monitor_Window final : public QWidget {
  public:
    /// `midnight` is the time of the clock, the link's, at the last local midnight. The clock must outlive
    /// it.
    Monitor_Window(Link_Clock& clock, Micros midnight, Ask_User ask, QWidget* owner, Monitor_Line line = {});

    [[nodiscard]] Traffic_Feed& feed() { return feed_; }
    [[nodiscard]] Traffic_Model& model() { return model_; }

    /// In twips: the corner of its frame and its inner size. A place outside all screens is left out.
    [[nodiscard]] Window_Place place() const;
    void setPlace(const Window_Place& place);

    /// The rows selected as text, or all of them when none is.
    [[nodiscard]] QString text() const;
    /// False when the file can't be written.
    [[nodiscard]] bool save(const QString& path) const;
    /// Begins a file of all traffic from now on. False when it can't be written.
    bool startFile(const QString& path);

    File_Dialog OpenFile; ///< where `save` asks for the file

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* makeButtons();
    QWidget* makeTimes();
    QPushButton& addButton(QWidget& row, const char* name, const QString& text, std::function<void()> chosen);
    QPushButton& addSwitch(QWidget& row, const char* name, const QString& text,
                           std::function<void(bool)> toggled);
    void take(const Traffic_Entry& entry);
    void showNew(std::vector<Traffic_Entry> entries);
    void showCount();
    void showTimes();
    void takeTimeOut();
    void clear();
    void saveAs();
    void setFileOn(bool on);
    void openFile();
    [[nodiscard]] bool askForFile(bool save, const QString& title, const QString& filter,
                                  const QString& ending);

    Link_Clock& clock_;
    Ask_User ask_;
    Monitor_Line line_;
    Traffic_Model model_;
    std::int64_t sinceEpoch_; ///< what the rows' times lack to microseconds since 1970
    Traffic_Feed feed_;
    survey::Native_Traffic_Files files_;
    std::optional<survey::Traffic_File> file_;
    bool fileFailed_ = false;
    survey::Read_Times times_;
    Traffic_View* view_ = nullptr;
    QLabel* count_ = nullptr;
    QLabel* timesText_ = nullptr;
    QPushButton* timeOut_ = nullptr;
    QPushButton* toFile_ = nullptr;
};

} // namespace zorvane::ui
