#pragma once

// Cast<T>: a checked downcast through reflection; null when the object is not a T.

#include "UObject/Class.h"
#include "UObject/ObjectPtr.h"

template<class To, class From>
To* Cast(From* Object)
{
	if (Object && static_cast<const UObject*>(Object)->IsA(To::StaticClass()))
	{
		return static_cast<To*>(const_cast<std::remove_const_t<From>*>(Object));
	}
	return nullptr;
}

template<class To, class From>
To* Cast(const TObjectPtr<From>& Object)
{
	return Cast<To>(Object.Get());
}

template<class To, class From>
To* CastChecked(From* Object)
{
	To* Result = Cast<To>(Object);
	check(Result || !Object);
	return Result;
}

template<class To, class From>
To* ExactCast(From* Object)
{
	return Object && Object->GetClass() == To::StaticClass() ? static_cast<To*>(Object) : nullptr;
}
