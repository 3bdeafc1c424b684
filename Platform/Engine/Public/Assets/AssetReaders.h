#pragma once

// Stand-in hook into the .uasset loader. StaticLoadObject maps "/Game/Dir/Name.Name" to
// <ProjectContentDir>/Dir/Name.uasset, a JSON document {"Class": ..., "Properties": {...}}. Most
// classes are read generically (make the object, set its properties by reflection); a module whose
// assets need more (UMG's widget blueprints) registers its own reader for the class name.

#if !PLAIN_PLATFORM_INTERNALS
#error "Assets/AssetReaders.h belongs to the stand-in's asset loader; the engine has no such header"
#endif

#include "CoreMinimal.h"
#include "Templates/Function.h"

class FJsonObject;
class UObject;
class UPackage;

namespace UE::Assets
{
	/** What a reader receives: the asked path, the file, and the parsed document. */
	struct FAssetDocument
	{
		/** The object path as asked, without a class prefix ("/Game/UI/Player.Player" or ".Player_C"). */
		FString ObjectPath;
		/** The absolute path of the .uasset file. */
		FString FilePath;
		/** The whole document. */
		TSharedPtr<FJsonObject> Root;
		/** The package the asset's objects go in ("/Game/UI/Player"), already made. */
		UPackage* Package = nullptr;
		/** The name the loaded object must have in Package for later lookups to find it ("Player" or "Player_C"). */
		FString ObjectName;
	};

	/** Makes the asset's object from the document; on failure returns null and says why in OutError. */
	using FAssetReader = TFunction<UObject*(const FAssetDocument&, FString& OutError)>;

	/** Reads assets whose "Class" is ClassName ("WidgetBlueprint", or a path's last part); replaces an earlier reader. */
	ENGINE_API void RegisterAssetReader(const FString& ClassName, FAssetReader Reader);

	/**
	 * Sets Object's reflected properties from Properties by name: numbers, bools, strings, names,
	 * texts, enums (by entry name or number), object references as asset paths (loaded),
	 * classes, arrays and structs. Unknown names are skipped. Stops at the first bad value, leaving
	 * it at its default, and says which in OutError.
	 */
	ENGINE_API bool ApplyJsonProperties(UObject* Object, const FJsonObject& Properties, FString& OutError);
}
