#pragma once

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace kuStandalone {

/** What a file has and its readers leave alone. */
class GltfWarnings {
 public:
  void add(const std::string& place, const std::string& what) {
    _list.push_back(place + ": " + what);
  }

  /** The same, but the file's first place only: what one node has, thousands may have. */
  void addOnce(const std::string& place, const std::string& what) {
    if (_said.insert(what).second) add(place, what);
  }

  std::vector<std::string> take() { return std::move(_list); }

 private:
  std::vector<std::string> _list;
  std::unordered_set<std::string> _said;
};

}  // namespace kuStandalone
