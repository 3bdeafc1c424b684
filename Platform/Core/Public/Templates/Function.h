#pragma once

// Type-erased callables under the engine's names. TFunction owns a copyable callable,
// TUniqueFunction owns a callable that may be move-only, and TFunctionRef only refers to one:
// it must not outlive the callable it was made from (use it for parameters). Calling an empty
// TFunction or TUniqueFunction stops the program.

#include "CoreTypes.h"
#include "Templates/UnrealTemplate.h"

#include <functional>
#include <memory>
#include <type_traits>

namespace UE::Core::Private
{
	// std::invoke that converts the result to R, or drops it when R is void.
	template<class R, class FunctorType, class... ArgTypes>
	R InvokeAs(FunctorType&& Functor, ArgTypes&&... Args)
	{
		if constexpr (std::is_void_v<R>)
		{
			std::invoke(Forward<FunctorType>(Functor), Forward<ArgTypes>(Args)...);
		}
		else
		{
			return std::invoke(Forward<FunctorType>(Functor), Forward<ArgTypes>(Args)...);
		}
	}
}

template<class FuncType> class TFunction;
template<class FuncType> class TUniqueFunction;
template<class FuncType> class TFunctionRef;

/** A copyable callable with the signature R(Args...), or nothing. */
template<class R, class... ArgTypes>
class TFunction<R(ArgTypes...)>
{
public:
	TFunction() = default;
	TFunction(std::nullptr_t) {}
	template<class FunctorType>
		requires(!std::is_same_v<std::decay_t<FunctorType>, TFunction> && std::is_invocable_r_v<R, std::decay_t<FunctorType>&, ArgTypes...>)
	TFunction(FunctorType&& Functor) : Callable(Forward<FunctorType>(Functor))
	{
	}

	R operator()(ArgTypes... Args) const
	{
		check(IsSet());
		return Callable(Forward<ArgTypes>(Args)...);
	}
	bool IsSet() const { return static_cast<bool>(Callable); }
	explicit operator bool() const { return IsSet(); }
	void Reset() { Callable = nullptr; }
	bool operator==(std::nullptr_t) const { return !IsSet(); }

private:
	// The stored callable; empty when unset.
	std::function<R(ArgTypes...)> Callable;
};

/** A callable with the signature R(Args...) that may be move-only, or nothing. Moves, never copies. */
template<class R, class... ArgTypes>
class TUniqueFunction<R(ArgTypes...)>
{
public:
	TUniqueFunction() = default;
	TUniqueFunction(std::nullptr_t) {}
	template<class FunctorType>
		requires(!std::is_same_v<std::decay_t<FunctorType>, TUniqueFunction> && std::is_invocable_r_v<R, std::decay_t<FunctorType>&, ArgTypes...>)
	TUniqueFunction(FunctorType&& Functor) : Callable(std::make_unique<TCallable<std::decay_t<FunctorType>>>(Forward<FunctorType>(Functor)))
	{
	}
	TUniqueFunction(TUniqueFunction&&) = default;
	TUniqueFunction& operator=(TUniqueFunction&&) = default;

	R operator()(ArgTypes... Args) const
	{
		check(IsSet());
		return Callable->Call(Forward<ArgTypes>(Args)...);
	}
	bool IsSet() const { return Callable != nullptr; }
	explicit operator bool() const { return IsSet(); }
	void Reset() { Callable.reset(); }
	bool operator==(std::nullptr_t) const { return !IsSet(); }

private:
	struct ICallable
	{
		virtual ~ICallable() = default;
		virtual R Call(ArgTypes... Args) = 0;
	};
	template<class FunctorType>
	struct TCallable final : ICallable
	{
		template<class Arg>
		explicit TCallable(Arg&& InFunctor) : Functor(Forward<Arg>(InFunctor)) {}
		R Call(ArgTypes... Args) override { return UE::Core::Private::InvokeAs<R>(Functor, Forward<ArgTypes>(Args)...); }
		// The callable, owned.
		FunctorType Functor;
	};

	// The stored callable; null when unset.
	std::unique_ptr<ICallable> Callable;
};

/** Refers to a callable with the signature R(Args...) without owning or copying it; never empty. */
template<class R, class... ArgTypes>
class TFunctionRef<R(ArgTypes...)>
{
public:
	template<class FunctorType>
		requires(!std::is_same_v<std::decay_t<FunctorType>, TFunctionRef> && std::is_invocable_r_v<R, FunctorType&, ArgTypes...>)
	TFunctionRef(FunctorType&& Functor)
	{
		using Decayed = std::remove_reference_t<FunctorType>;
		if constexpr (std::is_pointer_v<std::decay_t<FunctorType>> && std::is_function_v<std::remove_pointer_t<std::decay_t<FunctorType>>>)
		{
			// A plain function is kept by its address, which outlives any temporary pointer to it.
			Target.Function = reinterpret_cast<void (*)()>(+Functor);
			Invoker = [](FTarget InTarget, ArgTypes... Args) -> R {
				return UE::Core::Private::InvokeAs<R>(reinterpret_cast<std::decay_t<FunctorType>>(InTarget.Function), Forward<ArgTypes>(Args)...);
			};
		}
		else
		{
			Target.Object = const_cast<void*>(static_cast<const void*>(std::addressof(Functor)));
			Invoker = [](FTarget InTarget, ArgTypes... Args) -> R {
				return UE::Core::Private::InvokeAs<R>(*static_cast<Decayed*>(InTarget.Object), Forward<ArgTypes>(Args)...);
			};
		}
	}

	R operator()(ArgTypes... Args) const { return Invoker(Target, Forward<ArgTypes>(Args)...); }

private:
	union FTarget
	{
		void* Object;
		void (*Function)();
	};

	// What is called: a callable object's address, or a plain function.
	FTarget Target;
	// Calls Target with the arguments, knowing its real type.
	R (*Invoker)(FTarget, ArgTypes...);
};
