#pragma once

// FDelegateHandle: names one binding, so it can be removed from a multicast delegate later.
// Every new binding gets a handle never used before in this process; a default one is invalid.

#include "CoreTypes.h"
#include "Templates/TypeHash.h"

class FDelegateHandle
{
public:
	enum EGenerateNewHandleType
	{
		GenerateNewHandle
	};

	FDelegateHandle() = default;
	explicit FDelegateHandle(EGenerateNewHandleType) : ID(GenerateNewID()) {}

	bool IsValid() const { return ID != 0; }
	void Reset() { ID = 0; }
	bool operator==(const FDelegateHandle& Other) const { return ID == Other.ID; }

	friend uint32 GetTypeHash(const FDelegateHandle& Handle) { return GetTypeHash(Handle.ID); }

private:
	// One counter for the whole process, shared by every module.
	static CORE_API uint64 GenerateNewID();

	// 0 for no binding.
	uint64 ID = 0;
};
