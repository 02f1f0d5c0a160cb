// Named pipes in place of files, and a guard that keeps a test from hanging on one.
#pragma once

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <future>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace orrery::test {

inline bool MakeFifo(const std::filesystem::path &path) {
    return ::mkfifo(path.c_str(), 0644) == 0;
}

// Runs work on a thread and answers whether it finished within the limit. When it hasn't, each
// pipe is opened for writing and closed again until the work ends: a reader waiting on one
// then sees its end, so the thread can be joined and the test fails instead of hanging.
inline bool FinishesInTime(const std::function<void()> &work,
                           const std::vector<std::filesystem::path> &fifos,
                           std::chrono::seconds limit = std::chrono::seconds(10)) {
    std::packaged_task<void()> task(work);
    std::future<void> done = task.get_future();
    std::thread worker(std::move(task));
    const bool inTime = done.wait_for(limit) == std::future_status::ready;
    while (done.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) {
        for (const auto &fifo : fifos) {
            const int fd = ::open(fifo.c_str(), O_WRONLY | O_NONBLOCK);
            if (fd >= 0) ::close(fd);
        }
    }
    worker.join();
    return inTime;
}

} // namespace orrery::test
