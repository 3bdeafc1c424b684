#pragma once

#include "CoreMinimal.h"

namespace UE::Json::Private
{
	/** Appends the shortest text that reads back to exactly Value; JSON has no NaN or infinity, so those print as null. */
	void AppendJsonNumber(FString& Out, double Value);

	/** The length of the JSON number at Begin (grammar only: -?int frac? exp?), or 0 when there is none. */
	int32 MeasureJsonNumber(const TCHAR* Begin, const TCHAR* End);

	/**
	 * The value of a number token the reader has already checked (or Infinity / -Infinity),
	 * correctly rounded and independent of the C locale. A value past double's range becomes an
	 * infinity, one below it a zero, each with the token's sign.
	 */
	double ConvertJsonNumber(const TCHAR* Text, int32 Length);

	/** As ConvertJsonNumber, first checking that [Begin, End) is exactly one JSON number; false when it is not. */
	bool ReadJsonNumber(const TCHAR* Begin, const TCHAR* End, double& OutValue);
}
