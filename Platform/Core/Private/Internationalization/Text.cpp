#include "Internationalization/Text.h"

FText::FText()
	: Data(GetEmpty().Data)
{
}

FText FText::FromString(const FString& String)
{
	return FText(MakeShared<const FData>(FData{String, FString(), FString()}));
}

FText FText::FromString(FString&& String)
{
	return FText(MakeShared<const FData>(FData{MoveTemp(String), FString(), FString()}));
}

FText FText::FromLiteral(const TCHAR* Source, const TCHAR* Namespace, const TCHAR* Key)
{
	return FText(MakeShared<const FData>(FData{FString(Source), FString(Namespace), FString(Key)}));
}

FText FText::AsNumber(int32 Value)
{
	return FromString(FString::Printf(TEXT("%d"), Value));
}

FText FText::AsNumber(int64 Value)
{
	return FromString(FString::Printf(TEXT("%lld"), Value));
}

FText FText::AsNumber(double Value)
{
	return FromString(FString::SanitizeFloat(Value, 0));
}

const FText& FText::GetEmpty()
{
	static const FText Empty(MakeShared<const FData>());
	return Empty;
}

FText FText::Format(const FText& Pattern, const TArray<FText>& Arguments)
{
	FString Result = Pattern.ToString();
	for (int32 Index = 0; Index < Arguments.Num(); ++Index)
	{
		Result.ReplaceInline(*FString::Printf(TEXT("{%d}"), Index), *Arguments[Index].ToString(), ESearchCase::CaseSensitive);
	}
	return FromString(MoveTemp(Result));
}
