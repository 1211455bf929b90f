// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/transfer_subcommand.h"

namespace zorvane::ctl {

namespace {

class Download_Subcommand : public Transfer_Subcommand {
  public:
    Download_Subcommand() : Transfer_Subcommand("Download") {}

  protected:
    [[nodiscard]] Transfer_Report transfer(const Port_Work& work) const override {
        return runDownload(work.comm, work.mainForm, work.stop);
    }
};

} // namespace

std::unique_ptr<Subcommand> makeDownloadSubcommand() { return std::make_unique<Download_Subcommand>(); }

} // namespace zorvane::ctl
