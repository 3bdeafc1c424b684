#include "Dom/JsonNodeMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace UE::Json::Private
{
	namespace
	{
		constexpr std::size_t ChunkSize = 64 * 1024;

		// The start of every chunk, which is aligned to its size, so a node finds its chunk by
		// rounding its address down.
		struct alignas(16) FChunk
		{
			// Nodes not yet freed, plus one while a thread still cuts nodes from the chunk.
			std::atomic<int64> Live{1};
		};

		void Release(FChunk* Chunk, int64 Count)
		{
			if (Chunk->Live.fetch_sub(Count, std::memory_order_acq_rel) == Count)
			{
				Chunk->~FChunk();
				std::free(Chunk);
			}
		}

		// The chunk this thread cuts from; closed (its extra count dropped) when full or when the
		// thread ends.
		struct FOpenChunk
		{
			FChunk* Chunk = nullptr;
			std::size_t Used = 0;

			~FOpenChunk()
			{
				if (Chunk)
				{
					Release(Chunk, 1);
				}
			}

			void* Cut(std::size_t Size)
			{
				Size = (Size + 7) & ~std::size_t(7);
				if (!Chunk || Used + Size > ChunkSize)
				{
					Open();
				}
				void* Node = reinterpret_cast<char*>(Chunk) + Used;
				Used += Size;
				Chunk->Live.fetch_add(1, std::memory_order_relaxed);
				return Node;
			}

			void Open()
			{
				void* Memory = std::aligned_alloc(ChunkSize, ChunkSize);
				if (!Memory)
				{
					throw std::bad_alloc();
				}
				if (Chunk)
				{
					Release(Chunk, 1);
				}
				Chunk = new (Memory) FChunk;
				Used = sizeof(FChunk);
			}
		};

		thread_local FOpenChunk OpenChunk;
	}

	void* AllocateNode(std::size_t Size)
	{
		check(Size <= MaxNodeSize);
		return OpenChunk.Cut(Size);
	}

	void FreeNode(void* Node)
	{
		Release(reinterpret_cast<FChunk*>(reinterpret_cast<std::uintptr_t>(Node) & ~(ChunkSize - 1)), 1);
	}
}
