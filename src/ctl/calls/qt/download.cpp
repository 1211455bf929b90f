#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/transfer_call.h"

namespace zorvane {

namespace {

class Download_Call : public Transfer_Call {
  public:
    Download_Call() : Transfer_Call("Download") {}

  protected:
    [[nodiscard]] Transfer_Report transfer(const Port_Work& work) const override {
        return runDownload(work.comm, work.frame, work.stop);
    }
};

} // namespace

std::unique_ptr<Call> makeDownloadCall() { return std::make_unique<Download_Call>(); }

} // namespace zorvane
