#include "host/services/kuKernelServiceFactory.h"

#include <boost/core/demangle.hpp>
#include <cstdio>
#include <string>

namespace {

std::string nameOf(const std::type_info& type) { return boost::core::demangle(type.name()); }

}  // namespace

kuKernelServiceFactory& kuKernelServiceFactory::the() {
  static auto* factory = new kuKernelServiceFactory();  // static objects may ask at the very end
  return *factory;
}

kuBaseService* kuKernelServiceFactory::find(const std::type_info& type) const {
  const auto found = _services.find(type.hash_code());
  if (found == _services.end()) {
    std::fprintf(stderr, "kuKernelServiceFactory: couldn't find class '%s'!\n",
                 nameOf(type).c_str());
    return nullptr;
  }
  if (!found->second) {
    std::fprintf(stderr, "kuKernelServiceFactory: service '%s' is NULL!\n", nameOf(type).c_str());
  }
  return found->second;
}

void kuKernelServiceFactory::registerService(const std::type_info& type, kuBaseService* service) {
  _services[type.hash_code()] = service;
}
