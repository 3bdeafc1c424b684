#pragma once

// The concrete delegate bindings. Two shapes: a member function called on an object, and a functor
// (lambda or plain function). Each holds its object through a holder that says how: not at all,
// by raw pointer, weakly through a shared pointer, or weakly as a UObject. A weak holder pins the
// object for the length of the call, and reports the binding unsafe once the object is gone.

#include "CoreTypes.h"
#include "Delegates/DelegateInstanceInterface.h"
#include "Templates/SharedPointer.h"
#include "Templates/UnrealTemplate.h"
#include "UObject/WeakObjectPtrTemplatesFwd.h"

#include <memory>
#include <tuple>
#include <type_traits>
#include <utility>

namespace UE::Delegates::Private
{
	/** No object: plain functions and lambdas. */
	struct FNoObjectHolder
	{
		const void* GetRaw() const { return nullptr; }
		bool IsAlive() const { return true; }
		bool Pin() const { return true; }
		static bool IsPinned(bool) { return true; }
	};

	/** An object the caller promises outlives the binding. */
	template<class UserClass>
	struct TRawHolder
	{
		UserClass* Object;

		const void* GetRaw() const { return Object; }
		bool IsAlive() const { return true; }
		UserClass* Pin() const { return Object; }
		static bool IsPinned(UserClass* Pinned) { return Pinned != nullptr; }
		static UserClass* Get(UserClass* Pinned) { return Pinned; }
	};

	/** An object owned by shared pointers, held weakly; a call keeps it alive while it runs. */
	template<class UserClass, ESPMode Mode>
	struct TSPHolder
	{
		TWeakPtr<UserClass, Mode> Object;
		const void* Raw;

		const void* GetRaw() const { return Raw; }
		bool IsAlive() const { return Object.IsValid(); }
		TSharedPtr<UserClass, Mode> Pin() const { return Object.Pin(); }
		static bool IsPinned(const TSharedPtr<UserClass, Mode>& Pinned) { return Pinned.IsValid(); }
		static UserClass* Get(const TSharedPtr<UserClass, Mode>& Pinned) { return Pinned.Get(); }
	};

	/** A UObject, held weakly; only instantiated where CoreUObject defines TWeakObjectPtr. */
	template<class UserClass>
	struct TUObjectHolder
	{
		TWeakObjectPtr<std::remove_const_t<UserClass>> Object;
		const void* Raw;

		const void* GetRaw() const { return Raw; }
		bool IsAlive() const { return Object.IsValid(); }
		UserClass* Pin() const { return Object.Get(); }
		static bool IsPinned(UserClass* Pinned) { return Pinned != nullptr; }
		static UserClass* Get(UserClass* Pinned) { return Pinned; }
	};

	template<class UserClass, ESPMode Mode>
	TSPHolder<UserClass, Mode> MakeSPHolder(const TSharedRef<UserClass, Mode>& Object)
	{
		return TSPHolder<UserClass, Mode>{Object, &Object.Get()};
	}

	template<class UserClass>
	TUObjectHolder<UserClass> MakeUObjectHolder(UserClass* Object)
	{
		using MutableClass = std::remove_const_t<UserClass>;
		return TUObjectHolder<UserClass>{TWeakObjectPtr<MutableClass>(const_cast<MutableClass*>(Object)), Object};
	}
}

template<class HolderType, class FuncType, class MethodPtrType, class... VarTypes>
class TMethodDelegateInstance;

/** Calls Method on the held object with the call's arguments followed by the stored payload. */
template<class HolderType, class R, class... ArgTypes, class MethodPtrType, class... VarTypes>
class TMethodDelegateInstance<HolderType, R(ArgTypes...), MethodPtrType, VarTypes...> final : public TDelegateInstance<R(ArgTypes...)>
{
public:
	template<class... PayloadArgs>
	TMethodDelegateInstance(HolderType InHolder, MethodPtrType InMethod, PayloadArgs&&... Vars)
		: Holder(MoveTemp(InHolder)), Method(InMethod), Payload(Forward<PayloadArgs>(Vars)...)
	{
	}

	const void* GetBoundObject() const override { return Holder.GetRaw(); }
	bool IsSafeToExecute() const override { return Holder.IsAlive(); }
	R Execute(ArgTypes... Args) const override
	{
		auto Pinned = Holder.Pin();
		checkf(HolderType::IsPinned(Pinned), "Executing a delegate whose object is gone");
		return Call(HolderType::Get(Pinned), std::index_sequence_for<VarTypes...>(), Forward<ArgTypes>(Args)...);
	}
	bool ExecuteIfSafe(ArgTypes... Args) const override
	{
		auto Pinned = Holder.Pin();
		if (!HolderType::IsPinned(Pinned))
		{
			return false;
		}
		Call(HolderType::Get(Pinned), std::index_sequence_for<VarTypes...>(), Forward<ArgTypes>(Args)...);
		return true;
	}
	std::unique_ptr<TDelegateInstance<R(ArgTypes...)>> Clone() const override { return std::make_unique<TMethodDelegateInstance>(*this); }

private:
	template<class ObjectPtr, std::size_t... Indices>
	R Call(ObjectPtr Object, std::index_sequence<Indices...>, ArgTypes... Args) const
	{
		return (Object->*Method)(Forward<ArgTypes>(Args)..., std::get<Indices>(Payload)...);
	}

	// How the object is held.
	HolderType Holder;
	// The member function called.
	MethodPtrType Method;
	// Extra arguments given at bind time, passed after the call's own; the method may change them.
	mutable std::tuple<VarTypes...> Payload;
};

template<class HolderType, class FuncType, class FunctorType, class... VarTypes>
class TFunctorDelegateInstance;

/** Calls a functor (lambda or function pointer), while the held object, if any, is alive. */
template<class HolderType, class R, class... ArgTypes, class FunctorType, class... VarTypes>
class TFunctorDelegateInstance<HolderType, R(ArgTypes...), FunctorType, VarTypes...> final : public TDelegateInstance<R(ArgTypes...)>
{
public:
	template<class FunctorArg, class... PayloadArgs>
	TFunctorDelegateInstance(HolderType InHolder, FunctorArg&& InFunctor, PayloadArgs&&... Vars)
		: Holder(MoveTemp(InHolder)), Functor(Forward<FunctorArg>(InFunctor)), Payload(Forward<PayloadArgs>(Vars)...)
	{
	}

	const void* GetBoundObject() const override { return Holder.GetRaw(); }
	bool IsSafeToExecute() const override { return Holder.IsAlive(); }
	R Execute(ArgTypes... Args) const override
	{
		auto Pinned = Holder.Pin();
		checkf(HolderType::IsPinned(Pinned), "Executing a delegate whose object is gone");
		return Call(std::index_sequence_for<VarTypes...>(), Forward<ArgTypes>(Args)...);
	}
	bool ExecuteIfSafe(ArgTypes... Args) const override
	{
		auto Pinned = Holder.Pin();
		if (!HolderType::IsPinned(Pinned))
		{
			return false;
		}
		Call(std::index_sequence_for<VarTypes...>(), Forward<ArgTypes>(Args)...);
		return true;
	}
	std::unique_ptr<TDelegateInstance<R(ArgTypes...)>> Clone() const override
	{
		if constexpr (std::is_copy_constructible_v<FunctorType>)
		{
			return std::make_unique<TFunctorDelegateInstance>(*this);
		}
		else
		{
			checkf(false, "A delegate bound to a move-only lambda cannot be copied");
			return nullptr;
		}
	}

private:
	template<std::size_t... Indices>
	R Call(std::index_sequence<Indices...>, ArgTypes... Args) const
	{
		return Functor(Forward<ArgTypes>(Args)..., std::get<Indices>(Payload)...);
	}

	// How the object, if any, is held.
	HolderType Holder;
	// The lambda or function called; mutable so a mutable lambda keeps its state between calls.
	mutable FunctorType Functor;
	// Extra arguments given at bind time, passed after the call's own.
	mutable std::tuple<VarTypes...> Payload;
};
