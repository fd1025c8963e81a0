#include "support/interceptedcall.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <dlfcn.h>
#include <map>
#include <string>
#include <sys/types.h>
#include <utility>

namespace {

/// By the name of the function. They stay: the process reads and writes to its very end.
std::map<std::string, std::function<int()>>& interceptions()
{
    static auto* const all = new std::map<std::string, std::function<int()>>;
    return *all;
}

bool isIntercepted(const char* function)
{
    return interceptions().count(function) != 0;
}

int errorOf(const char* function)
{
    if (!isIntercepted(function))
        return 0;
    const std::function<int()> before =
        std::exchange(interceptions()[function], [] { return 0; }); // it may call it too
    const int error = before();
    interceptions()[function] = before;
    return error;
}

/// The C library's own function, behind the one of the same name here.
template <typename Function>
Function* next(const char* function, Function*)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, function));
}

template <typename Function, typename... Arguments>
auto callUnlessIntercepted(const char* name, Function* function, Arguments... arguments)
{
    using Result = decltype(function(arguments...));
    const int error = errorOf(name);
    if (error == 0)
        return next(name, function)(arguments...);
    if (error == InterceptedCall::nothing)
        return Result(0);
    errno = error;
    return Result(-1);
}

} // namespace

// These go before those of the C library, for the toolkit too.

extern "C" ssize_t read(int file, void* bytes, std::size_t size)
{
    return callUnlessIntercepted("read", read, file, bytes, size);
}

extern "C" ssize_t write(int file, const void* bytes, std::size_t size)
{
    const std::size_t most = isIntercepted("write") ? 1000 : size;
    return callUnlessIntercepted("write", write, file, bytes, std::min(size, most));
}

extern "C" int fchmod(int file, mode_t mode) noexcept
{
    return callUnlessIntercepted("fchmod", fchmod, file, mode);
}

extern "C" int fsync(int file)
{
    return callUnlessIntercepted("fsync", fsync, file);
}

extern "C" int ftruncate(int file, off_t size) noexcept
{
    return callUnlessIntercepted("ftruncate", ftruncate, file, size);
}

extern "C" int posix_fallocate(int file, off_t offset, off_t size)
{
    const int error = errorOf("posix_fallocate");
    const int result = next("posix_fallocate", posix_fallocate)(file, offset, error == 0 ? size : (size + 1) / 2);
    return error == 0 ? result : error;
}

extern "C" int rename(const char* from, const char* to) noexcept
{
    return callUnlessIntercepted("rename", rename, from, to);
}

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags) noexcept
{
    return callUnlessIntercepted("renameat2", renameat2, fromFolder, from, toFolder, to, flags);
}

InterceptedCall::InterceptedCall(const char* name, std::function<int()> before)
    : function(name)
{
    interceptions()[function] = std::move(before);
}

InterceptedCall::~InterceptedCall()
{
    interceptions().erase(function);
}
