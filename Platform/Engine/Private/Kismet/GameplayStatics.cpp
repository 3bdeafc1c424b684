#include "Kismet/GameplayStatics.h"

#include "Dom/JsonObject.h"
#include "EngineLog.h"
#include "GameFramework/SaveGame.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"
#include "Serialization/PropertyJson.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

DEFINE_LOG_CATEGORY(LogSaveGame);

namespace
{
	using namespace UE::Engine::Private;

	/** Marks a file as one of ours, and its layout's version. */
	const TCHAR* const FormatTag = TEXT("PlainVidaria.SaveGame");
	constexpr int32 FormatVersion = 1;

	/** Slot names become file names: nothing that could leave the SaveGames folder. */
	bool IsValidSlotName(const FString& SlotName)
	{
		if (SlotName.IsEmpty() || SlotName.Contains(TEXT("..")) || SlotName.Contains(TEXT("/")) || SlotName.Contains(TEXT("\\")) ||
			SlotName.Contains(TEXT(":")))
		{
			return false;
		}
		for (int32 Index = 0; Index < SlotName.Len(); ++Index)
		{
			if (SlotName[Index] < 0x20)
			{
				return false;
			}
		}
		return true;
	}

	FString SaveGameDir()
	{
		return FPaths::ProjectSavedDir() + TEXT("SaveGames/");
	}

	FString SlotPathOrWarn(const FString& SlotName, const TCHAR* Operation)
	{
		const FString Path = UGameplayStatics::GetSaveGamePath(SlotName);
		if (Path.IsEmpty())
		{
			UE_LOG(LogSaveGame, Warning, TEXT("%s: refused slot name '%s' (it must be a plain file name)"), Operation, *SlotName);
		}
		return Path;
	}

	/** The slot's JSON: our tag, the class path and each saved property's name, type and value. */
	FString WriteDocument(const USaveGame& SaveGame)
	{
		TSharedRef<FJsonObject> Root = MakeShared<FJsonObject>();
		Root->SetStringField(TEXT("Format"), FormatTag);
		Root->SetNumberField(TEXT("Version"), FormatVersion);
		Root->SetStringField(TEXT("Class"), SaveGame.GetClass()->GetPathName());
		TArray<TSharedPtr<FJsonValue>> Properties;
		for (const FProperty* Property : SaveGame.GetClass()->GetAllProperties())
		{
			if (!IsSerializable(*Property))
			{
				continue;
			}
			TSharedPtr<FJsonObject> Entry = MakeShared<FJsonObject>();
			Entry->SetStringField(TEXT("Name"), Property->GetName());
			Entry->SetStringField(TEXT("Type"), Property->GetCPPType());
			Entry->SetField(TEXT("Value"), PropertyValueToJson(*Property, Property->ContainerPtrToValuePtr(&SaveGame)));
			Properties.Add(MakeShared<FJsonValueObject>(Entry));
		}
		Root->SetArrayField(TEXT("Properties"), Properties);
		FString Text;
		FJsonSerializer::Serialize(Root, TJsonWriterFactory<TCHAR>::Create(&Text));
		return Text;
	}

	/** Reads a slot file into a new object; null with the reason in OutError. */
	USaveGame* ReadDocument(const FString& Text, FString& OutError, TArray<FString>& OutValueErrors)
	{
		TSharedPtr<FJsonObject> Root;
		const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(Text);
		if (!FJsonSerializer::Deserialize(Reader, Root) || !Root.IsValid())
		{
			OutError = FString::Printf(TEXT("the file is damaged or truncated (%s)"), *Reader->GetErrorMessage());
			return nullptr;
		}
		FString Format;
		FString ClassPath;
		const TArray<TSharedPtr<FJsonValue>>* Properties = nullptr;
		if (!Root->TryGetStringField(TEXT("Format"), Format) || Format != FormatTag || !Root->TryGetStringField(TEXT("Class"), ClassPath) ||
			!Root->TryGetArrayField(TEXT("Properties"), Properties))
		{
			OutError = TEXT("it is not a save game file");
			return nullptr;
		}
		UClass* Class = FindClassByName(ClassPath);
		if (!Class || !Class->IsChildOf(USaveGame::StaticClass()) || Class->HasAnyClassFlags(CLASS_Abstract))
		{
			OutError = FString::Printf(TEXT("its class '%s' is not a save game class"), *ClassPath);
			return nullptr;
		}
		USaveGame* SaveGame = NewObject<USaveGame>(GetTransientPackage(), Class);
		for (const TSharedPtr<FJsonValue>& Item : *Properties)
		{
			const TSharedPtr<FJsonObject>* Entry = nullptr;
			FString Name;
			if (!Item.IsValid() || !Item->TryGetObject(Entry) || !(*Entry)->TryGetStringField(TEXT("Name"), Name))
			{
				OutValueErrors.Add(TEXT("an entry without a name"));
				continue;
			}
			const FProperty* Property = Class->FindPropertyByName(FName(*Name));
			const TSharedPtr<FJsonValue> Value = (*Entry)->TryGetField(TEXT("Value"));
			if (!Property || !IsSerializable(*Property) || !Value.IsValid())
			{
				continue; // a property this version of the class no longer has keeps nothing
			}
			JsonToPropertyValue(*Property, Property->ContainerPtrToValuePtr(SaveGame), *Value, EObjectReferences::FindOnly, Name, OutValueErrors);
		}
		return SaveGame;
	}
}

FString UGameplayStatics::GetSaveGamePath(const FString& SlotName)
{
	return IsValidSlotName(SlotName) ? SaveGameDir() + SlotName + TEXT(".sav") : FString();
}

USaveGame* UGameplayStatics::CreateSaveGameObject(TSubclassOf<USaveGame> SaveGameClass)
{
	UClass* Class = SaveGameClass.Get();
	if (!Class || Class->HasAnyClassFlags(CLASS_Abstract))
	{
		return nullptr;
	}
	return NewObject<USaveGame>(GetTransientPackage(), Class);
}

bool UGameplayStatics::SaveGameToSlot(USaveGame* SaveGameObject, const FString& SlotName, const int32 UserIndex)
{
	const FString Path = SlotPathOrWarn(SlotName, TEXT("SaveGameToSlot"));
	if (Path.IsEmpty() || !SaveGameObject)
	{
		return false;
	}
	// Write beside the slot, then rename over it: a crash or a full disk mid-write leaves the old slot whole.
	const FString TempPath = Path + TEXT(".tmp");
	IFileManager& FileManager = IFileManager::Get();
	FileManager.MakeDirectory(*SaveGameDir(), true);
	if (!FFileHelper::SaveStringToFile(WriteDocument(*SaveGameObject), *TempPath, FFileHelper::EEncodingOptions::ForceUTF8WithoutBOM))
	{
		UE_LOG(LogSaveGame, Warning, TEXT("SaveGameToSlot: cannot write '%s'; the slot keeps what it held"), *TempPath);
		return false;
	}
	if (!FileManager.Move(*Path, *TempPath, true))
	{
		FileManager.Delete(*TempPath, false, false, true);
		UE_LOG(LogSaveGame, Warning, TEXT("SaveGameToSlot: cannot replace '%s'; the slot keeps what it held"), *Path);
		return false;
	}
	return true;
}

USaveGame* UGameplayStatics::LoadGameFromSlot(const FString& SlotName, const int32 UserIndex)
{
	const FString Path = SlotPathOrWarn(SlotName, TEXT("LoadGameFromSlot"));
	if (Path.IsEmpty() || !FPaths::FileExists(Path))
	{
		return nullptr; // an empty slot is normal, not a problem worth a line
	}
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *Path))
	{
		UE_LOG(LogSaveGame, Warning, TEXT("LoadGameFromSlot: cannot read '%s'"), *Path);
		return nullptr;
	}
	FString Error;
	TArray<FString> ValueErrors;
	USaveGame* SaveGame = ReadDocument(Text, Error, ValueErrors);
	if (!SaveGame)
	{
		UE_LOG(LogSaveGame, Warning, TEXT("LoadGameFromSlot: cannot use '%s': %s"), *Path, *Error);
		return nullptr;
	}
	if (!ValueErrors.IsEmpty())
	{
		UE_LOG(LogSaveGame, Warning, TEXT("LoadGameFromSlot: '%s': kept defaults for %s"), *Path, *FString::Join(ValueErrors, TEXT("; ")));
	}
	return SaveGame;
}

bool UGameplayStatics::DoesSaveGameExist(const FString& SlotName, const int32 UserIndex)
{
	const FString Path = SlotPathOrWarn(SlotName, TEXT("DoesSaveGameExist"));
	return !Path.IsEmpty() && FPaths::FileExists(Path);
}

bool UGameplayStatics::DeleteGameInSlot(const FString& SlotName, const int32 UserIndex)
{
	const FString Path = SlotPathOrWarn(SlotName, TEXT("DeleteGameInSlot"));
	return !Path.IsEmpty() && FPaths::FileExists(Path) && IFileManager::Get().Delete(*Path, true);
}
