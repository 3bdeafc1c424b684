#include "AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

// Replaces the program's global operator new and delete with versions that count, for every
// benchmark linked into this executable.

namespace
{
	std::atomic<uint64> GAllocationCount{0};

	void* Allocate(std::size_t Size, std::size_t Alignment = 0)
	{
		GAllocationCount.fetch_add(1, std::memory_order_relaxed);
		Size = Size == 0 ? 1 : Size;
		void* Memory = nullptr;
		if (Alignment > alignof(std::max_align_t))
		{
			// aligned_alloc wants a size that is a multiple of the alignment.
			Memory = std::aligned_alloc(Alignment, (Size + Alignment - 1) / Alignment * Alignment);
		}
		else
		{
			Memory = std::malloc(Size);
		}
		return Memory;
	}

	void* AllocateOrThrow(std::size_t Size, std::size_t Alignment = 0)
	{
		void* Memory = Allocate(Size, Alignment);
		if (!Memory)
		{
			throw std::bad_alloc();
		}
		return Memory;
	}
}

uint64 GetAllocationCount()
{
	return GAllocationCount.load(std::memory_order_relaxed);
}

void* operator new(std::size_t Size) { return AllocateOrThrow(Size); }
void* operator new[](std::size_t Size) { return AllocateOrThrow(Size); }
void* operator new(std::size_t Size, std::align_val_t Alignment) { return AllocateOrThrow(Size, std::size_t(Alignment)); }
void* operator new[](std::size_t Size, std::align_val_t Alignment) { return AllocateOrThrow(Size, std::size_t(Alignment)); }
void* operator new(std::size_t Size, const std::nothrow_t&) noexcept { return Allocate(Size); }
void* operator new[](std::size_t Size, const std::nothrow_t&) noexcept { return Allocate(Size); }
void* operator new(std::size_t Size, std::align_val_t Alignment, const std::nothrow_t&) noexcept { return Allocate(Size, std::size_t(Alignment)); }
void* operator new[](std::size_t Size, std::align_val_t Alignment, const std::nothrow_t&) noexcept { return Allocate(Size, std::size_t(Alignment)); }

void operator delete(void* Memory) noexcept { std::free(Memory); }
void operator delete[](void* Memory) noexcept { std::free(Memory); }
void operator delete(void* Memory, std::size_t) noexcept { std::free(Memory); }
void operator delete[](void* Memory, std::size_t) noexcept { std::free(Memory); }
void operator delete(void* Memory, std::align_val_t) noexcept { std::free(Memory); }
void operator delete[](void* Memory, std::align_val_t) noexcept { std::free(Memory); }
void operator delete(void* Memory, std::size_t, std::align_val_t) noexcept { std::free(Memory); }
void operator delete[](void* Memory, std::size_t, std::align_val_t) noexcept { std::free(Memory); }
void operator delete(void* Memory, const std::nothrow_t&) noexcept { std::free(Memory); }
void operator delete[](void* Memory, const std::nothrow_t&) noexcept { std::free(Memory); }
void operator delete(void* Memory, std::align_val_t, const std::nothrow_t&) noexcept { std::free(Memory); }
void operator delete[](void* Memory, std::align_val_t, const std::nothrow_t&) noexcept { std::free(Memory); }
