#pragma once

// The Python files of this folder.

extern const char* const variantsModuleText;
extern const char* const runText;
