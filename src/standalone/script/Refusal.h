#pragma once

#include <boost/python.hpp>
#include <memory>
#include <string>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * What a function of the host answers to arguments that do not fit: a TypeError with its signature
 * in Python's words, where Boost would show the one of C++.
 */
class KUHOST_EXPORT Refusal {
 public:
  Refusal();

  /**
   * Enters a function of that name that refuses everything. It comes before those that do the work,
   * since the one that was entered last is asked first.
   */
  void enter(const boost::python::object& names, const char* name) const;

  /** Takes the signature from the text that Boost made for the function, without its "self". */
  void takeSignature(const boost::python::object& function) const;
  void setSignature(const std::string& signature) const;

 private:
  struct Accepted;
  std::shared_ptr<Accepted> _accepted;
};

/** Defines a function in the present scope. @param options what boost::python::def takes. */
template <class Function, class... Options>
void defineFunction(const char* name, Function function, const Options&... options) {
  const boost::python::scope here;
  const Refusal refusal;
  refusal.enter(here, name);
  boost::python::def(name, function, options...);
  refusal.takeSignature(here.attr(name));
}

/** Defines a function of a class; the first of the keywords is "self". */
template <class Class, class Function, class... Options>
void defineMethod(Class& definedIn, const char* name, Function function,
                  const Options&... options) {
  const Refusal refusal;
  refusal.enter(definedIn, name);
  definedIn.def(name, function, options...);
  refusal.takeSignature(definedIn.attr(name));
}

}  // namespace kuStandalone
