#include "host/script/kuPythonRegister.h"

#include <dlfcn.h>

#include <algorithm>

namespace {

using Function = kuPythonRegisterFactory::Function;

bool contains(const std::vector<Function>& functions, Function function) {
  return std::find(functions.begin(), functions.end(), function) != functions.end();
}

/** The library of a function that offered modules: from now on the interpreter points into it. */
void keepLoaded(Function function) {
  Dl_info library = {};
  if (!dladdr(reinterpret_cast<void*>(function), &library)) return;
  dlopen(library.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

}  // namespace

kuPythonRegisterFactory& kuPythonRegisterFactory::the() {
  static kuPythonRegisterFactory factory;
  return factory;
}

void kuPythonRegisterFactory::call(Level level) {
  std::vector<Function> called;
  const auto isNext = [&](Function function) { return !contains(called, function); };
  for (;;) {
    const auto next = std::find_if(_functions.begin(), _functions.end(), isNext);
    if (next == _functions.end()) return;
    called.push_back(*next);
    if (level == BeforeStart) keepLoaded(*next);
    called.back()(level);
  }
}

kuPythonRegister::kuPythonRegister(kuPythonRegisterFactory::Function function)
    : _function(function) {
  kuPythonRegisterFactory::the()._functions.push_back(function);
}

kuPythonRegister::~kuPythonRegister() {
  std::vector<Function>& functions = kuPythonRegisterFactory::the()._functions;
  const auto found = std::find(functions.rbegin(), functions.rend(), _function);
  if (found != functions.rend()) functions.erase(std::next(found).base());
}
