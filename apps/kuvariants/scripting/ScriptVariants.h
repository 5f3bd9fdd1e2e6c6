#pragma once

#include <boost/python.hpp>
#include <string>

// Variants and their states, as scripts get at them.

namespace ScriptVariants {

boost::python::list variants(const std::string& kind);
boost::python::list options(const std::string& kind, const std::string& variant);
std::string state(const std::string& kind, const std::string& variant);
void selectState(const std::string& kind, const std::string& variant, const std::string& state);

}  // namespace ScriptVariants
