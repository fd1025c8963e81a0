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
        std::unique_ptr<char[]> block(new char[capacity]); // whose bytes are not written twice
        const bool isAlone = !blocks.empty() && begin == blocks.back().get();
        end = std::copy(begin, end, block.get());
        begin = block.get();
        limit = begin + capacity;
        if (isAlone)
            blocks.back() = std::move(block); // nobody else has bytes in the one that was outgrown
        else
            blocks.push_back(std::move(block));
    }

    std::vector<std::unique_ptr<char[]>> blocks;
    char* begin = nullptr; ///< of the text that grows
    char* end = nullptr; ///< of that
    char* limit = nullptr; ///< of its block
};

} // namespace libconfig

#endif
