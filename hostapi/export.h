#pragma once

// What a module offers to the program that loads it; everything else is hidden.
#ifdef _WIN32
#define QUILTOR_EXPORT extern "C" __declspec(dllexport)
#else
#define QUILTOR_EXPORT extern "C" __attribute__((visibility("default")))
#endif
