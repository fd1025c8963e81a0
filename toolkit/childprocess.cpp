#include "toolkit/childprocess.h"

#include <utility>

namespace toolkit {

#if QT_VERSION_MAJOR < 6

ChildProcess::ChildProcess(std::function<void()> prepare)
    : prepare(std::move(prepare))
{
}

#else

ChildProcess::ChildProcess(std::function<void()> prepare)
{
    setChildProcessModifier(std::move(prepare));
}

#endif

} // namespace toolkit
