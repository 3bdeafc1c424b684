// The .uasset loader behind StaticLoadObject: path forms, property kinds, caching, custom
// readers and what bad assets give.

#include "AssetLoaderTestTypes.h"

#include "Assets/AssetReaders.h"
#include "Dom/JsonObject.h"
#include "ScratchProject.h"
#include "UObject/GarbageCollection.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"

using FAssetLoading = FScratchProject;

TEST_F(FAssetLoading, LoadsMaterialsAndReflectedPropertiesOnceUnderEveryPathForm)
{
	Write("Content/Movies/M_Video.uasset",
		R"({"Class": "/Script/Engine.Material", "Properties": {"VideoTextureParameter": "MovieTex", "BaseColor": {"R": 0.5}}})");
	Write("Content/Data/Thing.uasset", R"({"Class": "AssetTestThing", "Properties": {
		"Count": 42, "Scale": "2.5", "bOn": true, "Title": "Lesson 1", "Id": "Intro", "Label": "Play",
		"Mode": "Embedded", "Material": "/Game/Movies/M_Video.M_Video", "Values": [1, 2, 3],
		"Things": ["/Game/Data/Thing.Thing", null], "Range": {"Max": 9},
		"MaterialClass": "/Script/Engine.Material", "NoSuchProperty": 1}})");

	UMaterial* Material = LoadObject<UMaterial>(nullptr, TEXT("/Game/Movies/M_Video.M_Video"));
	ASSERT_NE(Material, nullptr);
	EXPECT_EQ(Material->GetVideoTextureParameter(), FName(TEXT("MovieTex")));
	EXPECT_EQ(Material->GetBaseColor().R, 0.5f);
	EXPECT_EQ(Material->GetBaseColor().G, 1.f) << "fields not in the asset keep their defaults";
	EXPECT_TRUE(Material->HasAnyFlags(RF_Standalone | RF_Public));
	EXPECT_EQ(Material->GetPathName(), FString(TEXT("/Game/Movies/M_Video.M_Video")));

	// Every form of the path gives the same object; the file is read once.
	Write("Content/Movies/M_Video.uasset", "changed on disk: must not be read again");
	EXPECT_EQ(StaticLoadObject(UMaterial::StaticClass(), nullptr, TEXT("/Game/Movies/M_Video.M_Video")), Material);
	EXPECT_EQ(StaticLoadObject(UMaterial::StaticClass(), nullptr, TEXT("/Game/Movies/M_Video")), Material);
	EXPECT_EQ(StaticLoadObject(UMaterial::StaticClass(), nullptr, TEXT("Material'/Game/Movies/M_Video.M_Video'")), Material);
	CollectGarbage();
	EXPECT_EQ(LoadObject<UMaterial>(nullptr, TEXT("/Game/Movies/M_Video.M_Video")), Material) << "loaded assets survive collection";

	UAssetTestThing* Thing = LoadObject<UAssetTestThing>(nullptr, TEXT("/Game/Data/Thing.Thing"));
	ASSERT_NE(Thing, nullptr);
	EXPECT_EQ(Thing->Count, 42);
	EXPECT_EQ(Thing->Scale, 2.5f);
	EXPECT_TRUE(Thing->bOn);
	EXPECT_TRUE(Thing->Title.Equals(TEXT("Lesson 1")));
	EXPECT_EQ(Thing->Id, FName(TEXT("Intro")));
	EXPECT_TRUE(Thing->Label.ToString().Equals(TEXT("Play")));
	EXPECT_EQ(Thing->Mode, EAssetTestMode::Embedded);
	EXPECT_EQ(Thing->Material, Material);
	EXPECT_EQ(Thing->Values, (TArray<int32>{1, 2, 3}));
	ASSERT_EQ(Thing->Things.Num(), 2);
	EXPECT_EQ(Thing->Things[0], Thing) << "a self reference resolves to the object being loaded";
	EXPECT_EQ(Thing->Things[1], nullptr);
	EXPECT_EQ(Thing->Range.Min, 0.f);
	EXPECT_EQ(Thing->Range.Max, 9.f);
	EXPECT_EQ(Thing->MaterialClass.Get(), UMaterial::StaticClass());
	EXPECT_EQ(CountAllWarnings(), 0);
}

TEST_F(FAssetLoading, BadAssetsGiveNullOrDefaultsWithOneWarningNamingTheFile)
{
	Write("Content/Bad/Malformed.uasset", R"({"Class": "Material", "Properties": {)");
	Write("Content/Bad/NoClass.uasset", R"({"Properties": {}})");
	Write("Content/Bad/Unknown.uasset", R"({"Class": "/Script/Engine.NoSuchClass"})");
	Write("Content/Bad/Abstract.uasset", R"({"Class": "MaterialInterface"})");
	Write("Content/Bad/Thing.uasset", R"({"Class": "AssetTestThing"})");
	const std::pair<const TCHAR*, const TCHAR*> Cases[] = {
		{TEXT("/Game/Bad/Missing.Missing"), TEXT("Missing.uasset")},
		{TEXT("/Game/Bad/Malformed.Malformed"), TEXT("Malformed.uasset")},
		{TEXT("/Game/Bad/NoClass.NoClass"), TEXT("NoClass.uasset")},
		{TEXT("/Game/Bad/Unknown.Unknown"), TEXT("NoSuchClass")},
		{TEXT("/Game/Bad/Abstract.Abstract"), TEXT("abstract")},
		{TEXT("/Game/Bad/Thing.Thing"), TEXT("not a Material")},
		{TEXT("/Game/../Escape.Escape"), TEXT("not an asset path")},
	};
	for (const auto& [AssetPath, Problem] : Cases)
	{
		UE::Log::ClearCapturedLines();
		EXPECT_EQ(LoadObject<UMaterial>(nullptr, AssetPath), nullptr) << FTCHARToUTF8(AssetPath).Get();
		EXPECT_EQ(CountWarnings(TEXT("LogStreaming"), TEXT("")), 1) << FTCHARToUTF8(AssetPath).Get();
		EXPECT_EQ(CountWarnings(TEXT("LogStreaming"), Problem), 1) << FTCHARToUTF8(AssetPath).Get();
	}
	EXPECT_NE(LoadObject<UAssetTestThing>(nullptr, TEXT("/Game/Bad/Thing.Thing")), nullptr) << "the right class still loads it";

	// Bad values: the asset loads, each bad property keeps its default, one warning lists them.
	Write("Content/Bad/Values.uasset", R"({"Class": "AssetTestThing", "Properties": {
		"Count": 1.5, "Scale": 3, "Mode": "Sideways", "Material": "/Game/Bad/Thing.Thing", "Values": "oops"}})");
	UE::Log::ClearCapturedLines();
	UAssetTestThing* Values = LoadObject<UAssetTestThing>(nullptr, TEXT("/Game/Bad/Values.Values"));
	ASSERT_NE(Values, nullptr);
	EXPECT_EQ(Values->Count, 0);
	EXPECT_EQ(Values->Scale, 3.f);
	EXPECT_EQ(Values->Mode, EAssetTestMode::Off);
	EXPECT_EQ(Values->Material, nullptr);
	EXPECT_TRUE(Values->Values.IsEmpty());
	EXPECT_EQ(CountWarnings(TEXT("LogStreaming"), TEXT("Values.uasset")), 1);
	EXPECT_EQ(CountWarnings(TEXT("LogStreaming"), TEXT("Sideways")), 1);
}

TEST_F(FAssetLoading, RegisteredReadersTakeTheirClassesAndSeeTheDocument)
{
	Write("Content/UI/WBP_Player.uasset", R"({"Class": "/Script/UMGEditor.TestBlueprint", "ParentClass": "Material", "Properties": {"VideoTextureParameter": "Tex"}})");
	Write("Content/UI/WBP_Broken.uasset", R"({"Class": "TestBlueprint"})");
	int32 Reads = 0;
	UE::Assets::RegisterAssetReader(TEXT("TestBlueprint"), [&Reads](const UE::Assets::FAssetDocument& Document, FString& OutError) -> UObject*
		{
			++Reads;
			FString Parent;
			if (!Document.Root->TryGetStringField(TEXT("ParentClass"), Parent))
			{
				OutError = TEXT("no parent class");
				return nullptr;
			}
			UObject* Made = NewObject<UObject>(Document.Package, FindClassByName(Parent), FName(*Document.ObjectName), RF_Public | RF_Standalone);
			UE::Assets::ApplyJsonProperties(Made, *Document.Root->GetObjectField(TEXT("Properties")), OutError);
			return Made;
		});
	UMaterial* Made = LoadObject<UMaterial>(nullptr, TEXT("/Game/UI/WBP_Player.WBP_Player_C"));
	ASSERT_NE(Made, nullptr);
	EXPECT_EQ(Made->GetName(), FString(TEXT("WBP_Player_C")));
	EXPECT_EQ(Made->GetVideoTextureParameter(), FName(TEXT("Tex")));
	EXPECT_EQ(LoadObject<UMaterial>(nullptr, TEXT("/Game/UI/WBP_Player.WBP_Player_C")), Made);
	EXPECT_EQ(Reads, 1);

	EXPECT_EQ(LoadObject<UMaterial>(nullptr, TEXT("/Game/UI/WBP_Broken.WBP_Broken_C")), nullptr);
	EXPECT_EQ(CountWarnings(TEXT("LogStreaming"), TEXT("no parent class")), 1);
	UE::Assets::RegisterAssetReader(TEXT("TestBlueprint"), nullptr);
}
