// Marks the one function that a bundle exports.
#pragma once

#if defined(_WIN32)
#define VS_BUNDLE_EXPORT __declspec(dllexport)
#else
#define VS_BUNDLE_EXPORT __attribute__((visibility("default")))
#endif
