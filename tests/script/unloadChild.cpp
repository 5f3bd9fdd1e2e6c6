// Started by LibraryModulesTest. Loads the variants library into a process that links the host
// alone, closes it before the interpreter starts ("before") or after that ("after"), and prints
// what scripts then find. The path of the library is the other argument.
#include <dlfcn.h>

#include <cstdio>
#include <string>

#include "host/script/kuScript.h"
#include "standalone/StandaloneHost.h"
#include "standalone/script/ScriptPolicy.h"

namespace {

void close(void* library, const char* path) {
  dlclose(library);
  void* there = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
  std::printf("%s\n", there ? "loaded" : "unloaded");
  if (there) dlclose(there);
}

void ask(const char* expression) {
  std::printf("%s: %s\n", expression, kuScript::executeNUSR(expression).c_str());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const kuStandalone::StandaloneHost host;
  void* library = dlopen(argv[2], RTLD_NOW | RTLD_LOCAL);
  if (!library) return 1;
  const bool before = std::string(argv[1]) == "before";
  if (before) close(library, argv[2]);
  kuScript::run("enableClippingPlane(false)");  // starts the interpreter
  if (!before) close(library, argv[2]);
  kuStandalone::ScriptPolicy::allow(true);
  ask("'kuVariants' in __import__('sys').builtin_module_names");
  ask("'selectVariantSet' in globals()");
  if (!before) ask("(selectVariantSet('Red'), kuVariantSetPtr().getName())");
  return 0;
}
