#pragma once

#include <string>

struct Invocation;

/**
 * Throws a Failure where one file is named for two things, so that writing it would destroy the
 * other. A scene may be saved in the place of the scene, and a document in that of the document.
 */
void refuseClashes(const Invocation& invocation);

/**
 * The same for a file that the command line does not name itself. Throws also where the scene was
 * read from it, so that no picture takes the place of a texture.
 */
void refuseClash(const Invocation& invocation, const std::string& path);
