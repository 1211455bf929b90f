// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_settings.h"

#include <QDialog>
#include <QStringList>

class QComboBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QLabel;
class QRadioButton;

namespace zorvane::ui {

/// Asks for printer, paper, orientation and margins. Margins are shown in inches or millimetres, as the
/// desktop measures; one that wasn't changed keeps its exact value.
class Page_Setup_Dialog final : public QDialog {
  public:
    /// `printers` are the names of those that are installed.
    Page_Setup_Dialog(const Page_Settings& page, const Report_Printer& printer, const QStringList& printers,
                      bool metric, QWidget* parent);

    /// As the user has it at the moment.
    [[nodiscard]] Page_Settings page() const;
    [[nodiscard]] Report_Printer printer() const;

  private:
    struct Margin_Box {
        QDoubleSpinBox* box = nullptr;
        double Page_Settings::*margin = nullptr;
        double shown = 0; ///< what the box showed for the margin as it was
    };

    [[nodiscard]] QWidget* printerPart(const QStringList& printers);
    [[nodiscard]] QWidget* paperPart();
    [[nodiscard]] QWidget* marginPart();
    void check();

    Page_Settings before_;
    Report_Printer printerBefore_;
    double twipsPerUnit_;
    QString unit_;
    QComboBox* printers_ = nullptr;
    QComboBox* papers_ = nullptr;
    QRadioButton* portrait_ = nullptr;
    QRadioButton* landscape_ = nullptr;
    Margin_Box margins_[4];
    QLabel* complaint_ = nullptr;
    QDialogButtonBox* buttons_ = nullptr;
};

} // namespace zorvane::ui
