#include <sys/mman.h>

#include <boost/python.hpp>
#include <cstring>
#include <typeinfo>

#include "host/osg/Vector.h"
#include "host/utils/kuMaterialPtr.h"
#include "host/utils/kuNodePtr.h"
#include "script/kuVariantSetPtr.h"

// Boost.Python enters every class that a library mentions in a list of its own while the library
// loads, and compares with all names in the list ever after. It keeps no copies: once the library
// is unloaded, the next comparison would read names that are gone. So the classes are entered
// before, under names that stay. Nothing else of ours is in the list before the interpreter starts.

namespace {

namespace registry = boost::python::converter::registry;

/** A type's information under a name at another place. */
struct RenamedType : std::type_info {
  explicit RenamedType(const char* name) : std::type_info(name) {}
};

/** A copy that is never given back, and is no leak. */
const char* lastingCopy(const char* name) {
  const std::size_t size = std::strlen(name) + 1;
  void* place = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return place == MAP_FAILED ? name : static_cast<const char*>(std::memcpy(place, name, size));
}

template <class Type>
void enter() {
  if (registry::query(boost::python::type_id<Type>())) return;
  registry::lookup(boost::python::type_info(RenamedType(lastingCopy(typeid(Type).name()))));
}

/** The priority puts it before the entries that Boost.Python makes in static objects. */
__attribute__((constructor(101))) void enterTypes() {
  enter<kuVariantSetPtr>();
  enter<kuNodePtr>();
  enter<kuMaterialPtr>();
  enter<osg::Pnt3f>();
  enter<osg::Vec3f>();
  enter<std::vector<std::string>>();
}

}  // namespace
