#include <charconv>
#include <limits>
#include <unordered_set>

#include "host/utils/kuNodeUtils.h"

// Names of nodes and the numbers behind them.

namespace {

constexpr const char* digits = "0123456789";
constexpr char separator = '_';

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/** Whether a number behind the text would run into one that it has, or into its separator. */
bool needsSeparator(const std::string& text) {
  const std::size_t last = text.find_last_not_of(separator);
  return last != std::string::npos && isDigit(text[last]);
}

/** What stands before a number, without the separator that sets the two apart. */
std::string baseOf(std::string text) {
  if (needsSeparator(text)) text.pop_back();
  return text;
}

}  // namespace

// A number that is too large for its type is a part of the name.
kuNodeUtils::StrippedName kuNodeUtils::getStrippedName(const std::string& name) {
  StrippedName result;
  const std::size_t last = name.find_last_not_of(digits);
  const std::size_t begin = last == std::string::npos ? 0 : last + 1;
  const char* end = name.data() + name.size();
  std::uint64_t number = 0;
  const auto read = std::from_chars(name.data() + begin, end, number);
  result.hasNumber = read.ec == std::errc() && read.ptr == end;
  result.number = result.hasNumber ? number : 0;
  result.baseName = result.hasNumber ? baseOf(name.substr(0, begin)) : name;
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
  return (needsSeparator(name) ? name + separator : name) + std::to_string(number);
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
