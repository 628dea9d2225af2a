/// @file
/// Allocations that a test counts or makes fail: Allocations.cpp, a source of the test's program, holds the operators
/// new and delete of the whole process, shared libraries included. A program's own operators stand before those of the
/// standard library.
#pragma once

#include <atomic>

/// Whether an allocation fails; `caller` is where it was asked for.
using AllocationRule = bool (*)(const void *caller);

/// Asked at every allocation of the process, in any thread; while it is null, all succeed.
extern std::atomic<AllocationRule> AllocationFails;
