#pragma once

#include "reports/export_format.h"

#include <functional>
#include <utility>

namespace zorvane {

/// PDF with its fonts embedded, and TIFF of all pages at 200 dots to the inch, packed without loss.
class Qt_Page_Exporters : public Page_Exporters {
  public:
    Qt_Page_Exporters() = default;
    /// `keepsOn` is asked before each page; when it says false, the file can't be made.
    explicit Qt_Page_Exporters(std::function<bool()> keepsOn) : keepsOn_(std::move(keepsOn)) {}

    [[nodiscard]] std::string pdf(const Page_Document& pages, const std::string& title) const override;
    [[nodiscard]] std::string tiff(const Page_Document& pages) const override;

  private:
    std::function<bool()> keepsOn_;
};

} // namespace zorvane
