#pragma once

#include <ostream>
#include <string>
#include <vector>

/** The lowest choice that the tables begin with. */
constexpr int FirstChoice = -4;

/**
 * What one state does to choices: for each count of children from 0 to 5 a row, and in it the
 * expected choice for each present choice from -4 to one beyond the count.
 */
struct StepTable {
  const char* title;
  const char* state;
  std::vector<std::vector<int>> expected;
};

inline std::ostream& operator<<(std::ostream& stream, const StepTable& table) {
  return stream << table.state;
}

/** Names a parametrised test by the table's title. */
struct StepTableTitle {
  template <class Info>
  std::string operator()(const Info& info) const {
    return info.param.title;
  }
};

/** "Child 0", "Child 1" and so on. */
inline std::vector<std::string> childNames(std::size_t count) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < count; ++i)
    names.push_back("Child " + std::to_string(i));
  return names;
}

/** "at 2 of 3", to tell which entry of a table failed. */
inline std::string placeText(int choice, std::size_t count) {
  return "at " + std::to_string(choice) + " of " + std::to_string(count);
}

/** Calls @p check(count, choice, expected) for each entry of the table. */
template <class Check>
void forEachStep(const StepTable& table, Check check) {
  for (std::size_t count = 0; count < table.expected.size(); ++count) {
    int choice = FirstChoice;
    for (const int expected : table.expected[count])
      check(count, choice++, expected);
  }
}
