#include "host/script/kuScript.h"

#include <boost/python.hpp>
#include <optional>

#include "host/kernel/kuLog.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/CommandText.h"
#include "standalone/script/LibraryModules.h"
#include "standalone/script/LogText.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/ScriptNesting.h"
#include "standalone/script/ScriptPolicy.h"
#include "standalone/session/Session.h"

namespace bp = boost::python;
using namespace kuStandalone;

namespace {

/** What a text answered; none if it was refused or failed. */
using Answer = std::optional<bp::object>;

Answer runPython(const char* code, int startSymbol) {
  const bp::object compiled = ScriptInterpreter::compile(code, startSymbol, 0);
  if (PyErr_Occurred()) bp::throw_error_already_set();
  const bp::object globals = ScriptInterpreter::globals();
  return bp::object(bp::handle<>(PyEval_EvalCode(compiled.ptr(), globals.ptr(), globals.ptr())));
}

Answer runIfCommands(const char* code, int startSymbol) {
  const CommandText text = readCommands(code, startSymbol);
  if (text.refusal.empty()) return runCommands(text.commands);
  ScriptPolicy::refuse(code, text.refusal);
  return std::nullopt;
}

bool mayRunScripts() { return ScriptPolicy::allowed() || LibraryModules::areBeingImported(); }

Answer failed(const char* reason) {
  logScriptFailure(reason);
  return std::nullopt;
}

Answer perform(const char* code, int startSymbol) {
  const ScriptNesting nesting;
  if (!nesting.mayRun()) return std::nullopt;
  ScriptInterpreter::start();
  // A library that offers its modules is asked before Python runs.
  if (!Py_IsInitialized()) return failed("the interpreter does not run yet");
  Answer answer;
  try {
    answer = mayRunScripts() ? runPython(code, startSymbol) : runIfCommands(code, startSymbol);
  } catch (const bp::error_already_set&) {
    // SystemExit and KeyboardInterrupt too: a script does not end the application.
    logScriptFailure(ScriptInterpreter::takeError());
  }
  ScriptInterpreter::flush();
  return answer;
}

const char* orEmpty(const char* code) { return code ? code : ""; }

}  // namespace

bool kuScript::run(const char* code) { return perform(orEmpty(code), Py_file_input).has_value(); }

bool kuScript::executeNUS(const char* code, bool sync) {
  HostState& state = HostState::the();
  ++state.scriptCommands;
  state.lastScriptCommandSync = sync;
  const Session* session = sync ? Session::present() : nullptr;
  if (!session || !session->isReadyToUse()) return run(code);
  const std::uint64_t pushed = session->pushed();
  const bool hasRun = run(code);
  // What it selected has gone to the partners as commands; as a text it would happen there twice.
  Session* present = Session::present();
  if (present && present->pushed() == pushed) present->pushScript(orEmpty(code));
  return hasRun;
}

std::string kuScript::executeNUSR(const char* code) {
  const char* expression = orEmpty(code);
  while (*expression == ' ' || *expression == '\t')
    ++expression;
  const Answer answer = perform(expression, Py_eval_input);
  return answer ? ScriptInterpreter::textOf(*answer) : std::string();
}
