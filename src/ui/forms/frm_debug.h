// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace zorvane::ui {

/// `FrmDebug`, a spare window with one text box. Closing it only hides it, so that its text stays.
class Frm_Debug final : public QWidget {
  public:
    explicit Frm_Debug(QWidget* parent);

    [[nodiscard]] QPlainTextEdit& EDT_Prueba() { return *text_; }

    /// Puts a line, with its end, after the text; a box that shows the end of its text goes on doing so.
    void addLine(const QString& line);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QPlainTextEdit* text_ = nullptr;
};

} // namespace zorvane::ui
