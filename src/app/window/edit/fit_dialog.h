// SPDX-License-Identifier: MIT
#pragma once

#include "app/edit/fit_question.h"

#include <QDialog>

namespace zorvane::app {

/// "37 of 40 fit; row 12 above its limit 1400": the lists of what changes and of what doesn't fit, and "All
/// that fit" or "Nothing". Accepted means all that fit.
class Fit_Dialog final : public QDialog {
  public:
    Fit_Dialog(const Fit_Question& question, QWidget* parent);

  private:
    void addLabel(const QString& name, const QString& text);
    void addList(const QString& name, const QString& words, const std::vector<std::string>& lines);
    void addButtons(const Fit_Question& question);
};

} // namespace zorvane::app
