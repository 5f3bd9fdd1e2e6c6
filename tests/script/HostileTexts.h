#pragma once

#include <ostream>
#include <string>
#include <vector>

/** A text that must not run while scripts are off. */
struct HostileText {
  const char* name;
  std::string text;
  /** Whether it calls "sentinel" or binds "ran" where scripts are allowed. */
  bool bites;
};

inline void PrintTo(const HostileText& text, std::ostream* out) { *out << text.name; }

const std::vector<HostileText>& hostileTexts();
