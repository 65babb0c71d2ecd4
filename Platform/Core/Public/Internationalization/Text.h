// FText: display text. The stand-in has no localisation; a text keeps its source string and, for
// localisable literals, the namespace and key it was declared with.
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Misc/Optional.h"
#include "Templates/SharedPointer.h"
#include "UObject/NameTypes.h"

class FText
{
public:
	CORE_API FText();

	CORE_API static FText FromString(const FString& String);
	CORE_API static FText FromString(FString&& String);
	static FText FromStringView(FStringView String)
	{
		return FromString(FString(String));
	}
	static FText FromName(const FName& Name)
	{
		return FromString(Name.ToString());
	}
	static FText AsCultureInvariant(const FString& String)
	{
		return FromString(String);
	}
	CORE_API static FText AsNumber(int32 Value);
	CORE_API static FText AsNumber(int64 Value);
	CORE_API static FText AsNumber(double Value);
	CORE_API static const FText& GetEmpty();
	// Replaces {0}, {1}, ... by the arguments' strings.
	CORE_API static FText Format(const FText& Pattern, const TArray<FText>& Arguments);
	template<typename... ArgTypes, typename = std::enable_if_t<(std::is_same_v<std::decay_t<ArgTypes>, FText> && ...)>>
	static FText Format(const FText& Pattern, ArgTypes&&... Args)
	{
		return Format(Pattern, TArray<FText>{FText(Args)...});
	}

	const FString& ToString() const
	{
		return Data->Source;
	}
	bool IsEmpty() const
	{
		return Data->Source.IsEmpty();
	}
	bool IsEmptyOrWhitespace() const
	{
		return Data->Source.TrimStartAndEnd().IsEmpty();
	}
	bool EqualTo(const FText& Other) const
	{
		return Data->Source.Equals(Other.Data->Source);
	}
	bool IdenticalTo(const FText& Other) const
	{
		return Data == Other.Data;
	}
	bool IsCultureInvariant() const
	{
		return Data->Key.IsEmpty();
	}
	FText ToUpper() const
	{
		return FromString(Data->Source.ToUpper());
	}
	FText ToLower() const
	{
		return FromString(Data->Source.ToLower());
	}

	// Localisable literal, as LOCTEXT and NSLOCTEXT make it.
	CORE_API static FText FromLiteral(const TCHAR* Source, const TCHAR* Namespace, const TCHAR* Key);

private:
	friend class FTextInspector;
	struct FData
	{
		FString Source;
		FString Namespace;
		FString Key;
	};
	explicit FText(TSharedRef<const FData> InData)
		: Data(MoveTemp(InData))
	{
	}

	TSharedRef<const FData> Data;
};

class FTextInspector
{
public:
	static TOptional<FString> GetNamespace(const FText& Text)
	{
		return Text.Data->Key.IsEmpty() ? TOptional<FString>() : TOptional<FString>(Text.Data->Namespace);
	}
	static TOptional<FString> GetKey(const FText& Text)
	{
		return Text.Data->Key.IsEmpty() ? TOptional<FString>() : TOptional<FString>(Text.Data->Key);
	}
	static const FString* GetSourceString(const FText& Text)
	{
		return &Text.Data->Source;
	}
};

class FInternationalization
{
public:
	static FText ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(const TCHAR* InTextLiteral, const TCHAR* InNamespace, const TCHAR* InKey)
	{
		return FText::FromLiteral(InTextLiteral, InNamespace, InKey);
	}
};

#define NSLOCTEXT(InNamespace, InKey, InTextLiteral) FInternationalization::ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(TEXT(InTextLiteral), TEXT(InNamespace), TEXT(InKey))
#define LOCTEXT(InKey, InTextLiteral) FInternationalization::ForUseOnlyByLocMacroAndGraphNodeTextLiterals_CreateText(TEXT(InTextLiteral), TEXT(LOCTEXT_NAMESPACE), TEXT(InKey))
#define INVTEXT(InTextLiteral) FText::AsCultureInvariant(TEXT(InTextLiteral))
