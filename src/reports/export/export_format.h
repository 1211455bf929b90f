// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/active_report.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvane {

/// The formats in the order of the export dialog's filter.
enum class Export_Format : int {
    Excel = 1,
    Pdf = 2,
    Rtf = 3,
    Text = 4,
    Tiff = 5,
    Html = 6,
};

/// The format of a filter index, if there is one.
[[nodiscard]] std::optional<Export_Format> formatOfFilter(int filterIndex);

/// The format of an extension as a command line names it: "xls", "pdf", "rtf", "txt", "tif", "html".
[[nodiscard]] std::optional<Export_Format> formatOfName(const std::string& name);

/// The names of all formats, in their order.
[[nodiscard]] std::vector<std::string> formatNames();

/// A format's extension: "xls".
[[nodiscard]] std::string extensionOf(Export_Format format);

/// The formats whose pages are painted.
class Page_Exporters {
  public:
    virtual ~Page_Exporters() = default;
    /// The bytes of a file. What can't be made is failure 75.
    [[nodiscard]] virtual std::string pdf(const Page_Document& pages, const std::string& title) const = 0;
    [[nodiscard]] virtual std::string tiff(const Page_Document& pages) const = 0;
};

/// Runs the report to its end and gives the bytes of the file. Those of a run that was ended early
/// (`Canceled`) are no whole file.
[[nodiscard]] std::string exportReport(ActiveReport& report, Export_Format format,
                                       const Page_Exporters& painted);

} // namespace zorvane
