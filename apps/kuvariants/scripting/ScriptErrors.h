#pragma once

#include <boost/python.hpp>
#include <string>

// How functions of the module "variants" fail: with Python's own exceptions.

/** The class of what is raised for a name that does not exist. */
boost::python::object unknownNameClass();

/** ValueError: the argument cannot be taken. */
[[noreturn]] void raiseWrong(const std::string& text);

/**
 * From now on a Failure that leaves a function becomes an exception: UnknownName, an OSError with
 * its number and the file, or a ValueError.
 */
void translateFailures();
