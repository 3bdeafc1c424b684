#include "Internationalization/Text.h"

#include "UObject/NameTypes.h"

namespace
{
	const FString& EmptyString()
	{
		static const FString* const Empty = new FString();
		return *Empty;
	}
}

FText::FText() = default;

FText::FText(std::shared_ptr<const FData> InData)
	: Data(std::move(InData))
{
}

FText FText::FromString(const FString& String)
{
	return FText(std::make_shared<const FData>(FData{String, FString(), FString()}));
}

FText FText::FromName(const FName& Name)
{
	return FromString(Name.ToString());
}

FText FText::AsCultureInvariant(const FString& String)
{
	return FromString(String);
}

const FText& FText::GetEmpty()
{
	static const FText* const Empty = new FText();
	return *Empty;
}

FText FInternationalization::ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(const TCHAR* InTextLiteral, const TCHAR* InNamespace,
	const TCHAR* InKey)
{
	return FText(std::make_shared<const FText::FData>(FText::FData{FString(InTextLiteral), FString(InNamespace), FString(InKey)}));
}

const FString& FText::ToString() const
{
	return Data ? Data->Display : EmptyString();
}

bool FText::EqualTo(const FText& Other, ETextComparisonLevel::Type ComparisonLevel) const
{
	const ESearchCase::Type SearchCase = ComparisonLevel == ETextComparisonLevel::Primary ? ESearchCase::IgnoreCase : ESearchCase::CaseSensitive;
	return ToString().Equals(Other.ToString(), SearchCase);
}

FText FText::ToUpper() const
{
	return FromString(ToString().ToUpper());
}

FText FText::ToLower() const
{
	return FromString(ToString().ToLower());
}

FString FTextInspector::GetNamespace(const FText& Text)
{
	return Text.Data ? Text.Data->Namespace : FString();
}

FString FTextInspector::GetKey(const FText& Text)
{
	return Text.Data ? Text.Data->Key : FString();
}
