#ifndef ZELMORA_TESTS_SUPPORT_INTERCEPTEDCALL_H
#define ZELMORA_TESTS_SUPPORT_INTERCEPTEDCALL_H

#include <functional>

/// As long as it lives, @p before goes before each call of one function of the C library in this process, and decides
/// what becomes of it: 0 lets it happen, a number of errno lets it fail with that. The functions are read, write,
/// fchmod, fsync, ftruncate, posix_fallocate, rename and renameat2.
///
/// A disk takes what it can: while writes are intercepted, each takes a thousand bytes at most, and a posix_fallocate
/// that fails has made the file longer by half of what was asked for.
class InterceptedCall {
public:
    static const int nothing = -1; ///< the call does nothing and returns 0

    InterceptedCall(const char* function, std::function<int()> before);
    ~InterceptedCall();

    InterceptedCall(const InterceptedCall&) = delete;
    InterceptedCall& operator=(const InterceptedCall&) = delete;

private:
    const char* const function;
};

#endif
