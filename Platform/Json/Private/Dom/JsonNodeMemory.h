#pragma once

// Memory for the values and objects a parsed document is made of. A document is tens of thousands
// of small nodes made together and, nearly always, freed together; taking them one by one from
// the heap is most of what reading costs. Here they are cut from 64 KiB chunks instead, and a
// chunk goes back to the heap when the last node cut from it is freed, whoever frees it and on
// whichever thread. Private to the parser.

#include "CoreMinimal.h"

#include <cstddef>

namespace UE::Json::Private
{
	/** Size bytes, 8-aligned, from the calling thread's open chunk (at most MaxNodeSize). */
	void* AllocateNode(std::size_t Size);
	/** Gives back a node; its chunk is freed with the last of its nodes. */
	void FreeNode(void* Node);

	inline constexpr std::size_t MaxNodeSize = 1024;

	/**
	 * The allocator std::allocate_shared takes, so that a value and its counts are one node. It
	 * has no state, so a shared pointer's control block is no bigger than MakeShared's.
	 */
	template<class T>
	struct TNodeAllocator
	{
		using value_type = T;

		TNodeAllocator() = default;
		template<class U>
		TNodeAllocator(const TNodeAllocator<U>&) {}

		T* allocate(std::size_t Count)
		{
			static_assert(sizeof(T) <= MaxNodeSize, "a node is a small value or object");
			check(Count == 1);
			return static_cast<T*>(AllocateNode(sizeof(T)));
		}
		void deallocate(T* Node, std::size_t) { FreeNode(Node); }

		template<class U>
		bool operator==(const TNodeAllocator<U>&) const { return true; }
	};
}
