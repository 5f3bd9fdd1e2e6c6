#include <charconv>
#include <limits>
#include <unordered_set>

#include "host/utils/kuNodeUtils.h"

// Names of nodes and the numbers behind them.

namespace {

constexpr const char* digits = "0123456789";

}  // namespace

// A number that is too large for its type is a part of the name.
kuNodeUtils::StrippedName kuNodeUtils::getStrippedName(const std::string& name) {
  StrippedName result;
  const std::size_t last = name.find_last_not_of(digits);
  const std::size_t begin = last == std::string::npos ? 0 : last + 1;
  const char* end = name.data() + name.size();
  const auto read = std::from_chars(name.data() + begin, end, result.number);
  result.hasNumber = read.ec == std::errc() && read.ptr == end;
  if (!result.hasNumber) result.number = 0;
  result.baseName = result.hasNumber ? name.substr(0, begin) : name;
  return result;
}

std::set<std::uint64_t> kuNodeUtils::getFreeNumbers(const std::set<std::uint64_t>& used,
                                                    std::size_t count) {
  std::set<std::uint64_t> result;
  auto next = used.lower_bound(1);
  for (std::uint64_t number = 1; result.size() < count; ++number) {
    if (next != used.end() && *next == number) {
      ++next;
    } else {
      result.insert(result.end(), number);
    }
    if (number == std::numeric_limits<std::uint64_t>::max()) break;
  }
  return result;
}

std::string kuNodeUtils::appendNumberToName(const std::string& name, std::uint64_t number) {
  return name + std::to_string(number);
}

// The name is a member of the node here, and cannot be broken.
void kuNodeUtils::fixBrokenNameAttachment(const osg::NodePtr&) {}

std::string kuNodeUtils::getUniqueName(const std::string& name,
                                       const std::vector<std::string>& used) {
  const std::unordered_set<std::string> taken(used.begin(), used.end());
  std::string result = name;
  for (unsigned number = 1; taken.count(result) != 0; ++number) {
    result = name + std::to_string(number);
  }
  return result;
}
