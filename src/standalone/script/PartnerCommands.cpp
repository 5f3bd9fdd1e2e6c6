#include "standalone/script/PartnerCommands.h"

#include <boost/python.hpp>

#include "standalone/script/CommandText.h"
#include "standalone/script/ScriptInterpreter.h"

namespace kuStandalone {

namespace {

std::string runAll(const std::vector<Command>& commands) {
  std::string failure;
  try {
    runCommands(commands);
  } catch (const boost::python::error_already_set&) {
    failure = "it failed: " + ScriptInterpreter::takeError();
  }
  ScriptInterpreter::flush();
  return failure;
}

}  // namespace

std::string runPartnerCommands(const QByteArray& text) {
  // Python would read up to there and no further.
  if (text.contains('\0')) return "its text has a NUL";
  ScriptInterpreter::start();
  if (!Py_IsInitialized()) return "the interpreter does not run yet";
  const CommandText read = readCommands(text.constData(), Py_file_input);
  return read.refusal.empty() ? runAll(read.commands) : read.refusal;
}

}  // namespace kuStandalone
