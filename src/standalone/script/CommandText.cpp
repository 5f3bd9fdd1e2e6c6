#include "standalone/script/CommandText.h"

#include <algorithm>
#include <boost/python.hpp>
#include <cmath>
#include <iterator>
#include <limits>

#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/SyntaxTree.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

constexpr std::size_t kMaxBytes = 4 * 1024 * 1024;
/** Python's tree takes up to a thousand times the text's memory. */
constexpr std::size_t kMaxBlockBytes = 64 * 1024;
constexpr std::size_t kMaxCommands = 100000;
constexpr std::size_t kMaxArguments = 32;
/** Some interpreters take time that grows with the square of a number's length. */
constexpr std::size_t kMaxDigits = 1000;

using Argument = std::optional<CommandArgument>;

bool hasEndlessNumber(std::string_view text) {
  std::size_t digits = 0;
  for (const char c : text) {
    digits = (c >= '0' && c <= '9') || c == '_' ? digits + 1 : 0;
    if (digits > kMaxDigits) return true;
  }
  return false;
}

/** An exact str, so that no class of a script's is asked; none if it is no valid UTF-8. */
std::optional<std::string> exactText(PyObject* value) {
  if (!value || !PyUnicode_CheckExact(value)) return std::nullopt;
  Py_ssize_t size = 0;
  const char* bytes = PyUnicode_AsUTF8AndSize(value, &size);
  if (!bytes) {
    PyErr_Clear();
    return std::nullopt;
  }
  return std::string(bytes, static_cast<std::size_t>(size));
}

bool isText(PyObject* value, const char* text) {
  const std::optional<std::string> found = exactText(value);
  return found && *found == text;
}

Argument wholeNumber(PyObject* value) {
  int overflow = 0;
  const long long number = PyLong_AsLongLongAndOverflow(value, &overflow);
  return overflow == 0 ? Argument(number) : std::nullopt;
}

Argument constant(PyObject* value) {
  if (!value) return std::nullopt;
  if (value == Py_None) return CommandArgument(std::monostate());
  if (PyBool_Check(value)) return CommandArgument(value == Py_True);
  if (PyLong_CheckExact(value)) return wholeNumber(value);
  if (PyFloat_CheckExact(value)) {
    const double number = PyFloat_AsDouble(value);
    return std::isfinite(number) ? Argument(number) : std::nullopt;
  }
  if (const std::optional<std::string> text = exactText(value)) return CommandArgument(*text);
  return std::nullopt;
}

Argument literal(const SyntaxTree& node) {
  if (node.is(SyntaxTree::Constant)) return constant(node.value("value"));
  if (node.is(SyntaxTree::NameConstant)) return constant(node.value("value"));
  if (node.is(SyntaxTree::Num)) return constant(node.value("n"));
  if (node.is(SyntaxTree::Str)) return constant(node.value("s"));
  return std::nullopt;
}

bool isNumber(const Argument& argument) {
  return argument && (std::holds_alternative<long long>(*argument) ||
                      std::holds_alternative<double>(*argument));
}

/** The sign is an operator to Python, so a negative number is no literal. */
Argument negative(const SyntaxTree& node) {
  if (!node["op"].is(SyntaxTree::USub)) return std::nullopt;
  const Argument number = literal(node["operand"]);
  if (!isNumber(number)) return std::nullopt;
  if (const auto* whole = std::get_if<long long>(&*number)) return CommandArgument(-*whole);
  return CommandArgument(-std::get<double>(*number));
}

Argument number(const SyntaxTree& node) {
  const Argument found = node.is(SyntaxTree::UnaryOp) ? negative(node) : literal(node);
  return isNumber(found) ? found : std::nullopt;
}

Argument flag(const SyntaxTree& node) {
  if (node.is(SyntaxTree::Name) && isText(node.value("id"), "true")) return CommandArgument(true);
  if (node.is(SyntaxTree::Name) && isText(node.value("id"), "false")) return CommandArgument(false);
  const Argument found = literal(node);
  return found && std::holds_alternative<bool>(*found) ? found : std::nullopt;
}

/** None where a float cannot hold the number. */
std::optional<float> asFloat(const CommandArgument& argument) {
  if (const auto* whole = std::get_if<long long>(&argument)) return static_cast<float>(*whole);
  const double exact = std::get<double>(argument);
  if (std::abs(exact) > std::numeric_limits<float>::max()) return std::nullopt;
  return static_cast<float>(exact);
}

/** Whether it is a call with positional arguments alone, of no more than may be. */
bool isPlainCall(const SyntaxTree& node) {
  return node.is(SyntaxTree::Call) && node.list("keywords").empty() &&
         node.list("args").size() <= kMaxArguments;
}

template <class Vector>
Argument vectorOf(const std::vector<SyntaxTree>& numbers) {
  Vector vector;
  for (std::size_t i = 0; i < 3; ++i) {
    const Argument component = number(numbers[i]);
    const std::optional<float> value = component ? asFloat(*component) : std::nullopt;
    if (!value) return std::nullopt;
    vector[i] = *value;
  }
  return CommandArgument(vector);
}

Argument vectorCall(const SyntaxTree& node) {
  if (!isPlainCall(node) || !node["func"].is(SyntaxTree::Name)) return std::nullopt;
  const std::vector<SyntaxTree> numbers = node.list("args");
  if (numbers.size() != 3) return std::nullopt;
  PyObject* name = node["func"].value("id");
  if (isText(name, "Pnt3f")) return vectorOf<osg::Pnt3f>(numbers);
  if (isText(name, "Vec3f")) return vectorOf<osg::Vec3f>(numbers);
  return std::nullopt;
}

Argument argument(const SyntaxTree& node) {
  if (node.is(SyntaxTree::Call)) return vectorCall(node);
  if (node.is(SyntaxTree::UnaryOp)) return negative(node);
  if (node.is(SyntaxTree::Name)) return flag(node);
  return literal(node);
}

std::optional<Command> functionCall(const SyntaxTree& node) {
  if (!isPlainCall(node) || !node["func"].is(SyntaxTree::Name)) return std::nullopt;
  Command command;
  command.function = exactText(node["func"].value("id")).value_or("");
  if (ScriptCommands::find(command.function).is_none()) return std::nullopt;
  for (const SyntaxTree& entry : node.list("args")) {
    const Argument found = argument(entry);
    if (!found) return std::nullopt;
    command.arguments.push_back(*found);
  }
  return command;
}

/** findNodePath("path").setActive(flag) */
std::optional<Command> setActiveCall(const SyntaxTree& node) {
  const SyntaxTree method = node["func"];
  if (!isPlainCall(node) || !method.is(SyntaxTree::Attribute)) return std::nullopt;
  if (!isText(method.value("attr"), "setActive")) return std::nullopt;
  const std::vector<SyntaxTree> flags = node.list("args");
  const Argument active = flags.size() == 1 ? flag(flags.front()) : std::nullopt;
  std::optional<Command> command = functionCall(method["value"]);
  if (!active || !command || command->function != "findNodePath") return std::nullopt;
  if (command->arguments.size() != 1) return std::nullopt;
  if (!std::holds_alternative<std::string>(command->arguments.front())) return std::nullopt;
  command->setActive = std::get<bool>(*active);
  return command;
}

std::optional<Command> command(const SyntaxTree& node) {
  return node["func"].is(SyntaxTree::Attribute) ? setActiveCall(node) : functionCall(node);
}

CommandText refused(std::string reason) { return {{}, std::move(reason)}; }

/** A piece of the text, and how many lines stand before it. */
struct Block {
  std::string text;
  long linesBefore;
};

CommandText noCommand(const SyntaxTree& node, const Block& block) {
  PyObject* line = node.value("lineno");
  if (!line || !PyLong_CheckExact(line)) return refused("the text is no command");
  return refused("line " + std::to_string(block.linesBefore + PyLong_AsLong(line)) +
                 " is no command");
}

CommandText unreadable(const Block& block) {
  const std::string error = ScriptInterpreter::takeError();
  if (block.linesBefore == 0) return refused(error);
  return refused("counted from line " + std::to_string(block.linesBefore + 1) + ", " + error);
}

CommandText readStatements(const std::vector<SyntaxTree>& statements, const Block& block) {
  CommandText text;
  for (const SyntaxTree& statement : statements) {
    if (!statement.is(SyntaxTree::Expr)) return noCommand(statement, block);
    const std::optional<Command> found = command(statement["value"]);
    if (!found) return noCommand(statement, block);
    text.commands.push_back(*found);
  }
  return text;
}

CommandText readExpression(const SyntaxTree& body, const Block& block) {
  const std::optional<Command> found = command(body);
  return found ? CommandText{{*found}, {}} : noCommand(body, block);
}

CommandText readBlock(const Block& block, int startSymbol) {
  const bp::object parsed =
      ScriptInterpreter::compile(block.text.c_str(), startSymbol, PyCF_ONLY_AST);
  if (PyErr_Occurred()) return unreadable(block);
  const SyntaxTree tree(parsed.ptr());
  if (tree.is(SyntaxTree::Module)) return readStatements(tree.list("body"), block);
  if (tree.is(SyntaxTree::Expression)) return readExpression(tree["body"], block);
  return refused("the text cannot be read");
}

/** As many whole lines as a block may have; empty if the first line is longer than that. */
std::string_view firstLines(std::string_view text) {
  if (text.size() <= kMaxBlockBytes) return text;
  const std::size_t end = text.rfind('\n', kMaxBlockBytes - 1);
  return text.substr(0, end == std::string_view::npos ? 0 : end + 1);
}

/** Reads on from block to block, and no further than to the first one that is refused. */
CommandText readBlocks(std::string_view rest) {
  CommandText all;
  long lines = 0;
  while (!rest.empty()) {
    const std::string_view first = firstLines(rest);
    if (first.empty()) return refused("line " + std::to_string(lines + 1) + " is too long");
    CommandText text = readBlock({std::string(first), lines}, Py_file_input);
    if (!text.refusal.empty()) return text;
    std::move(text.commands.begin(), text.commands.end(), std::back_inserter(all.commands));
    if (all.commands.size() > kMaxCommands) return refused("too many statements");
    lines += std::count(first.begin(), first.end(), '\n');
    rest.remove_prefix(first.size());
  }
  return all;
}

}  // namespace

CommandText readCommands(const char* text, int startSymbol) {
  const std::string_view all(text);
  if (all.size() > kMaxBytes) return refused("the text is too long");
  if (hasEndlessNumber(all)) return refused("a number is too long");
  if (startSymbol == Py_file_input) return readBlocks(all);
  if (all.size() > kMaxBlockBytes) return refused("the text is too long");
  return readBlock({std::string(all), 0}, startSymbol);
}

}  // namespace kuStandalone
