// Started by ScriptIsolationTest in an environment that means harm. The first argument is the place
// that the interpreter must not know; each thing that it does know is printed, and fails.
#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <string>

#include "host/script/kuScript.h"
#include "standalone/StandaloneHost.h"
#include "standalone/script/ScriptPolicy.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const kuStandalone::StandaloneHost host;
  kuStandalone::ScriptPolicy::allow(true);
  bool sound = argc == 2 && *argv[1] && kuScript::run("import sys, json");
  const auto expect = [&](const char* expression, bool holds) {
    if (!holds) std::cerr << expression << ": " << kuScript::executeNUSR(expression) << '\n';
    sound = sound && holds;
  };
  for (const char* place : {"sys.prefix", "sys.exec_prefix", "sys.path", "json.__file__"}) {
    const std::string known = kuScript::executeNUSR(place);
    expect(place, sound && !known.empty() && known.find(argv[1]) == std::string::npos);
  }
  for (const char* name : {"'strange' in sys.modules", "'ran' in globals()"})
    expect(name, kuScript::executeNUSR(name) == "False");
  return sound ? EXIT_SUCCESS : EXIT_FAILURE;
}
