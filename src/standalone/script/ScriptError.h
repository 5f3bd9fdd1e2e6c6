#pragma once

#include <string>

namespace kuStandalone {

/** The name under which Python knows our texts. */
constexpr const char* kScriptFileName = "<script>";

/**
 * Takes Python's present error away and tells it: "line 3: NameError: name 'x' is not defined".
 * The line is left out where the error has none; empty if there is no error.
 */
std::string takeScriptError();

}  // namespace kuStandalone
