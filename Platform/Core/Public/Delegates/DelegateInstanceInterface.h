#pragma once

// The interface every delegate binding implements. A TDelegate owns one binding; a
// TMulticastDelegate owns a list. The concrete bindings are in Delegates/DelegateInstancesImpl.h.

#include "CoreTypes.h"
#include "Delegates/DelegateHandle.h"

#include <atomic>
#include <memory>
#include <type_traits>

/** The member-function pointer type of Class with signature FuncType, const-qualified if bConst. */
template<bool bConst, class Class, class FuncType>
struct TMemFunPtrType;

template<class Class, class R, class... ArgTypes>
struct TMemFunPtrType<false, Class, R(ArgTypes...)>
{
	using ClassType = std::remove_const_t<Class>;
	using Type = R (ClassType::*)(ArgTypes...);
};

template<class Class, class R, class... ArgTypes>
struct TMemFunPtrType<true, Class, R(ArgTypes...)>
{
	using ClassType = std::remove_const_t<Class>;
	using Type = R (ClassType::*)(ArgTypes...) const;
};

/** What every binding can answer, whatever its signature. */
class IDelegateInstance
{
public:
	virtual ~IDelegateInstance() { LiveCount.fetch_sub(1, std::memory_order_relaxed); }

	/** The address of the object the binding calls into, or null for functions and plain lambdas. */
	virtual const void* GetBoundObject() const = 0;
	/** False once an object the binding holds weakly is gone. */
	virtual bool IsSafeToExecute() const = 0;

	bool IsCompactable() const { return !IsSafeToExecute(); }
	bool HasSameObject(const void* Object) const { return Object != nullptr && GetBoundObject() == Object; }
	FDelegateHandle GetHandle() const { return Handle; }

#if PLAIN_PLATFORM_INTERNALS
	/** The stand-in's: bindings alive now in the whole process, for soak runs and leak tests. */
	static int32 GetLiveCount() { return LiveCount.load(std::memory_order_relaxed); }
#endif

protected:
	IDelegateInstance() : Handle(FDelegateHandle::GenerateNewHandle) { LiveCount.fetch_add(1, std::memory_order_relaxed); }
	// A copy keeps the handle, so a copied delegate still names the same binding.
	IDelegateInstance(const IDelegateInstance& Other) : Handle(Other.Handle) { LiveCount.fetch_add(1, std::memory_order_relaxed); }
	IDelegateInstance& operator=(const IDelegateInstance&) = delete;

private:
	// Names this binding for removal from a multicast delegate.
	FDelegateHandle Handle;
	// Every binding alive, counted by the constructors and the destructor, so a run can see
	// bindings pile up that nothing will ever call. The stand-in's; static, so the layout stays
	// the engine's. Bindings are made and dropped on any thread.
	static CORE_API std::atomic<int32> LiveCount;
};

template<class FuncType>
class TDelegateInstance;

/** A binding that can be called with Args and returns R. */
template<class R, class... ArgTypes>
class TDelegateInstance<R(ArgTypes...)> : public IDelegateInstance
{
public:
	/** Calls the binding; its object must still be there. */
	virtual R Execute(ArgTypes... Args) const = 0;
	/** Calls the binding if its object is still there (the result, if any, is dropped); returns whether it ran. */
	virtual bool ExecuteIfSafe(ArgTypes... Args) const = 0;
	/** A copy with the same handle; a binding holding a move-only lambda cannot be copied. */
	virtual std::unique_ptr<TDelegateInstance> Clone() const = 0;
};
