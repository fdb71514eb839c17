// Marks what the module exports: F1, g_UIManager, the clock controls and the
// classes that other modules derive element types from. Everything else stays
// inside the module.
#pragma once

#if defined(_WIN32)
#if defined(TAVU_EXPORTS)
#define TAVU_API __declspec(dllexport)
#else
#define TAVU_API __declspec(dllimport)
#endif
#else
#define TAVU_API __attribute__((visibility("default")))
#endif
