#ifndef ZELMORA_TESTS_SUPPORT_THREADS_H
#define ZELMORA_TESTS_SUPPORT_THREADS_H

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#ifdef __SANITIZE_THREAD__
/// Asked by the thread sanitizer. The test library has a watchdog thread, and the toolkit is not built for the
/// sanitizer, which therefore reports its locks now and then. Our own accesses stay in its sight.
extern "C" const char* __tsan_default_suppressions()
{
    return "called_from_lib:libQt" ZELMORA_QT "Core.so." ZELMORA_QT "\n"
           "called_from_lib:libQt" ZELMORA_QT "Test.so." ZELMORA_QT "\n";
}
#endif

/// Runs @p task with 0 to @p count - 1 in a thread each, all from the same moment on, and waits for them.
inline void runTogether(int count, const std::function<void(int)>& task)
{
    std::atomic<int> ready {0};
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&ready, &task, count, i] {
            ++ready;
            while (ready < count)
                std::this_thread::yield();
            task(i);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

#endif
