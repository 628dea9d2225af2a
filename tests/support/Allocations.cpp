/// @file
/// The operators new and delete of a test's process, which ask a rule before they give memory.
/// @file
/// The operators new and delete of a test program, which ask the rule of Allocations.h.
#include "support/Allocations.h"

#include <cstdlib>
#include <new>

std::atomic<AllocationRule> AllocationFails = nullptr;

namespace {

void *AllocateFor(const void *caller, std::size_t size) noexcept
{
    const AllocationRule fails = AllocationFails;
    if (fails != nullptr && fails(caller))
        return nullptr;
    return std::malloc(size == 0 ? 1 : size);
}

void *Given(void *memory)
{
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

// Each form asks for itself: in a form that called another one the caller would be this file.
void *operator new(std::size_t size)
{
    return Given(AllocateFor(__builtin_return_address(0), size));
}
void *operator new[](std::size_t size)
{
    return Given(AllocateFor(__builtin_return_address(0), size));
}
void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return AllocateFor(__builtin_return_address(0), size);
}
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    return AllocateFor(__builtin_return_address(0), size);
}
void operator delete(void *memory) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete(void *memory, const std::nothrow_t &) noexcept
{
    std::free(memory);
}
void operator delete[](void *memory, const std::nothrow_t &) noexcept
{
    std::free(memory);
}
