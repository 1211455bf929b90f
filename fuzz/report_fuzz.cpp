// SPDX-License-Identifier: MIT
// Any bytes as a template whose document is reported: the run ends, with pages and in every format that isn't
// painted, and strict readers take the files.

#include "fuzz/biff_reader.h"
#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"
#include "fuzz/rtf_reader.h"
#include "reports/export/export_html.h"
#include "reports/export/export_rtf.h"
#include "reports/export/export_txt.h"
#include "reports/export/xls/export_xls.h"
#include "reports/testing/report_bench.h"
#include "values/font_sizes.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

/// A run calls its host often; only the last calls matter.
class Quiet_Host : public Main_Report_Host {
  public:
    void showBusy() override {}
    void endBusy() override {}
    void SaveConfig(const Twips_Rect&) override {}
    void showPages(MainRepKVRT&) override {}
    void showFontDialog(MainRepKVRT&) override {}
    void dropFontDialog(MainRepKVRT&) override {}
    void exportReport(MainRepKVRT&) override {}
};

void checkPages(const MainRepKVRT& report) {
    std::int32_t last = 1;
    for (const Contents_Entry& entry : report.Pages.document.contents) {
        require(entry.page >= last && entry.page <= report.Pages.Count(),
                "the contents go from page to page");
        last = entry.page;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Fuzz_Document reader;
    reader.readTemplate(std::string(data, data + size));
    if (!reader.mayBeWritten()) return 0;
    const doubles::Even_Metrics metrics;
    Quiet_Host host;
    MainRepKVRT report(
        {reader.document(), metrics, "Grid Font"},
        [] {
            return Report_Time{"1/2/2026", 9, 5};
        },
        host);
    report.HaveGrid = size % 2 == 0;
    report.FontSize = fontSizes.at(size % fontSizes.size()).applied;
    ignoringFailure([&] {
        report.Run();
        checkPages(report);
        const Report_Content content = contentOf(report);
        static_cast<void>(exportHtml(content));
        static_cast<void>(exportTxt(content));
        static_cast<void>(fuzz::readRtf(exportRtf(content)));
        static_cast<void>(fuzz::readBiff(biffWorkbook(content)));
    });
    return 0;
}
