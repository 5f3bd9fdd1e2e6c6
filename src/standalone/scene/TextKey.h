#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace kuStandalone {

/** Hash and comparison by which a table with std::string keys is searched with any text. */
struct TextHash {
  std::size_t operator()(std::string_view text) const {
    return std::hash<std::string_view>()(text);
  }
};

struct TextEqual {
  bool operator()(std::string_view a, std::string_view b) const { return a == b; }
};

}  // namespace kuStandalone
