#pragma once

// TMulticastDelegate: a list of bindings called in turn by Broadcast. Include Delegates/Delegate.h.

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Delegates/Delegate.h"
#include "Templates/UnrealTemplate.h"

template<class FuncType>
class TMulticastDelegate;

/**
 * Bindings with signature void(Args...), called in the order they were added. Inside a handler
 * it is safe to add and remove bindings and to broadcast again: a binding added during a broadcast
 * is first called by the next one, and a binding removed is never called after its removal.
 * Broadcast itself never allocates; bindings whose object is gone are skipped and dropped after
 * the outermost broadcast.
 */
template<class... ArgTypes>
class TMulticastDelegate<void(ArgTypes...)>
{
public:
	using FDelegate = TDelegate<void(ArgTypes...)>;

	TMulticastDelegate() = default;
	TMulticastDelegate(const TMulticastDelegate& Other) { CopyLiveFrom(Other); }
	TMulticastDelegate(TMulticastDelegate&&) noexcept = default;
	TMulticastDelegate& operator=(const TMulticastDelegate& Other)
	{
		if (this != &Other)
		{
			Clear();
			CopyLiveFrom(Other);
		}
		return *this;
	}
	TMulticastDelegate& operator=(TMulticastDelegate&&) noexcept = default;

	/** Adds a copy of Delegate's binding; returns its handle (invalid if Delegate is unbound). */
	FDelegateHandle Add(const FDelegate& Delegate) { return Add(FDelegate(Delegate)); }
	FDelegateHandle Add(FDelegate&& Delegate)
	{
		if (!Delegate.IsBound())
		{
			return FDelegateHandle();
		}
		if (BroadcastDepth == 0 && bNeedsCompaction)
		{
			Compact();
		}
		const FDelegateHandle Handle = Delegate.GetHandle();
		Bindings.Add(FBinding{MoveTemp(Delegate), false});
		return Handle;
	}
	// Each Add* adds what the TDelegate::Create* of the same name makes.
	template<class... Params>
	FDelegateHandle AddStatic(Params&&... Args) { return Add(FDelegate::CreateStatic(Forward<Params>(Args)...)); }
	template<class... Params>
	FDelegateHandle AddLambda(Params&&... Args) { return Add(FDelegate::CreateLambda(Forward<Params>(Args)...)); }
	template<class... Params>
	FDelegateHandle AddWeakLambda(Params&&... Args) { return Add(FDelegate::CreateWeakLambda(Forward<Params>(Args)...)); }
	template<class... Params>
	FDelegateHandle AddSPLambda(Params&&... Args) { return Add(FDelegate::CreateSPLambda(Forward<Params>(Args)...)); }
	template<class... Params>
	FDelegateHandle AddRaw(Params&&... Args) { return Add(FDelegate::CreateRaw(Forward<Params>(Args)...)); }
	template<class... Params>
	FDelegateHandle AddSP(Params&&... Args) { return Add(FDelegate::CreateSP(Forward<Params>(Args)...)); }
	template<class... Params>
	FDelegateHandle AddUObject(Params&&... Args) { return Add(FDelegate::CreateUObject(Forward<Params>(Args)...)); }

	/** Removes the binding with this handle; returns whether there was one. */
	bool Remove(FDelegateHandle Handle)
	{
		for (int32 Index = 0; Handle.IsValid() && Index < Bindings.Num(); ++Index)
		{
			if (!Bindings[Index].bRemoved && Bindings[Index].Delegate.GetHandle() == Handle)
			{
				RemoveAt(Index);
				return true;
			}
		}
		return false;
	}
	/** Removes every binding to UserObject; returns how many. */
	int32 RemoveAll(const void* UserObject)
	{
		int32 Removed = 0;
		for (int32 Index = Bindings.Num() - 1; Index >= 0; --Index)
		{
			if (!Bindings[Index].bRemoved && Bindings[Index].Delegate.IsBoundToObject(UserObject))
			{
				RemoveAt(Index);
				++Removed;
			}
		}
		return Removed;
	}
	/** Removes every binding. */
	void Clear()
	{
		for (int32 Index = Bindings.Num() - 1; Index >= 0; --Index)
		{
			if (!Bindings[Index].bRemoved)
			{
				RemoveAt(Index);
			}
		}
	}

	/** True if some binding would be called. */
	bool IsBound() const
	{
		for (const FBinding& Binding : Bindings)
		{
			if (!Binding.bRemoved && Binding.Delegate.IsBound())
			{
				return true;
			}
		}
		return false;
	}
	bool IsBoundToObject(const void* UserObject) const
	{
		for (const FBinding& Binding : Bindings)
		{
			if (!Binding.bRemoved && Binding.Delegate.IsBoundToObject(UserObject))
			{
				return true;
			}
		}
		return false;
	}

	/** Calls every binding present when the broadcast starts, in order, skipping the ones whose object is gone. */
	void Broadcast(ArgTypes... Args) const
	{
		// Handlers may add bindings (which may move the list) or remove them (which only marks
		// them until the outermost broadcast ends), so walk by index over the starting count.
		const int32 Count = Bindings.Num();
		++BroadcastDepth;
		for (int32 Index = 0; Index < Count; ++Index)
		{
			const FBinding& Binding = Bindings[Index];
			if (Binding.bRemoved)
			{
				continue;
			}
			const TDelegateInstance<void(ArgTypes...)>* Instance = Binding.Delegate.GetDelegateInstance();
			if (!Instance->ExecuteIfSafe(Args...))
			{
				bNeedsCompaction = true;
			}
		}
		if (--BroadcastDepth == 0 && bNeedsCompaction)
		{
			Compact();
		}
	}

private:
	struct FBinding
	{
		FDelegate Delegate;
		// Removed during a broadcast: kept (it may be running) but never called again.
		bool bRemoved;
	};

	void RemoveAt(int32 Index) const
	{
		if (BroadcastDepth > 0)
		{
			Bindings[Index].bRemoved = true;
			bNeedsCompaction = true;
		}
		else
		{
			Bindings.RemoveAt(Index);
		}
	}

	void Compact() const
	{
		Bindings.RemoveAll([](const FBinding& Binding) { return Binding.bRemoved || Binding.Delegate.IsCompactable(); });
		bNeedsCompaction = false;
	}

	void CopyLiveFrom(const TMulticastDelegate& Other)
	{
		for (const FBinding& Binding : Other.Bindings)
		{
			if (!Binding.bRemoved && Binding.Delegate.IsBound())
			{
				Bindings.Add(FBinding{Binding.Delegate, false});
			}
		}
	}

	// The bindings in the order they were added; mutable because Broadcast is const yet compacts.
	mutable TArray<FBinding> Bindings;
	// How many broadcasts of this delegate are running (more than one when nested).
	mutable int32 BroadcastDepth = 0;
	// Some binding was removed mid-broadcast or found dead, and should be dropped when idle.
	mutable bool bNeedsCompaction = false;
};
