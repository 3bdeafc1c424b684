// Reads ".uasset" documents of class "WidgetBlueprint" into UWidgetBlueprintGeneratedClass: the
// parent class, the designed tree, the defaults and the animations. The whole document is checked
// before the class is made, so a broken asset leaves nothing behind under its name.

#include "Animation/WidgetAnimation.h"
#include "Assets/AssetReaders.h"
#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Components/SlateWrapperTypes.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "UObject/Enum.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

#include <algorithm>

namespace
{
	/** An animation as read, before its object exists. */
	struct FAnimationRecord
	{
		FString Name;
		float Length = 0.0f;
		TArray<FWidgetAnimationTrack> Tracks;
	};

	/** A class named by an asset: a blueprint path under /Game, or a registered class name or path. */
	UClass* ResolveClass(const FString& Name)
	{
		if (Name.StartsWith(TEXT("/Game/")))
		{
			return Cast<UClass>(StaticLoadObject(UClass::StaticClass(), nullptr, *Name));
		}
		if (UClass* Found = FindClassByName(Name))
		{
			return Found;
		}
		// "UButton" as C++ spells it is registered as "Button".
		return Name.Len() > 1 && (Name[0] == TEXT('U')) ? FindClassByName(Name.RightChop(1)) : nullptr;
	}

	bool ReadNode(const FJsonObject& Json, FWidgetTemplateNode& Out, FString& OutError)
	{
		FString Name, ClassName;
		if (!Json.TryGetStringField(TEXT("Name"), Name) || Name.IsEmpty())
		{
			OutError = TEXT("a widget of the tree has no \"Name\"");
			return false;
		}
		if (!Json.TryGetStringField(TEXT("Class"), ClassName))
		{
			OutError = FString::Printf(TEXT("widget '%s' has no \"Class\""), *Name);
			return false;
		}
		Out.Name = FName(*Name);
		Out.WidgetClass = ResolveClass(ClassName);
		if (!Out.WidgetClass || !Out.WidgetClass->IsChildOf(UWidget::StaticClass()))
		{
			OutError = FString::Printf(TEXT("widget '%s' names the class '%s', which is no widget class"), *Name, *ClassName);
			return false;
		}
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (Json.TryGetObjectField(TEXT("Properties"), Object))
		{
			Out.Properties = *Object;
		}
		if (Json.TryGetObjectField(TEXT("Slot"), Object))
		{
			Out.Slot = *Object;
		}
		const TArray<TSharedPtr<FJsonValue>>* Children = nullptr;
		if (Json.TryGetArrayField(TEXT("Children"), Children))
		{
			for (const TSharedPtr<FJsonValue>& ChildValue : *Children)
			{
				if (!ChildValue || !ChildValue->TryGetObject(Object))
				{
					OutError = FString::Printf(TEXT("a child of widget '%s' is not an object"), *Name);
					return false;
				}
				FWidgetTemplateNode& Child = Out.Children.AddDefaulted_GetRef();
				if (!ReadNode(**Object, Child, OutError))
				{
					return false;
				}
			}
		}
		return true;
	}

	/** A key's value: a number, [x, y], or a visibility name. */
	bool ReadKeyValue(EWidgetAnimatedProperty Property, const TSharedPtr<FJsonValue>& Value, FVector2D& Out)
	{
		double Number = 0.0;
		const TArray<TSharedPtr<FJsonValue>>* Pair = nullptr;
		FString Text;
		switch (Property)
		{
		case EWidgetAnimatedProperty::RenderOpacity:
			if (Value->Type != EJson::Number || !Value->TryGetNumber(Number))
			{
				return false;
			}
			Out = FVector2D(Number, 0.0);
			return true;
		case EWidgetAnimatedProperty::RenderTranslation:
			if (!Value->TryGetArray(Pair) || Pair->Num() != 2 || !(*Pair)[0]->TryGetNumber(Out.X) || !(*Pair)[1]->TryGetNumber(Out.Y))
			{
				return false;
			}
			return true;
		case EWidgetAnimatedProperty::Visibility:
			if (Value->Type == EJson::String && Value->TryGetString(Text))
			{
				const int64 Entry = StaticEnum<ESlateVisibility>()->GetValueByNameString(Text);
				if (Entry == INDEX_NONE)
				{
					return false;
				}
				Out = FVector2D(double(Entry), 0.0);
				return true;
			}
			if (Value->Type == EJson::Number && Value->TryGetNumber(Number) && Number >= 0.0 && Number <= double(ESlateVisibility::SelfHitTestInvisible))
			{
				Out = FVector2D(Number, 0.0);
				return true;
			}
			return false;
		}
		return false;
	}

	bool ReadTrack(const FJsonObject& Json, const FString& AnimationName, FWidgetAnimationTrack& Out, FString& OutError)
	{
		FString Widget, Property;
		const TArray<TSharedPtr<FJsonValue>>* Keys = nullptr;
		if (!Json.TryGetStringField(TEXT("Widget"), Widget) || !Json.TryGetStringField(TEXT("Property"), Property) || !Json.TryGetArrayField(TEXT("Keys"), Keys))
		{
			OutError = FString::Printf(TEXT("animation '%s' has a track without \"Widget\", \"Property\" or \"Keys\""), *AnimationName);
			return false;
		}
		Out.WidgetName = FName(*Widget);
		if (Property == TEXT("RenderOpacity"))
		{
			Out.Property = EWidgetAnimatedProperty::RenderOpacity;
		}
		else if (Property == TEXT("RenderTranslation"))
		{
			Out.Property = EWidgetAnimatedProperty::RenderTranslation;
		}
		else if (Property == TEXT("Visibility"))
		{
			Out.Property = EWidgetAnimatedProperty::Visibility;
		}
		else
		{
			OutError = FString::Printf(TEXT("animation '%s' animates '%s', which is not RenderOpacity, RenderTranslation or Visibility"), *AnimationName, *Property);
			return false;
		}
		for (const TSharedPtr<FJsonValue>& KeyValue : *Keys)
		{
			const TArray<TSharedPtr<FJsonValue>>* Key = nullptr;
			FWidgetAnimationKey Parsed;
			double Time = 0.0;
			if (!KeyValue || !KeyValue->TryGetArray(Key) || Key->Num() != 2 || (*Key)[0]->Type != EJson::Number || !(*Key)[0]->TryGetNumber(Time)
				|| !ReadKeyValue(Out.Property, (*Key)[1], Parsed.Value))
			{
				OutError = FString::Printf(TEXT("animation '%s', track '%s' %s: a key must be [time, value] with a %s value"), *AnimationName, *Widget, *Property,
					Out.Property == EWidgetAnimatedProperty::RenderTranslation ? TEXT("[x, y]") : (Out.Property == EWidgetAnimatedProperty::Visibility ? TEXT("visibility") : TEXT("number")));
				return false;
			}
			Parsed.Time = float(Time);
			Out.Keys.Add(Parsed);
		}
		std::stable_sort(Out.Keys.begin(), Out.Keys.end(), [](const FWidgetAnimationKey& A, const FWidgetAnimationKey& B) { return A.Time < B.Time; });
		return true;
	}

	bool ReadAnimations(const FJsonObject& Root, TArray<FAnimationRecord>& Out, FString& OutError)
	{
		const TArray<TSharedPtr<FJsonValue>>* Animations = nullptr;
		if (!Root.TryGetArrayField(TEXT("Animations"), Animations))
		{
			return true;
		}
		for (const TSharedPtr<FJsonValue>& Value : *Animations)
		{
			const TSharedPtr<FJsonObject>* Json = nullptr;
			FAnimationRecord& Record = Out.AddDefaulted_GetRef();
			if (!Value || !Value->TryGetObject(Json) || !(*Json)->TryGetStringField(TEXT("Name"), Record.Name) || Record.Name.IsEmpty())
			{
				OutError = TEXT("an animation has no \"Name\"");
				return false;
			}
			(*Json)->TryGetNumberField(TEXT("Length"), Record.Length);
			const TArray<TSharedPtr<FJsonValue>>* Tracks = nullptr;
			if (!(*Json)->TryGetArrayField(TEXT("Tracks"), Tracks))
			{
				continue;
			}
			for (const TSharedPtr<FJsonValue>& TrackValue : *Tracks)
			{
				const TSharedPtr<FJsonObject>* TrackJson = nullptr;
				if (!TrackValue || !TrackValue->TryGetObject(TrackJson))
				{
					OutError = FString::Printf(TEXT("animation '%s' has a track that is not an object"), *Record.Name);
					return false;
				}
				if (!ReadTrack(**TrackJson, Record.Name, Record.Tracks.AddDefaulted_GetRef(), OutError))
				{
					return false;
				}
			}
		}
		return true;
	}

	/** Files being read right now, to refuse a blueprint that contains itself. */
	TArray<FString>& FilesBeingRead()
	{
		static TArray<FString> Files;
		return Files;
	}

	UObject* ReadWidgetBlueprint(const UE::Assets::FAssetDocument& Document, FString& OutError)
	{
		const FString AssetName = Document.ObjectName.EndsWith(TEXT("_C")) ? Document.ObjectName.LeftChop(2) : Document.ObjectName;
		const FName ClassName(*(AssetName + TEXT("_C")));
		if (UObject* Existing = StaticFindObjectFast(UWidgetBlueprintGeneratedClass::StaticClass(), Document.Package, ClassName))
		{
			return Existing;
		}
		if (FilesBeingRead().Contains(Document.FilePath))
		{
			OutError = TEXT("the widget blueprint contains itself");
			return nullptr;
		}
		FilesBeingRead().Add(Document.FilePath);
		struct FGuard
		{
			FString File;
			~FGuard() { FilesBeingRead().Remove(File); }
		} Guard{ Document.FilePath };

		const FJsonObject& Root = *Document.Root;
		FString ParentName;
		if (!Root.TryGetStringField(TEXT("ParentClass"), ParentName))
		{
			OutError = TEXT("no \"ParentClass\"");
			return nullptr;
		}
		UClass* Parent = ParentName.StartsWith(TEXT("/Game/")) ? nullptr : ResolveClass(ParentName);
		if (!Parent || !Parent->IsChildOf(UUserWidget::StaticClass()))
		{
			OutError = FString::Printf(TEXT("the parent class '%s' is not a native user widget class"), *ParentName);
			return nullptr;
		}
		TSharedPtr<FWidgetTemplateNode> Tree;
		const TSharedPtr<FJsonObject>* TreeJson = nullptr;
		if (Root.TryGetObjectField(TEXT("Tree"), TreeJson))
		{
			Tree = MakeShared<FWidgetTemplateNode>();
			if (!ReadNode(**TreeJson, *Tree, OutError))
			{
				return nullptr;
			}
		}
		TArray<FAnimationRecord> Animations;
		if (!ReadAnimations(Root, Animations, OutError))
		{
			return nullptr;
		}

		UWidgetBlueprintGeneratedClass* Class = NewObject<UWidgetBlueprintGeneratedClass>(Document.Package, UWidgetBlueprintGeneratedClass::StaticClass(), ClassName, RF_Public | RF_Standalone);
		Class->SetSuperStruct(Parent);
		Class->SetStructureSize(Parent->GetStructureSize());
		Class->SetClassFlags(CLASS_CompiledFromBlueprint | CLASS_Blueprintable | CLASS_BlueprintType);
		Class->SetWidgetTreeTemplate(Tree);
		Class->SetAssetFile(Document.FilePath);
		const TSharedPtr<FJsonObject>* Defaults = nullptr;
		if (Root.TryGetObjectField(TEXT("Defaults"), Defaults))
		{
			Class->SetDefaults(*Defaults);
		}
		for (FAnimationRecord& Record : Animations)
		{
			UWidgetAnimation* Animation = NewObject<UWidgetAnimation>(Class, UWidgetAnimation::StaticClass(), FName(*(Record.Name + TEXT("_INST"))));
			Animation->SetLength(Record.Length);
			Animation->SetTracks(MoveTemp(Record.Tracks));
			Class->Animations.Add(Animation);
		}
		return Class;
	}

	/** Hooks the reader into the asset loader when the module loads. */
	struct FRegisterWidgetBlueprintReader
	{
		FRegisterWidgetBlueprintReader() { UE::Assets::RegisterAssetReader(TEXT("WidgetBlueprint"), &ReadWidgetBlueprint); }
	} GRegisterWidgetBlueprintReader;
}
