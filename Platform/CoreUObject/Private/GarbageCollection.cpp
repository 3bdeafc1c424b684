#include "UObject/GarbageCollection.h"

#include "CoreUObjectLog.h"
#include "UObject/Class.h"
#include "UObject/Object.h"
#include "UObject/UObjectArray.h"

#include <algorithm>
#include <vector>

DEFINE_LOG_CATEGORY(LogGarbage);

namespace
{
	std::vector<FGCObject*>& GCObjects()
	{
		static std::vector<FGCObject*> Referencers;
		return Referencers;
	}

	int32 LastFreedCount = 0;

	/** Marks objects reachable and queues them so their own references are followed once. */
	class FMarkingCollector final : public FReferenceCollector
	{
	public:
		explicit FMarkingCollector(int32 NumSlots) : Marked(NumSlots, false) {}

		void AddReferencedObject(const UObject* Object) override
		{
			if (!Object)
			{
				return;
			}
			const int32 Index = Object->GetUniqueID();
			if (Index < 0 || Index >= static_cast<int32>(Marked.size()) || Marked[Index])
			{
				return;
			}
			Marked[Index] = true;
			Pending.push_back(const_cast<UObject*>(Object));
		}

		void Drain()
		{
			while (!Pending.empty())
			{
				UObject* Object = Pending.back();
				Pending.pop_back();
				// An object keeps its outer and its class alive, and whatever its properties hold.
				AddReferencedObject(Object->GetOuter());
				AddReferencedObject(Object->GetClass());
				if (UClass* Class = Object->GetClass())
				{
					Class->VisitReferences(Object, *this);
				}
				Object->AddReferencedObjects(*this);
			}
		}

		bool IsMarked(int32 Index) const { return Marked[Index]; }

	private:
		std::vector<bool> Marked;
		std::vector<UObject*> Pending;
	};
}

FGCObject::FGCObject()
{
	GCObjects().push_back(this);
}

FGCObject::FGCObject(const FGCObject&)
{
	GCObjects().push_back(this);
}

FGCObject::~FGCObject()
{
	auto& Referencers = GCObjects();
	Referencers.erase(std::remove(Referencers.begin(), Referencers.end(), this), Referencers.end());
}

void CollectGarbage(EObjectFlags KeepFlags, bool bPerformFullPurge)
{
	FUObjectArray& Array = FUObjectArray::Get();
	const int32 NumSlots = Array.Num();
	FMarkingCollector Collector(NumSlots);

	const EObjectFlags RootFlags = RF_MarkAsRootSet | RF_Standalone | KeepFlags;
	for (int32 Index = 0; Index < NumSlots; ++Index)
	{
		UObject* Object = Array.GetObject(Index);
		if (Object && Object->HasAnyFlags(RootFlags))
		{
			Collector.AddReferencedObject(Object);
		}
	}
	for (FGCObject* Referencer : GCObjects())
	{
		Referencer->AddReferencedObjects(Collector);
	}
	Collector.Drain();

	std::vector<UObject*> Unreachable;
	for (int32 Index = 0; Index < NumSlots; ++Index)
	{
		UObject* Object = Array.GetObject(Index);
		if (Object && !Collector.IsMarked(Index))
		{
			Unreachable.push_back(Object);
		}
	}

	// Every unreachable object begins its destruction before any memory goes, so BeginDestroy
	// may still look at other unreachable objects.
	for (UObject* Object : Unreachable)
	{
		Object->ConditionalBeginDestroy();
	}
	for (UObject* Object : Unreachable)
	{
		Object->FinishDestroy();
	}
	for (UObject* Object : Unreachable)
	{
		delete Object;
	}
	LastFreedCount = static_cast<int32>(Unreachable.size());
	UE_LOG(LogGarbage, Verbose, TEXT("Collected %d objects, %d remain"), LastFreedCount, Array.GetLiveObjectCount());
}

int32 GetLastGarbageCollectionFreedCount()
{
	return LastFreedCount;
}
