// The JSON reader every document goes through (comments, assets, save slots): FJsonSerializer
// over TJsonReaderFactory<>::Create, into a value, an object and an array. What it accepts is
// written out again and must read back to the same text.

#include "FuzzKit.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"

namespace
{
	FString Write(const TSharedPtr<FJsonValue>& Value)
	{
		FString Out;
		FJsonSerializer::Serialize(Value, FString(), TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Out));
		return Out;
	}
}

extern "C" int LLVMFuzzerInitialize(int* Argc, char*** Argv)
{
	PlainFuzz::Start(false);
	return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size)
{
	const FString Text = PlainFuzz::Text(Data, Size);

	TSharedPtr<FJsonValue> Value;
	if (FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Value) && Value.IsValid())
	{
		const FString Written = Write(Value);
		TSharedPtr<FJsonValue> Again;
		PlainFuzz::Expect(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Written), Again) && Again.IsValid(),
			"what the reader accepted was written as text it refuses");
		PlainFuzz::Expect(Write(Again) == Written, "what the reader accepted does not read back the same");
	}

	TSharedPtr<FJsonObject> Object;
	FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Object);
	TArray<TSharedPtr<FJsonValue>> Array;
	FJsonSerializer::Deserialize(TJsonReaderFactory<>::CreateFromView(Text), Array);
	PlainFuzz::ForgetLog();
	return 0;
}
