#pragma once

#include <string>

/** What the manager holds, for people to read: groups, sets, variants. */
std::string listText();
