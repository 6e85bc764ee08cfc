#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPointer>
#include <atomic>
#include <thread>
#include <utility>

namespace kalvex {

// One long computation at a time off the window's thread, so that the window
// stays responsive while it runs. Its result reaches the window on the
// window's thread; a computation that was stopped, or replaced by a newer
// one, delivers nothing. The computation is handed the flag that asks it to
// stop early.
class BackgroundTask {
 public:
  explicit BackgroundTask(QObject* owner) : owner_(owner) {}
  ~BackgroundTask() { Stop(); }
  BackgroundTask(const BackgroundTask&) = delete;
  BackgroundTask& operator=(const BackgroundTask&) = delete;

  // Stops a running computation, then runs `work(stop)` and hands its
  // result to `done` on the owner's thread.
  template <typename Work, typename Done>
  void Start(Work work, Done done) {
    Stop();
    stop_ = false;
    const int generation = generation_;
    thread_ = std::thread([this, work = std::move(work), done = std::move(done), generation]() mutable {
      auto result = work(stop_);
      QMetaObject::invokeMethod(
          owner_,
          [this, done = std::move(done), result = std::move(result), generation]() mutable {
            if (generation != generation_) return;
            if (thread_.joinable()) thread_.join();
            done(std::move(result));
          },
          Qt::QueuedConnection);
    });
  }

  // Asks the running computation to stop, waits for it and drops its result.
  void Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
    ++generation_;
  }

  bool Running() const { return thread_.joinable(); }

  // Waits for the running computation and delivers its result (for tests).
  void Wait() {
    if (thread_.joinable()) thread_.join();
    QCoreApplication::sendPostedEvents(owner_);
  }

 private:
  QObject* owner_;
  std::thread thread_;
  std::atomic<bool> stop_{false};
  int generation_ = 0;  // read and written on the owner's thread only
};

}  // namespace kalvex
