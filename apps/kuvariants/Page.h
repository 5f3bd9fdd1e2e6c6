#pragma once

#include <QString>
#include <string>
#include <vector>

// The form of results for people to read: pages of 80 columns. A std::string is escaped already.

/** Items joined by ", ", broken to lines of the page's width behind an indentation. */
std::string wrapped(const std::vector<std::string>& items, int indent);

/** "    label       items", in lines. Nothing where there are no items. */
std::string field(const std::string& label, const std::vector<std::string>& items);
std::string field(const std::string& label, const QString& text);

/** A heading and what stands below it, and an empty line; nothing where that is empty. */
std::string section(const std::string& heading, const std::string& content);

/** "1 set", "2 sets". */
std::string counted(std::size_t count, const std::string& noun);
