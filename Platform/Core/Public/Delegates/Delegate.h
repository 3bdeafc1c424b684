#pragma once

// Native delegates: TDelegate (one binding) and TMulticastDelegate (a list), and the DECLARE_*
// macros that name them. A binding to an object held weakly (UObject, shared pointer, weak lambda)
// stops counting as bound once the object is gone: IsBound() turns false, ExecuteIfBound() does
// nothing, a broadcast skips it. A raw binding (BindRaw, AddRaw) does not know when its object
// dies: unbind it first.

#include "CoreTypes.h"
#include "Delegates/DelegateHandle.h"
#include "Delegates/DelegateInstanceInterface.h"
#include "Delegates/DelegateInstancesImpl.h"
#include "Templates/SharedPointer.h"
#include "Templates/UnrealTemplate.h"

#include <memory>
#include <type_traits>

template<class FuncType>
class TDelegate;

/**
 * A single binding with signature R(Args...), or none. Execute() on an unbound delegate stops the
 * program; ExecuteIfBound() (void delegates only) is the safe call. Arguments given after the
 * function at bind time (payload) are stored and passed after the call's own arguments.
 */
template<class R, class... ArgTypes>
class TDelegate<R(ArgTypes...)>
{
public:
	using InstanceType = TDelegateInstance<R(ArgTypes...)>;
	using RetValType = R;
	template<class UserClass, class... VarTypes>
	using TMethodPtr = typename TMemFunPtrType<false, UserClass, R(ArgTypes..., VarTypes...)>::Type;
	template<class UserClass, class... VarTypes>
	using TConstMethodPtr = typename TMemFunPtrType<true, UserClass, R(ArgTypes..., VarTypes...)>::Type;

	TDelegate() = default;
	TDelegate(std::nullptr_t) {}
	TDelegate(const TDelegate& Other) : Instance(Other.Instance ? Other.Instance->Clone() : nullptr) {}
	TDelegate(TDelegate&& Other) noexcept = default;
	TDelegate& operator=(const TDelegate& Other)
	{
		if (this != &Other)
		{
			Instance = Other.Instance ? Other.Instance->Clone() : nullptr;
		}
		return *this;
	}
	TDelegate& operator=(TDelegate&& Other) noexcept = default;

	template<class... VarTypes>
	[[nodiscard]] static TDelegate CreateStatic(std::type_identity_t<R (*)(ArgTypes..., std::decay_t<VarTypes>...)> Function, VarTypes&&... Vars)
	{
		return MakeFunctor(UE::Delegates::Private::FNoObjectHolder(), Function, Forward<VarTypes>(Vars)...);
	}
	template<class FunctorType, class... VarTypes>
	[[nodiscard]] static TDelegate CreateLambda(FunctorType&& Functor, VarTypes&&... Vars)
	{
		return MakeFunctor(UE::Delegates::Private::FNoObjectHolder(), Forward<FunctorType>(Functor), Forward<VarTypes>(Vars)...);
	}
	/** A lambda that runs only while Object (a UObject) is alive. */
	template<class UserClass, class FunctorType, class... VarTypes>
	[[nodiscard]] static TDelegate CreateWeakLambda(UserClass* Object, FunctorType&& Functor, VarTypes&&... Vars)
	{
		return MakeFunctor(UE::Delegates::Private::MakeUObjectHolder(Object), Forward<FunctorType>(Functor), Forward<VarTypes>(Vars)...);
	}
	/** A lambda that runs only while Object (owned by shared pointers) is alive. */
	template<class UserClass, ESPMode Mode, class FunctorType, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSPLambda(const TSharedRef<UserClass, Mode>& Object, FunctorType&& Functor, VarTypes&&... Vars)
	{
		return MakeFunctor(UE::Delegates::Private::MakeSPHolder(Object), Forward<FunctorType>(Functor), Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, class... VarTypes>
	[[nodiscard]] static TDelegate CreateRaw(UserClass* Object, TMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return MakeMethod(UE::Delegates::Private::TRawHolder<UserClass>{Object}, Method, Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, class... VarTypes>
	[[nodiscard]] static TDelegate CreateRaw(const UserClass* Object, TConstMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return MakeMethod(UE::Delegates::Private::TRawHolder<const UserClass>{Object}, Method, Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, ESPMode Mode, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const TSharedRef<UserClass, Mode>& Object, TMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return MakeMethod(UE::Delegates::Private::MakeSPHolder(Object), Method, Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, ESPMode Mode, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const TSharedRef<UserClass, Mode>& Object, TConstMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return MakeMethod(UE::Delegates::Private::MakeSPHolder(TSharedRef<const UserClass, Mode>(Object)), Method, Forward<VarTypes>(Vars)...);
	}
	/** As CreateSP with a TSharedRef; Object must not be null. */
	template<class UserClass, ESPMode Mode, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const TSharedPtr<UserClass, Mode>& Object, TMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return CreateSP(Object.ToSharedRef(), Method, Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, ESPMode Mode, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const TSharedPtr<UserClass, Mode>& Object, TConstMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return CreateSP(Object.ToSharedRef(), Method, Forward<VarTypes>(Vars)...);
	}
	/** As CreateSP, for an object deriving from TSharedFromThis that shared pointers already own. */
	template<class UserClass, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(UserClass* Object, TMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return CreateSP(StaticCastSharedRef<UserClass>(Object->AsShared()), Method, Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, class... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const UserClass* Object, TConstMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return CreateSP(StaticCastSharedRef<const UserClass>(Object->AsShared()), Method, Forward<VarTypes>(Vars)...);
	}
	/** Calls Method on a UObject held weakly. */
	template<class UserClass, class... VarTypes>
	[[nodiscard]] static TDelegate CreateUObject(UserClass* Object, TMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return MakeMethod(UE::Delegates::Private::MakeUObjectHolder(Object), Method, Forward<VarTypes>(Vars)...);
	}
	template<class UserClass, class... VarTypes>
	[[nodiscard]] static TDelegate CreateUObject(const UserClass* Object, TConstMethodPtr<UserClass, std::decay_t<VarTypes>...> Method, VarTypes&&... Vars)
	{
		return MakeMethod(UE::Delegates::Private::MakeUObjectHolder(Object), Method, Forward<VarTypes>(Vars)...);
	}

	// Each Bind* replaces the binding with what the Create* of the same name makes.
	template<class... Params>
	void BindStatic(Params&&... Args) { *this = CreateStatic(Forward<Params>(Args)...); }
	template<class... Params>
	void BindLambda(Params&&... Args) { *this = CreateLambda(Forward<Params>(Args)...); }
	template<class... Params>
	void BindWeakLambda(Params&&... Args) { *this = CreateWeakLambda(Forward<Params>(Args)...); }
	template<class... Params>
	void BindSPLambda(Params&&... Args) { *this = CreateSPLambda(Forward<Params>(Args)...); }
	template<class... Params>
	void BindRaw(Params&&... Args) { *this = CreateRaw(Forward<Params>(Args)...); }
	template<class... Params>
	void BindSP(Params&&... Args) { *this = CreateSP(Forward<Params>(Args)...); }
	template<class... Params>
	void BindUObject(Params&&... Args) { *this = CreateUObject(Forward<Params>(Args)...); }

	/** True if there is a binding and its object, if held weakly, is still alive. */
	bool IsBound() const { return Instance && Instance->IsSafeToExecute(); }
	bool IsBoundToObject(const void* Object) const { return Instance && Instance->HasSameObject(Object); }
	/** True if there is nothing left to call: no binding, or its object is gone. */
	bool IsCompactable() const { return !Instance || Instance->IsCompactable(); }
	void Unbind() { Instance.reset(); }
	FDelegateHandle GetHandle() const { return Instance ? Instance->GetHandle() : FDelegateHandle(); }

	/** Calls the binding; the delegate must be bound. */
	R Execute(ArgTypes... Args) const
	{
		checkf(Instance != nullptr, "Executing an unbound delegate");
		return Instance->Execute(Forward<ArgTypes>(Args)...);
	}
	/** Calls the binding if there is one whose object is alive; returns whether it ran. */
	bool ExecuteIfBound(ArgTypes... Args) const
		requires std::is_void_v<R>
	{
		return Instance && Instance->ExecuteIfSafe(Forward<ArgTypes>(Args)...);
	}

	/** The binding, or null; for TMulticastDelegate. */
	const InstanceType* GetDelegateInstance() const { return Instance.get(); }

private:
	explicit TDelegate(std::unique_ptr<InstanceType> InInstance) : Instance(MoveTemp(InInstance)) {}

	template<class HolderType, class FunctorType, class... VarTypes>
	static TDelegate MakeFunctor(HolderType&& Holder, FunctorType&& Functor, VarTypes&&... Vars)
	{
		using Decayed = std::decay_t<FunctorType>;
		static_assert(std::is_invocable_r_v<R, Decayed&, ArgTypes..., std::decay_t<VarTypes>&...>, "The functor cannot be called with the delegate's arguments and payload");
		using Impl = TFunctorDelegateInstance<std::decay_t<HolderType>, R(ArgTypes...), Decayed, std::decay_t<VarTypes>...>;
		return TDelegate(std::make_unique<Impl>(Forward<HolderType>(Holder), Forward<FunctorType>(Functor), Forward<VarTypes>(Vars)...));
	}

	template<class HolderType, class MethodPtrType, class... VarTypes>
	static TDelegate MakeMethod(HolderType&& Holder, MethodPtrType Method, VarTypes&&... Vars)
	{
		check(Method != nullptr);
		using Impl = TMethodDelegateInstance<std::decay_t<HolderType>, R(ArgTypes...), MethodPtrType, std::decay_t<VarTypes>...>;
		return TDelegate(std::make_unique<Impl>(Forward<HolderType>(Holder), Method, Forward<VarTypes>(Vars)...));
	}

	// The binding, or null when unbound.
	std::unique_ptr<InstanceType> Instance;
};

#include "Delegates/MulticastDelegate.h"
#include "Delegates/DelegateCombinations.h"
