#ifndef ZELMORA_TESTS_SUPPORT_OWNMOUNTS_H
#define ZELMORA_TESTS_SUPPORT_OWNMOUNTS_H

#include <functional>
#include <sched.h>
#include <sys/mount.h>
#include <thread>

/// Runs @p action in a thread that may mount what it likes: nobody else sees it, and it is gone afterwards. False, and
/// nothing is run, where the machine lets only others do that.
inline bool withOwnMounts(const std::function<void()>& action)
{
    bool isAllowed = false;
    std::thread thread([&] {
        isAllowed = unshare(CLONE_NEWNS) == 0 && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        if (isAllowed)
            action();
    });
    thread.join();
    return isAllowed;
}

#endif
