// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"
#include "simulator/wire/unique_fd_linux.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace zorvane::simulator {

/// How a program ended.
struct Ended {
    int exitCode = -1; ///< -1 when a signal ended it
    std::string complaints;
};

/// The real zorvane-sim on a pseudo-terminal in a folder of its own, with a template whose registers 100 to
/// 109 hold 1000 to 1009 and whose registers 200 to 203 are live.
class Program_Test : public testing::Test {
  protected:
    Program_Test();
    ~Program_Test() override;

    /// Starts it and waits until it is ready.
    void start(std::vector<std::string> arguments = {});
    /// Starts it with just these arguments.
    void startBare(const std::vector<std::string>& arguments);
    void waitUntilReady();
    /// The same, on a network.
    void startAtTcp(std::vector<std::string> arguments = {});
    /// Sends a signal and waits for the end.
    [[nodiscard]] Ended end(int signal);
    /// Waits for an end that comes by itself.
    [[nodiscard]] Ended waitForEnd();

    [[nodiscard]] std::string path(const std::string& name) const { return (folder_ / name).string(); }
    [[nodiscard]] std::string link() const { return path("line"); }
    /// What the program says it is ready at.
    [[nodiscard]] const std::string& readyAt() const { return readyAt_; }
    [[nodiscard]] std::vector<nlohmann::json> log() const;
    /// The log's lines that have this member.
    [[nodiscard]] std::vector<nlohmann::json> logWith(const std::string& member) const;

  private:
    std::filesystem::path folder_;
    pid_t program_ = -1;
    Unique_Fd output_;
    std::string readyAt_;
};

/// A client that sees the raw bytes of a line.
class Raw_Client {
  public:
    explicit Raw_Client(const std::string& device);
    /// Over a network: "tcp:127.0.0.1:43211".
    [[nodiscard]] static Raw_Client at(const std::string& readyAt);

    void send(Bytes_View bytes) const;
    /// Exactly so many bytes, or fewer when none came for two seconds or the line went.
    [[nodiscard]] Bytes receive(std::size_t count) const;
    /// Whether bytes can be read within that time.
    [[nodiscard]] bool readable(int milliseconds) const;
    /// Waits until no byte is left to be read; false after five seconds.
    [[nodiscard]] bool waitUntilEmpty() const;
    /// Blocks until the line is hung up; false after five seconds.
    [[nodiscard]] bool waitForHangUp() const;

  private:
    explicit Raw_Client(Unique_Fd fd) : fd_(std::move(fd)) {}

    Unique_Fd fd_;
};

/// A frame of these bytes with a check sum of libmodbus.
[[nodiscard]] Bytes sealedFrame(const Bytes& body);

} // namespace zorvane::simulator
