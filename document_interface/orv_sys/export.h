#pragma once

/// Marks what liborvdoc offers. Everything without the mark is hidden in the shared library.
///
/// Classes with virtual functions carry the mark on the class, so that dynamic_cast and typeid work in a test
/// program on objects that were made inside the library.
#define ORV_EXPORT __attribute__((visibility("default")))
