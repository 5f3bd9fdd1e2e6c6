#pragma once

#include <QString>
#include <map>
#include <vector>

/**
 * Names for the pictures of sets, good on every file system: letters, digits, ".", "_" and "-" of
 * ASCII, not longer than 80, told apart without regard to case, none that a system reserves. A set
 * has the same name each time, as long as the sets before it are the same.
 */
std::map<QString, QString> pictureFileNames(const std::vector<QString>& sets);
