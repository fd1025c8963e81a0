#include "preview/allcores.h"

#include "preview/progressbar.h"

#include <QThread>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <system_error>
#include <vector>

namespace preview {

namespace {

const std::chrono::milliseconds barInterval(100);

class Work {
public:
    Work(int count, const std::function<void(int)>& work)
        : count(count)
        , work(work)
    {
    }

    /// Does what is left, beside others that do so too.
    void doAll()
    {
        try {
            for (int number = next++; number < count; number = next++) {
                work(number);
                ++done;
            }
        } catch (...) {
            next = count;
            throw;
        }
    }

    int piecesDone() const { return done; }

private:
    const int count;
    const std::function<void(int)>& work;
    std::atomic<int> next {0};
    std::atomic<int> done {0};
};

/// As many as there are cores; fewer, and perhaps none, where the system gives no more.
std::vector<std::future<void>> start(Work& work, int count)
{
    std::vector<std::future<void>> workers;
    try {
        for (int i = std::min(count, QThread::idealThreadCount()); i > 0; --i)
            workers.push_back(std::async(std::launch::async, [&work] { work.doAll(); }));
    } catch (const std::system_error&) {
        // Those that there are do it all.
    }
    return workers;
}

} // namespace

void onAllCores(int count, const std::function<void(int)>& work)
{
    if (count == 1)
        return work(0); // a thread and a bar for nothing
    Work shared(count, work);
    ProgressBar bar(count);
    std::vector<std::future<void>> workers = start(shared, count);
    if (workers.empty())
        shared.doAll();
    for (std::future<void>& worker : workers) {
        while (worker.wait_for(barInterval) != std::future_status::ready)
            bar.show(shared.piecesDone());
    }
    for (std::future<void>& worker : workers)
        worker.get();
}

} // namespace preview
