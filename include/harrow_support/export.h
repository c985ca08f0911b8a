#pragma once

/// Marks what libharrow_support offers to test programs. Everything without the mark is hidden in the shared
/// library, and a program that uses it does not link.
///
/// Classes with virtual functions carry the mark on the class, so that their run-time type information is one
/// and the same on both sides of the library boundary.
#define HARROW_EXPORT __attribute__((visibility("default")))
