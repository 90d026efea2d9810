#pragma once

#include <array>
#include <cassert>
#include <cstddef>

namespace solvanta {

/// A fixed-size array whose indexes run from `First` to `Last`, both included, so that columns,
/// places and rows carry the numbers the game gives them. An index outside the bounds is a
/// programming error: debug builds stop on it.
template <typename T, int First, int Last>
class Bounded {
  public:
    static_assert(First <= Last);

    constexpr T& operator()(int index) { return items_[slot(index)]; }
    constexpr const T& operator()(int index) const { return items_[slot(index)]; }

    /// Sets every element to `value`.
    constexpr void fill(const T& value) { items_.fill(value); }

    constexpr auto begin() { return items_.begin(); }
    constexpr auto begin() const { return items_.begin(); }
    constexpr auto end() { return items_.end(); }
    constexpr auto end() const { return items_.end(); }

    friend bool operator==(const Bounded&, const Bounded&) = default;

  private:
    static constexpr std::size_t slot(int index) {
        assert(index >= First && index <= Last);
        return static_cast<std::size_t>(index - First);
    }

    std::array<T, static_cast<std::size_t>(Last - First + 1)> items_{};
};

}  // namespace solvanta
