#pragma once

#include "CoreTypes.h"

/** The kind of a JSON value. None is what a default-constructed FJsonValue reports, never a parsed value. */
enum class EJson
{
	None,
	Null,
	String,
	Number,
	Boolean,
	Array,
	Object
};
