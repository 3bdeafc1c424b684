#pragma once

// The callbacks a timer can run: a native delegate (usually bound weakly to a UObject) or a plain
// function. FTimerUnifiedDelegate holds either, so the manager stores one type.

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"
#include "Templates/Function.h"

DECLARE_DELEGATE(FTimerDelegate);

/** Whatever a timer calls: a FTimerDelegate or a TFunction. Move-only in practice. */
struct FTimerUnifiedDelegate
{
	FTimerUnifiedDelegate() = default;
	/** Wraps a delegate; a UObject binding keeps the object weakly. */
	explicit FTimerUnifiedDelegate(const FTimerDelegate& InDelegate) : FuncDelegate(InDelegate) {}
	/** Takes over a delegate without copying its binding. */
	explicit FTimerUnifiedDelegate(FTimerDelegate&& InDelegate) : FuncDelegate(MoveTemp(InDelegate)) {}
	/** Wraps a plain function, which has no object and so never goes stale. */
	explicit FTimerUnifiedDelegate(TFunction<void()>&& InCallback) : FuncCallback(MoveTemp(InCallback)) {}

	/** Calls whatever is bound, if its object is still alive. */
	void Execute() const
	{
		if (FuncDelegate.IsBound())
		{
			FuncDelegate.Execute();
		}
		else if (FuncCallback)
		{
			FuncCallback();
		}
	}

	/** False when nothing is bound or a weakly held object has gone. */
	bool IsBound() const { return FuncDelegate.IsBound() || static_cast<bool>(FuncCallback); }

	/** The object a delegate binding calls into, or null (plain functions, static bindings). */
	const void* GetBoundObject() const
	{
		const FTimerDelegate::InstanceType* Instance = FuncDelegate.GetDelegateInstance();
		return Instance ? Instance->GetBoundObject() : nullptr;
	}

	/** Drops the binding. */
	void Unbind()
	{
		FuncDelegate.Unbind();
		FuncCallback.Reset();
	}

	/** The native delegate form, when bound that way. */
	FTimerDelegate FuncDelegate;
	/** The plain function form, when bound that way. */
	TFunction<void()> FuncCallback;
};
