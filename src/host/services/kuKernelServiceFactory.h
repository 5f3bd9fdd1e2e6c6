#pragma once

#include <typeinfo>
#include <unordered_map>

#include "host/services/kuBaseService.h"

/** Gives the host's services by their class. It does not own them. */
class KUHOST_EXPORT kuKernelServiceFactory {
 public:
  static kuKernelServiceFactory& the();

  /**
   * The service registered for the class, or null: then the error stream says that none is
   * registered, or that the entry holds null. The answer is valid until the service is replaced.
   */
  template <class Service>
  Service* getService() const {
    return dynamic_cast<Service*>(find(typeid(Service)));
  }

  /** Registers a service under its class, in the place of a former one; null is accepted. */
  template <class Service>
  void registerService(Service* service) {
    registerService(typeid(Service), service);
  }

  /** Ends the registration of a class's service; without one it does nothing. */
  template <class Service>
  void unregisterService() {
    _services.erase(typeid(Service).hash_code());
  }

 private:
  kuKernelServiceFactory() = default;
  kuBaseService* find(const std::type_info& type) const;
  void registerService(const std::type_info& type, kuBaseService* service);

  std::unordered_map<std::size_t, kuBaseService*> _services;
};
