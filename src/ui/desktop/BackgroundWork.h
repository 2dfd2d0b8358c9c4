#pragma once

#include <QObject>
#include <QThreadPool>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>

#include "ui/components/RunInBackground.h"

namespace vellomar {

// Work that must not hold up the interface, above all everything that touches a disk. It is done on a few threads of
// its own, so up to four pieces at a time and in no promised order.
//
// Made, asked and destroyed on the interface thread. Once it is destroyed nothing of it is called any more: it waits
// for the work under way, whose results are dropped, and what has not begun is not done.
class BackgroundWork final : public QObject {
public:
    BackgroundWork();
    ~BackgroundWork() override;
    BackgroundWork(const BackgroundWork&) = delete;
    BackgroundWork& operator=(const BackgroundWork&) = delete;

    // Does `work` on another thread and returns at once; then calls `then` with the result, if there is one, from the
    // interface thread's event loop. The result must be movable. Both are destroyed on the interface thread. Neither
    // may throw.
    template <typename Work, typename Then>
    void run(Work work, Then then) {
        using Result = std::invoke_result_t<Work&>;
        struct Job {
            Work work;
            Then then;
        };
        start([job = std::make_shared<Job>(Job{std::move(work), std::move(then)})]() -> std::function<void()> {
            if constexpr (std::is_void_v<Result>) {
                job->work();
                return [job] { job->then(); };
            } else {
                return [job, result = std::make_shared<Result>(job->work())] { job->then(std::move(*result)); };
            }
        });
    }

    // The same where nobody waits for the end.
    template <typename Work>
    void run(Work work) {
        run(std::move(work), [](auto&&...) {});
    }

    // The same as a function, for whom it is nothing how the work is done. Not to be called once this is destroyed.
    [[nodiscard]] RunInBackground runner() {
        return [this](auto work, auto then) { run(std::move(work), std::move(then)); };
    }

private:
    // Does a part of it elsewhere, and gives the part for the interface thread.
    using Task = std::function<std::function<void()>()>;

    void start(Task task);
    void deliverNext();

    std::mutex lock_;
    std::deque<std::function<void()>> finished_;  // under lock_
    QThreadPool threads_;
};

}  // namespace vellomar
