#pragma once

#include <boost/python.hpp>
#include <string>

#include "script/kuVariantSetPtr.h"

// Sets and groups, as scripts get at them.

namespace ScriptSets {

boost::python::list sets();
kuVariantSetPtr createSet(const std::string& name, const boost::python::object& group);
boost::python::object findSet(const std::string& name);
void renameSet(const std::string& name, const std::string& newName);
void removeSet(const std::string& name);
void selectSet(const std::string& name, bool skipViewpoint);
boost::python::object groupOf(const std::string& set);
void setGroup(const std::string& set, const boost::python::object& group);

boost::python::dict groups();
void createGroup(const std::string& name, bool visible);
void renameGroup(const std::string& name, const std::string& newName);
void removeGroup(const std::string& name);

/** What a set holds: {kind: {variant: state}}, the kinds that it has nothing of left out. */
boost::python::dict states(const std::string& set);
void setState(const std::string& set, const std::string& kind, const std::string& variant,
              const std::string& state);
void removeState(const std::string& set, const std::string& kind, const std::string& variant);

}  // namespace ScriptSets
