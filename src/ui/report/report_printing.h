// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"
#include "reports/bands/page_settings.h"

#include <QPrinter>

#include <functional>

class QPrintDialog;

namespace zorvane::ui {

/// Gives a printer the pages' paper, its whole sheet, and the name of the job. An installed printer that the
/// report names is chosen.
void prepare(QPrinter& printer, const Page_Document& pages, const Report_Printer& chosen,
             const QString& title);

/// Offers the choices that a report has: which pages, how many copies. `shown` is the page on the screen,
/// from 1; 0 for a report that isn't shown.
void prepare(QPrintDialog& dialog, const Page_Document& pages, int shown);

enum class Print_Outcome { Printed, Stopped, Failed };

/// Prints the pages that the user chose on a printer that was prepared for them. `shown` as above. When
/// `keepsOn` says false, the job isn't sent.
[[nodiscard]] Print_Outcome print(QPrinter& printer, const Page_Document& pages, int shown,
                                  const std::function<bool()>& keepsOn);

} // namespace zorvane::ui
