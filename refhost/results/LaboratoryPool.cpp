#include "refhost/results/LaboratoryPool.h"

#include <chrono>

namespace refhost {

LaboratoryPool::LaboratoryPool(const PlanData& plan, DesktopMaker desktops, unsigned threads)
    : desktops_(std::move(desktops)) {
    for (unsigned i = 0; i < threads; ++i) threads_.emplace_back([this, plan] { Work(plan); });
}

LaboratoryPool::~LaboratoryPool() {
    cancelled_ = true;
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
    }
    wake_.notify_all();
    for (std::thread& thread : threads_) thread.join();
}

bool LaboratoryPool::Run(std::vector<Job> jobs, const Tick& tick) {
    std::unique_lock lock(mutex_);
    jobs_ = std::move(jobs);
    next_ = 0;
    wake_.notify_all();
    const auto ended = [this] {
        const bool stopped = cancelled_ || failure_ || next_ == jobs_.size();
        return stopped && running_ == 0;
    };
    while (!ended_.wait_for(lock, std::chrono::milliseconds(100), ended))
        if (!tick(done_)) cancelled_ = true;
    if (failure_) std::rethrow_exception(failure_);
    return !cancelled_;
}

/// A thread that cannot set up its laboratory fails the first job that it would take.
void LaboratoryPool::Work(const PlanData& plan) {
    try {
        const std::unique_ptr<kestrel::Desktop> desktop = desktops_();
        Laboratory laboratory(plan, *desktop);
        DoJobs(laboratory);
    } catch (...) {
        NoteFailure();
    }
}

void LaboratoryPool::DoJobs(Laboratory& laboratory) {
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] {
            return closing_ || (next_ < jobs_.size() && !cancelled_ && !failure_);
        });
        if (closing_) return;
        const Job job = jobs_[next_++];
        ++running_;
        lock.unlock();
        try {
            job(laboratory);
        } catch (...) {
            NoteFailure();
        }
        lock.lock();
        ++done_;
        --running_;
        ended_.notify_all();
    }
}

void LaboratoryPool::NoteFailure() {
    const std::lock_guard lock(mutex_);
    if (!failure_) failure_ = std::current_exception();
    ended_.notify_all();
}

}  // namespace refhost
