#pragma once

// UPackage: the outermost object of an object path. Native classes live in "/Script/<Module>",
// loaded assets in "/Game/<Path>", temporary objects in the transient package.

#include "UObject/Object.h"

class COREUOBJECT_API UPackage : public UObject
{
public:
	using Super = UObject;
	using ThisClass = UPackage;
	static UClass* StaticClass();
	using UObject::UObject;
};
