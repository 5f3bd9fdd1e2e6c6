#pragma once

/**
 * @file
 * KUVARIANTS_EXPORT marks what the variants library gives. KUVARIANTS_BUILD is defined while the
 * library itself is built.
 */
#if defined(_WIN32)
#if defined(KUVARIANTS_BUILD)
#define KUVARIANTS_EXPORT __declspec(dllexport)
#else
#define KUVARIANTS_EXPORT __declspec(dllimport)
#endif
#else
#define KUVARIANTS_EXPORT __attribute__((visibility("default")))
#endif
