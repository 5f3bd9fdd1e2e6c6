#pragma once

#include <string>

#include "host/utils/kuNodePtr.h"

/**
 * @file
 * What a script finds in the global namespace when it starts. Each part enters its own classes and
 * functions; the classes come first, since the functions take them.
 */
namespace kuStandalone {

/** Pnt3f and Vec3f. */
void defineVectorClasses();

/** kuNodePtr. */
void defineNodeClass();

/** kuMaterialPtr. */
void defineMaterialClass();

/** std::vector<std::string> is a list to Python, and a list or a tuple of texts is one to C++. */
void defineConverters();

/** The repr of a handle: its class and name. */
std::string handleText(const char* className, bool valid, const std::string& name);

/** Ends the call with Python's IndexError. */
[[noreturn]] void throwIndexError(const char* text);

/** Setting and reading of the clipping. */
void defineClippingFunctions();

/** Nodes and materials by name and path, and what captured scripts do with them. */
void defineSceneFunctions();

/** What findNodePath answers: the node of that path, or an invalid handle and a warning. */
kuNodePtr findNodePath(const std::string& path);

/** The setActive of what findNodePath answers; nothing for an invalid handle. */
void setNodeActive(const kuNodePtr& node, bool active);

}  // namespace kuStandalone
