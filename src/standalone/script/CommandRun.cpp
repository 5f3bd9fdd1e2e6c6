#include <boost/python.hpp>

#include "standalone/script/CommandText.h"
#include "standalone/script/HostFunctions.h"
#include "standalone/script/ScriptCommands.h"

namespace bp = boost::python;

namespace kuStandalone {

namespace {

/** Values are made here and not by calling the classes, which a script may have changed. */
bp::object toPython(const CommandArgument& argument) {
  struct {
    bp::object operator()(std::monostate) const { return bp::object(); }
    bp::object operator()(const std::string& text) const {
      return bp::object(bp::handle<>(
          PyUnicode_FromStringAndSize(text.data(), static_cast<Py_ssize_t>(text.size()))));
    }
    bp::object operator()(bool flag) const { return bp::object(flag); }
    bp::object operator()(long long number) const { return bp::object(number); }
    bp::object operator()(double number) const { return bp::object(number); }
    bp::object operator()(const osg::Pnt3f& place) const { return bp::object(place); }
    bp::object operator()(const osg::Vec3f& vector) const { return bp::object(vector); }
  } const convert;
  return std::visit(convert, argument);
}

bp::object call(const Command& command) {
  bp::list arguments;
  for (const CommandArgument& argument : command.arguments)
    arguments.append(toPython(argument));
  const bp::object function = ScriptCommands::find(command.function);
  return bp::object(bp::handle<>(PyObject_CallObject(function.ptr(), bp::tuple(arguments).ptr())));
}

bp::object runCommand(const Command& command) {
  if (!command.setActive) return call(command);
  setNodeActive(findNodePath(std::get<std::string>(command.arguments.front())), *command.setActive);
  return bp::object();
}

int runningTexts = 0;

struct RunningText {
  RunningText() { ++runningTexts; }
  ~RunningText() { --runningTexts; }
  RunningText(const RunningText&) = delete;
  RunningText& operator=(const RunningText&) = delete;
};

/** Python itself looks for them between its instructions, and here are none. */
void heedSignals() {
  if (PyErr_CheckSignals() != 0) bp::throw_error_already_set();
}

}  // namespace

bp::object runCommands(const std::vector<Command>& commands) {
  const RunningText untilTheLast;
  bp::object result;
  for (const Command& command : commands) {
    heedSignals();
    result = runCommand(command);
  }
  return result;
}

bool ScriptCommands::areRunning() { return runningTexts > 0; }

}  // namespace kuStandalone
