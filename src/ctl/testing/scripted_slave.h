// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zorvane::doubles {

/// A controller on a pseudo-terminal that answers as a test says. It runs in a thread of its own.
class Scripted_Slave {
  public:
    /// The bytes that come back for a request; none for silence. Called in the slave's thread.
    using Answer = std::function<Byte_Array(const Byte_Array& request)>;

    explicit Scripted_Slave(Answer answer);
    ~Scripted_Slave();
    Scripted_Slave(const Scripted_Slave&) = delete;
    Scripted_Slave& operator=(const Scripted_Slave&) = delete;

    [[nodiscard]] const std::string& port() const { return port_; }
    /// All requests so far, of these functions.
    [[nodiscard]] std::vector<Byte_Array> requests(const std::vector<int>& functions) const;
    [[nodiscard]] std::size_t reads() const { return requests({3}).size(); }
    [[nodiscard]] std::size_t writes() const { return requests({6, 16}).size(); }
    /// Blocks until so many requests came; false after 30 s without.
    [[nodiscard]] bool awaitRequests(std::size_t count);

  private:
    void serve();
    void take(const Byte_Array& request);

    Answer answer_;
    int far_ = -1;
    int near_ = -1; ///< kept open, so that programs may come and go
    int end_[2] = {-1, -1};
    std::string port_;
    mutable std::mutex mutex_;
    std::condition_variable came_;
    std::vector<Byte_Array> requests_;
    std::thread thread_;
};

} // namespace zorvane::doubles
