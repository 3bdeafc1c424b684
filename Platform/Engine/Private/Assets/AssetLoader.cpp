#include "Assets/AssetReaders.h"

#include "Dom/JsonObject.h"
#include "EngineLog.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/PropertyJson.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY(LogStreaming);

namespace
{
	using namespace UE::Assets;

	/** Readers by short class name ("WidgetBlueprint"); FString keys ignore case. */
	TMap<FString, FAssetReader>& Readers()
	{
		static TMap<FString, FAssetReader> Map;
		return Map;
	}

	/** Paths being read right now, so a document that refers to itself fails instead of recursing forever. */
	TSet<FString>& PathsInProgress()
	{
		static TSet<FString> Set;
		return Set;
	}

	/** "/Script/Engine.Material" -> "Material"; "Material" stays. */
	FString ShortClassName(const FString& ClassText)
	{
		int32 Cut = INDEX_NONE;
		for (int32 Index = 0; Index < ClassText.Len(); ++Index)
		{
			if (ClassText[Index] == TEXT('.') || ClassText[Index] == TEXT('/'))
			{
				Cut = Index;
			}
		}
		return Cut == INDEX_NONE ? ClassText : ClassText.Mid(Cut + 1);
	}

	/** Splits "/Game/Dir/Name.Name" (or "/Game/Dir/Name") into its package and object names; false for a path outside /Game. */
	bool SplitAssetPath(const FString& Path, FString& OutPackage, FString& OutObject)
	{
		if (!Path.Split(TEXT("."), &OutPackage, &OutObject))
		{
			OutPackage = Path;
			OutObject = FPaths::GetCleanFilename(Path);
		}
		if (!OutPackage.StartsWith(TEXT("/Game/")) || OutObject.IsEmpty() || OutObject.Contains(TEXT(".")) || OutObject.Contains(TEXT(":")))
		{
			return false;
		}
		const FString Relative = OutPackage.Mid(6);
		return !Relative.IsEmpty() && !Relative.Contains(TEXT("..")) && !Relative.Contains(TEXT("\\")) && !Relative.EndsWith(TEXT("/"));
	}

	/** The reader for assets of a class no module claimed: make the object, then set its properties. */
	UObject* ReadGenericAsset(const FAssetDocument& Document, const FString& ClassText, FString& OutError)
	{
		UClass* AssetClass = FindClassByName(ClassText);
		if (!AssetClass)
		{
			OutError = FString::Printf(TEXT("unknown class '%s'"), *ClassText);
			return nullptr;
		}
		if (AssetClass->HasAnyClassFlags(CLASS_Abstract))
		{
			OutError = FString::Printf(TEXT("class '%s' is abstract"), *AssetClass->GetName());
			return nullptr;
		}
		if (Document.ObjectName != FPaths::GetCleanFilename(Document.Package->GetName()))
		{
			OutError = FString::Printf(TEXT("a %s asset holds no object named '%s'"), *AssetClass->GetName(), *Document.ObjectName);
			return nullptr;
		}
		const TSharedPtr<FJsonObject>* Properties = nullptr;
		if (Document.Root->HasField(TEXT("Properties")) && !Document.Root->TryGetObjectField(TEXT("Properties"), Properties))
		{
			OutError = TEXT("\"Properties\" is not an object");
			return nullptr;
		}
		UObject* Object = NewObject<UObject>(Document.Package, AssetClass, FName(*Document.ObjectName), RF_Public | RF_Standalone | RF_WasLoaded);
		if (Properties && Properties->IsValid() && !ApplyJsonProperties(Object, **Properties, OutError))
		{
			// Bad values stay at their defaults; the asset itself is still usable.
			UE_LOG(LogStreaming, Warning, TEXT("Asset '%s' (%s): %s"), *Document.ObjectPath, *Document.FilePath, *OutError);
			OutError.Empty();
		}
		return Object;
	}

	/** Reads and parses the file; null with a reason on failure. */
	TSharedPtr<FJsonObject> ReadDocument(const FString& FilePath, FString& OutError)
	{
		FString Text;
		if (!FPaths::FileExists(FilePath))
		{
			OutError = TEXT("no such file");
			return nullptr;
		}
		if (!FFileHelper::LoadFileToString(Text, *FilePath))
		{
			OutError = TEXT("the file cannot be read");
			return nullptr;
		}
		TSharedPtr<FJsonObject> Root;
		const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(MoveTemp(Text));
		if (!FJsonSerializer::Deserialize(Reader, Root) || !Root.IsValid())
		{
			OutError = FString::Printf(TEXT("not a JSON object (%s)"), *Reader->GetErrorMessage());
			return nullptr;
		}
		return Root;
	}

	UObject* CheckClass(UObject* Object, UClass* Class, const FString& Path, const FString& FilePath, bool bWarn)
	{
		if (Object && Class && !Object->IsA(Class))
		{
			if (bWarn)
			{
				UE_LOG(LogStreaming, Warning, TEXT("Failed to load '%s' (%s): it is a %s, not a %s"), *Path, *FilePath, *Object->GetClass()->GetName(),
					*Class->GetName());
			}
			return nullptr;
		}
		return Object;
	}

	/** The loader StaticLoadObject calls for anything not in memory yet. */
	UObject* LoadAsset(UClass* Class, UObject* InOuter, const FString& InPath, uint32 LoadFlags)
	{
		const bool bWarn = !(LoadFlags & (LOAD_NoWarn | LOAD_Quiet));
		FString Path = InPath;
		if (InOuter && !Path.StartsWith(TEXT("/")))
		{
			Path = InOuter->GetPathName() + TEXT(".") + Path;
		}
		FAssetDocument Document;
		Document.ObjectPath = Path;
		FString PackageName;
		if (!SplitAssetPath(Path, PackageName, Document.ObjectName))
		{
			if (bWarn)
			{
				UE_LOG(LogStreaming, Warning, TEXT("Failed to load '%s': not an asset path under /Game/"), *Path);
			}
			return nullptr;
		}
		Document.FilePath = FPaths::ProjectContentDir() + PackageName.Mid(6) + TEXT(".uasset");

		// Loaded once per path: whatever an earlier load made is found again, as the engine's cache does.
		if (UPackage* Existing = FindPackage(nullptr, *PackageName))
		{
			if (UObject* Found = StaticFindObjectFast(nullptr, Existing, FName(*Document.ObjectName)))
			{
				return CheckClass(Found, Class, Path, Document.FilePath, bWarn);
			}
		}
		if (PathsInProgress().Contains(Path))
		{
			UE_LOG(LogStreaming, Warning, TEXT("Failed to load '%s' (%s): it refers to itself while loading"), *Path, *Document.FilePath);
			return nullptr;
		}

		FString Error;
		Document.Root = ReadDocument(Document.FilePath, Error);
		FString ClassText;
		if (Document.Root.IsValid() && !Document.Root->TryGetStringField(TEXT("Class"), ClassText))
		{
			Error = TEXT("no \"Class\" string field");
		}
		UObject* Loaded = nullptr;
		if (Error.IsEmpty())
		{
			Document.Package = CreatePackage(*PackageName);
			PathsInProgress().Add(Path);
			const FAssetReader* Reader = Readers().Find(ShortClassName(ClassText));
			Loaded = Reader && *Reader ? (*Reader)(Document, Error) : ReadGenericAsset(Document, ClassText, Error);
			PathsInProgress().Remove(Path);
			if (!Loaded && Error.IsEmpty())
			{
				Error = TEXT("the reader made no object");
			}
		}
		if (!Loaded)
		{
			if (bWarn)
			{
				UE_LOG(LogStreaming, Warning, TEXT("Failed to load '%s' (%s): %s"), *Path, *Document.FilePath, *Error);
			}
			return nullptr;
		}
		Loaded->SetFlags(RF_WasLoaded);
		return CheckClass(Loaded, Class, Path, Document.FilePath, bWarn);
	}

	/** Installs the loader when the module loads, before anything can ask for an asset. */
	struct FAssetLoaderStartup
	{
		FAssetLoaderStartup() { UE::Loading::SetObjectLoader(&LoadAsset); }
	};
	FAssetLoaderStartup AssetLoaderStartup;
}

void UE::Assets::RegisterAssetReader(const FString& ClassName, FAssetReader Reader)
{
	Readers().Add(ShortClassName(ClassName), MoveTemp(Reader));
}

bool UE::Assets::ApplyJsonProperties(UObject* Object, const FJsonObject& Properties, FString& OutError)
{
	if (!Object)
	{
		OutError = TEXT("no object");
		return false;
	}
	TArray<FString> Errors;
	UE::Engine::Private::JsonToStructValue(*Object->GetClass(), Object, Properties, UE::Engine::Private::EObjectReferences::Load, FString(), Errors);
	OutError = FString::Join(Errors, TEXT("; "));
	return Errors.IsEmpty();
}
