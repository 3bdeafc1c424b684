#include "UObject/UObjectArray.h"

#include "UObject/Object.h"

FUObjectArray& FUObjectArray::Get()
{
	// Never destroyed: objects outlive static destruction, as in the engine, and the array is what
	// keeps them reachable for leak checkers at exit.
	static FUObjectArray* Array = new FUObjectArray;
	return *Array;
}

void FUObjectArray::AllocateIndex(UObject& Object)
{
	int32 Index;
	if (!FreeIndices.empty())
	{
		Index = FreeIndices.back();
		FreeIndices.pop_back();
	}
	else
	{
		Index = static_cast<int32>(Items.size());
		Items.emplace_back();
	}
	Items[Index].Object = &Object;
	Items[Index].SerialNumber = NextSerial++;
	Object.InternalIndex = Index;
	++LiveCount;
}

void FUObjectArray::FreeIndex(UObject& Object)
{
	const int32 Index = Object.InternalIndex;
	if (Index < 0 || Index >= Num() || Items[Index].Object != &Object)
	{
		return;
	}
	Items[Index].Object = nullptr;
	Items[Index].SerialNumber = 0;
	FreeIndices.push_back(Index);
	Object.InternalIndex = INDEX_NONE;
	--LiveCount;
}

const FUObjectArray::FItem* FUObjectArray::GetItem(int32 Index) const
{
	return Index >= 0 && Index < Num() ? &Items[Index] : nullptr;
}

int32 FUObjectArray::GetSerialNumber(int32 Index) const
{
	const FItem* Item = GetItem(Index);
	return Item ? Item->SerialNumber : 0;
}

UObject* FUObjectArray::GetObject(int32 Index) const
{
	const FItem* Item = GetItem(Index);
	return Item ? Item->Object : nullptr;
}
