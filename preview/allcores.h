#ifndef ZELMORA_PREVIEW_ALLCORES_H
#define ZELMORA_PREVIEW_ALLCORES_H

#include <functional>

namespace preview {

/// Calls @p work with each number from 0 up to @p count, without that, in threads of their own: as many at once as the
/// machine has cores. Returns when all is done; a progress bar says how far it is. An exception of @p work ends it, and
/// comes out of here.
void onAllCores(int count, const std::function<void(int number)>& work);

} // namespace preview

#endif
