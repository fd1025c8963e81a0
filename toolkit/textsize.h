#ifndef ZELMORA_TOOLKIT_TEXTSIZE_H
#define ZELMORA_TOOLKIT_TEXTSIZE_H

#include <QtGlobal>

#include <new>

namespace toolkit {

/// Throws std::bad_alloc where a text of @p size characters is more than Qt 5 holds, which does so itself. Qt 6 holds
/// more; but sizes are counted in ints behind the readers, and two of these have room in one.
inline void takeTextOfSize(qint64 size)
{
    if (size >= qint64 {1} << 30)
        throw std::bad_alloc();
}

} // namespace toolkit

#endif
