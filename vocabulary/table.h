#ifndef ZELMORA_VOCABULARY_TABLE_H
#define ZELMORA_VOCABULARY_TABLE_H

#include <cstddef>

namespace vocabulary {

/// Rows of constants that stand in the program: not owned, never changed.
template <typename Row>
class Table {
public:
    constexpr Table() = default;
    template <std::size_t count>
    constexpr Table(const Row (&rows)[count]) // NOLINT(google-explicit-constructor): an array is one
        : first(rows)
        , last(rows + count)
    {
    }

    constexpr const Row* begin() const { return first; }
    constexpr const Row* end() const { return last; }
    constexpr int size() const { return static_cast<int>(last - first); }
    constexpr bool isEmpty() const { return first == last; }
    constexpr const Row& operator[](int index) const { return first[index]; }

private:
    const Row* first = nullptr;
    const Row* last = nullptr;
};

} // namespace vocabulary

#endif
