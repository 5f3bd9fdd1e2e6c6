#pragma once

#include <string>

/**
 * Fills the empty manager from the present scene: variants for everything that can vary, and a set
 * for each variant that the scene's file itself defines, in a group named after the file.
 */
void createFromScene(const std::string& scenePath);
