#pragma once

#include "CoreMinimal.h"
#include "Containers/Array.h"
#include "Serialization/JsonTypes.h"
#include "Templates/SharedPointer.h"

class FJsonObject;

/**
 * One JSON value, held by TSharedPtr. The As* readers never fail: a value of another kind logs
 * "Json Value of type 'X' used as a 'Y'." and gives 0, "", false, an empty array or an invalid
 * object pointer. TryGet* converts where the engine does (a number reads as a string, a numeric
 * string as a number) and returns false where it cannot.
 */
class JSON_API FJsonValue
{
public:
	virtual double AsNumber() const;
	virtual FString AsString() const;
	virtual bool AsBool() const;
	/** The elements, or an empty array (with a warning) when this is not an array. */
	virtual const TArray<TSharedPtr<FJsonValue>>& AsArray() const;
	/** The object, or an invalid pointer (with a warning) when this is not an object: check it. */
	virtual const TSharedPtr<FJsonObject>& AsObject() const;

	virtual bool TryGetNumber(double& OutNumber) const { return false; }
	/** Whole-number reads round half away from zero and fail when the value does not fit. */
	bool TryGetNumber(float& OutNumber) const;
	bool TryGetNumber(int32& OutNumber) const;
	bool TryGetNumber(int64& OutNumber) const;
	bool TryGetNumber(uint32& OutNumber) const;
	virtual bool TryGetString(FString& OutString) const { return false; }
	virtual bool TryGetBool(bool& OutBool) const { return false; }
	virtual bool TryGetArray(const TArray<TSharedPtr<FJsonValue>>*& OutArray) const { return false; }
	virtual bool TryGetObject(const TSharedPtr<FJsonObject>*& OutObject) const { return false; }

	bool IsNull() const { return Type == EJson::Null || Type == EJson::None; }

	/** What this value is; set by the subclass and never changed. */
	EJson Type = EJson::None;

	virtual ~FJsonValue() = default;

protected:
	FJsonValue() = default;

	/** The kind's name as the warnings print it: "String", "Number", ... */
	virtual FString GetType() const = 0;

private:
	void LogMisuse(const TCHAR* WantedType) const;
};

/** A string value. */
class JSON_API FJsonValueString : public FJsonValue
{
public:
	explicit FJsonValueString(const FString& InValue) : Value(InValue) { Type = EJson::String; }
	explicit FJsonValueString(FString&& InValue) : Value(MoveTemp(InValue)) { Type = EJson::String; }
	using FJsonValue::TryGetNumber;
	/** Only a numeric string ("12", "-7.9") reads as a number. */
	virtual bool TryGetNumber(double& OutNumber) const override;
	virtual bool TryGetString(FString& OutString) const override { OutString = Value; return true; }
	/** "true", "yes", "on" or a non-zero number read as true; any other text as false. */
	virtual bool TryGetBool(bool& OutBool) const override;

protected:
	virtual FString GetType() const override { return TEXT("String"); }
	// The text.
	FString Value;
};

/** A number value; JSON numbers are all doubles. */
class JSON_API FJsonValueNumber : public FJsonValue
{
public:
	explicit FJsonValueNumber(double InValue) : Value(InValue) { Type = EJson::Number; }
	using FJsonValue::TryGetNumber;
	virtual bool TryGetNumber(double& OutNumber) const override { OutNumber = Value; return true; }
	/** Shortest text without a forced fraction: 12 -> "12", 7.9 -> "7.9". */
	virtual bool TryGetString(FString& OutString) const override;
	virtual bool TryGetBool(bool& OutBool) const override { OutBool = Value != 0.0; return true; }

protected:
	virtual FString GetType() const override { return TEXT("Number"); }
	// The number.
	double Value;
};

/** A true or false value. */
class JSON_API FJsonValueBoolean : public FJsonValue
{
public:
	explicit FJsonValueBoolean(bool bInValue) : Value(bInValue) { Type = EJson::Boolean; }
	using FJsonValue::TryGetNumber;
	virtual bool TryGetNumber(double& OutNumber) const override { OutNumber = Value ? 1.0 : 0.0; return true; }
	virtual bool TryGetString(FString& OutString) const override;
	virtual bool TryGetBool(bool& OutBool) const override { OutBool = Value; return true; }

protected:
	virtual FString GetType() const override { return TEXT("Boolean"); }
	// The truth value.
	bool Value;
};

/** An array value; elements may be any kind, and are never null once parsed. */
class JSON_API FJsonValueArray : public FJsonValue
{
public:
	explicit FJsonValueArray(const TArray<TSharedPtr<FJsonValue>>& InValue) : Value(InValue) { Type = EJson::Array; }
	explicit FJsonValueArray(TArray<TSharedPtr<FJsonValue>>&& InValue) : Value(MoveTemp(InValue)) { Type = EJson::Array; }
	virtual bool TryGetArray(const TArray<TSharedPtr<FJsonValue>>*& OutArray) const override { OutArray = &Value; return true; }

protected:
	virtual FString GetType() const override { return TEXT("Array"); }
	// The elements, in document order.
	TArray<TSharedPtr<FJsonValue>> Value;
};

/** An object value, sharing its FJsonObject with whoever else holds it. */
class JSON_API FJsonValueObject : public FJsonValue
{
public:
	explicit FJsonValueObject(TSharedPtr<FJsonObject> InValue) : Value(MoveTemp(InValue)) { Type = EJson::Object; }
	virtual bool TryGetObject(const TSharedPtr<FJsonObject>*& OutObject) const override { OutObject = &Value; return true; }

protected:
	virtual FString GetType() const override { return TEXT("Object"); }
	// The object.
	TSharedPtr<FJsonObject> Value;
};

/** The null value: every As* read of it warns and gives the default. */
class JSON_API FJsonValueNull : public FJsonValue
{
public:
	FJsonValueNull() { Type = EJson::Null; }

protected:
	virtual FString GetType() const override { return TEXT("Null"); }
};
