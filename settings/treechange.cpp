#include "settings/treechange.h"

#include <algorithm>
#include <utility>

namespace settings {

TreeChange reversed(const TreeChange& change)
{
    TreeChange back = change;
    std::reverse(back.begin(), back.end());
    for (TreeStep& step : back)
        std::visit([](auto& its) { std::swap(its.before, its.after); }, step);
    return back;
}

} // namespace settings
