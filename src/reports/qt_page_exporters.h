#pragma once

#include "reports/export_format.h"

namespace zorvane {

/// PDF with its fonts embedded, and TIFF of all pages at 200 dots to the inch, packed without loss.
class Qt_Page_Exporters : public Page_Exporters {
  public:
    [[nodiscard]] std::string pdf(const Page_Document& pages, const std::string& title) const override;
    [[nodiscard]] std::string tiff(const Page_Document& pages) const override;
};

} // namespace zorvane
