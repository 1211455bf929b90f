// SPDX-License-Identifier: MIT
#pragma once

#include "survey/traffic/traffic_lines.h"
#include "ui/line/traffic_view.h"

#include <QFile>
#include <QTimer>
#include <QWidget>

class QLabel;

namespace zorvane::ui {

/// The rows of a file of traffic, as the monitor shows them. The file is read a piece at a time; closing the
/// window ends that.
class Traffic_File_Window final : public QWidget {
  public:
    Traffic_File_Window(const QString& path, QWidget* owner);

    /// False when the file can't be opened.
    [[nodiscard]] bool opened() const { return file_.isOpen(); }
    [[nodiscard]] bool reading() const { return timer_.isActive(); }
    [[nodiscard]] const Traffic_Model& model() const { return model_; }

  private:
    [[nodiscard]] static Micros midnightOf(const QString& path);
    void makeParts(const QString& path);
    void readPiece();
    void showCount();

    QFile file_;
    Traffic_Model model_;
    survey::Traffic_Reader reader_;
    std::size_t rows_ = 0; ///< read so far
    QTimer timer_;
    Traffic_View* view_ = nullptr;
    QLabel* count_ = nullptr;
};

} // namespace zorvane::ui
