// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/link_windows.h"
#include "ui/base/file_dialog.h"
#include "ui/base/fixed_dialog.h"
#include "ui/line/traffic_feed.h"
#include "ui/line/traffic_model.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableView;

namespace zorvane::ui {

/// The monitor: a table of exchanges, and the raw bytes of the one selected. Closing it only hides it.
class Monitor_Window final : public QWidget {
  public:
    /// `midnight` is the time of the link's clock at the last local midnight.
    Monitor_Window(Micros midnight, Ask_User ask, QWidget* owner);

    [[nodiscard]] Traffic_Feed& feed() { return feed_; }
    [[nodiscard]] Traffic_Model& model() { return model_; }

    /// In twips: the corner of its frame and its inner size. A place outside all screens is left out.
    [[nodiscard]] Window_Place place() const;
    void setPlace(const Window_Place& place);

    /// The rows selected as text, or all of them when none is.
    [[nodiscard]] QString text() const;
    /// False when the file can't be written.
    [[nodiscard]] bool save(const QString& path) const;

    File_Dialog OpenFile; ///< where `save` asks for the file

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* makeButtons();
    QPushButton& addButton(QWidget& row, const char* name, const QString& text, std::function<void()> chosen);
    void makeTable();
    void showNew(std::vector<Traffic_Entry> entries);
    void showBytes();
    void showCount();
    void clear();
    void copy() const;
    void saveAs();

    Ask_User ask_;
    Traffic_Model model_;
    Traffic_Feed feed_;
    QTableView* table_ = nullptr;
    QPlainTextEdit* bytes_ = nullptr;
    QLabel* count_ = nullptr;
    QPushButton* pause_ = nullptr;
};

} // namespace zorvane::ui
