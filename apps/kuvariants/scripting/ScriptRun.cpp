#include "scripting/ScriptRun.h"

#include <boost/python.hpp>

#include "Failure.h"
#include "Interrupt.h"
#include "scripting/ScriptTexts.h"
#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptError.h"
#include "standalone/script/ScriptInterpreter.h"

namespace bp = boost::python;
using kuStandalone::ScriptCommands;
using kuStandalone::ScriptInterpreter;

namespace {

/** Python has bytes that are no UTF-8 as it has those of file names. */
bp::object textOf(const std::string& argument) {
  return bp::object(bp::handle<>(
      PyUnicode_DecodeFSDefaultAndSize(argument.data(), static_cast<Py_ssize_t>(argument.size()))));
}

bp::list argumentsOf(const UserScript& script) {
  bp::list arguments;
  arguments.append(textOf(script.file));
  for (const std::string& one : script.arguments)
    arguments.append(textOf(one));
  return arguments;
}

bool isPrompt(const UserScript& script) { return script.file.empty(); }

/** The functions of run.py, in a namespace of their own. What a script makes of Python's own
 * functions is no concern of theirs. */
bp::dict runFunctions() {
  bp::dict functions;
  functions["__builtins__"] = bp::import("builtins").attr("__dict__").attr("copy")();
  const bp::object code(bp::handle<>(Py_CompileString(runText, "<run>", Py_file_input)));
  const bp::object done(
      bp::handle<>(PyEval_EvalCode(code.ptr(), functions.ptr(), functions.ptr())));
  return functions;
}

std::string banner() {
  return "kuvariants " KUVARIANTS_VERSION ", Python " + std::string(Py_GetVersion()).substr(0, 6) +
         "\nhelp(variants) tells what there is; the end of input (Ctrl-D) ends.";
}

bp::object readScript(const bp::dict& functions, const UserScript& script) {
  const bp::object read = functions["read_script"](textOf(script.file));
  const bp::object fault = read[1];
  if (fault.is_none()) return read[0];
  throw Failure{ExitCode::InputNotValid, "cannot read script", script.file,
                ScriptInterpreter::textOf(fault)};
}

bp::object perform(const bp::dict& functions, const UserScript& script) {
  bp::object names = ScriptInterpreter::globals();
  names["variants"] = bp::import("variants");
  if (isPrompt(script)) return functions["run_prompt"](banner(), names);
  return functions["run_text"](readScript(functions, script), textOf(script.file), names);
}

void catchInterrupts(const bp::dict& functions, bool isPrompt) {
  functions["catch_interrupts"](bp::make_function(&Interrupt::taken), kuStandalone::kScriptFileName,
                                bp::make_function(&ScriptCommands::areRunning), isPrompt);
  Interrupt::passOn(PyErr_SetInterrupt);
}

void checkFlushed(const bp::dict& functions, const ScriptEnd& end) {
  const bp::object fault = functions["flush"]();
  if (fault.is_none() || end.code != 0) return;
  throw Failure{ExitCode::OutputNotWritten, "cannot write", "standard output",
                ScriptInterpreter::textOf(fault)};
}

ScriptEnd run(const UserScript& script, bool hasOutput) {
  const bp::dict functions = runFunctions();
  functions["open_streams"](hasOutput);
  functions["describe"](argumentsOf(script));
  catchInterrupts(functions, isPrompt(script));
  const bp::object result = functions["ended"](perform(functions, script));
  const ScriptEnd end{bp::extract<int>(result[0]), bp::extract<bool>(result[1])};
  checkFlushed(functions, end);
  return end;
}

}  // namespace

ScriptEnd runScript(const UserScript& script, bool hasOutput) {
  ScriptInterpreter::start();
  try {
    const ScriptEnd end = run(script, hasOutput);
    Interrupt::passOn(nullptr);
    return end;
  } catch (const bp::error_already_set&) {
    if (PyErr_ExceptionMatches(PyExc_KeyboardInterrupt)) Interrupt::leaveInterrupted();
    throw Failure{ExitCode::InputNotValid, "cannot run script", script.file,
                  ScriptInterpreter::takeError()};
  }
}
