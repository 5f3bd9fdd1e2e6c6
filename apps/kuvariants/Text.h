#pragma once

#include <QString>
#include <QStringList>
#include <string>

/**
 * The text in UTF-8 with quotes, back-slashes and everything that does not print escaped as in a
 * JSON string: names come from files, and must neither break a line nor reach the terminal as
 * commands.
 */
std::string escaped(const QString& text);
std::string escaped(const std::string& utf8);

/** The text with only that escaped which does not print: quotes and back-slashes stay. */
std::string onOneLine(const std::string& utf8);

/** The escaped texts joined by ", ". */
std::string escapedList(const QStringList& texts);

/** The names that are nearest to a misspelt one, the nearest first, at most three. */
QStringList nearestNames(const QString& name, const QStringList& names);
