#pragma once

#include <boost/python/object.hpp>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/osg/Vector.h"

namespace kuStandalone {

/** An argument of a command: None, a flag, a number, a text or a vector. */
using CommandArgument =
    std::variant<std::monostate, bool, long long, double, std::string, osg::Pnt3f, osg::Vec3f>;

/** One command: a call of a registered function. */
struct Command {
  std::string function;
  std::vector<CommandArgument> arguments;
  /** The argument of setActive on what the function answers, where the command ends in that. */
  std::optional<bool> setActive;
};

/** A text that was read as commands. */
struct CommandText {
  std::vector<Command> commands;
  /** Why the text is not made wholly of commands; empty if it is. */
  std::string refusal;
};

/**
 * Reads a text as commands, and runs nothing of it. A command is an expression statement:
 *
 *   function(arguments)                 of a registered function called by its plain name
 *   findNodePath("path").setActive(flag)
 *
 * Arguments are positional only: numbers, negative ones included, texts, true, false, True, False,
 * None, and Pnt3f and Vec3f of three numbers. Everything else makes the whole text refused.
 * The judgement is made on Python's own syntax tree, so that it cannot be mistaken about what
 * Python would see; the tree is read without asking its classes, which a script may have changed.
 * What is long enough to exhaust Python's reader is refused: a text over 4 MiB, a line over 64 KiB,
 * a number over 1000 digits, more than 100,000 commands, more than 32 arguments. A text over 64 KiB
 * is read in blocks of whole lines, and there a command that spans lines may be refused.
 * @param startSymbol Py_file_input, or Py_eval_input for a single command.
 */
CommandText readCommands(const char* text, int startSymbol);

/**
 * Runs commands in their order and answers the last one's result, None if there are none. Throws
 * boost::python::error_already_set where one fails; those behind it then do not run.
 */
boost::python::object runCommands(const std::vector<Command>& commands);

}  // namespace kuStandalone
