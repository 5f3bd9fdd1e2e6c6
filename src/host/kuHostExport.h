#pragma once

/**
 * @file
 * KUHOST_EXPORT marks what the host gives and the library imports. KUHOST_BUILD is defined while
 * the host's own library is built.
 */
#if defined(_WIN32)
#if defined(KUHOST_BUILD)
#define KUHOST_EXPORT __declspec(dllexport)
#else
#define KUHOST_EXPORT __declspec(dllimport)
#endif
#else
#define KUHOST_EXPORT __attribute__((visibility("default")))
#endif
