// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// A program that runs beside the test. Whoever destroys it while it runs, kills it.
class Spawned_Program {
  public:
    /// Starts a program, as another user if `user` isn't 0. Its output and its notices can be read meanwhile.
    explicit Spawned_Program(const std::vector<std::string>& command, uid_t user = 0);
    ~Spawned_Program();
    Spawned_Program(const Spawned_Program&) = delete;
    Spawned_Program& operator=(const Spawned_Program&) = delete;

    /// Blocks until the notices (or the output) hold a text; false when they end without it or after 30 s.
    bool awaitNotice(const std::string& text) { return await(err_, text); }
    bool awaitOutput(const std::string& text) { return await(out_, text); }
    /// Does nothing to a program that has ended.
    void signal(int number) const;
    /// Reads all that is left and waits for the end: the exit code, or minus the signal's number.
    int finish();

    [[nodiscard]] const std::string& out() const { return out_.text; }
    [[nodiscard]] const std::string& err() const { return err_.text; }

  private:
    struct Stream {
        int fd = -1;
        std::string text;
    };

    bool await(Stream& stream, const std::string& text);
    bool readSome(std::chrono::milliseconds atMost);

    pid_t pid_ = -1;
    Stream out_;
    Stream err_;
};

} // namespace zorvane::doubles
