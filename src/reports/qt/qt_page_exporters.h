// SPDX-License-Identifier: MIT
#pragma once

#include "reports/export/export_format.h"

#include <cstddef>
#include <functional>
#include <utility>

namespace zorvane {

/// PDF with its fonts embedded, and TIFF of all pages at 200 dots to the inch,
/// packed without loss, letters with edges of three steps.
class Qt_Page_Exporters : public Page_Exporters {
  public:
    Qt_Page_Exporters() = default;
    /// `keepsOn` is asked before each page; when it says false, the file can't be
    /// made. `progress` is told how many pages of all are done.
    explicit Qt_Page_Exporters(std::function<bool()> keepsOn,
                               std::function<void(std::size_t done, std::size_t total)> progress = {})
        : keepsOn_(std::move(keepsOn)), progress_(std::move(progress)) {}

    [[nodiscard]] std::string pdf(const Page_Document& pages, const std::string& title) const override;
    [[nodiscard]] std::string tiff(const Page_Document& pages) const override;

  private:
    [[nodiscard]] std::function<bool()> watch(std::size_t total) const;

    std::function<bool()> keepsOn_;
    std::function<void(std::size_t done, std::size_t total)> progress_;
};

} // namespace zorvane
