// Everything here but the two UCLASSes must be stepped over.
#pragma once
#include <vector>
#if WITH_EDITOR
#define REFLECTED_LOOKING(X) \
	UCLASS() X
#endif
#include "SkippedCode.generated.h"

class UForward;
enum class EForward : uint8;
using FAlias = TArray<int32>;
typedef TMap<FString, int32> FMapAlias;
static_assert(sizeof(int) == 4, "int");
extern int GValue;
extern "C" { int CFunction(int); }
DECLARE_DELEGATE_OneParam(FNative, int32);
DECLARE_MULTICAST_DELEGATE_TwoParams(FNativeMulti, int32, const TMap<FString, int32>&);
DECLARE_LOG_CATEGORY_EXTERN(LogSkipped, Log, All);

inline const char* Raw() { return R"x(a "}" { ) UCLASS()x"; }
inline wchar_t Wide() { return L'}'; }
inline int Separated() { return 1'000'000 >> 2; }

namespace Outer::Inner
{
	template <typename T, typename U = TArray<T>>
	struct TPair { T First; U Second; };

	class FPlain
	{
	public:
		FPlain() : Value{1}, Other(2) {}
		int Value, Other;
		bool operator()(int X) const { return X > Value; }
		FPlain& operator=(const FPlain& Rhs) { Value = Rhs.Value; return *this; }
	};
}
namespace Alias = Outer::Inner;

struct FOpaque { int X = 0; } GOpaque;

UCLASS(Abstract)
class USkipped : public UObject
{
	GENERATED_BODY()

	UPROPERTY()
	int32 PrivateByDefault;

public:
	USkipped();
	virtual ~USkipped() override;
	USkipped(const USkipped&) = delete;
	template <typename T> T* Find() const { return nullptr; }
	enum class ENested { A, B };
	friend class UOther;
	virtual void Pure() const = 0;
	int Array[4] = {1, 2, 3, 4};

	UFUNCTION()
	void AfterNoise(const TArray<int32>& Values = {}, int32 N = (1 < 2) ? 3 : 4);

protected:
	UPROPERTY()
	TSubclassOf<UObject> NodeClass;
};

UCLASS()
class ULegacyBody : public UObject
{
	GENERATED_UCLASS_BODY()

	UPROPERTY()
	int32 PublicAfterLegacyBody;
};
