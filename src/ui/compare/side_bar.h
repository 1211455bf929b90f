// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <functional>

class QComboBox;
class QLabel;
class QPushButton;

namespace zorvane::ui {

/// The choice of one side of a comparison: a list, a button for what needs a file, and what the side is.
class Side_Bar final : public QWidget {
  public:
    /// `name` is "Left" or "Right", `caption` the list's label with its mnemonic, `button` that of the
    /// button.
    Side_Bar(const QString& name, const QString& caption, const QString& button, QWidget* parent);

    std::function<void(int entry)> chosen; ///< another entry of the list
    std::function<void()> fileWanted;      ///< the button

    void setEntries(const QStringList& entries, int current);
    /// Whether the chosen entry needs a file, and what the side is called.
    void tell(bool needsFile, const QString& name);

  private:
    QComboBox* list_ = nullptr;
    QPushButton* button_ = nullptr;
    QLabel* words_ = nullptr;
};

} // namespace zorvane::ui
