// SPDX-License-Identifier: MIT
#include "survey/traffic/disk_sync.h"

#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <utility>

namespace zorvane::survey {

namespace {

/// A descriptor of its own, so that the file may be closed meanwhile.
class Own_Descriptor {
  public:
    explicit Own_Descriptor(int number) : number_(number) {
        struct stat of {};
        if (number_ < 0 || ::fstat(number_, &of) != 0) return;
        device_ = of.st_dev;
        file_ = of.st_ino;
    }
    ~Own_Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Own_Descriptor(Own_Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1)), device_(other.device_), file_(other.file_) {}
    Own_Descriptor& operator=(Own_Descriptor&&) = delete;

    [[nodiscard]] int number() const noexcept { return number_; }
    [[nodiscard]] bool sameFile(const Own_Descriptor& other) const noexcept {
        return device_ == other.device_ && file_ == other.file_;
    }

  private:
    int number_;
    dev_t device_ = 0;
    ino_t file_ = 0;
};

bool noDisk(int error) { return error == EINVAL || error == ENOTSUP || error == EROFS; }

} // namespace

class Disk_Sync::Worker {
  public:
    explicit Worker(Wait wait) : wait_(std::move(wait)), thread_([this] { serve(); }) {}
    ~Worker() {
        {
            const std::lock_guard hold(guard_);
            ending_ = true;
        }
        changed_.notify_one();
        thread_.join();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void take(Own_Descriptor file) {
        if (file.number() < 0) return;
        const std::lock_guard hold(guard_);
        const bool waits = std::any_of(waiting_.begin(), waiting_.end(),
                                       [&file](const Own_Descriptor& each) { return each.sameFile(file); });
        if (!waits) waiting_.push_back(std::move(file));
        changed_.notify_one();
    }
    [[nodiscard]] bool failed() const { return failed_; }

  private:
    void serve() {
        std::unique_lock hold(guard_);
        while (true) {
            changed_.wait(hold, [this] { return ending_ || !waiting_.empty(); });
            if (waiting_.empty()) return;
            const Own_Descriptor file = std::move(waiting_.front());
            waiting_.pop_front();
            hold.unlock();
            if (wait_(file.number()) != 0 && !noDisk(errno)) failed_ = true;
            hold.lock();
        }
    }

    Wait wait_;
    std::atomic<bool> failed_ = false;
    std::mutex guard_; ///< of what follows
    std::condition_variable changed_;
    std::deque<Own_Descriptor> waiting_;
    bool ending_ = false;
    std::thread thread_; ///< last: it works with all of the above
};

Disk_Sync::Disk_Sync() : Disk_Sync([](int descriptor) { return ::fdatasync(descriptor); }) {}
Disk_Sync::Disk_Sync(Wait wait) : worker_(std::make_unique<Worker>(std::move(wait))) {}
Disk_Sync::~Disk_Sync() = default;

void Disk_Sync::begin(std::FILE* file) {
    worker_->take(Own_Descriptor(::fcntl(::fileno(file), F_DUPFD_CLOEXEC, 0)));
}

void Disk_Sync::beginFolderOf(const std::string& file) {
    const std::string folder = std::filesystem::path(file).parent_path().string();
    worker_->take(
        Own_Descriptor(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
}

bool Disk_Sync::failed() const { return worker_->failed(); }

} // namespace zorvane::survey
