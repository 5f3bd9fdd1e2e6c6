// Loads the variants library as a host does, into a process that links the host alone, and takes it
// out again. Prints what the host hears of it, and which session commands it can make; the path of
// the library is the only argument.

#include <dlfcn.h>

#include <cstdio>

#include "host/kernel/kuController.h"
#include "host/session/kuSessionCommandFactory.h"
#include "standalone/kernel/MessageWatch.h"

namespace {

void tell(const char* when) {
  const bool received = kuController::call("clearAllVariants", 1);
  std::printf("%s: %s", when, received ? "received" : "nobody");
  for (const char* name : {"SelectVariant", "SelectVariantSet"}) {
    if (kuSessionCommandFactory::the().create(name)) std::printf(", %s", name);
  }
  std::printf("\n");
}

bool isLoaded(const char* path) {
  void* library = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
  if (library) dlclose(library);
  return library != nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const kuStandalone::MessageWatch watch([](const kuStandalone::PassedMessage& message) {
    std::printf("%s/%d\n", message.name.c_str(), message.mode);
  });
  tell("before");
  for (int round = 1; round <= 2; ++round) {
    void* library = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!library) {
      std::printf("%s\n", dlerror());
      return 1;
    }
    tell("loaded");
    dlclose(library);
    std::printf("%s\n", isLoaded(argv[1]) ? "still there" : "unloaded");
    tell("after");
  }
  return 0;
}
