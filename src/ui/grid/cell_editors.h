// SPDX-License-Identifier: MIT
#pragma once

#include "ui/grid/combo_entries.h"

#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QValidator>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QKeyEvent;

namespace zorvane::ui {

/// What an editor didn't take.
struct Refused_Input {
    /// The character that Windows-1252 lacks, as "U+03A9"; "" for a text of several cells.
    std::string character;
};

/// Refuses a text with a character that Windows-1252 lacks, and puts a blank for each line end and tab.
class Code_Page_Validator final : public QValidator {
  public:
    explicit Code_Page_Validator(QObject* parent) : QValidator(parent) {}
    State validate(QString& text, int& position) const override;

    std::function<void(const Refused_Input&)> onRefused;
};

/// How an in-cell editor is left.
enum class Edit_End { Enter, Next, Previous, Up, Down, Stay, Escape };

/// The way out that a key in a text editor means, if any.
[[nodiscard]] std::optional<Edit_End> editEndOf(const QKeyEvent& key);

/// Whether a key is the editor's own while one is open, though the menu has it, too: Ctrl+Z, Ctrl+Shift+Z,
/// Ctrl+Y, Ctrl+K, Ctrl+F.
[[nodiscard]] bool belongsToEditor(const QKeyEvent& key);

/// The in-cell editor for free text.
class Text_Cell_Editor final : public QLineEdit {
  public:
    /// `text` is what the cell holds. `maxLength` is in characters; 0 is no limit. A cell may hold more than
    /// that: such a text stays whole until it is edited, and then can only get shorter.
    Text_Cell_Editor(const QString& text, int maxLength, QWidget* parent);

    std::function<void(Edit_End)> onEnd;
    /// Whether the cell takes a pasted text of several cells or lines as one line; without it it does.
    std::function<bool()> takesBlock;
    std::function<void(const Refused_Input&)> onRefused;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void keepWithinLimit(const QString& edited);
    void pasteFrom(QClipboard::Mode mode);
    void insertPasted(const QString& clipboard);
    void refuse(const Refused_Input& what) const;

    int limit_;
};

/// The in-cell editor for a list: it opens at once, and only its entries can be chosen. Typing goes to the
/// entry that begins with what was typed.
class List_Cell_Editor final : public QComboBox {
  public:
    List_Cell_Editor(std::vector<Combo_Entry> entries, QWidget* parent);

    /// The entry chosen, once the editor ended in any other way than by Escape.
    [[nodiscard]] const Combo_Entry& chosen() const;
    /// Stands on the entry with that text, or on the first.
    void standOn(const std::string& text);
    /// Goes to the entry that begins with a typed text.
    void typeAhead(const QString& text);

    std::function<void(Edit_End)> onEnd;

    void hidePopup() override;

  protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end(Edit_End how);
    void takeHighlighted(Edit_End how);

    std::vector<Combo_Entry> entries_;
    QString typedFirst_;
    bool ended_ = false;
};

} // namespace zorvane::ui
