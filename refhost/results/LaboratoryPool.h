#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "refhost/results/Laboratory.h"

namespace refhost {

/// Makes a desktop for one thread, on that thread. It must show nothing.
using DesktopMaker = std::function<std::unique_ptr<kestrel::Desktop>()>;

/// Threads with a laboratory each, for analyses that do not depend on one another.
class LaboratoryPool {
 public:
    using Job = std::function<void(Laboratory&)>;
    /// Called now and then on the thread that waits, with the number of jobs done since the pool
    /// was made; false cancels.
    using Tick = std::function<bool(std::int32_t done)>;

    LaboratoryPool(const PlanData& plan, DesktopMaker desktops, unsigned threads);
    ~LaboratoryPool();
    LaboratoryPool(const LaboratoryPool&) = delete;
    LaboratoryPool& operator=(const LaboratoryPool&) = delete;

    /// Does all jobs, in any order; false when cancelled, some then being undone. Throws what the
    /// first failing job threw, after the others have ended.
    bool Run(std::vector<Job> jobs, const Tick& tick);

    /// Whether running jobs should give up; any thread may ask.
    bool Cancelled() const { return cancelled_; }

 private:
    void Work(const PlanData& plan);
    void DoJobs(Laboratory& laboratory);
    void NoteFailure();

    DesktopMaker desktops_;
    std::mutex mutex_;
    std::condition_variable wake_, ended_;
    std::vector<Job> jobs_;  ///< of the current Run
    std::size_t next_ = 0;   ///< first job not begun
    std::size_t running_ = 0;
    std::int32_t done_ = 0;
    bool closing_ = false;
    std::atomic<bool> cancelled_ = false;
    std::exception_ptr failure_;
    std::vector<std::thread> threads_;
};

}  // namespace refhost
