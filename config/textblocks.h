#ifndef ZELMORA_CONFIG_TEXTBLOCKS_H
#define ZELMORA_CONFIG_TEXTBLOCKS_H

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace libconfig {

/// Texts that grow byte by byte, and stay where they are as long as this lives: a few blocks of memory hold thousands.
class TextBlocks {
public:
    void append(char byte)
    {
        if (end == limit)
            moveToNewBlock();
        *end++ = byte;
    }

    /// What was appended since the last call.
    std::string_view take()
    {
        const char* const text = std::exchange(begin, end);
        return {text, static_cast<std::size_t>(end - text)};
    }

private:
    void moveToNewBlock()
    {
        const std::size_t least = 4096;
        const auto size = static_cast<std::size_t>(end - begin);
        const std::size_t capacity = std::max(least, 2 * size);
        blocks.push_back(std::unique_ptr<char[]>(new char[capacity])); // whose bytes are not written twice
        char* const block = blocks.back().get();
        end = std::copy(begin, end, block);
        begin = block;
        limit = block + capacity;
    }

    std::vector<std::unique_ptr<char[]>> blocks;
    char* begin = nullptr; ///< of the text that grows
    char* end = nullptr; ///< of that
    char* limit = nullptr; ///< of its block
};

} // namespace libconfig

#endif
