#pragma once

#include "CoreMinimal.h"
#include "BulletChat/BulletChatData.h"
#include "Templates/Function.h"

class FJsonObject;

/**
 * Reads bullet chat records from the JSON text a host hands in. A full document is an object whose
 * "datas" array holds the records; a single record is a record object at the root. Reading never
 * reports anything: a flawed document simply yields fewer records, and a flawed record is still
 * read with whatever the JSON getters give for its keys.
 */
struct PLAINVIDARIA_API FBulletChatDocument
{
	/** Reads the eight keys of one record object; absent or mistyped keys leave zero or empty values. */
	static FBulletChatData ReadRecord(const FJsonObject& Object);

	/** Calls OnRecord for each record object of the full document's "datas" array, in document order. */
	static void ReadDocument(const FString& Text, TFunctionRef<void(const FBulletChatData&)> OnRecord);

	/** Reads a single-record document; false when the text is no JSON object. */
	static bool ReadSingle(const FString& Text, FBulletChatData& OutRecord);
};
